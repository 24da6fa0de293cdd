#include "platform/qt/machine/ToucheTaille.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace {
// Where plus shares its key with the equals sign, it is reached with Shift or without.
int Sens(const QKeyEvent &touche) {
  const auto avec = touche.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
  if (avec != Qt::ControlModifier) return 0;
  const int code = touche.key();
  return code == Qt::Key_Plus || code == Qt::Key_Equal ? 1 : code == Qt::Key_Minus ? -1 : 0;
}
}  // namespace

ToucheTaille::ToucheTaille(std::function<void(int)> changer) : changer_(std::move(changer)) {
  QCoreApplication::instance()->installEventFilter(this);
}

bool ToucheTaille::eventFilter(QObject *, QEvent *e) {
  if (e->type() != QEvent::KeyPress) return false;
  const auto &touche = static_cast<const QKeyEvent &>(*e);
  const int sens = Sens(touche);
  if (sens == 0) return false;
  if (!touche.isAutoRepeat()) changer_(sens);
  return true;
}
