#include "app-motifs/Vocabulaire.h"

#include <algorithm>
#include <cstring>
#include <numeric>

using namespace Option;

const std::vector<MotVerbe> &LesVerbes() {
  constexpr std::size_t kTous = SIZE_MAX;
  constexpr Mot un{"FICHIER", "FILE"}, plusieurs{"FICHIER…", "FILE…"};
  static const std::vector<MotVerbe> verbes{
      {Verbe::Convertir,
       {"convertir", "convert"},
       plusieurs,
       {"écrit la forme que Brandis tisse, sans --vers parmi ses motifs",
        "writes the form that Brandis weaves, without --to among its patterns"},
       {Vers, Duites, LamesDuMetier, Remplacer},
       kTous},
      {Verbe::Verifier,
       {"verifier", "check"},
       plusieurs,
       {"dit ce qui cloche, une rangée par genre de constat",
        "tells what is wrong, a row for each kind of finding"},
       {Flotte, LamesDuMetier, Duites, Lieux, Json},
       kTous},
      {Verbe::Dessiner,
       {"dessiner", "draw"},
       un,
       {"dessine l'enfilage, l'attachage ou le plan de levée, le pédalage et le tissu ; IMAGE\n"
        "finit en .png, .svg ou .pdf",
        "draws threading, tie-up or lift plan, treadling and cloth; the picture ends in .png,\n"
        ".svg or .pdf"},
       {'o', Vue, Reprises, EnHaut, Cote, Duites, Fils, Remplacer},
       1},
      {Verbe::Assembler,
       {"assembler", "join"},
       {"A.wif x2 B.wif x10 …", "A.wif x2 B.wif x10 …"},
       {"met des sections bout à bout", "strings sections together"},
       {'o', Separer, Duites, LamesDuMetier, Remplacer},
       kTous},
      {Verbe::Enfilage,
       {"enfilage", "threading"},
       un,
       {"fait lever au métier les lames des fils suivants à enfiler",
        "has the loom raise the harnesses of the next ends to be threaded"},
       {'o', Groupe, LamesDuMetier, Remplacer},
       1},
      {Verbe::Ramener,
       {"ramener", "fit"},
       un,
       {"déplace les lames qui ne sortent pas parmi celles qui sortent, sur un nouvel enfilage ;\nle tissu "
        "reste le même fil à fil",
        "moves harnesses that do not go out into those that do, on a new threading; the cloth\nstays the "
        "same end for end"},
       {'o', Duites, LamesDuMetier, Remplacer},
       1},
      {Verbe::Couleurs,
       {"couleurs", "colours"},
       un,
       {"la feuille des changements de couleur de la trame, à poser sur le métier",
        "the sheet of the weft's colour changes, to lay on the loom"},
       {Duites},
       1},
      {Verbe::Projet16,
       {"projet16", "project16"},
       un,
       {"fait le projet enregistré avec lequel commence un métier de 16 lames",
        "makes the saved project with which a 16-harness loom begins"},
       {Port, Tissage, Duite, Duites, Vers, Remplacer},
       1},
      {Verbe::Info,
       {"info", "info"},
       un,
       {"titre, auteur, programme d'origine, tailles", "title, author, source program, sizes"},
       {Json},
       1}};
  return verbes;
}

const std::vector<MotOption> &LesOptions() {
  constexpr Mot rien{nullptr, nullptr}, nombre{"N", "N"};
  static const std::vector<MotOption> options{
      {'o', {"o", "o"}, {"FICHIER", "FILE"}, {"le fichier à écrire", "the file to write"}},
      {Vers, {"vers", "to"}, {"DOSSIER", "DIR"}, {"le dossier où écrire", "the folder to write to"}},
      {Remplacer,
       {"remplacer", "replace"},
       rien,
       {"écrit sur un fichier qui est déjà là", "writes over a file that is there"}},
      {Json, {"json", "json"}, rien, {"pour des programmes", "for programs"}},
      {Separer,
       {"separer", "separate"},
       rien,
       {"une duite vide entre les reprises", "an empty pick between repeats"}},
      {Flotte,
       {"flotte", "float"},
       nombre,
       {"dit les flottés de plus de N fils (7)", "tells floats longer than N threads (7)"}},
      {Groupe, {"groupe", "group"}, nombre, {"N fils à la fois, 1 à 8", "N ends at a time, 1 to 8"}},
      {Port, {"port", "port"}, nombre, {"COM N, 1 à 4", "COM N, 1 to 4"}},
      {Tissage,
       {"option", "option"},
       {"1|2|3", "1|2|3"},
       {"patron, toile, ou patron et toile (1)", "pattern, tabby, or pattern and tabby (1)"}},
      {Option::Duite,
       {"duite", "pick"},
       nombre,
       {"la duite du patron par laquelle commencer (1)", "the pick of the pattern to begin with (1)"}},
      {LamesDuMetier,
       {"lames", "harnesses"},
       {"16|24", "16|24"},
       {"le métier dont les foules sont jugées (24)", "the loom whose sheds are judged (24)"}},
      {Duites,
       {"duites", "picks"},
       {"A-B", "A-B"},
       {"ces duites ; aussi FICHIER[A-B], propre à un fichier", "these picks; also FILE[A-B], for one file"}},
      {Fils, {"fils", "ends"}, {"A-B", "A-B"}, {"ces fils de chaîne", "these warp ends"}},
      {Vue,
       {"vue", "view"},
       {"VUE", "VIEW"},
       {"couleurs ou structure (chaîne dessus foncée)", "colours or structure (warp up dark)"}},
      {Reprises,
       {"reprises", "repeats"},
       {"1|2", "1|2"},
       {"2 : deux fois dans chaque sens", "2: twice each way"}},
      {EnHaut, {"en-haut", "on-top"}, rien, {"la première duite en haut", "the first pick above"}},
      {Cote, {"cote", "size"}, {"MM", "MM"}, {"en PDF, mm par fil (4)", "in PDF, mm a thread (4)"}},
      {Lieux,
       {"lieux", "places"},
       rien,
       {"sous chaque rangée les lieux qu'elle réunit", "below each row the places that it joins"}},
      {Option::Aide, {"aide", "help"}, rien, {"ce texte", "this text"}},
      {VersionProgramme, {"version", "version"}, rien, {"la version", "the version"}}};
  return options;
}

const MotVerbe *TrouverVerbe(const std::string &nom) {
  for (const MotVerbe &v : LesVerbes())
    if (nom == v.nom.fr || nom == v.nom.en) return &v;
  return nullptr;
}

namespace {
// Letters to be put in, left out or changed to make one word of the other.
std::size_t Distance(const std::string &a, const std::string &b) {
  std::vector<std::size_t> rangee(b.size() + 1);
  std::iota(rangee.begin(), rangee.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t biais = rangee[0]++;
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t change = biais + (a[i] == b[j] ? 0 : 1);
      biais = rangee[j + 1];
      rangee[j + 1] = std::min({change, rangee[j] + 1, biais + 1});
    }
  }
  return rangee.back();
}
}  // namespace

Phrase VerbeLePlusProche(const std::string &mot) {
  Phrase proche;
  if (mot.size() > 40) return proche;
  std::size_t moins = 1 + std::max<std::size_t>(mot.size() / 3, 1);
  for (const MotVerbe &v : LesVerbes())
    for (const char *nom : {v.nom.fr, v.nom.en})
      if (const std::size_t d = Distance(mot, nom); d < moins) {
        moins = d;
        proche = {v.nom.fr, v.nom.en};
      }
  return proche;
}
