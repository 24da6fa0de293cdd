// Writes patterns in the form that the loom's program weaves: nothing but picks between "[LIFTPLAN]" and
// "[WEAVING]", one line a pick in order without gaps, a lone harness twice ("4,4"), an empty pick as "0,0".
// Everything else of the file stands before it, so that other programs still read it.
#pragma once

#include <string>
#include <vector>

#include "motifs/Motif.h"

// The pattern's own sections as they were, the tie-up and treadling given as a lift plan. Refuses more than
// 24 harnesses and more than 2500 picks, which the looms and the program cannot weave.
std::string FormeTissable(const Motif &motif);

// The sheds woven on the warp of `motif`: its sections but those of the weft, which is `couleurs` where it is
// not empty. `separations` are the empty picks that stand between repeats, from 1 and in order. Refuses the
// same.
std::string FormeTissable(const Motif &motif, const std::string &titre, const std::vector<Lames> &foules,
                          const std::vector<Couleur> &couleurs, const std::vector<int> &separations = {});

// The pattern on another threading, with the sheds and the count of harnesses that belong to it. Refuses the
// same.
std::string FormeSurEnfilage(const Motif &motif, const std::vector<Lames> &enfilage,
                             const std::vector<Lames> &foules, int lames);

// The line of a pick, counted from 1: "12=1,3,16".
std::string LignePlan(int duite, Lames lames);

// Refuses what FormeTissable refuses.
void ExigerTissable(const Motif &motif, const std::vector<Lames> &foules);
