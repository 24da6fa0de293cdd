// The counter on the upper beam: the pick on the loom, where it stands in the repeat, the weave, the
// direction and whether the loom is awaited, large enough to be read from the bench.
#pragma once

#include "controls/Controles.h"

// The board; what it bears is set by TenirCompteur alone.
struct PanneauCompteur : Image {
  PanneauCompteur();
  // What lies on the board, which is the parent of it all.
  void Visiter(Visiteur &v);

  Etiquette LblNumero, LblTotal;
  Etiquette LblInvite;  // in place of all else while there is no pattern
  Image Gorge, Ruban;   // the groove of one repeat, and its tape cut off at the pick on the loom
  Image SigneArmure, SigneSens, SigneEtat;
};

// The tape at the end of the repeat, twips.
constexpr double kLargeurRuban = 192 * 15;
// The number with its total beside it, and the name of a tabby alone, twips.
constexpr double kLargeurNumero = 138 * 15, kLargeurToile = 238 * 15;
