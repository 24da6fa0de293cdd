#include "app/Montage.h"

#include "commands/CommandesProgramme.h"
#include "commands/RepriseProjet.h"
#include "display/TenueCompteur.h"
#include "events/Evenements.h"
#include "kit/Attente.h"
#include "kit/BullesInfo.h"
#include "kit/FenetreLigne.h"
#include "kit/FenetreMessage.h"
#include "kit/FenetreMessageCourt.h"
#include "kit/FenetreMessageErreur.h"
#include "kit/FenetreRappel.h"
#include "kit/FeuilleAPropos.h"
#include "kit/FeuilleRemarque.h"
#include "loom/FinSurRapport.h"
#include "mainwindow/CompositionFenetre.h"
#include "session/Commandes.h"
#include "session/DerniereSeance.h"
#include "session/FenetreTissagePrincipale.h"
#include "session/Journal.h"
#include "weaving/RetourLigne.h"

namespace {
void LancerProgramme() {
  const DerniereSeance seance = LireDerniereSeance();
  NoterDepart();
  fenetre.Chargee = true;
  LierEvenements();
  Form_Load();
  RetablirProjet();
  fenetre.Visible = true;
  // It is as large as the messages of the start, and would lie over them.
  if (seance.inachevee) ApresLeMessage([seance] { AfficherRappel(seance); });
}

// The messages of the notification icon reach the window as its pointer moves do.
void TransmettreMessageIcone(int message) {
  const auto bouge = fenetre.MouseMove;
  if (bouge) bouge(0, message * double{kTwipsParPixel}, 0);
}

void NoterLigne(EvenementLigne evenement, const std::string &appareil) {
  const std::string port = "COM " + std::to_string(session.PortMetier) + " : ";
  switch (evenement) {
    case EvenementLigne::Ouverte:
      return Noter(port + Selon("ligne ouverte", "line opened") + " (" + appareil + ")");
    case EvenementLigne::Attendue:
      return Noter(port +
                   Selon("ligne ouverte, le câble manque encore", "line opened, the cable is still out"));
    case EvenementLigne::Coupee:
      return Noter(port + Selon("ligne coupée", "line gone"));
    case EvenementLigne::Revenue:
      return Noter(port + Selon("ligne revenue", "line back") + " (" + appareil + ")");
    case EvenementLigne::Bloquee:
      return Noter(port + Selon("le métier ne prend rien", "the loom takes nothing"));
    case EvenementLigne::Debloquee:
      return Noter(port + Selon("le métier prend à nouveau", "the loom takes again"));
    case EvenementLigne::Fermee:
      return Noter(port + Selon("ligne fermée", "line closed"));
  }
}

// Whoever has to find the place in the cloth again needs the pick more than the number of the failure.
std::string CompleterRapport(const std::string &rapport) {
  const std::string complet = rapport + "\n" + TexteDerniereDuite();
  NoterMessage("Brandis", complet);
  return complet;
}
}  // namespace

const std::vector<Fenetre *> &ToutesFenetres() {
  static const std::vector<Fenetre *> fenetres{&fenetre,
                                               &attente,
                                               &fenetreMessageCourt,
                                               &fenetreMessage,
                                               &fenetreMessageErreur,
                                               &fenetreRappel,
                                               &feuilleRemarque,
                                               &feuilleAPropos,
                                               &fenetreLigne,
                                               &bulleInfoBasGauche,
                                               &bulleInfoHautDroit,
                                               &bulleInfoHautGauche,
                                               &bulleInfoBasDroit};
  return fenetres;
}

void Monter(PlateformeQt &machine) {
  InstallerPlateforme(&machine);
  for (Fenetre *f : ToutesFenetres()) machine.LeMiroir().Ajouter(*f);
  machine.MessageIcone = TransmettreMessageIcone;
  machine.LigneVue = NoterLigne;
  machine.LigneChangee = MontrerEtatLigne;
  machine.LigneRevenue = RenvoyerDuite;
  machine.ApresRapport = RelacherAvantFin;
  machine.FinDemandee = [] { BoutonProgramme_Click(Commande::Quitter); };
  machine.CompleterRapport = CompleterRapport;
  machine.LeMiroir().AvantReflet(TenirCompteur);
  machine.LeMiroir().MessageRepond(FermerMessageCourt);
  machine.LeMiroir().Passer(LancerProgramme);
}
