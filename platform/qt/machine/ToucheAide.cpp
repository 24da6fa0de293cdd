#include "platform/qt/machine/ToucheAide.h"

#include <QCoreApplication>
#include <QKeyEvent>

ToucheAide::ToucheAide(std::function<void()> aider) : aider_(std::move(aider)) {
  QCoreApplication::instance()->installEventFilter(this);
}

bool ToucheAide::eventFilter(QObject *, QEvent *e) {
  if (e->type() != QEvent::KeyPress) return false;
  const auto &touche = static_cast<const QKeyEvent &>(*e);
  if (touche.key() != Qt::Key_F1 || touche.modifiers() != Qt::NoModifier) return false;
  if (!touche.isAutoRepeat()) aider_();
  return true;
}
