#include "platform/qt/natifs/LectureBmp.h"

#include <QtEndian>
#include <array>
#include <cstdlib>
#include <fstream>
#include <vector>

namespace {
// What stands before the pixels, little-endian words by their place in the file.
class Entete {
 public:
  // Leaves the stream failed where the file is shorter: none of the program's own is.
  explicit Entete(std::ifstream &fichier) { fichier.read(octets_.data(), std::ssize(octets_)); }
  // Place of the pixels in the file, bytes.
  qint32 Pixels() const { return Mot(10); }
  QSize Taille() const { return {Mot(18), std::abs(Mot(22))}; }
  // Format_RGB888 for 24 bits, lowest row first; with 32 bits, top row first, one of the two that lie so in
  // memory. The longer header tells the places of the colours in a pixel.
  QImage::Format Format() const {
    if (octets_[0] != 'B' || octets_[1] != 'M' || !Mesurable()) return QImage::Format_Invalid;
    const int bits = Mot(28) & 0xffff, compression = Mot(30);
    const bool duHaut = Mot(22) < 0;
    if (bits == 24 && compression == 0 && !duHaut) return QImage::Format_RGB888;
    if (bits == 32 && compression == 0 && duHaut) return QImage::Format_RGB32;
    const bool masques = Mot(14) >= 108 && Mot(54) == 0xff0000 && Mot(58) == 0xff00 && Mot(62) == 0xff &&
                         Mot(66) == qint32(0xff000000);
    return bits == 32 && compression == 3 && duHaut && masques ? QImage::Format_ARGB32
                                                               : QImage::Format_Invalid;
  }

 private:
  bool Mesurable() const {
    constexpr qint32 kCote = 8192;  // pixels
    return Mot(10) >= 54 && Mot(18) >= 1 && Mot(18) <= kCote && Mot(22) >= -kCote && Mot(22) <= kCote &&
           Mot(22) != 0;
  }
  qint32 Mot(std::size_t place) const { return qFromLittleEndian<qint32>(octets_.data() + place); }
  std::array<char, 70> octets_{};
};

bool Remplir(std::ifstream &fichier, void *place, std::size_t octets) {
  return bool(fichier.read(static_cast<char *>(place), static_cast<std::streamsize>(octets)));
}

QImage LireDuHaut(std::ifstream &fichier, QSize taille, QImage::Format format) {
  QImage image(taille, format);
  const auto octets = static_cast<std::size_t>(image.sizeInBytes());
  if (image.isNull() || !Remplir(fichier, image.bits(), octets)) return {};
  const bool opaque = format == QImage::Format_RGB32;  // other writers leave the fourth byte 0
  auto *pixels = reinterpret_cast<QRgb *>(image.bits());
  for (std::size_t i = 0; i < octets / sizeof(QRgb); ++i)
    pixels[i] = qFromLittleEndian(pixels[i]) | (opaque ? 0xff000000u : 0);
  return opaque ? image : image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QImage LireDuBas(std::ifstream &fichier, QSize taille) {
  QImage image(taille, QImage::Format_RGB32);
  const std::size_t rangee = static_cast<std::size_t>(3 * taille.width() + 3) / 4 * 4;
  std::vector<uchar> octets(rangee * static_cast<std::size_t>(taille.height()));
  if (image.isNull() || !Remplir(fichier, octets.data(), octets.size())) return {};
  const uchar *debut = octets.data();
  for (int y = taille.height(); y-- > 0; debut += rangee) {
    auto *pixels = reinterpret_cast<QRgb *>(image.scanLine(y));
    const uchar *source = debut;
    for (int x = 0; x < taille.width(); ++x, source += 3) pixels[x] = qRgb(source[2], source[1], source[0]);
  }
  return image;
}
}  // namespace

QImage LireBmp(const std::string &chemin) {
  std::ifstream fichier(chemin, std::ios::binary);
  const Entete entete(fichier);
  const QImage::Format format = entete.Format();
  if (format == QImage::Format_Invalid || !fichier) return {};
  fichier.seekg(entete.Pixels());
  if (format == QImage::Format_RGB888) return LireDuBas(fichier, entete.Taille());
  return LireDuHaut(fichier, entete.Taille(), format);
}
