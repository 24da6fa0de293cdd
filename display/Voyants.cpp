#include "display/Voyants.h"

#include "base/TexteNumerique.h"
#include "kit/Palette.h"
#include "mainwindow/FenetreTissagePrincipale.h"

namespace {
constexpr int kHauteurNormale = 435, kHauteurSurvol = 515;  // twips

// From the bottom right corner of an inner size of l x h pixels.
void PeindreVoyant(Surface &face, int l, int h, Couleur couleur) {
  const Echelle gardee = face.ScaleMode;
  face.ScaleMode = Echelle::Pixels;
  face.Boite(l - 9, h - 12, l - 6, h - 12, Palette::EtainBord);
  face.Boite(l - 10, h - 12, l - 10, h - 8, Palette::EtainBord);
  face.Boite(l - 9, h - 11, l - 6, h - 8, couleur);
  face.ScaleMode = gardee;
}
}  // namespace

void ChangerVoyant(Entier index, bool etat) {
  fenetre.VoyantAllume = etat;
  BoitePicture &bouton = fenetre.BoutonProgramme[index];
  const Entier hauteur = Arrondir(bouton.Height);
  if (hauteur != kHauteurNormale && hauteur != kHauteurSurvol) return;
  fenetre.Voyants[index] = etat;
  // A hovered button has grown by five pixels; its lamp stays where it was.
  const int gonflement = hauteur == kHauteurSurvol && session.SurvolActif ? 5 : 0;
  PeindreVoyant(bouton.Dessin, bouton.Dessin.Largeur() - gonflement, bouton.Dessin.Hauteur() - gonflement,
                etat ? kVoyantVert : kVoyantRouge);
}

void EteindreVoyantsMode() {
  ChangerVoyant(4, false);
  ChangerVoyant(5, false);
  ChangerVoyant(17, false);
}

void VoyantsArretA() {
  ChangerVoyant(9, true);
  ChangerVoyant(10, false);
}

void VoyantsArretB() {
  ChangerVoyant(10, false);
  ChangerVoyant(9, true);
}

void VoyantsDepart() {
  ChangerVoyant(10, true);
  ChangerVoyant(9, false);
}

void VoyantsArretC() {
  ChangerVoyant(9, false);
  ChangerVoyant(10, true);
}
