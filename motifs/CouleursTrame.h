// The weft's colour changes: a sheet to lay on the loom.
#pragma once

#include <string>

#include "motifs/Motif.h"

// The nearest of some twenty names: "light blue".
std::string NomCouleur(Couleur couleur, Langue langue);

// Which picks are of which colour, changes that repeat told once, and behind them the picks, the share, the
// first and the last pick of each colour. Lines end in LF.
std::string FeuilleCouleurs(const Motif &motif, Langue langue);
