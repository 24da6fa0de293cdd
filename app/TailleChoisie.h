// The size that the weaver has chosen for the window: taken at a start, never more than the screen holds, and
// changed for the next one.
#pragma once

#include <string>

class PlateformeQt;

class TailleChoisie {
 public:
  // Before the application object stands: it takes the size from here. `dossier` is the program's.
  explicit TailleChoisie(const std::string &dossier);
  // Once it stands: a size that this screen does not hold starts the program over with one that it holds.
  // `mots` are those that it was started with.
  void TenirDansEcran(char **mots) const;
  // One size up (1) or down (-1) for the next start, said in the short message.
  void Changer(PlateformeQt &machine, int sens) const;

 private:
  // The largest size up to `voulue` on the first screen.
  int Tenue(int voulue) const;

  std::string dossier_;
  double facteur_ = 1;  // in force
  bool notre_ = false;  // from the file, and not from the environment
};
