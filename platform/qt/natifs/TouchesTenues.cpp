#include "platform/qt/natifs/TouchesTenues.h"

#include <QCoreApplication>
#include <QKeyEvent>

TouchesTenues::TouchesTenues() { QCoreApplication::instance()->installEventFilter(this); }

bool TouchesTenues::Repetee(const QKeyEvent &e) const {
  return e.isAutoRepeat() || (e.timestamp() != 0 && relachees_.value(e.key()) == e.timestamp());
}

bool TouchesTenues::eventFilter(QObject *, QEvent *e) {
  if (e->type() == QEvent::KeyRelease) {
    const auto &touche = static_cast<QKeyEvent &>(*e);
    relachees_[touche.key()] = touche.timestamp();
  }
  return false;
}
