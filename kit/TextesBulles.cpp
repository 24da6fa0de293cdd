#include "kit/TextesBulles.h"

#include <array>

#include "base/ErreurExecution.h"
#include "kit/Fabricant.h"
#include "weaving/ModuleTissage.h"

namespace {
using enum CoinBulle;
using enum FamilleBulle;

// Corner, family, French, English. The words are settled; what looks like a slip in them stays.
constexpr std::array<RangeeBulle, SourceBulle::Nombre> kRangees{{
    // BoutonProgramme(0)
    {HautDroit,
     A,
     {"Fermer le programme Brandis", {{3, "Fermer le programme"}, {4, "Brandis"}}},
     {"End the weaving session", {{3, "End the"}, {4, "weaving session"}}}},
    // BoutonProgramme(1)
    {BasGauche,
     B,
     {"Ouvrir un patron", {{3, "Ouvrir un patron"}}},
     {"Open a pattern", {{3, "Open a pattern"}}}},
    // BoutonProgramme(2)
    {BasGauche,
     B,
     {"Enregistrer le projet", {{3, "Enregistrer"}, {4, "le projet"}}},
     {"Save the project", {{2, "Save"}, {3, "the project"}}}},
    // BoutonProgramme(3)
    {BasGauche,
     B,
     {"Reprendre le projet à l'état sauvegardé", {{3, "Reprendre le projet"}, {4, "à l'état sauvegardé"}}},
     {"Resume the saved pattern", {{2, "Resume"}, {3, "the saved"}, {4, "pattern"}}}},
    // BoutonProgramme(4)
    {BasGauche,
     B,
     {"Tisser toile seulement", {{3, "Tisser toile"}, {4, "seulement"}}},
     {"Weave tabby only", {{3, "Weave tabby"}, {4, "only"}}}},
    // BoutonProgramme(5)
    {BasGauche,
     B,
     {"Tisser patron seulement", {{3, "Tisser patron"}, {4, "seulement"}}},
     {"Weave pattern only", {{3, "Weave pattern"}, {4, "only"}}}},
    // BoutonProgramme(6)
    {BasGauche,
     C,
     {"Avancer patron", {{3, "Avancer patron"}}},
     {"Skip pattern Advance a pick without weaving", {{3, " Advance a pick"}, {4, " without weaving"}}}},
    // BoutonProgramme(7)
    {BasGauche,
     C,
     {"Inversion", {{3, "Inverser la lecture"}, {4, "du patron"}}},
     {"Forward Reverse: Change the direction of weaving",
      {{2, "Change"}, {3, "the direction"}, {4, "of weaving"}}}},
    // BoutonProgramme(8)
    {BasGauche,
     C,
     {"Choix de la duite", {{3, "Choix de la"}, {4, "duite de départ"}}},
     {"Choose the starting pick on the lift plan",
      {{2, "Choose"}, {3, "the starting pick"}, {4, "on the lift plan"}}}},
    // BoutonProgramme(9)
    {BasGauche,
     B,
     {"Arrêter le tissage", {{3, "Arrêter"}, {4, "le tissage"}}},
     {"End the weaving session", {{3, "End the"}, {4, "weaving"}, {5, "session"}}}},
    // BoutonProgramme(10)
    {BasGauche,
     B,
     {"Début du tissage", {{3, "Début"}, {2, "du tissage\""}, {4, nullptr}, {5, ""}, {6, ""}}},
     {"Start weaving", {{3, "Start"}, {4, "weaving"}}}},
    // BoutonProgramme(11)
    {HautDroit,
     D,
     {"Aide", {{2, "Détermine si"}, {3, "les bulles d'aide"}, {4, "seront visibles ou non"}}},
     {"Activate or Remove pup-up help", {{3, "Activate or Remove"}, {4, "pup-up help"}}}},
    // BoutonProgramme(12)
    {HautDroit,
     D,
     {"Réduire à la barre des tâches", {{3, "Réduire à la"}, {4, "barre des tâches"}}},
     {"Move then window on the desk top", {{3, "Move the window on the"}, {4, "desk top"}}}},
    // BoutonProgramme(13)
    {BasGauche,
     E,
     {"Sortie de la fenêtre des configurations",
      {{2, "Fermeture"}, {3, "de la fenêtre des"}, {4, "configurations"}}},
     {"Close the configuration window", {{2, "Close"}, {3, "the configuration"}, {4, "window"}}}},
    // BoutonProgramme(14)
    {BasGauche,
     B,
     {"Ouverture de la fenêtre des configurations",
      {{3, "Ouverture de la fenêtre"}, {4, "des configurations"}}},
     {"Open the configuration window", {{2, "Open the"}, {3, "configuration"}, {4, "window"}}}},
    // BoutonProgramme(15)
    {BasGauche,
     E,
     {"Annuler la configuration ",
      {{3, "Fermeture de la fenêtre"}, {4, "des configurations sans"}, {5, "enregistrement"}}},
     {"Close the configuration window without saving",
      {{2, "Close"}, {3, "the configuration"}, {4, "window without"}, {5, "saving"}}}},
    // BoutonProgramme(16)
    {BasGauche,
     B,
     {"Initialisation complète de la fenêtre de travail",
      {{2, "Initialisation"}, {3, "complète de la"}, {4, "fenêtre de"}, {5, "travail"}}},
     {"Remove the pattern from the window", {{2, "Remove the"}, {3, "pattern from"}, {4, "the window"}}}},
    // BoutonProgramme(17)
    {BasGauche,
     B,
     {"Tisser le patron avec une liaison", {{2, "Tisser le"}, {3, "patron avec"}, {4, "une liaison"}}},
     {"Weave the pattern with tabby", {{3, "Weave "}, {4, "the pattern"}, {5, "with tabby "}}}},
    // BoutonProgramme(18)
    {BasGauche,
     C,
     {"Diagnostics", {{3, "Ouvre la fenêtre"}, {4, "des diagnostics"}}},
     {"Open the diagnostic window", {{2, "Open the"}, {3, "diagnostic"}, {4, "window"}}}},
    // BoutonProgramme(19)
    {BasGauche,
     F,
     {"Fermeture de la fenêtre Diagnostics",
      {{2, "Fermeture"}, {3, "de la fenêtre"}, {4, "des diagnostics"}}},
     {"Quit the diagnostic window", {{3, "Quit the diagnostic"}, {4, "window"}}}},
    // BoutonProgramme(20)
    {BasGauche,
     G,
     {"Test automatique", {{3, "Début des tests "}, {4, "automatiques"}}},
     {"Start the loom self test", {{3, "Start"}, {4, "the loom self test"}}}},
    // BoutonProgramme(21)
    {BasGauche,
     H,
     {"Fin des tests automatiques", {{3, "Arrêts des tests "}, {4, "automatiques"}}},
     {"End the loom selft test", {{3, "End the loom"}, {4, "self test"}}}},
    // BoutonAide
    {HautDroit,
     I,
     {"Bouton Information", {{2, "Information"}, {3, "Bouton Information"}, {4, "Ouvre la fenêtre"}}},
     {"Button Information", {{2, "Information"}, {3, "Button Information"}, {4, "Open the windows"}}}},
    // Drapeau(1)
    {BasGauche,
     J,
     {"Bouton Langue Française", {{2, "Activation"}, {3, "de la langue"}, {4, "française"}}},
     {"Button Language French", {{2, "Activate"}, {3, "the french"}, {4, "mode"}}}},
    // Drapeau(2)
    {BasGauche,
     J,
     {"Bouton Langue Anglaise", {{2, "Activation"}, {3, "de la langue"}, {4, "anglaise"}}},
     {"Button Language English", {{2, "Activate"}, {3, "the english"}, {4, "mode"}}}},
    // BarreDeplacement
    {HautGauche,
     K,
     {"Barre de déplacement: Permet le déplacement de la fenêtre sur le bureau",
      {{2, "Barre déplacement"}, {3, "Permet le déplacement "}, {4, "de la fenêtre sur"}, {5, "le bureau"}}},
     {"Stroke move", {{2, "Stroke Move"}, {3, "Move the windows"}, {4, "on the board"}}}},
    // LogoNor
    {BasDroit,
     L,
     {Fabricant::NomEtSite, {{3, Fabricant::RaisonSociale}}},
     {"Button Information", {{3, Fabricant::RaisonSociale}}}},
}};
}  // namespace

const RangeeBulle &RangeeDe(int source) {
  if (source < 0 || source >= SourceBulle::Nombre) throw ErreurExecution(Erreur::Indice);
  return kRangees[static_cast<std::size_t>(source)];
}

const TexteBulle &TexteDe(int source) {
  const RangeeBulle &r = RangeeDe(source);
  return session.LangueFrancaise ? r.francais : r.anglais;
}
