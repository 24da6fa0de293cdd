// Ctrl + and Ctrl -, in whichever window of the program they are pressed. They are no keys of the window's:
// nothing is pressed or written by them.
#pragma once

#include <QObject>
#include <functional>

class ToucheTaille : public QObject {
 public:
  // Listens to the application, which must stand; hands over 1 or -1 once for each press, however long it is
  // held.
  explicit ToucheTaille(std::function<void(int)> changer);

  bool eventFilter(QObject *source, QEvent *e) override;

 private:
  std::function<void(int)> changer_;
};
