// What the start needs of the disk, read on other cores while the display is being opened: the desktop's
// fonts and the pictures of every start.
#pragma once

#include <QString>
#include <semaphore>
#include <thread>

#include "platform/qt/MagasinImages.h"

class Avance {
 public:
  // Before the application object, which neither font settings nor plain pixels need. `dossiers`: those of
  // the pictures, as the store has them.
  explicit Avance(const std::vector<std::string> &dossiers);
  // The application object stands: the toolkit's list of fonts comes next.
  void Ouvrir() { application_.release(); }
  // Before the first text is measured: all is read. Texts know their family from then on; whoever measures
  // earlier makes the toolkit read the settings a second time. The application object has to be there until
  // then.
  ImagesLues Attendre();

 private:
  std::binary_semaphore application_{0};
  QString famille_;
  ImagesLues images_;
  std::jthread polices_, dessins_;  // last: they write what stands above
};
