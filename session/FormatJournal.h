// How the lines of Data/Journal.txt look that the next start reads back: a day, a time, two blanks, one of
// these beginnings in the language in force, the rest.
//
//   Pattern: PATH
//   Plan: Pattern, 20 picks
//   Plan: Tabby, 40 picks, pattern left at 12
//   Plan: Pattern and Tabby, 25 picks, from 17
//   Pick sent: 22, in reverse, no way back (line 16), harnesses 1, 9, 17
//   Direction: in reverse
//   Program left by Quit
#pragma once

#include <string>

#include "session/ModuleTissage.h"

namespace FormatJournal {
constexpr Paire kFin{"Programme quitté", "Program left by Quit"};
constexpr Paire kMotif{"Motif : ", "Pattern: "};
constexpr Paire kPlan{"Plan : ", "Plan: "};
constexpr Paire kDuite{"Duite envoyée : ", "Pick sent: "};
constexpr Paire kSens{"Sens : ", "Direction: "};

constexpr Paire kInverse{", en sens inverse", ", in reverse"};
constexpr Paire kSansRetour{", sans retour", ", no way back"};
constexpr Paire kLigne{" (ligne ", " (line "};
constexpr const char *kFinLigne = "), ";

// Behind what a power cut or a full disk has left of a line; such a line counts for nothing.
constexpr const char *kCoupe = " [coupé / cut off]";

constexpr std::size_t kJour = 10, kHeure = 8, kTexte = kJour + 1 + kHeure + 2;  // columns
}  // namespace FormatJournal

// Where the journal lies, and the one before it.
std::string CheminJournal();
std::string CheminAncienJournal();
