// The drawing of a pattern as coloured cells: cloth, threading beyond its first pick, tie-up and treadling or
// lift plan to the right, the threads' colours between. End 1 is at the right, by the tie-up; harness 1 and
// pick 1 are next to each other. The first pick is below, as on the loom, unless it is asked for above.
#pragma once

#include <algorithm>
#include <vector>

#include "motifs/Extrait.h"

// How a pattern is drawn.
struct ReglagesPlanche {
  bool structure = false;    // warp up dark and weft up light, in place of the threads' colours
  bool enHaut = false;       // the first pick above
  int reprises = 1;          // 1 or 2: repeats beside and behind each other, to judge the seam
  Etendue duites{}, fils{};  // a part of it
};

// A field of the drawing, in cells from the upper left corner.
struct Zone {
  int x = 0, y = 0, largeur = 0, hauteur = 0;
  bool Vide() const { return largeur <= 0 || hauteur <= 0; }
};

// A colour, and above it what else a cell is.
using Case = Couleur;
constexpr Case kHors = 1U << 24;         // no cell: the paper beside the fields
constexpr Case kTraitDroite = 1U << 25;  // a line parts it from the next at the right
constexpr Case kTraitBas = 1U << 26;     // and from the next below
constexpr Couleur CouleurDe(Case c) { return c & 0xFFFFFF; }

constexpr Couleur kPapier = 0xFFFFFF, kCaseVide = 0xE9ECEF, kCaseMarquee = 0x22262E;
constexpr Couleur kChaineDessus = 0x2B313B, kTrameDessus = 0xF1ECDF;  // the structure

// The line beside a cell of a colour: darker than a light one, lighter than a dark one.
constexpr Couleur Trait(Couleur c) {
  const auto canal = [c](int d) { return c >> d & 255; };
  const bool sombre = canal(16) * 3 + canal(8) * 6 + canal(0) < 900;
  const auto nuance = [sombre](Couleur v) { return sombre ? v + (255 - v) * 3 / 10 : v * 15 / 20; };
  return nuance(canal(16)) << 16 | nuance(canal(8)) << 8 | nuance(canal(0));
}

// Looks into a pattern that has to outlive it.
class Planche {
 public:
  // Refuses a part that is not there.
  explicit Planche(const Motif &motif, const ReglagesPlanche &voulus = {});

  int Largeur() const { return pas.x + pas.largeur + 1; }  // cells
  int Hauteur() const { return hauteur_; }                 // cells
  // The colours of a row; `cases` has room for Largeur(). With `traits` the lines between the threads: none
  // where one thread runs on from a cell to the next.
  void Ligne(int y, Case *cases, bool traits = false) const;

  const Motif &Dessine() const { return m_; }
  const ReglagesPlanche &Reglages() const { return r_; }
  // Threads of one repeat, and of the drawing.
  Etendue Fils() const { return fils_; }
  Etendue Duites() const { return duites_; }
  int FilsTraces() const { return tissu.largeur; }
  int DuitesTracees() const { return tissu.hauteur; }

  // The cell of the n-th thread of the drawing, of a harness in the threading; all from 1.
  int XFil(int rang) const { return tissu.x + tissu.largeur - rang; }
  int YDuite(int rang) const { return r_.enHaut ? tissu.y + rang - 1 : tissu.y + tissu.hauteur - rang; }
  int YLame(int lame) const {
    return r_.enHaut ? enfilage.y + enfilage.hauteur - lame : enfilage.y + lame - 1;
  }
  // And back: the rank, which may lie outside.
  int RangFil(int x) const { return tissu.x + tissu.largeur - x; }
  int RangDuite(int y) const { return r_.enHaut ? y - tissu.y + 1 : tissu.y + tissu.hauteur - y; }
  // The thread of a rank in the pattern.
  int Fil(int rang) const { return fils_.premier + (rang - 1) % std::max(1, NombreFils()); }
  int Duite(int rang) const { return duites_.premier + (rang - 1) % std::max(1, NombreDuites()); }
  int NombreFils() const { return std::max(0, fils_.dernier - fils_.premier + 1); }
  int NombreDuites() const { return std::max(0, duites_.dernier - duites_.premier + 1); }

  Zone enfilage, couleursChaine, tissu, couleursTrame, attaches;
  Zone pas;  // treadling, or the lift plan

  // All fields that there are.
  std::vector<Zone> Zones() const;

 private:
  void Placer();
  void Marquer(const Zone &zone, Lames lames, Case *cases) const;
  void Tisser(int rang, Case *cases, bool traits) const;
  void Border(int y, Case *cases) const;
  const Motif &m_;
  const ReglagesPlanche r_;
  Etendue fils_, duites_;
  int hauteur_ = 0;
  std::vector<Lames> enfilage_;  // in the order of the drawing
  std::vector<Couleur> chaine_;
};

// Whether the colours of a pattern leave its structure unseen: warp and weft alike at nine crossings of ten.
bool CouleursMuettes(const Motif &motif);

// The smallest stretches of threads of which threading and plan are made by repeating them: ends and picks,
// all of them where nothing repeats.
std::pair<int, int> Rapport(const Motif &motif);

// From which number on the next is written beside cells of `cote` where a number needs `place`: every one,
// every `base`-th (4 or 5), and so on.
int PasNumeros(int base, double cote, double place);
// Calls faire(rank, number) for every number that has room, of ranks first to last; numbers go from `debut`
// and begin anew behind `periode`.
template <class F>
void PourChaqueNumero(Etendue rangs, int debut, int periode, int pas, F &&faire) {
  for (int r = std::max(1, rangs.premier); r <= rangs.dernier; ++r)
    if (const int n = debut + (r - 1) % periode; n % pas == 0) faire(r, n);
}
