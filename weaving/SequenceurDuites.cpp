#include "weaving/SequenceurDuites.h"

#include "base/TexteNumerique.h"
#include "display/GrilleDuites.h"
#include "display/Voyants.h"
#include "kit/FondFenetre.h"
#include "kit/ProcedureConnexe.h"
#include "session/Commandes.h"
#include "session/FenetreTissagePrincipale.h"

void DuiteSuivante() {
  if (session.DirectionTissage) {
    DuitePrecedente();
    return;
  }
  ++session.DuiteCourante;
  if (session.DuiteCourante > session.NombreDuites) session.DuiteCourante = 1;
  AfficherDuites(session.DuiteCourante);
  if (!fenetre.BoutonProgramme[Commande::Enregistrer].Visible)
    fenetre.BoutonProgramme[Commande::Enregistrer].Visible = true;
}

void DuitePrecedente() {
  --session.DuiteCourante;
  if (session.DuiteCourante < 1) session.DuiteCourante = session.NombreDuites;
  AfficherDuites(session.DuiteCourante);
  fenetre.BoutonProgramme[Commande::Enregistrer].Visible = true;
}

void BasculerInversion() {
  const bool inverse = session.DirectionTissage;
  PeindreDessin(fenetre.BoutonProgramme[Commande::Inverser], inverse ? "IMG568" : "IMG567", 30, 95);
  PeindreDessin(fenetre.BoutonProgramme[Commande::Avancer], inverse ? "IMG052" : "IMG051", 70, 70);
}

void TxtDuite_KeyDown(int touche) {
  if (touche != Touche::Entree) return;
  const Entier duite = Arrondir(Val(fenetre.TxtDuite.Text));
  if (duite < 0 || duite > session.NombreDuites) return;
  session.DuiteCourante = duite;
  AfficherDuites(session.DuiteCourante);
  fenetre.BoutonProgramme[Commande::Enregistrer].Visible = true;
  FermerEntreeDuite();
}

void FermerEntreeDuite() {
  fenetre.FondEntreDuite.Visible = false;
  ChangerVoyant(Commande::ChoisirDuite, false);
}

int TxtDuite_KeyPress(int code) { return FiltreTouchesNumeriques(code); }
