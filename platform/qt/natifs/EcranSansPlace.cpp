#include "platform/qt/natifs/EcranSansPlace.h"

#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

namespace {
bool SansPlace() { return QGuiApplication::platformName().startsWith(QLatin1String("wayland")); }
}  // namespace

void LaisserVoirAutour(QWidget &cadre) {
  if (SansPlace()) cadre.setAttribute(Qt::WA_TranslucentBackground);
}

bool ConfierDeplacement(QWidget &cadre) {
  QWindow *fenetre = cadre.windowHandle();
  return SansPlace() && fenetre && fenetre->startSystemMove();
}
