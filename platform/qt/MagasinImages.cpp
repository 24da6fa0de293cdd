#include "platform/qt/MagasinImages.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>

#include "base/ErreurExecution.h"
#include "kit/Controles.h"

namespace {
QImage Lire(const QString &chemin) {
  QImageReader lecteur(chemin);
  lecteur.setDecideFormatFromContent(true);
  return lecteur.read();
}

// Half-transparent pixels are laid over the grey that controls have by default.
Surface EnSurface(const QImage &image) {
  QImage opaque = image;
  if (image.format() != QImage::Format_RGB32) {
    opaque = QImage(image.size(), QImage::Format_RGB32);
    opaque.fill(QColor::fromRgb(Gris(192)));
    QPainter(&opaque).drawImage(0, 0, image);
  }
  const int largeur = opaque.width(), hauteur = opaque.height();
  std::vector<Couleur> pixels;
  pixels.reserve(static_cast<std::size_t>(largeur) * static_cast<std::size_t>(hauteur));
  for (int y = 0; y < hauteur; ++y) {
    const auto *ligne = reinterpret_cast<const QRgb *>(opaque.constScanLine(y));
    for (int x = 0; x < largeur; ++x) pixels.push_back(ligne[x] & 0xffffffu);
  }
  return {largeur, hauteur, std::move(pixels)};
}
}  // namespace

const QImage &MagasinImages::Nommee(const std::string &nom) {
  const auto connue = nommees_.find(nom);
  if (connue != nommees_.end()) return connue->second;
  const QString fin = QStringLiteral("/Images/") + QString::fromStdString(nom) + QStringLiteral(".png");
  QImage image;
  for (const std::string &dossier : dossiers_)
    if (image.isNull()) image = Lire(QString::fromStdString(dossier) + fin);
  if (image.isNull()) image = Lire(QStringLiteral(":") + fin);
  if (image.isNull()) throw ErreurExecution(Erreur::ImageInvalide);
  // A picture without transparency stays as it was read: the skin is copied at every start.
  const auto format = image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
  return nommees_[nom] = image.convertToFormat(format);
}

const Surface &MagasinImages::Picture(const std::string &nom) {
  const auto connue = surfaces_.find(nom);
  if (connue != surfaces_.end()) return connue->second;
  return surfaces_[nom] = EnSurface(Nommee(nom));
}

const Surface &MagasinImages::LoadPicture(const std::string &chemin) {
  const auto connue = fichiers_.find(chemin);
  if (connue != fichiers_.end()) return connue->second;
  const QString fichier = QFile::decodeName(chemin.c_str());
  if (!QFileInfo::exists(fichier)) throw ErreurExecution(Erreur::FichierIntrouvable);
  const QImage image = Lire(fichier);
  if (image.isNull()) throw ErreurExecution(Erreur::ImageInvalide);
  return fichiers_[chemin] = EnSurface(image);
}
