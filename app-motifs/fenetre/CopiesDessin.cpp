#include "app-motifs/fenetre/CopiesDessin.h"

#include <algorithm>

namespace {
constexpr long long kCellulesMax = 16'000'000;

// Half a picture in both directions, its pixels the means of four.
QImage Moitie(const QImage &image) {
  QImage moitie((image.width() + 1) / 2, (image.height() + 1) / 2, QImage::Format_RGB32);
  for (int y = 0; y < moitie.height(); ++y) {
    const auto *haut = reinterpret_cast<const QRgb *>(image.constScanLine(2 * y));
    const auto *bas =
        reinterpret_cast<const QRgb *>(image.constScanLine(std::min(2 * y + 1, image.height() - 1)));
    auto *sortie = reinterpret_cast<QRgb *>(moitie.scanLine(y));
    for (int x = 0; x < moitie.width(); ++x) {
      const int gauche = 2 * x, droite = std::min(2 * x + 1, image.width() - 1);
      const auto moyenne = [&](int d) {
        return (((haut[gauche] >> d & 255) + (haut[droite] >> d & 255) + (bas[gauche] >> d & 255) +
                 (bas[droite] >> d & 255) + 2) /
                4)
               << d;
      };
      sortie[x] = 0xFF000000U | moyenne(16) | moyenne(8) | moyenne(0);
    }
  }
  return moitie;
}
}  // namespace

CopiesDessin::CopiesDessin(const Planche &planche) {
  const int largeur = planche.Largeur(), hauteur = planche.Hauteur();
  while (static_cast<long long>(largeur / premiere_) * (hauteur / premiere_) > kCellulesMax) premiere_ *= 2;
  QImage image(std::max(1, largeur / premiere_), std::max(1, hauteur / premiere_), QImage::Format_RGB32);
  std::vector<Couleur> cases(static_cast<std::size_t>(largeur));
  for (int y = 0; y < image.height(); ++y) {
    planche.Ligne(y * premiere_, cases.data());
    auto *sortie = reinterpret_cast<QRgb *>(image.scanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      const Case c = cases[static_cast<std::size_t>(x * premiere_)];
      sortie[x] = 0xFF000000U | (c & kHors ? kFondDessin : CouleurDe(c));
    }
  }
  images_.push_back(image);
  while (images_.back().width() > 64 && images_.back().height() > 64)
    images_.push_back(Moitie(images_.back()));
}

const QImage &CopiesDessin::Pour(double zoom, int &cellules) const {
  std::size_t i = 0;
  cellules = premiere_;
  while (i + 1 < images_.size() && zoom * cellules < 0.75) {
    ++i;
    cellules *= 2;
  }
  return images_[i];
}
