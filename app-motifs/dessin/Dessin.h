// Pictures of patterns as files.
#pragma once

#include <string>

#include "motifs/Motif.h"

// The bytes of a picture of the kind that the ending of `nom` tells: png, svg or pdf in any case. Refuses
// others.
std::string Dessiner(const Motif &motif, const std::string &nom, Langue langue);
