// The copy of a project that a save lays beside both its files (base/FichiersBrandis.h), as bytes: a line
// with a word, the length of each file (-1 for none) and a sum over both; then the bytes of both. A rename
// alone keeps a copy from being cut short; the sum is for a disk that is not sound.
#pragma once

#include <optional>
#include <string>

struct CopieProjet {
  std::optional<std::string> entete, lignes;
};

std::string EnTexte(const CopieProjet &copie);
// Nothing where the text is not, byte for byte, what some project makes.
std::optional<CopieProjet> DeTexte(const std::string &texte);
