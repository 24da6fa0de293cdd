#include "platform/qt/natifs/MagasinImages.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>

#include "base/ErreurExecution.h"
#include "controls/Controles.h"
#include "platform/qt/natifs/LectureBmp.h"

namespace {
// As the name's ending tells: to find the kind by the content, the toolkit first loads every picture library.
QImage Lire(const QString &chemin) {
  const QByteArray fin = QFileInfo(chemin).suffix().toLower().toLatin1();
  if (fin == "bmp")
    if (QImage image = LireBmp(QFile::encodeName(chemin).toStdString()); !image.isNull()) return image;
  if (!QFileInfo::exists(chemin)) return {};
  QImageReader lecteur(chemin, fin);
  lecteur.setAutoDetectImageFormat(false);
  const QImage image = lecteur.read();
  return image.isNull() ? QImageReader(chemin).read() : image;
}

// Half-transparent pixels are laid over the grey that controls have by default.
QImage Opaque(const QImage &image) {
  if (image.isNull() || image.format() == QImage::Format_RGB32) return image;
  QImage opaque(image.size(), QImage::Format_RGB32);
  opaque.setDevicePixelRatio(image.devicePixelRatio());
  opaque.fill(QColor::fromRgb(Gris(192)));
  QPainter(&opaque).drawImage(0, 0, image);
  return opaque;
}

Surface EnSurface(QImage image) {
  image = Opaque(image);
  // The surface keeps the picture's own memory: four bytes a pixel, no row ends in padding.
  auto *gardee = new QImage(std::move(image));
  auto *pixels = reinterpret_cast<std::uint32_t *>(gardee->bits());
  return {gardee->width(), gardee->height(), {pixels, [gardee](std::uint32_t *) { delete gardee; }}};
}
}  // namespace

QImage MagasinImages::Prendre(const std::string &nom) {
  QImage image = Cherchee(nom);
  if (image.isNull()) throw ErreurExecution(Erreur::ImageInvalide);
  return image;
}

QImage MagasinImages::Cherchee(const std::string &nom) const {
  const QString place = QStringLiteral("/Images/") + QString::fromStdString(nom);
  QImage image;
  for (const std::string &dossier : dossiers_)
    for (const char *fin : {".bmp", ".png"})
      if (image.isNull()) image = Lire(QString::fromStdString(dossier) + place + QLatin1String(fin));
  if (image.isNull()) return image;
  // The formats that surfaces and screens take, so that no painting converts.
  const auto format = image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
  return image.convertToFormat(format);
}

const QImage &MagasinImages::Nommee(const std::string &nom) {
  const QImage &image = SiTrouvee(nom);
  if (image.isNull()) throw ErreurExecution(Erreur::ImageInvalide);
  return image;
}

const QImage &MagasinImages::SiTrouvee(const std::string &nom) {
  const auto [place, nouvelle] = nommees_.try_emplace(nom);
  if (nouvelle) place->second = Cherchee(nom);
  return place->second;
}

const Surface &MagasinImages::Picture(const std::string &nom) {
  const auto connue = surfaces_.find(nom);
  if (connue != surfaces_.end()) return connue->second;
  return surfaces_[nom] = EnSurface(Prendre(nom));
}

QImage MagasinImages::ChercherFine(const std::string &nom, const std::vector<std::string> &places) const {
  for (const std::string &dossier : dossiers_)
    for (const std::string &place : places) {
      QFile fichier(QString::fromStdString(dossier + place));
      if (!fichier.open(QIODevice::ReadOnly)) continue;
      const auto empreinte = QCryptographicHash::hash(fichier.readAll(), QCryptographicHash::Sha256).toHex();
      for (const std::string &ici : dossiers_) {
        QImage fine = Lire(QString::fromStdString(ici + "/Images/fines/" + nom + ".png"));
        if (fine.text(QStringLiteral("Original")).toLatin1() != empreinte) continue;
        fine = fine.convertToFormat(fine.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                           : QImage::Format_RGB32);
        fine.setDevicePixelRatio(2);
        return fine;
      }
      return {};
    }
  return {};
}

QImage MagasinImages::Fine(const std::string &nom, double echelle) {
  if (echelle <= 1) return {};
  const auto [place, nouvelle] = fines_.try_emplace(nom);
  if (nouvelle) place->second = ChercherFine(nom, {"/Images/" + nom + ".bmp", "/Images/" + nom + ".png"});
  return place->second;
}

QImage MagasinImages::FineDessin(const std::string &nom, double echelle) {
  if (echelle <= 1 || nom.empty()) return {};
  const auto [place, nouvelle] = fines_.try_emplace(nom);
  if (nouvelle) place->second = ChercherFine(nom, {"/Dessins Boutons/" + nom + ".BMP"});
  return place->second;
}

QImage MagasinImages::FinePour(const Surface &surface, double echelle) {
  if (echelle <= 1) return {};
  for (const auto &[nom, image] : surfaces_)
    if (image.Pixels() == surface.Pixels()) return Opaque(Fine(nom, echelle));
  return {};
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
