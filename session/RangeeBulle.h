// One row of the help: its bubble, and what it says in each language.
#pragma once

#include "session/ModuleTissage.h"

// The bubbles, by the corner in which the tail points.
enum class CoinBulle { BasGauche, HautDroit, HautGauche, BasDroit };

// How a bubble's place follows from that of its control.
enum class FamilleBulle { A, B, C, D, E, F, G, H, I, J, K, L };

// One write. A null text leaves the line as the bubble last had it; number 0 ends the list.
struct LigneBulle {
  int numero = 0;  // 1..6
  const char *texte = nullptr;
};

struct TexteBulle {
  const char *statut;
  LigneBulle lignes[6];  // in the order of writing; a line that is not listed is written empty
};

struct RangeeBulle {
  CoinBulle coin;
  FamilleBulle famille;
  EnLangues<TexteBulle> textes;
};
