// What the looms raise of a plan. The frame of a pick leaves the upper eight harnesses out and carries the
// lowest eight twice: on 24 harnesses 17 to 24 move as 1 to 8, on 16 harnesses 9 to 16 do. Reckoned here on
// its own; a test holds it against the frames.
#pragma once

#include "motifs/Motif.h"

// What the frame of a shed raises on the loom of 16 or of 24 harnesses.
Lames LeveesParLeMetier(Lames foule, int lames);

// Harnesses that hold an end or are lifted: what the cloth depends on.
Lames LamesEnUsage(const Motif &motif);

// The picks that a loom raises otherwise than drawn, as far as harnesses in use go.
struct LeveesAutrement {
  int nombre = 0;                   // picks
  std::vector<int> duites;          // from 1, the first hundred
  Lames levees = 0, dessinees = 0;  // of the first of them
};
LeveesAutrement ComparerLevees(const Motif &motif, int lames);

// A file opened as it stands, without having been converted.
struct TelQuel {
  bool plan = false;  // the loom's program finds a lift plan in it
  bool ferme = true;  // and its end; else the next file is read into it
  int echec = 0;      // the pick from 1 that the program fails at; 0 for none
  int autrement = 0;  // picks woven otherwise than drawn, missing and added ones included
  int premiere = 0;   // of those
};
TelQuel LireTelQuel(const Motif &motif);
