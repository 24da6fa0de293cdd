// F1, in whichever window of the program it is pressed. It is no key of the window's: nothing closes or moves
// by it.
#pragma once

#include <QObject>
#include <functional>

class ToucheAide : public QObject {
 public:
  // Listens to the application, which must stand; once for each press, however long the key is held.
  explicit ToucheAide(std::function<void()> aider);

  bool eventFilter(QObject *source, QEvent *e) override;

 private:
  std::function<void()> aider_;
};
