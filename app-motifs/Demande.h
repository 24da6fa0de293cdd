// What the command line asks for.
#pragma once

#include <string>
#include <vector>

#include "motifs/Phrase.h"

enum class Verbe {
  Fenetre,
  Convertir,
  Verifier,
  Dessiner,
  Assembler,
  Enfilage,
  Projet16,
  Info,
  Aide,
  Version
};

struct Demande {
  Verbe verbe = Verbe::Fenetre;
  std::vector<std::string> fichiers;
  std::vector<int> fois;  // of each file, for `assembler`
  std::string vers, sortie;
  int flotte, groupe = 1, port = 0;  // port 0: the one of the settings
  bool remplacer = false, json = false, separer = false;
};

// A line that asks for nothing that there is: the sentence goes to the weaver, with exit status 2.
struct MauvaiseDemande {
  Phrase texte;
};

// The words behind the program's name. Fails with MauvaiseDemande.
Demande ComprendreDemande(const std::vector<std::string> &mots);

// What --help prints.
std::string TexteAide(Langue langue);
