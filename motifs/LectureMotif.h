// Reads a pattern file of any maker and version.
//
// None of the packaged readers of such "key = value" files serves: they take an indented line for the
// continuation of the last, cut or split long lines, know no lone CR, lose the line numbers that every
// finding needs, change the order of keys, or keep each pair in objects of their own that weigh many times
// the file.
#pragma once

#include <string>

#include "motifs/Motif.h"

// Where the weavable form keeps which picks are separations: a section of its own, a key with their numbers.
inline constexpr const char *kSectionSeparations = "PRIVATE BRANDIS SEPARATIONS", *kCleSeparations = "Picks";

// Refuses what LireFichier refuses, other programs' own forms, and a file without a whole plan or with
// numbers that are none or out of range.
Motif LireMotif(const std::string &chemin);
// The same for a text that stands in memory; `chemin` only names it.
Motif ComprendreMotif(std::string octets, const std::string &chemin);
