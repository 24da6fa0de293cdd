#include "mainwindow/PanneauDiagnostic.h"

#include "kit/FondFenetre.h"
#include "kit/ProcedureConnexe.h"
#include "mainwindow/FacesCommandes.h"
#include "session/Commandes.h"
#include "session/FenetreTissagePrincipale.h"

namespace {
void AdapterBande(bool boites17a24, int largeur) {
  for (int i = 17; i <= 24; ++i) fenetre.CheckSelenoide[i].Visible = boites17a24;
  BoitePicture &bande = fenetre.PicPourControle2;
  bande.Width = largeur;
  ChargerIndicateur(fenetre.Indicateur24, session.NombreLames);
  bande.BackColor = Gris(192);
  PreparerSurface(bande);
  PeindreFondPanneau(bande.Dessin, bande.BackColor);
  CentrerHorizontalement(bande, fenetre.PicNor);
}
}  // namespace

void DessinerDiagnostic() {
  for (int i = Commande::Diagnostiquer; i <= Commande::FinirTest; ++i) DessinerBouton(i);
  PreparerSurface(fenetre.PicNor);
  // The frame is painted twice.
  for (int passe = 0; passe < 2; ++passe)
    PeindreFondPanneauOnglet(fenetre.PicNor.Dessin, Selon("Diagnostic", "Diagnostics"),
                             fenetre.PicNor.BackColor);
  fenetre.LblNomTest.Caption = Selon("Auto-Test", "Loom Selt test");
  CentrerSurControle(fenetre.PicNor, fenetre.Picture2);
  fenetre.PicNor.Left -= 300;
}

void AdapterNombreLames() {
  if (session.NombreLames == 16) AdapterBande(false, 4250);
  if (session.NombreLames == 24) AdapterBande(true, 6205);
}
