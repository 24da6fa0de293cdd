// The drawing of a pattern as coloured cells: threading above, cloth below it, tie-up and treadling or lift
// plan to the right, the threads' colours between. End 1 is at the right, by the tie-up; harness 1 and pick 1
// are next to the cloth.
#pragma once

#include "motifs/Motif.h"

// A field of the drawing, in cells from the upper left corner.
struct Zone {
  int x = 0, y = 0, largeur = 0, hauteur = 0;
  bool Vide() const { return largeur <= 0 || hauteur <= 0; }
};

constexpr Couleur kPapier = 0xFFFFFF, kCaseVide = 0xE9ECEF, kCaseMarquee = 0x22262E;

// Four fifths of a colour, for the line between two cells of it.
constexpr Couleur Assombrie(Couleur c) {
  return (c >> 16 & 255) * 4 / 5 << 16 | (c >> 8 & 255) * 4 / 5 << 8 | (c & 255) * 4 / 5;
}

// Looks into a pattern that has to outlive it.
class Planche {
 public:
  explicit Planche(const Motif &motif);

  int Largeur() const { return pas.x + pas.largeur + 1; }      // cells
  int Hauteur() const { return tissu.y + tissu.hauteur + 1; }  // cells
  // The colours of a row; `cases` has room for Largeur().
  void Ligne(int y, Couleur *cases) const;
  // The cell of an end, of a pick, of a harness in the threading; all from 1.
  int XFil(int fil) const { return tissu.x + tissu.largeur - fil; }
  int YDuite(int duite) const { return tissu.y + duite - 1; }
  int YLame(int lame) const { return enfilage.y + enfilage.hauteur - lame; }

  Zone enfilage, couleursChaine, tissu, couleursTrame, attaches;
  Zone pas;  // treadling, or the lift plan

  // All fields that there are.
  std::vector<Zone> Zones() const;

 private:
  void Marquer(const Zone &zone, Lames lames, Couleur *cases) const;
  const Motif &m_;
  std::vector<Lames> enfilage_;  // in the order of the drawing
  std::vector<Couleur> chaine_;
};
