// The program.
#include <QApplication>
#include <QFile>
#include <QTimer>

#include "app/Montage.h"
#include "platform/qt/InstanceUnique.h"
#include "platform/qt/Rapport.h"
#include "platform/qt/StyleChamps.h"

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
  InstallerStyle();
  QGuiApplication::setDesktopFileName(QStringLiteral("brandis"));
  try {
    const DossiersProgramme dossiers =
        TrouverDossiers(QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString());
    InstanceUnique instance(dossiers.programme);
    if (!instance.Premiere()) {
      if (!instance.AppelerPremiere()) Annoncer(TexteDejaOuvert(dossiers.programme));
      return 0;
    }
    PlateformeQt machine(dossiers);
    Monter(machine);
    // Once the window stands: nobody calls before.
    QTimer::singleShot(0, [&] { instance.Ecouter([&] { machine.Ramener(); }); });
    return Tourner(machine);
  } catch (const SansDossier &e) {
    RapporterEtFinir(e.what());
  }
}
