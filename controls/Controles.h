// Controls and windows as plain data. Lengths are twips, 15 to the pixel. A toolkit mirrors what stands here;
// the logic reads and writes the fields and asks no toolkit anything.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/Entier.h"
#include "controls/Surface.h"

enum class Genre { Boite, Image, Etiquette, Texte, Liste, Case, Forme, Fenetre };
enum class Alignement { Gauche, Centre };

// Mouse buttons and pointer shapes by their numbers in the system.
constexpr int kBoutonGauche = 1;
constexpr int kPointeurDefaut = 0;
constexpr int kPointeurDeplacer = 15;
constexpr int kPointeurPerso = 99;

// Key codes that the system looks at.
namespace Touche {
constexpr int Retour = 8;
constexpr int Entree = 13;
constexpr int Echappement = 27;
constexpr int Espace = 32;
constexpr int LettreO = 79;
constexpr int Alt = 4;  // in the shift state
}  // namespace Touche

// Place of the pointer inside the control, in twips.
using SuiteSouris = std::function<void(int bouton, double x, double y)>;

struct Controle {
  virtual ~Controle() = default;
  virtual Genre genre() const = 0;

  double Left = 0, Top = 0, Width = 0, Height = 0;
  bool Visible = true;
  int MousePointer = kPointeurDefaut;
  std::string MouseIcon;    // picture of the custom pointer
  bool ClicUnique = false;  // a double click presses it once
  // Told to assistive tools, in the language in force: what it is called, and what there is to say of it.
  std::string NomAccessible, DescriptionAccessible;
  std::optional<bool> EnMarche;  // the same: it is a switch, and whether it is on
  bool Volet = false;  // a panel: while it shows, the keyboard walks in panels alone
  // Its name is news: it can be reached by Tab, and each new name is read out by a screen reader.
  bool Annonce = false;

  // Events, bound once; an empty one is an event that nobody handles.
  std::function<void()> Click;
  std::function<void()> GotFocus;
  SuiteSouris MouseDown, MouseMove, MouseUp;
  std::function<void(int touche, int maj)> KeyDown;
  std::function<int(int code)> KeyPress;  // gives the code to go on with, 0 drops the key

 protected:
  Controle() = default;
  Controle(const Controle &) = default;
  Controle &operator=(const Controle &) = default;
};

// Puts a control at its place.
inline void Placer(Controle &c, double gauche, double haut, double largeur, double hauteur) {
  c.Left = gauche;
  c.Top = haut;
  c.Width = largeur;
  c.Height = hauteur;
}

// A picture box: a drawn surface over its background colour, and a place for other controls.
struct BoitePicture : Controle {
  Genre genre() const override { return Genre::Boite; }
  Surface Dessin;
  Couleur BackColor = Gris(192);
  std::string Tag;
  // The picture of Dessins Boutons that lies on it, without its ending, and its place in pixels: what a
  // mirror draws finer where the screen is. Empty for none.
  std::string DessinPose;
  int PoseX = 0, PoseY = 0;
};

// A picture alone.
struct Image : Controle {
  Genre genre() const override { return Genre::Image; }
  std::string Picture;       // name of a picture of the program, empty for none
  bool Facultative = false;  // one that is missing is none, and no failure
};

// A text that is only read; one as high as two lines breaks at its width.
struct Etiquette : Controle {
  Genre genre() const override { return Genre::Etiquette; }
  std::string Caption;
  Couleur ForeColor = 0;
  Police Font;
  Alignement Alignment = Alignement::Gauche;
  bool Abreger = false;  // a path: its middle gives way when it is too long
  bool Cerne = false;    // a dark rim round each letter keeps a light text readable on a light ground
  bool Plaque = false;   // a dark plate behind the text keeps a bright red one readable
  bool Agrandi = false;  // the largest type above its own in which the text fits on one line
  bool Serre = false;    // narrower letters where the text is wider than its place
};

// A field. What the weaver types stands in `Text` before any event runs; `SelStart` and `SelLength` count
// characters, from 0, and tell as well as set the selection.
struct ZoneTexte : Controle {
  Genre genre() const override { return Genre::Texte; }
  std::string Text;
  int SelStart = 0, SelLength = 0;
  bool Multiligne = false;
};

// A list field. Without `Saisie` the weaver can only choose.
struct ListeChoix : Controle {
  Genre genre() const override { return Genre::Liste; }
  std::string Text;
  std::vector<std::string> Liste;
  bool Saisie = false;
};

// `Value` is changed before Click runs.
struct CaseCochee : Controle {
  Genre genre() const override { return Genre::Case; }
  bool Value = false;
};

// An outlined box with nothing inside.
struct Forme : Controle {
  Genre genre() const override { return Genre::Forme; }
  Couleur BorderColor = 0;
  int BorderWidth = 1;  // pixels
};

// A timer on the event thread; 0 milliseconds is off. Setting an interval, even the one it has, starts the
// period anew.
class Minuterie {
 public:
  int Interval() const { return intervalle_; }
  unsigned Depart() const { return depart_; }
  void Interval(int millisecondes) {
    intervalle_ = millisecondes;
    depart_ = ++departs_;
  }
  std::function<void()> Timer;

 private:
  static inline unsigned departs_ = 0;  // of all timers, so that a window made anew never repeats an old one
  int intervalle_ = 0;
  unsigned depart_ = 0;
};

// One row of an outline: pixels gauche..droite-1 of line y.
struct Segment {
  int y, gauche, droite;
  bool operator==(const Segment &) const = default;
};
// A window outline; empty is none, and leaves the window rectangular.
using Region = std::vector<Segment>;

// Receives the controls of a window, parents before children, in order from the bottom to the top.
struct Visiteur {
  virtual ~Visiteur() = default;
  virtual void Voir(const std::string &nom, Controle &controle, Controle &parent) = 0;
  virtual void Voir(const std::string &nom, Minuterie &minuterie) = 0;
};

struct Fenetre : Controle {
  Genre genre() const override { return Genre::Fenetre; }
  // What the window takes over from others, as long as it stands; run before each mirroring.
  virtual void Suivre() {}
  // Gives every control to the visitor, and changes nothing.
  virtual void Visiter(Visiteur &v) = 0;
  // The load steps, run by Charger, and what follows once Decharger has taken the window away.
  virtual void Load() {}
  virtual void Unload() {}

  Fenetre() { Visible = false; }

  std::string Caption;
  Couleur BackColor = Gris(192);
  Surface Dessin;
  Region Contour;
  int WindowState = 0;  // 0 normal, 1 minimised, 2 maximised
  // Twips that the native window adds to its place on the screen; the logic computes with Left and Top alone.
  double DecalageX = 0, DecalageY = 0;
  bool Chargee = false;
  bool SansSouris = false;  // the pointer passes through to what lies behind
  bool Message = false;     // its words are read out when it shows
  std::function<void()> Resize;
};

// Loads the window if it is not: fields as designed, then its load steps.
template <class F>
F &Charger(F &f) {
  if (!f.Chargee) {
    f = F();
    f.Chargee = true;
    f.Load();
  }
  return f;
}
// Takes the window away; its next use loads it anew.
inline void Decharger(Fenetre &f) {
  f.Visible = false;
  f.Chargee = false;
  f.Unload();
}
