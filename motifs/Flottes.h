// Floats, and how plain weave comes out on a threading.
#pragma once

#include <vector>

#include "motifs/Motif.h"

// Floats longer than `flotte`: of the warp from pick to pick and over the seam of the repeat, of the weft
// from end to end. One finding for each length, the longest first; the shortest share the last one. Ends
// lifted in every pick come before them; those never lifted are told by their harness.
std::vector<Constat> Flottes(const Motif &motif, int flotte);

// Woven as plain weave, odd against even harnesses: neighbouring ends that move together.
struct Toile {
  int nombre = 0, voisins = 0;  // neighbours joined, and all of them
  std::vector<Lieu> reunis;     // stretches of joined ends, the first hundred
};
Toile ToileDe(const Motif &motif);
Phrase TexteToile(const Toile &toile);
// What comes at the seam of the repeat when a tabby pick stands between every two picks.
Phrase TexteReprise(const Motif &motif);

// Calls faire(first, last) for each stretch of equal successive values, counted from 1.
template <class T, class F>
void Etendues(const std::vector<T> &valeurs, F &&faire) {
  for (std::size_t debut = 0, i = 1; debut < valeurs.size(); ++i)
    if (i == valeurs.size() || valeurs[i] != valeurs[debut]) {
      faire(static_cast<int>(debut) + 1, static_cast<int>(i));
      debut = i;
    }
}
