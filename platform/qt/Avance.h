// What the start needs of the desktop, asked for on other threads: the fonts while the display is being opened,
// the session bus while the windows are made.
#pragma once

#include <pthread.h>

#include <QString>
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
  // Before the first text is measured: the font settings are read. Texts know their family from then on;
  // whoever measures earlier makes the toolkit read the settings a second time.
  void Attendre();

 private:
  void LirePolices();
  QString famille_;
  pthread_t polices_{};
  bool lues_ = false;  // by the main thread's account
  std::jthread bus_;
};
