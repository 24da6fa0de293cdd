// What the help says of each command: the status text, and the words of the bubble on its six lines.
#pragma once

#include <string>

// The bubbles, by the corner in which the tail points.
enum class CoinBulle { BasGauche, HautDroit, HautGauche, BasDroit };

// How a bubble's place follows from that of its control.
enum class FamilleBulle { A, B, C, D, E, F, G, H, I, J, K, L };

// Sources beyond the commands, which have their own index 0..21.
namespace SourceBulle {
constexpr int BoutonAide = 22;
constexpr int DrapeauFrancais = 23;
constexpr int DrapeauAnglais = 24;
constexpr int BarreDeplacement = 25;
constexpr int LogoNor = 26;
constexpr int Nombre = 27;
}  // namespace SourceBulle

// One write. A null text leaves the line as the bubble last had it; number 0 ends the list.
struct LigneBulle {
  int numero = 0;  // 1..6
  const char *texte = nullptr;
};

struct TexteBulle {
  const char *statut;
  LigneBulle lignes[6];  // in the order of writing; a line that is not listed is written empty
};

struct RangeeBulle {
  CoinBulle coin;
  FamilleBulle famille;
  TexteBulle francais, anglais;
};

// The row of a source, 0..26; fails with 9 beyond.
const RangeeBulle &RangeeDe(int source);
// Its text in the language in force.
const TexteBulle &TexteDe(int source);
