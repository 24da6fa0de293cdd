#include "app-motifs/fenetre/Taches.h"

#include <QProgressDialog>
#include <QTimer>
#include <chrono>

namespace {
constexpr int kInstant = 200, kRegard = 20;  // ms
}

void Taches::Etat::Finir() {
  const std::lock_guard garde(verrou);
  fini = true;
  change.notify_all();
}

bool Taches::Etat::Fini(int millisecondes) {
  std::unique_lock garde(verrou);
  return change.wait_for(garde, std::chrono::milliseconds(millisecondes), [this] { return fini; });
}

bool Taches::Attendre(Etat &etat, QWidget *fenetre, const QString &texte, const QString &annuler) {
  if (etat.Fini(kInstant)) return true;
  QProgressDialog barre(texte, annuler, 0, 0, fenetre);
  barre.setWindowModality(Qt::ApplicationModal);
  barre.setMinimumDuration(0);
  QTimer regard;
  QObject::connect(&regard, &QTimer::timeout, &barre, [&] {
    if (etat.Fini(0)) barre.accept();
  });
  regard.start(kRegard);
  bool fini = false;
  do fini = barre.exec() == QDialog::Accepted || etat.Fini(0);
  while (!fini && annuler.isEmpty());
  return fini;
}
