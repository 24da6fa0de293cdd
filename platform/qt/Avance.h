// What the start needs of the desktop, asked for on other threads: the fonts while the display is being
// opened, the session bus while the windows are made.
#pragma once

#include <pthread.h>

#include <QString>
#include <atomic>
#include <thread>

class Avance {
 public:
  // Before the application object, which font settings do not need.
  Avance();
  Avance(const Avance &) = delete;
  // Waits for what is still under way.
  ~Avance();

  // The application object stands. With its first window the toolkit asks the bus whether somebody reads the
  // screen, and waits for it; asked for here, it is there by then.
  void Ouvrir();
  // Before the first text is measured: the font settings are read, and the wait for them spent on the memory
  // of the windows. Texts know their family from then on; whoever measures earlier makes the toolkit read the
  // settings a second time.
  void Attendre();

 private:
  void LirePolices();
  void PreparerMemoire() const;
  QString famille_;
  pthread_t polices_{};
  std::atomic<bool> finies_ = false;  // the settings are read
  bool jointe_ = false;               // their thread is no more
  std::jthread bus_;
};
