#include "platform/qt/LectureBmp.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QtEndian>
#include <algorithm>
#include <memory>
#include <span>
#include <vector>

namespace {
constexpr std::size_t kEntete = 54;  // bytes
constexpr qint32 kCote = 8192;       // pixels

// A file, read where it is small, else in its place; what is written there stays in memory.
class Vue {
 public:
  explicit Vue(const std::string &chemin) {
    const int fd = open(chemin.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat etat = {};
    if (fd >= 0 && fstat(fd, &etat) == 0 && S_ISREG(etat.st_mode) && etat.st_size > 0)
      Prendre(fd, static_cast<std::size_t>(etat.st_size));
    if (fd >= 0) close(fd);
  }
  Vue(const Vue &) = delete;
  ~Vue() {
    if (place_ != MAP_FAILED) munmap(place_, octets_.size());
  }
  std::span<uchar> Octets() const { return octets_; }

 private:
  void Prendre(int fd, std::size_t taille) {
    constexpr std::size_t kPetit = 64 * 1024;  // bytes
    if (taille <= kPetit) {
      lus_.resize(taille);
      if (read(fd, lus_.data(), taille) == static_cast<ssize_t>(taille)) octets_ = lus_;
      return;
    }
    place_ = mmap(nullptr, taille, PROT_READ | PROT_WRITE, MAP_PRIVATE, fd, 0);
    if (place_ == MAP_FAILED) return;
    octets_ = {static_cast<uchar *>(place_), taille};
    madvise(place_, taille, MADV_POPULATE_READ);  // all at once; page by page where the kernel knows it not
  }

  std::vector<uchar> lus_;
  void *place_ = MAP_FAILED;
  std::span<uchar> octets_;
};

struct Bitmap {
  qint32 largeur = 0, hauteur = 0;  // pixels
  QImage::Format format = QImage::Format_Invalid;
  std::span<uchar> pixels;
};

// What stands before the pixels, little-endian words by their place in the file.
class Entete {
 public:
  explicit Entete(std::span<uchar> octets) : octets_(octets) {}
  bool Lisible() const { return octets_.size() >= kEntete && octets_[0] == 'B' && octets_[1] == 'M'; }
  std::size_t Pixels() const { return static_cast<quint32>(Mot(10)); }
  qint32 Largeur() const { return Mot(18); }
  // Negative: top row first.
  qint32 Hauteur() const { return Mot(22); }
  // Format_RGB888 for 24 bits, lowest row first; with 32 bits, top row first, one of the two that lie so in
  // memory.
  QImage::Format Format() const {
    const int bits = Mot(28) & 0xffff, compression = Mot(30);
    if (bits == 24 && compression == 0 && Hauteur() > 0) return QImage::Format_RGB888;
    if (bits != 32 || Hauteur() > 0) return QImage::Format_Invalid;
    if (compression == 0) return QImage::Format_RGB32;
    return compression == 3 && Masques() ? QImage::Format_ARGB32 : QImage::Format_Invalid;
  }

 private:
  qint32 Mot(std::size_t place) const { return qFromLittleEndian<qint32>(octets_.data() + place); }
  // The places of the colours in a pixel, which the longer header tells.
  bool Masques() const {
    constexpr std::size_t kLongue = 108;
    return Pixels() >= 14 + kLongue && octets_.size() > Pixels() && Mot(14) >= qint32{kLongue} &&
           Mot(54) == 0xff0000 && Mot(58) == 0xff00 && Mot(62) == 0xff &&
           static_cast<quint32>(Mot(66)) == 0xff000000u;
  }
  std::span<uchar> octets_;
};

Bitmap LireEntete(std::span<uchar> octets) {
  const Entete entete(octets);
  if (!entete.Lisible()) return {};
  Bitmap b{entete.Largeur(), 0, entete.Format(), {}};
  if (b.format == QImage::Format_Invalid || b.largeur < 1 || b.largeur > kCote) return {};
  if (entete.Hauteur() < -kCote || entete.Hauteur() > kCote || entete.Hauteur() == 0) return {};
  b.hauteur = std::abs(entete.Hauteur());
  const int octetsParPixel = b.format == QImage::Format_RGB888 ? 3 : 4;
  const auto rangee = static_cast<std::size_t>((b.largeur * octetsParPixel + 3) / 4 * 4);
  const std::size_t taille = rangee * static_cast<std::size_t>(b.hauteur), debut = entete.Pixels();
  if (debut < kEntete || debut > octets.size() || octets.size() - debut < taille) return {};
  b.pixels = octets.subspan(debut, taille);
  return b;
}

// The picture lies in the file as in memory, and stays there.
QImage Garder(std::unique_ptr<Vue> vue, const Bitmap &b) {
  if (reinterpret_cast<std::uintptr_t>(b.pixels.data()) % alignof(QRgb) != 0) return {};
  QImage image(
      b.pixels.data(), b.largeur, b.hauteur, b.format, [](void *tenue) { delete static_cast<Vue *>(tenue); },
      vue.release());
  if (b.format == QImage::Format_ARGB32) return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  // Other writers leave the fourth byte 0, screens take it for the opacity.
  const auto *premiers = reinterpret_cast<const QRgb *>(b.pixels.data());
  const bool opaque = std::all_of(premiers, premiers + b.largeur, [](QRgb p) { return qAlpha(p) == 255; });
  return opaque ? image : QImage();
}

QImage Copier(const Bitmap &b) {
  QImage image(b.largeur, b.hauteur, QImage::Format_RGB32);
  if (image.isNull()) return {};
  const std::size_t rangee = b.pixels.size() / static_cast<std::size_t>(b.hauteur);
  const uchar *debut = b.pixels.data();
  for (int y = b.hauteur; y-- > 0; debut += rangee) {
    auto *pixels = reinterpret_cast<QRgb *>(image.scanLine(y));
    const uchar *source = debut;
    for (int x = 0; x < b.largeur; ++x, source += 3) pixels[x] = qRgb(source[2], source[1], source[0]);
  }
  return image;
}
}  // namespace

QImage LireBmp(const std::string &chemin) {
  auto vue = std::make_unique<Vue>(chemin);
  const Bitmap b = LireEntete(vue->Octets());
  if (b.pixels.empty()) return {};
  if (b.format == QImage::Format_RGB888) return Copier(b);
  return QSysInfo::ByteOrder == QSysInfo::LittleEndian ? Garder(std::move(vue), b) : QImage();
}
