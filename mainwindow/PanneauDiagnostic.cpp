#include "mainwindow/PanneauDiagnostic.h"

#include "kit/FondFenetre.h"
#include "kit/ProcedureConnexe.h"
#include "loom/Protocoles.h"
#include "mainwindow/FacesCommandes.h"
#include "session/Commandes.h"
#include "session/FenetreTissagePrincipale.h"

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
  const Protocole &p = LeProtocole();
  if (p.lames == 0) return;
  for (int i = 17; i <= 24; ++i) fenetre.CheckSelenoide[i].Visible = i <= p.lames;
  BoitePicture &bande = fenetre.PicPourControle2;
  bande.Width = p.largeurBande;
  ChargerIndicateur(fenetre.Indicateur24, p.lames);
  bande.BackColor = Gris(192);
  EncadrerBande(bande, fenetre.Indicateur24);
  CentrerHorizontalement(bande, fenetre.PicNor);
}
