// The program.
#include <QApplication>
#include <QTimer>
#include <filesystem>

#include "app/Montage.h"
#include "app/TailleChoisie.h"
#include "base/PageGuide.h"
#include "platform/qt/machine/InstanceUnique.h"
#include "platform/qt/machine/Rapport.h"
#include "platform/qt/machine/ToucheAide.h"
#include "platform/qt/machine/ToucheTaille.h"
#include "platform/qt/natifs/StyleNatif.h"
#include "session/ModuleTissage.h"

namespace {
// Wayland lets no window place or shape itself; X11 does, and is there beside it as a rule.
void ChoisirEcran() {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
    qputenv("QT_QPA_PLATFORM", "xcb;wayland");
}

// The application object, which knows it too, comes later. Empty where the machine does not tell.
std::string DossierExecutable() {
  std::error_code muette;
  return std::filesystem::read_symlink("/proc/self/exe", muette).parent_path();
}

void Preparer() {
  QApplication::setApplicationName(QStringLiteral("Brandis"));
  QApplication::setQuitOnLastWindowClosed(false);  // the window also hides behind its notification icon
  InstallerStyle();
  QGuiApplication::setDesktopFileName(QStringLiteral("org.brandis.brandis"));
}

int Lancer(int nombre, char **mots) {
  const DossiersProgramme dossiers = TrouverDossiers(DossierExecutable());
  const TailleChoisie taille(dossiers.programme);
  QApplication application(nombre, mots);
  taille.TenirDansEcran(mots);
  Preparer();
  InstanceUnique instance(dossiers.programme);
  if (!instance.Premiere()) {
    if (!instance.AppelerPremiere()) Annoncer(TexteDejaOuvert(dossiers.programme));
    return 0;
  }
  PlateformeQt machine(dossiers);
  const ToucheAide aide([&] {
    const std::string page = PageGuide(DossierExecutable(), session.LangueFrancaise);
    page.empty() ? machine.Beep() : machine.OuvrirAdresse(page);
  });
  const ToucheTaille touches([&](int sens) { taille.Changer(machine, sens); });
  Monter(machine);
  // Once the window stands: nobody calls before.
  QTimer::singleShot(0, [&] { instance.Ecouter([&] { machine.Ramener(); }); });
  return QApplication::exec();
}
}  // namespace

int main(int nombre, char **mots) {
  ChoisirEcran();
  try {
    return Lancer(nombre, mots);
  } catch (const SansDossier &e) {
    QApplication application(nombre, mots);
    Preparer();
    RapporterEtFinir(e.what());
  }
}
