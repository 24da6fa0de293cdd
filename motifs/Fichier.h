// Pattern files in and out: read whole within bounds, written whole or not at all.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "motifs/Phrase.h"

constexpr std::size_t kOctetsMax = std::size_t{32} << 20;      // bytes of a file
constexpr std::size_t kOctetsLigneMax = std::size_t{1} << 20;  // bytes of a line

// A target that is there and was not to be replaced.
struct DejaLa : Refus {
  explicit DejaLa(const std::string &chemin);
};

// The bytes of a regular file. Refuses folders, devices and pipes without waiting on them, files and lines
// beyond the bounds, and files that hold a zero byte.
std::string LireFichier(const std::string &chemin);

// The bytes of a regular file of at most 32 MB, whatever they are.
std::string LireBrut(const std::string &chemin);

// Writes beside the target, then moves it there in one step. Refuses a target that is there unless
// `remplacer`, and one that is no regular file in any case. The folder has to be there.
void EcrireFichier(const std::string &chemin, std::string_view octets, bool remplacer);

// What EcrireFichier would refuse of its target; for work that is better not begun.
void VerifierCible(const std::string &chemin, bool remplacer);

// Refuses to write over the file that is read: what the new form leaves out would be lost for ever. A target
// that is not there is no such file.
void ExigerAutreFichier(const std::string &source, const std::string &cible);

// Why the operating system refused, in words.
Phrase RaisonSysteme(int errnoValeur);
