// What a weaver should know of a pattern before weaving it.
#pragma once

#include <vector>

#include "motifs/Motif.h"

constexpr int kFlotteMax = 7;              // threads that a float may pass
constexpr std::size_t kConstatsMax = 500;  // of one kind; a last one says how many more there are

// What reading found, then harnesses beyond the looms, too many picks, empty and repeated picks, ends on no
// harness, harnesses never lifted, and floats longer than `flotte` on either side of the cloth.
std::vector<Constat> Verifier(const Motif &motif, int flotte = kFlotteMax);

bool ContientFaute(const std::vector<Constat> &constats);
// Short name of a kind, for programs: "flotte-chaine".
const char *NomGenre(Constat::Genre genre);
