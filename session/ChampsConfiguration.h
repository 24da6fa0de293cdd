// The fields of the configuration panel, through which every change of settings reaches the session: one row
// of one table tells of each what it is called, what it offers, where it stands, how it is read back, and
// where the files of Data keep it.
#pragma once

#include <span>
#include <variant>

#include "session/ModuleTissage.h"

namespace Champ {
// Index of the field and of its label.
enum Numero : int {
  Port = 1,
  Lames = 2,
  DuitesActives = 3,
  Deroulement = 4,
  Option = 5,
  Direction = 6,
  Duite = 7,
  Toile = 8,
};
constexpr int Nombre = 8;
}  // namespace Champ

// One item of a list, the value that it stands for, and the words by which it is known when read back.
struct ElementListe {
  Paire texte;
  int valeur;
  Paire relu = texte;
};

// The looms that can be chosen; each has its protocol.
inline constexpr ElementListe kChoixLames[] = {{{"16", "16"}, 16}, {{"24", "24"}, 24}};

// When a field is read back: before the direction is shown, before the draft is fitted, before the plan.
enum class Tour { AvantSens, AvantTrame, AvantPlan };

struct FicheChamp {
  Champ::Numero numero;
  Paire etiquette;
  std::span<const ElementListe> elements;  // empty: the picks of the plan
  int haut;                                // twips, inside the panel
  std::variant<Entier Session::*, Booleen Session::*> variable;
  Tour tour;
  int dansConfiguration, dansReprise;  // bytes from the start of the record; two bytes each
  struct {
    bool visible = true;
    bool saisie = false;                // a text that is no item can be typed
    bool parNombre = false;             // read back as the number that the text begins with, not by its items
    Paire dAbord = {nullptr, nullptr};  // written before the item of the value is looked for
  } aPart = {};
};

// All rows, in the order in which the fields are read back; and one of them.
std::span<const FicheChamp, Champ::Nombre> LesChamps();
const FicheChamp &LeChamp(Champ::Numero numero);

// What the session holds for a field, a flag as -1 or 0.
Entier ValeurDe(const FicheChamp &champ);
void PoserValeur(const FicheChamp &champ, Entier valeur);

// Takes the text of a field into the session. Nothing is validated: a text that is no item leaves a number as
// it was and makes a flag False. Fails with 6 where a number does not fit 16 bits.
void Relire(const FicheChamp &champ, const std::string &texte);
