// Writes every view of the program as a picture, cut by its outline.
//   vues <program's folder> <folder for the pictures>
#include "app/vues/Vues.h"

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <cstdio>

#include "platform/qt/natifs/StyleNatif.h"

namespace {
QImage Decoupee(QWidget &cadre) {
  const QImage entiere = cadre.grab().toImage();
  QImage image(entiere.size(), QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(entiere.devicePixelRatio());
  image.fill(Qt::transparent);
  QPainter p(&image);
  if (!cadre.mask().isEmpty()) p.setClipRegion(cadre.mask());
  p.drawImage(0, 0, entiere);
  return image;
}
}  // namespace

int main(int nombre, char **mots) {
  if (nombre < 3) return std::fprintf(stderr, "vues <program's folder> <folder for the pictures>\n"), 2;
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(nombre, mots);
  QApplication::setQuitOnLastWindowClosed(false);
  InstallerStyle();
  const QDir dossier(QString::fromLocal8Bit(mots[2]));
  Vues *vues = nullptr;
  bool tout = true;
  Vues source(mots[1], [&](const std::string &nom, Fenetre &f) {
    tout &= Decoupee(*vues->Natif(f)).save(dossier.filePath(QString::fromStdString(nom) + ".png"));
  });
  vues = &source;
  for (const bool francais : {true, false}) vues->Parcourir(francais);
  return tout ? 0 : 1;
}
