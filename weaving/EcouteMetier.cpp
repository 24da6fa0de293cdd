#include "weaving/EcouteMetier.h"

#include "kit/FenetreMessageCourt.h"
#include "loom/Protocoles.h"
#include "session/FenetreTissagePrincipale.h"
#include "session/Journal.h"
#include "weaving/SequenceurDuites.h"

namespace {
void SuivreRapport() {
  session.Etat = EtatEtape::CycleComplet;
  NoterRapport();
  Poursuivre(DuiteSuivante);
  EcrireRapport();
}

void LaisserPasser() {
  session.Etat = EtatEtape::Echec;
  Poursuivre([] { plateforme().DoEvents(); });
  Poursuivre([] { MSComm1().InputLen(0); });
}
}  // namespace

void Timer3_Timer() {
  if (!fenetre.PortOuvert || fenetre.Timer3.Interval() == 0) return;
  std::string recu;
  Poursuivre([&recu] { recu = MSComm1().Input(); });
  if (recu.empty()) return;
  const Protocole &p = LeProtocole();
  if (p.rapportParLecture) {
    if (recu.find(p.rapport) != std::string::npos)
      SuivreRapport();
    else
      LaisserPasser();
    return;
  }
  for (char c : recu) {
    if (c == *p.rapport)
      SuivreRapport();
    else
      LaisserPasser();
  }
}

void ActiverEcouteMetier() {
  fenetre.Timer3.Interval(fenetre.IntervalleEcoute);
  Timer3_Timer();
}

void ArreterEcouteMetier() { fenetre.Timer3.Interval(0); }
