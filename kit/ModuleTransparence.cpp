#include "kit/ModuleTransparence.h"

#include <algorithm>

#include "kit/Attente.h"
#include "kit/FondFenetre.h"
#include "kit/ProcedureConnexe.h"

namespace {
void AjouterRangee(Region &region, const std::uint32_t *pixels, int l, int y, std::uint32_t transparent) {
  // Most rows are one piece, or two ends and a piece.
  int premier = 0, dernier = l - 1;
  while (premier < dernier && pixels[premier] == transparent) ++premier;
  while (dernier > premier && pixels[dernier - 1] == transparent) --dernier;
  if (premier == dernier) return;
  if (std::count(pixels + premier, pixels + dernier, transparent) == 0) {
    region.push_back({y, premier, dernier});
    return;
  }
  bool dansSegment = false;
  int debut = 0;
  for (int x = 0; x < l; ++x) {
    if (pixels[x] != transparent && x != l - 1) {
      if (!dansSegment) debut = x;
      dansSegment = true;
    } else if (dansSegment) {
      dansSegment = false;
      region.push_back({y, debut, x});
    }
  }
}
}  // namespace

Region CreerRegionImage(const Surface &image) {
  Region region;
  const auto pixels = image.Pixels();
  const Entier hauteur(image.Hauteur() - 1);
  Charger(attente).Remarque.Caption = "Ini. ";
  for (int y = 0; y < image.Hauteur(); ++y) {
    if (hauteur == 0) throw ErreurExecution(Erreur::DivisionParZero);
    attente.EcrirePourcent(y * 100.0 / int{hauteur});
    AjouterRangee(region, pixels.get() + static_cast<std::ptrdiff_t>(y) * image.Largeur(), image.Largeur(), y,
                  pixels[0]);
  }
  return region;
}

void FaconnerFenetre(Fenetre &fenetre, BoitePicture &boite) {
  const EnPixels echelle(boite.Dessin);
  boite.Left = boite.Top = 0;
  boite.Width = boite.Dessin.Largeur() * kTwipsParPixel;
  boite.Height = boite.Dessin.Hauteur() * kTwipsParPixel;
  fenetre.Contour = CreerRegionImage(boite.Dessin);
}

// The progress window has an outline too; its load steps stand here, above the window that outlines report
// to.
void Attente::Load() {
  CentrerFenetreEcran(*this);
  ChargerPicture(PicTransparente, "Attente");
  FaconnerFenetre(*this, PicTransparente);
}
