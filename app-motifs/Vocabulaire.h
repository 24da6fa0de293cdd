// The words of the command line in both languages: one table of verbs, one of options. The line is understood
// and the help written from them; a word of either language is taken whatever the desktop speaks.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "app-motifs/Demande.h"

struct Mot {
  const char *fr, *en;
  const char *En(Langue langue) const { return langue == Langue::Francais ? fr : en; }
};

// The options by their codes; "-o" is 'o'.
namespace Option {
enum Code {
  Vers = 256,
  Remplacer,
  Json,
  Separer,
  Flotte,
  Groupe,
  Port,
  LamesDuMetier,
  Tissage,
  Duite,
  Duites,
  Fils,
  Vue,
  Reprises,
  EnHaut,
  Cote,
  Lieux,
  Aide,
  VersionProgramme
};
}

struct MotOption {
  int code;
  Mot nom;     // behind "--"; a single letter stands behind "-"
  Mot valeur;  // what the help writes for its value, null where it takes none
  Mot texte;
};

struct MotVerbe {
  Verbe verbe;
  Mot nom;
  Mot fichiers;              // the files as the help writes them
  Mot texte;                 // lines of some 75 characters
  std::vector<int> options;  // their codes, in the order of the help; "-o" has to be given where it is here
  std::size_t fichiersMax;
};

const std::vector<MotVerbe> &LesVerbes();
const std::vector<MotOption> &LesOptions();

// The verb of that name in either language, nullptr for none.
const MotVerbe *TrouverVerbe(const std::string &nom);
// The name of a verb that differs least from the word, in the language of that name; empty where none is
// near.
Phrase VerbeLePlusProche(const std::string &mot);
