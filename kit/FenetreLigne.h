// The note that stands over the upper beam of the main window for as long as the line to the loom is gone. It
// takes neither the keyboard nor the pointer, and goes by itself.
#pragma once

#include "controls/Controles.h"

struct FenetreLigne : Fenetre {
  FenetreLigne();
  // Reads the language in force and the place of the main window first, so that the note follows both.
  void Visiter(Visiteur &v) override;
  void Load() override;

  Etiquette LblTitre, LblRemarque;
};

extern FenetreLigne fenetreLigne;

// Shows the note, or takes it away.
void MontrerLigneCoupee(bool coupee);
