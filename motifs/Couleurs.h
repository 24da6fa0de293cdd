// The colours of warp and weft.
#pragma once

#include "motifs/Motif.h"
#include "motifs/Valeurs.h"

constexpr Couleur kChaineSansCouleur = 0x20242C, kTrameSansCouleur = 0xF4F1EA;

// Fills `chaine` and `trame` for the ends and picks that the pattern has. A thread without a colour of its
// own takes that of its section, and without one a dark warp and a light weft. Refuses numbers that are none.
void LireCouleurs(Motif &motif, const Valeurs &valeurs);
