// What a weaver should know of a pattern before weaving it.
#pragma once

#include <vector>

#include "motifs/Motif.h"

constexpr int kFlotteMax = 7;  // threads that a float may pass

// What reading found, then what the loom of `lames` harnesses (16 or 24) raises otherwise than drawn,
// harnesses beyond the looms, too many picks, missing, empty and repeated picks, ends on no harness,
// harnesses never lifted, and floats longer than `flotte` on either side of the cloth, over the seam of the
// repeat too. Faults first, one for each kind of thing, floats by their length. The time is bound by what the
// loom can take: of a larger cloth only the first 2500 picks are looked through for floats, which is told.
std::vector<Constat> Verifier(const Motif &motif, int flotte = kFlotteMax, int lames = kLamesMetier);

// The faults alone; no floats are looked for.
std::vector<Constat> Fautes(const Motif &motif, int lames = kLamesMetier);

bool ContientFaute(const std::vector<Constat> &constats);
// Short name of a kind, for programs: "flotte-chaine".
const char *NomGenre(Constat::Genre genre);
