// New patterns made of old ones.
#pragma once

#include <string>
#include <vector>

#include "motifs/Motif.h"

struct Piece {
  Motif motif;
  int fois;  // 1 to 2500
};

// The pieces one behind the other, in the weavable form, on the warp of the first. With `separer` one empty
// pick stands between every two repeats. Refuses what FormeTissable refuses.
std::string Assembler(const std::vector<Piece> &pieces, bool separer);
// What the weaver should know of pieces that do not lie on the same warp.
std::vector<Constat> ComparerChaines(const std::vector<Piece> &pieces);

// The threading as a lift plan: pick n raises the harnesses of the n-th group of `groupe` ends (1 to 8).
// Refuses a pattern without threading, and what FormeTissable refuses.
std::string EnfilageTissable(const Motif &motif, int groupe, Langue langue);
