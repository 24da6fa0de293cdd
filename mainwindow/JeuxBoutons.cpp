#include "mainwindow/JeuxBoutons.h"

#include <initializer_list>

#include "mainwindow/FenetreTissagePrincipale.h"

namespace {
void Voir(std::initializer_list<int> boutons, bool visibles) {
  for (int i : boutons) fenetre.BoutonProgramme[i].Visible = visibles;
}

void VoirDrapeaux(bool visibles) {
  fenetre.Drapeau[1].Visible = fenetre.Drapeau[2].Visible = fenetre.ShDrapeau.Visible = visibles;
}
}  // namespace

void CacherBoutonsTissage() {
  Voir({4, 5, 17, 6, 7, 8}, false);
  Voir({16}, true);
}

void MontrerBoutonsTissage() {
  Voir({16}, false);
  Voir({4, 5, 17, 6, 7, 8}, true);
}

void MontrerDepartArret() { Voir({9, 10}, true); }
void CacherDepartArret() { Voir({9, 10}, false); }

void CacherCommandesPrincipales() {
  Voir({0, 1, 2, 3, 9, 10, 14, 18, 16}, false);
  VoirDrapeaux(false);
}

void MontrerCommandesPrincipales() {
  Voir({0, 1, 3, 14, 18, 16}, true);
  VoirDrapeaux(true);
  if (fenetre.PatronCharge) MontrerDepartArret();
}
