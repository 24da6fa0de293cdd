// Moves the harnesses of a pattern into those that go out to the loom.
#pragma once

#include <string>
#include <vector>

#include "motifs/Motif.h"

struct Ramene {
  bool change = false;  // else every shed goes out as drawn already
  std::vector<Lames> enfilage, foules;
  int lames = 0;            // the highest that is left
  std::vector<Phrase> pas;  // what the weaver has to do: "harness 17 moves to 3: 4 ends, the first 17."
};

// As few ends as can be are moved: harnesses that go out stay, the upper eight stay where they lift with the
// lowest eight, others join a harness that lifts with them or take a free one; only where this does not do
// are all harnesses closed up, those that lift alike as one. The cloth is the same end for end and pick for
// pick, as the loom of 16 or 24 harnesses raises it, which is looked at before this returns. Refuses a
// pattern without threading, and one that needs more harnesses than go out.
Ramene Ramener(const Motif &motif, int lames);

// Whether Ramener would refuse, and why; empty where it can.
Phrase EmpechementARamener(const Motif &motif, int lames);
