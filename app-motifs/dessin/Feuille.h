// Fields, lines and numbers of a drawing, put on paper by cairo.
#pragma once

#include <cairo.h>

#include <memory>
#include <string>
#include <vector>

#include "motifs/Planche.h"

struct DetruireCairo {
  void operator()(cairo_t *c) const { cairo_destroy(c); }
  void operator()(cairo_surface_t *s) const { cairo_surface_destroy(s); }
};
using Contexte = std::unique_ptr<cairo_t, DetruireCairo>;
using Surface = std::unique_ptr<cairo_surface_t, DetruireCairo>;

// Fails where cairo did; what it cannot draw is too large for it.
void ExigerCairo(cairo_t *c, cairo_surface_t *surface);

// A part of a drawing: cells from column `x` on, and of the rows those of some picks and, beyond pick 1, all
// of the threading.
struct Cadrage {
  int x, largeur;
  Etendue fils, duites;  // ranks; {1, 0} for none
};
Cadrage ToutCadrer(const Planche &planche);

// Room beside the fields for their numbers, for a text of that height.
struct Marges {
  double gauche, droite, dehors;  // `dehors` beyond the threading
};
Marges MargesNumeros(double texte);

// Draws in the units of the context, each cell `cote` wide, from the point x, y on.
class Feuille {
 public:
  Feuille(cairo_t *c, const Planche &planche, const Cadrage &cadrage, double x, double y, double cote,
          double texte)
      : c_(c), p_(planche), k_(cadrage), x_(x), y_(y), cote_(cote), texte_(texte) {}

  int Rangees() const { return Tete() + k_.duites.dernier - k_.duites.premier + 1; }
  double Largeur() const { return k_.largeur * cote_; }
  double Hauteur() const { return Rangees() * cote_; }
  // Rows of threading and tie-up with the air around them.
  int Tete() const { return p_.Hauteur() - p_.DuitesTracees() - 2; }

  void Cases();
  void Numeros();
  // Where a rank begins on paper, its left and its upper side.
  double XFil(int rang) const { return x_ + (p_.XFil(rang) - k_.x) * cote_; }
  double YDuite(int rang) const;

 private:
  struct Bande {
    int premiere, nombre;  // rows of the drawing
    double y;
  };
  std::vector<Bande> Bandes() const;
  double YRangee(int rangee) const;
  void Tracer(const Bande &bande);
  void Traits(const Bande &bande);
  void Coller(const Bande &bande);
  void Ecrire(double x, double y, const std::string &texte, double part);

  cairo_t *c_;
  const Planche &p_;
  const Cadrage k_;
  const double x_, y_, cote_, texte_;
};
