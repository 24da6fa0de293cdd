#include "kit/TextesBulles.h"

#include <array>

#include "kit/Fabricant.h"

namespace {
using enum CoinBulle;
using enum FamilleBulle;

// Of the sources behind the commands, in their order; quoted by the guide like those of the commands.
constexpr std::array<RangeeBulle, SourceBulle::Nombre - Commande::Nombre> kAutres{{
    // BoutonAide
    {HautDroit,
     I,
     {{"Bouton Information", {{2, "Information"}, {3, "Bouton Information"}, {4, "Ouvre la fenêtre"}}},
      {"Button Information", {{2, "Information"}, {3, "Button Information"}, {4, "Open the windows"}}}}},
    // Drapeau(1)
    {BasGauche,
     J,
     {{"Bouton Langue Française", {{2, "Activation"}, {3, "de la langue"}, {4, "française"}}},
      {"Button Language French", {{2, "Activate"}, {3, "the french"}, {4, "mode"}}}}},
    // Drapeau(2)
    {BasGauche,
     J,
     {{"Bouton Langue Anglaise", {{2, "Activation"}, {3, "de la langue"}, {4, "anglaise"}}},
      {"Button Language English", {{2, "Activate"}, {3, "the english"}, {4, "mode"}}}}},
    // BarreDeplacement
    {HautGauche,
     K,
     {{"Barre de déplacement: Permet le déplacement de la fenêtre sur le bureau",
       {{2, "Barre déplacement"}, {3, "Permet le déplacement "}, {4, "de la fenêtre sur"}, {5, "le bureau"}}},
      {"Stroke move", {{2, "Stroke Move"}, {3, "Move the windows"}, {4, "on the board"}}}}},
    // LogoNor
    {BasDroit,
     L,
     {{Fabricant::NomEtSite, {{3, Fabricant::RaisonSociale}}},
      {"Button Information", {{3, Fabricant::RaisonSociale}}}}},
}};
}  // namespace

const RangeeBulle &RangeeDe(int source) {
  if (source < Commande::Nombre) return Fiche(source).bulle;
  if (source >= SourceBulle::Nombre) throw ErreurExecution(Erreur::Indice);
  return kAutres[static_cast<std::size_t>(source - Commande::Nombre)];
}

const TexteBulle &TexteDe(int source) { return RangeeDe(source).textes.EnVigueur(); }

Paire StatutDe(int source) {
  const auto &textes = RangeeDe(source).textes;
  return {textes.francais.statut, textes.anglais.statut};
}
