#include "controls/Surface.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace {
// Process-wide, so that no two different contents ever bear the same version.
std::uint64_t derniereVersion = 0;
constexpr std::uint32_t kOpaque = 0xff000000u;
}  // namespace

Surface::Surface(int largeur, int hauteur, Couleur fond) { Refaire(largeur, hauteur, fond); }

Surface::Surface(int largeur, int hauteur, Trame pixels)
    : largeur_(largeur), hauteur_(hauteur), pixels_(std::move(pixels)) {
  Changer();
}

void Surface::Changer() { version_ = ++derniereVersion; }

void Surface::Detacher() {
  const std::size_t n = Place(0, hauteur_);
  Trame propres = std::make_shared_for_overwrite<std::uint32_t[]>(n);
  std::copy_n(pixels_.get(), n, propres.get());
  pixels_ = std::move(propres);
}

std::size_t Surface::Place(int x, int y) const {
  return static_cast<std::size_t>(y) * static_cast<std::size_t>(largeur_) + static_cast<std::size_t>(x);
}

void Surface::Refaire(int largeur, int hauteur, Couleur fond) {
  const std::size_t avant = Place(0, hauteur_);
  largeur_ = std::max(largeur, 0);
  hauteur_ = std::max(hauteur, 0);
  if (Place(0, hauteur_) != avant) pixels_.reset();
  Effacer(fond);
}

void Surface::Redimensionner(int largeur, int hauteur, Couleur fond) {
  Surface neuve(largeur, hauteur, fond);
  neuve.PaintPicture(*this, 0, 0);
  neuve.textes_ = textes_;
  neuve.ScaleMode = ScaleMode;
  *this = std::move(neuve);
}

void Surface::Effacer(Couleur fond) {
  const std::size_t n = Place(0, hauteur_);
  if (pixels_.use_count() != 1) pixels_ = std::make_shared_for_overwrite<std::uint32_t[]>(n);
  std::fill_n(pixels_.get(), n, kOpaque | fond);
  textes_.clear();
  Changer();
}

Couleur Surface::Point(int x, int y) const {
  if (x < 0 || y < 0 || x >= largeur_ || y >= hauteur_) return static_cast<Couleur>(-1);
  return pixels_[static_cast<std::ptrdiff_t>(Place(x, y))] & ~kOpaque;
}

void Surface::PSet(int x, int y, Couleur c) {
  if (x < 0 || y < 0 || x >= largeur_ || y >= hauteur_) return;
  if (pixels_.use_count() > 1) Detacher();
  pixels_[static_cast<std::ptrdiff_t>(Place(x, y))] = kOpaque | c;
  Changer();
}

void Surface::Ligne(int x1, int y1, int x2, int y2, Couleur c) {
  const int pas = std::max(std::abs(x2 - x1), std::abs(y2 - y1));
  for (int i = 0; i < pas; ++i) PSet(x1 + (x2 - x1) * i / pas, y1 + (y2 - y1) * i / pas, c);
}

void Surface::Cadre(int x1, int y1, int x2, int y2, Couleur c) {
  Ligne(x1, y1, x2, y1, c);
  Ligne(x2, y1, x2, y2, c);
  Ligne(x2, y2, x1, y2, c);
  Ligne(x1, y2, x1, y1, c);
  PSet(x1, y1, c);
}

void Surface::Boite(int x1, int y1, int x2, int y2, Couleur c) {
  x1 = std::max(x1, 0), y1 = std::max(y1, 0), x2 = std::min(x2, largeur_ - 1),
  y2 = std::min(y2, hauteur_ - 1);
  if (x1 > x2 || y1 > y2) return;
  if (pixels_.use_count() > 1) Detacher();
  for (int y = y1; y <= y2; ++y) std::fill_n(pixels_.get() + Place(x1, y), x2 - x1 + 1, kOpaque | c);
  Changer();
}

void Surface::PaintPicture(const Surface &image, int x, int y, int largeur, int hauteur) {
  const int l = largeur < 0 ? image.Largeur() : std::min(largeur, image.Largeur());
  const int h = hauteur < 0 ? image.Hauteur() : std::min(hauteur, image.Hauteur());
  // Row by row, what falls outside left out.
  const int gauche = std::max(0, -x), droite = std::min(l, largeur_ - x);
  const int haut = std::max(0, -y), bas = std::min(h, hauteur_ - y);
  if (gauche >= droite || haut >= bas) return;
  const Trame source = image.pixels_;  // stays as it is, were it this one
  if (pixels_.use_count() > 1) Detacher();
  for (int j = haut; j < bas; ++j)
    std::copy_n(source.get() + image.Place(gauche, j), droite - gauche,
                pixels_.get() + Place(x + gauche, y + j));
  Changer();
}

void Surface::Print(int x, int y, const std::string &texte, const Police &police, Couleur c) {
  textes_.push_back({x, y, texte, police, c});
  Changer();
}
