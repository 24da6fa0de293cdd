#include "platform/qt/machine/FinDehors.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>
#include <atomic>

namespace {
constexpr int kSignaux[] = {SIGTERM, SIGINT, SIGHUP};
std::atomic<int> marques = -1;  // a signal may come between any two instructions: it only leaves a mark here

void Marquer(int numero) {
  signal(numero, SIG_DFL);
  const char marque = 0;
  [[maybe_unused]] const ssize_t ecrit = write(marques, &marque, 1);
}
}  // namespace

FinDehors::FinDehors(std::function<void()> finir) : finir_(std::move(finir)) {
  EcouterSignaux();
  qApp->installEventFilter(this);
  if (auto *application = qobject_cast<QGuiApplication *>(qApp))
    connect(
        application, &QGuiApplication::commitDataRequest, this,
        [](QSessionManager &session) { session.setRestartHint(QSessionManager::RestartNever); },
        Qt::DirectConnection);
}

FinDehors::~FinDehors() {
  if (!signal_) return;
  if (marques == tube_[1])
    for (const int numero : kSignaux) signal(numero, SIG_DFL);
  signal_.reset();
  for (const int fd : tube_) close(fd);
}

void FinDehors::EcouterSignaux() {
  if (pipe2(tube_, O_CLOEXEC | O_NONBLOCK) != 0) return;
  signal_ = std::make_unique<QSocketNotifier>(tube_[0], QSocketNotifier::Read);
  connect(signal_.get(), &QSocketNotifier::activated, this, [this] {
    char marque;
    if (read(tube_[0], &marque, 1) == 1) finir_();
  });
  marques = tube_[1];
  for (const int numero : kSignaux) signal(numero, Marquer);
}

// The desktop's last word at a log-out. Its earlier wish to keep data comes at a mere checkpoint too, and may
// be followed by a log-out that is called off.
bool FinDehors::eventFilter(QObject *source, QEvent *e) {
  if (source != qApp || e->type() != QEvent::Quit) return false;
  finir_();
  return true;
}
