#include "loom/PortMetier.h"

#include "base/TexteNumerique.h"
#include "kit/FenetreMessageCourt.h"
#include "loom/Protocoles.h"
#include "session/Commandes.h"
#include "session/FenetreTissagePrincipale.h"
#include "session/Journal.h"

namespace {
// An open port is no failure of opening; every other failure ends the procedure.
template <class F>
void SaufDejaOuvert(F &&etape) {
  try {
    etape();
  } catch (const ErreurExecution &e) {
    if (e.Number() != Erreur::PortDejaOuvert) throw;
  }
}

void EcrireEtatLigne(const std::string &texte, int nombre) {
  fenetre.Text1.Text += texte + Str(nombre) + "\r\n";
}

// Everything is read before the box is written to: a failing port leaves what the weaver has typed there.
void MontrerReglages() {
  (void)MSComm1().Handshaking();
  (void)MSComm1().OutBufferSize();
  const int restent = MSComm1().OutBufferCount();
  (void)MSComm1().DTREnable();
  const int evenement = MSComm1().CommEvent(), seuil = MSComm1().SThreshold();
  fenetre.Text1.Text.clear();
  EcrireEtatLigne("Taille Tampon Transmission% = ", 0);  // has no source, shows 0 always
  EcrireEtatLigne("Taille Caractere dans Tampon% = ", restent);
  EcrireEtatLigne("ErreurEvenement% = ", evenement);
  EcrireEtatLigne("CaractereMinimumDansTampon% = ", seuil);
}

// Asks the port for the rest of its state, with which nothing is done.
void LireEtatLigne() {
  (void)MSComm1().ParityReplace();
  (void)MSComm1().Settings();
  (void)MSComm1().SThreshold();
  (void)MSComm1().InputLen();
  (void)MSComm1().InBufferCount();
  MSComm1().InputMode(0);
  (void)MSComm1().InputMode();
}
}  // namespace

void OuvrirPort() {
  try {
    SaufDejaOuvert([] { MSComm1().CommPort(session.PortMetier); });
    if (const char *reglages = LeProtocole().reglages) MSComm1().Settings(reglages);
    if (!MSComm1().PortOpen()) SaufDejaOuvert([] { MSComm1().PortOpen(true); });
    MontrerReglages();
    LireEtatLigne();
    fenetre.PortOuvert = true;
    session.Etat = EtatEtape::Reussi;
  } catch (const ErreurExecution &e) {
    session.Etat = EtatEtape::Echec;
    AfficherErreurNumerotee(e);
    if (e.Number() != Erreur::PortInutilisable) return;
    fenetreMessageCourt.Ligne[3].Caption = MSComm1().RaisonRefus();
    Noter(MSComm1().RaisonRefus());
    // The weaver must be able to reach the choice of the port.
    fenetre.BoutonProgramme[Commande::Configurer].Visible = true;
  }
}

void OuvrirAuBesoin() {
  if (!MSComm1().PortOpen()) OuvrirPort();
}

void RelacherMetier() {
  const Protocole &p = LeProtocole();
  if (p.rouvre) OuvrirAuBesoin();
  if (p.Relacher) p.Relacher();
}

void FermerPort() {
  try {
    plateforme().DoEvents();
    if (MSComm1().PortOpen()) {
      MSComm1().Output(kLiberer24);
      MSComm1().PortOpen(false);
      fenetre.PortOuvert = false;
    }
    session.Etat = EtatEtape::Reussi;
  } catch (const ErreurExecution &e) {
    session.Etat = EtatEtape::Echec;
    AfficherErreurNumerotee(e);
  }
}
