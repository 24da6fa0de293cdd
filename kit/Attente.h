// The progress window: a shaped picture with a step word and a percent, shown while outlines and the harness
// matrix are built. Loaded once at its first touch; after that it is only shown and hidden.
#pragma once

#include "controls/Controles.h"

struct Attente : Fenetre {
  Attente();
  void Visiter(Visiteur &v) override;
  void Load() override;

  // Shows or hides the window, painted at once.
  void Montrer(bool visible);
  // Writes the percent, 0..100, rounded, only while the window is visible; painted at once when the text
  // changed.
  void EcrirePourcent(double pourcent);

  BoitePicture PicTransparente;
  Etiquette Remarque, LblPourcent;
};

extern Attente attente;
