// What the start needs of the desktop, asked for on another core: the fonts while the display is being opened,
// the session bus while the windows are made.
#pragma once

#include <QString>
#include <semaphore>
#include <thread>

class Avance {
 public:
  // Before the application object, which font settings do not need. Whoever makes one lets it go with `Ouvrir`
  // before its end, which waits for that.
  Avance();
  // The application object stands. The toolkit waits for the bus with its first window, to learn whether
  // somebody reads the screen; where it was asked for, it is there by then.
  void Ouvrir() { application_.release(); }
  // Before the first text is measured: the settings are read. Texts know their family from then on; whoever
  // measures earlier makes the toolkit read the settings a second time.
  void Attendre();

 private:
  std::binary_semaphore application_{0}, lue_{0};
  QString famille_;
  std::jthread fil_;  // last: it writes what stands above
};
