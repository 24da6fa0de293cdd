// The program.
#include <QApplication>

#include "app/Montage.h"
#include "platform/qt/Habillage.h"

namespace {
// Wayland lets no window place or shape itself; X11 does, and is there beside it as a rule.
void ChoisirEcran() {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
    qputenv("QT_QPA_PLATFORM", "xcb;wayland");
}
}  // namespace

int main(int nombre, char **mots) {
  ChoisirEcran();
  QApplication application(nombre, mots);
  QApplication::setApplicationName(QStringLiteral("Brandis"));
  QApplication::setQuitOnLastWindowClosed(false);  // the window also hides behind its notification icon
  HabillerApplication();
  PlateformeQt machine(TrouverDossiers(QCoreApplication::applicationDirPath().toStdString()));
  Monter(machine);
  return QApplication::exec();
}
