// Pictures of patterns as files.
#pragma once

#include <string>

#include "app-motifs/ReglagesDessin.h"

// The bytes of a picture of the kind that the ending of `nom` tells: png, svg or pdf in any case. Refuses
// others, parts that are not there, and what is too large for one picture.
std::string Dessiner(const Motif &motif, const std::string &nom, const ReglagesDessin &reglages,
                     Langue langue);

// Refuses a drawing of more pixels than a picture may have.
void ExigerPixels(const Motif &motif, long long largeur, long long hauteur);
