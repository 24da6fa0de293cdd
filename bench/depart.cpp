// The program up to the first full painting of its main window: prints the milliseconds since the moment
// given as argument, in nanoseconds since the epoch, and ends.
#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <cstdio>
#include <cstdlib>

#include "app/Montage.h"
#include "platform/qt/natifs/StyleNatif.h"
#include "session/Journal.h"

namespace {
// The window paints itself and all that lies in it before the queue runs on.
class Guetteur : public QObject {
 public:
  Guetteur(Miroir &miroir, long long debut) : miroir_(miroir), debut_(debut) {}
  bool eventFilter(QObject *source, QEvent *e) override {
    if (vu_ || e->type() != QEvent::Paint || !source->isWidgetType()) return false;
    // The skin covers its window, which is then asked for no painting itself.
    if (static_cast<QWidget *>(source)->window() != miroir_.Principale()) return false;
    vu_ = true;
    QTimer::singleShot(0, this, [this] { Finir(); });
    return false;
  }

 private:
  void Finir() const {
    using namespace std::chrono;
    const auto ici = duration_cast<nanoseconds>(system_clock::now().time_since_epoch()).count();
    std::printf("%.2f\n", static_cast<double>(ici - debut_) / 1e6);
    std::fflush(stdout);
    NoterFin();  // else the next start would remind of this one
    std::_Exit(0);
  }
  Miroir &miroir_;
  long long debut_;
  bool vu_ = false;
};
}  // namespace

int main(int nombre, char **mots) {
  if (nombre < 2) return 2;
  const DossiersProgramme dossiers = TrouverDossiers(BRANDIS_PROGRAMME);
  QApplication application(nombre, mots);
  QApplication::setQuitOnLastWindowClosed(false);
  InstallerStyle();
  PlateformeQt machine(dossiers);
  Guetteur guetteur(machine.LeMiroir(), std::atoll(mots[1]));
  application.installEventFilter(&guetteur);
  Monter(machine);
  return QApplication::exec();
}
