#include "kit/FenetreLigne.h"

#include "controls/Palette.h"
#include "kit/FondFenetre.h"
#include "platform/Plateforme.h"
#include "session/FenetreTissagePrincipale.h"
#include "session/ModuleTissage.h"

FenetreLigne fenetreLigne;

namespace {
// Over the beam, in twips of the main window: above the draft, and where no command and no panel stands.
constexpr double kGauche = 1710, kHaut = 855, kLargeur = 8760, kHauteur = 1005;
}  // namespace

FenetreLigne::FenetreLigne() {
  Width = kLargeur;
  Height = kHauteur;
  Fenetre::Caption = "Brandis";
  BackColor = Palette::Creme;
  SansSouris = true;
  Placer(LblTitre, 150, 105, kLargeur - 300, 405);
  LblTitre.Font = {"Arial", 16, true, false};
  LblTitre.ForeColor = Palette::Rouge;
  Placer(LblRemarque, 150, 540, kLargeur - 300, 345);
  LblRemarque.Font = {"Arial", 12.75, true, false};
  LblRemarque.ForeColor = Palette::Encre;
  LblTitre.Alignment = LblRemarque.Alignment = Alignement::Centre;
}

void FenetreLigne::Visiter(Visiteur &v) {
  Left = fenetre.Left + kGauche;
  Top = fenetre.Top + kHaut;
  DecalageX = fenetre.DecalageX;
  DecalageY = fenetre.DecalageY;
  LblTitre.Caption = Selon("La ligne du métier est coupée.", "The line to the loom is gone.");
  LblRemarque.Caption =
      Selon("Rebranchez le câble : le tissage continue.", "Plug the cable in: weaving goes on.");
  NomAccessible = LblTitre.Caption + " " + LblRemarque.Caption;
  v.Voir("LblTitre", LblTitre, *this);
  v.Voir("LblRemarque", LblRemarque, *this);
}

void FenetreLigne::Load() {
  Dessin.Refaire(static_cast<int>(kLargeur) / kTwipsParPixel, static_cast<int>(kHauteur) / kTwipsParPixel,
                 BackColor);
  PeindreFondPanneau(Dessin, BackColor);
}

void MontrerLigneCoupee(bool coupee) {
  if (coupee)
    plateforme().Montrer(Charger(fenetreLigne));
  else
    Decharger(fenetreLigne);
}
