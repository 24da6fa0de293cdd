// The end that comes from outside: a signal (terminate, interrupt, hang-up), or the log-out of the desktop.
#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <functional>
#include <memory>

class FinDehors : private QObject {
 public:
  // `finir` runs in the event loop, in that of an open dialog too. The same signal again ends the process at
  // once.
  explicit FinDehors(std::function<void()> finir);
  ~FinDehors() override;

 private:
  void EcouterSignaux();
  bool eventFilter(QObject *source, QEvent *e) override;

  std::function<void()> finir_;
  int tube_[2] = {-1, -1};
  std::unique_ptr<QSocketNotifier> signal_;
};
