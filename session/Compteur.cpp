#include "session/Compteur.h"

#include "controls/Palette.h"

namespace {
void PlacerPixels(Controle &c, int gauche, int haut, int largeur, int hauteur) {
  Placer(c, gauche * kTwipsParPixel, haut * kTwipsParPixel, largeur * kTwipsParPixel,
         hauteur * kTwipsParPixel);
}
}  // namespace

PanneauCompteur::PanneauCompteur() {
  constexpr int kSigne = 42, kPremierSigne = 267, kPasSigne = 64, kHautSigne = 6;  // pixels
  PlacerPixels(*this, 150, 56, 458, 65);
  Picture = "FondCompteur";
  Facultative = Annonce = true;
  // Figures of 39 pixels, from 8 on; what lies above them in their line is cut off by the board.
  PlacerPixels(LblNumero, 10, -4, 138, 65);
  LblNumero.Font = {"Arial", 42, true, false};
  LblNumero.ForeColor = Palette::Creme;
  PlacerPixels(LblTotal, 150, 27, 98, 26);
  LblTotal.Font = {"Arial", 16.5, true, false};
  LblTotal.ForeColor = Palette::BoisBlond;
  PlacerPixels(LblInvite, 14, 8, 430, 46);
  LblInvite.Font = {"Arial", 15, true, false};
  LblInvite.ForeColor = Palette::Creme;
  LblInvite.Alignment = Alignement::Centre;
  LblInvite.Agrandi = true;
  LblNumero.Serre = LblTotal.Serre = true;
  PlacerPixels(Gorge, 256, 50, 194, 9);
  PlacerPixels(Ruban, 257, 51, 0, 7);
  int gauche = kPremierSigne;
  for (Image *signe : {&SigneArmure, &SigneSens, &SigneEtat}) {
    PlacerPixels(*signe, gauche, kHautSigne, kSigne, kSigne);
    gauche += kPasSigne;
  }
  for (Image *image : {&Gorge, &Ruban, &SigneArmure, &SigneSens, &SigneEtat}) {
    image->Facultative = true;
    image->Visible = false;
  }
  LblNumero.Visible = LblTotal.Visible = LblInvite.Visible = false;
}

void PanneauCompteur::Visiter(Visiteur &v) {
  v.Voir("LblNumero", LblNumero, *this);
  v.Voir("LblTotal", LblTotal, *this);
  v.Voir("LblInvite", LblInvite, *this);
  v.Voir("Gorge", Gorge, *this);
  v.Voir("Ruban", Ruban, *this);
  v.Voir("SigneArmure", SigneArmure, *this);
  v.Voir("SigneSens", SigneSens, *this);
  v.Voir("SigneEtat", SigneEtat, *this);
}
