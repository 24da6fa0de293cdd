// Parts of a pattern: a long piece is woven, drawn and strung together in stretches.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "motifs/Motif.h"
#include "motifs/Valeurs.h"

// Threads from 1, both ends included; {0, 0} stands for all.
struct Etendue {
  int premier = 0, dernier = 0;
  bool Toute() const { return premier == 0; }
};

// "12-340", "12-" up to the last (kFilsMax), "12" alone; nothing for any other text.
std::optional<Etendue> LireEtendue(std::string_view texte);

// "A.wif[1-2400]": the file, and the picks of it. A file that bears the whole name comes first.
std::pair<std::string, Etendue> SeparerEtendue(const std::string &mot);

// The stretch with its last thread at `nombre` at most. Refuses one that begins behind it; `chemin` names the
// file.
Etendue Borner(Etendue etendue, int nombre, const MotsNombre &mots, const std::string &chemin);

// The picks of a stretch as a pattern of their own, with the title, the name and the places that go with it:
// "A-1-2400.wif". The same pattern for all of it. Refuses what Borner refuses.
Motif Extraire(const Motif &motif, Etendue duites);
