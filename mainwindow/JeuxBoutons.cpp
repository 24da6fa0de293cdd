#include "mainwindow/JeuxBoutons.h"

#include "session/Commandes.h"
#include "session/FenetreTissagePrincipale.h"
#include "weaving/SequenceurDuites.h"

namespace {
void Voir(JeuBoutons jeu, bool visibles) {
  for (int i = 0; i < Commande::Nombre; ++i)
    if (Fiche(i).jeu == jeu) fenetre.BoutonProgramme[i].Visible = visibles;
}

void VoirDrapeaux(bool visibles) {
  fenetre.Drapeau[1].Visible = fenetre.Drapeau[2].Visible = fenetre.ShDrapeau.Visible = visibles;
}
}  // namespace

void CacherBoutonsTissage() {
  Voir(JeuBoutons::Tissage, false);
  if (fenetre.FondEntreDuite.Visible) FermerEntreeDuite();
  fenetre.BoutonProgramme[Commande::Rafraichir].Visible = true;
}

void MontrerBoutonsTissage() {
  fenetre.BoutonProgramme[Commande::Rafraichir].Visible = false;
  Voir(JeuBoutons::Tissage, true);
}

void MontrerDepartArret() { Voir(JeuBoutons::DepartArret, true); }
void VoirEntrees(bool visibles) { Voir(JeuBoutons::Entree, visibles); }
void CacherDepartArret() { Voir(JeuBoutons::DepartArret, false); }

void CacherCommandesPrincipales() {
  for (JeuBoutons jeu :
       {JeuBoutons::Principal, JeuBoutons::Entree, JeuBoutons::Projet, JeuBoutons::DepartArret})
    Voir(jeu, false);
  VoirDrapeaux(false);
}

void MontrerCommandesPrincipales() {
  Voir(JeuBoutons::Principal, true);
  VoirEntrees(true);
  VoirDrapeaux(true);
  if (fenetre.PatronCharge) MontrerDepartArret();
}
