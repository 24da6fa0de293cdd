#include "platform/qt/MagasinImages.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QtEndian>
#include <algorithm>
#include <fstream>
#include <vector>

#include "base/ErreurExecution.h"
#include "controls/Controles.h"

namespace {
// The pictures that every start reads are plain pixels: "P6", width and height, 255, then three bytes each.
// No object of the toolkit's helps: the first thread that has one counts as the main one.
QImage LirePixels(const std::string &chemin) {
  constexpr int kCote = 8192;  // pixels
  std::ifstream fichier(chemin, std::ios::binary);
  std::string genre;
  int largeur = 0, hauteur = 0, clarte = 0;
  fichier >> genre >> largeur >> hauteur >> clarte;
  fichier.get();
  if (!fichier || genre != "P6" || clarte != 255 || largeur < 1 || hauteur < 1 || largeur > kCote ||
      hauteur > kCote)
    return {};
  QImage image(largeur, hauteur, QImage::Format_RGB32);
  // A row at a time, which stays in reach; four bytes of it at a time, the fourth being the next pixel's or
  // the one more.
  const auto rangee = static_cast<std::size_t>(3 * largeur);
  std::vector<uchar> octets(rangee + 1);
  for (int y = 0; y < hauteur; ++y) {
    if (!fichier.read(reinterpret_cast<char *>(octets.data()), static_cast<std::streamsize>(rangee)))
      return {};
    auto *pixels = reinterpret_cast<QRgb *>(image.scanLine(y));
    const uchar *source = octets.data();
    for (int x = 0; x < largeur; ++x, source += 3)
      pixels[x] = 0xff000000u | qFromBigEndian<quint32>(source) >> 8;
  }
  return image;
}

// As the name's ending tells: to find the kind by the content, the toolkit first loads every picture library.
QImage Lire(const QString &chemin) {
  const QFileInfo fichier(chemin);
  if (!fichier.exists()) return {};
  const QByteArray fin = fichier.suffix().toLower().toLatin1();
  QImageReader lecteur(chemin, fin);
  lecteur.setAutoDetectImageFormat(false);
  const QImage image = fin == "ppm" ? LirePixels(QFile::encodeName(chemin).toStdString()) : lecteur.read();
  return image.isNull() ? QImageReader(chemin).read() : image;
}

// Half-transparent pixels are laid over the grey that controls have by default.
Surface EnSurface(QImage image) {
  if (image.format() != QImage::Format_RGB32) {
    QImage opaque(image.size(), QImage::Format_RGB32);
    opaque.fill(QColor::fromRgb(Gris(192)));
    QPainter(&opaque).drawImage(0, 0, image);
    image = opaque;
  }
  // The surface keeps the picture's own memory: four bytes a pixel, no row ends in padding.
  auto *gardee = new QImage(std::move(image));
  auto *pixels = reinterpret_cast<std::uint32_t *>(gardee->bits());
  return {gardee->width(), gardee->height(), {pixels, [gardee](std::uint32_t *) { delete gardee; }}};
}
}  // namespace

ImagesLues LireImagesDuDepart(const std::vector<std::string> &dossiers) {
  ImagesLues lues;
  QStringList avant;
  for (const std::string &dossier : dossiers) {
    const QString images = QString::fromStdString(dossier) + QStringLiteral("/Images/");
    for (const QString &nom :
         QDir(images).entryList({QStringLiteral("*.ppm")}, QDir::Files, QDir::Unsorted)) {
      const QString seul = nom.chopped(4);
      const auto cache = [&](const QString &d) {
        return QFileInfo::exists(d + seul + QStringLiteral(".png"));
      };
      if (std::none_of(avant.begin(), avant.end(), cache))
        lues.try_emplace(seul.toStdString(), LirePixels(QFile::encodeName(images + nom).toStdString()));
    }
    avant << images;
  }
  std::erase_if(lues, [](const auto &lue) { return lue.second.isNull(); });
  return lues;
}

QImage MagasinImages::Prendre(const std::string &nom) {
  if (auto lue = lues_.extract(nom)) return lue.mapped();
  QImage image = Cherchee(nom);
  if (image.isNull()) throw ErreurExecution(Erreur::ImageInvalide);
  return image;
}

QImage MagasinImages::Cherchee(const std::string &nom) const {
  const QString place = QStringLiteral("/Images/") + QString::fromStdString(nom);
  QStringList dossiers;
  for (const std::string &dossier : dossiers_) dossiers << QString::fromStdString(dossier);
  dossiers << QStringLiteral(":");
  QImage image;
  for (const QString &dossier : dossiers)
    for (const char *fin : {".ppm", ".png"})
      if (image.isNull()) image = Lire(dossier + place + QLatin1String(fin));
  if (image.isNull()) return image;
  // The formats that surfaces and screens take, so that no painting converts.
  const auto format = image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
  return image.convertToFormat(format);
}

const QImage &MagasinImages::Nommee(const std::string &nom) {
  const auto connue = nommees_.find(nom);
  if (connue != nommees_.end()) return connue->second;
  return nommees_[nom] = Prendre(nom);
}

const Surface &MagasinImages::Picture(const std::string &nom) {
  const auto connue = surfaces_.find(nom);
  if (connue != surfaces_.end()) return connue->second;
  return surfaces_[nom] = EnSurface(Prendre(nom));
}

std::string MagasinImages::Trouve(const std::string &chemin) const {
  const std::string premier = dossiers_.front() + '/';
  if (chemin.rfind(premier, 0) != 0) return chemin;
  for (const std::string &dossier : dossiers_) {
    const std::string ailleurs = dossier + '/' + chemin.substr(premier.size());
    if (QFileInfo::exists(QFile::decodeName(ailleurs.c_str()))) return ailleurs;
  }
  return chemin;
}

const Surface &MagasinImages::LoadPicture(const std::string &chemin) {
  const auto connue = fichiers_.find(chemin);
  if (connue != fichiers_.end()) return connue->second;
  const QString fichier = QFile::decodeName(Trouve(chemin).c_str());
  if (!QFileInfo::exists(fichier)) throw ErreurExecution(Erreur::FichierIntrouvable);
  QImage image = Lire(fichier);
  if (image.isNull()) throw ErreurExecution(Erreur::ImageInvalide);
  return fichiers_[chemin] = EnSurface(std::move(image));
}
