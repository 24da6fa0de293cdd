#include "session/ChampsConfiguration.h"

#include <algorithm>

#include "base/TexteNumerique.h"

namespace {
constexpr ElementListe kPorts[] = {
    {{"COM 1", "COM 1"}, 1}, {{"COM 2", "COM 2"}, 2}, {{"COM 3", "COM 3"}, 3}, {{"COM 4", "COM 4"}, 4}};
constexpr ElementListe kDuitesActives[] = {{{"11", "11"}, 11}};
constexpr ElementListe kDeroulements[] = {{{"Haut", "Up"}, -1}, {{"Bas", "Down"}, 0}};
constexpr ElementListe kOptions[] = {{kNomsOption[0], Option::Patron},
                                     {kNomsOption[1], Option::Toile},
                                     {kNomsOption[2], Option::PatronEtToile}};
// No list offers "Inverse": in French the panel always gives forward.
constexpr ElementListe kDirections[] = {{{"Suivant", "Forward"}, 0},
                                        {{"Précédent", "Reverse"}, -1, {"Inverse", "Reverse"}}};
constexpr ElementListe kToiles[] = {{{"Liaison A", "Tabby A"}, -1}, {{"Liaison B", "Tabby B"}, 0}};

// clang-format off
constexpr FicheChamp kChamps[] = {
    {Champ::Duite, {"Départ Patron:", "Starting Bar:"}, {}, 3000,
     &Session::DuiteCourante, Tour::AvantSens, 12, 277, {.saisie = true, .parNombre = true}},
    {Champ::DuitesActives, {"Duites Active (Rouge):", "Lookahead Picks:"}, kDuitesActives, 1470,
     &Session::DuitesActives, Tour::AvantSens, 4, 269, {.visible = false, .parNombre = true}},
    {Champ::Deroulement, {"Début Déroulement:", "Scrolling Direction:"}, kDeroulements, 1470,
     &Session::DirectionDeroulement, Tour::AvantSens, 6, 275},
    {Champ::Direction, {"Direction Patron:", "Weave Direction:"}, kDirections, 2490,
     &Session::DirectionTissage, Tour::AvantSens, 10, 273},
    {Champ::Toile, {"Départ Toile:", "Starting Tabby:"}, kToiles, 3510,
     &Session::ToileDepart, Tour::AvantSens, 14, 279},
    {Champ::Port, {"Métier Port:", "Loom Port:"}, kPorts, 960,
     &Session::PortMetier, Tour::AvantTrame, 0, 265},
    {Champ::Lames, {"Nombre Lames:", "Number of Harnesses:"}, kChoixLames, 1470,
     &Session::NombreLames, Tour::AvantTrame, 2, 267, {.visible = false, .parNombre = true}},
    {Champ::Option, {"Option Toile Patron:", "Weave Option:"}, kOptions, 1980,
     &Session::OptionTissage, Tour::AvantPlan, 8, 271, {.dAbord = {"Patron", nullptr}}},
};
// clang-format on

// A number, or a place in a file, that stands in two rows is one that was copied and not changed.
constexpr bool SontDistincts(auto FicheChamp::*membre) {
  for (const FicheChamp &a : kChamps)
    if (std::ranges::count(kChamps, a.*membre, membre) != 1) return false;
  return true;
}
static_assert(SontDistincts(&FicheChamp::numero) && SontDistincts(&FicheChamp::dansConfiguration) &&
              SontDistincts(&FicheChamp::dansReprise));

}  // namespace

std::span<const FicheChamp, Champ::Nombre> LesChamps() { return kChamps; }

const FicheChamp &LeChamp(Champ::Numero numero) {
  return *std::ranges::find(kChamps, numero, &FicheChamp::numero);
}

Entier ValeurDe(const FicheChamp &champ) {
  if (const auto *entier = std::get_if<Entier Session::*>(&champ.variable)) return session.**entier;
  return (session.*std::get<Booleen Session::*>(champ.variable)).Valeur();
}

void PoserValeur(const FicheChamp &champ, Entier valeur) {
  if (const auto *entier = std::get_if<Entier Session::*>(&champ.variable))
    session.**entier = valeur;
  else
    session.*std::get<Booleen Session::*>(champ.variable) = Booleen::DeValeur(valeur);
}

void Relire(const FicheChamp &champ, const std::string &texte) {
  if (champ.aPart.parNombre) return PoserValeur(champ, Arrondir(Val(texte)));
  if (std::holds_alternative<Booleen Session::*>(champ.variable)) PoserValeur(champ, 0);
  for (const ElementListe &e : champ.elements)
    if (const std::string lu = Trim(texte); lu == e.relu.francais || lu == e.relu.anglais)
      PoserValeur(champ, e.valeur);
}
