// What the help says of each command and of the few controls beside them: the status text, and the words of
// the bubble on its six lines.
#pragma once

#include "session/Commandes.h"
#include "session/RangeeBulle.h"

// Sources beyond the commands, which have their own index and their help in their own row.
namespace SourceBulle {
constexpr int BoutonAide = Commande::Nombre;
constexpr int DrapeauFrancais = 23;
constexpr int DrapeauAnglais = 24;
constexpr int BarreDeplacement = 25;
constexpr int LogoNor = 26;
constexpr int Nombre = 27;
}  // namespace SourceBulle

// What the number on the left upright is, for the status line and for assistive tools.
constexpr Paire kIntervalle{"Intervalle d'écoute du métier, en millisecondes",
                            "Listening interval of the loom, in milliseconds"};

// The row of a source, 0..26; fails with 9 beyond.
const RangeeBulle &RangeeDe(int source);
// Its text in the language in force.
const TexteBulle &TexteDe(int source);
// Its status text.
Paire StatutDe(int source);
