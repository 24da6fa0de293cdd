// What the command line asks for.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app-motifs/ReglagesDessin.h"
#include "motifs/Projet16.h"

struct MotVerbe;

enum class Verbe {
  Fenetre,
  Convertir,
  Verifier,
  Dessiner,
  Assembler,
  Enfilage,
  Ramener,
  Couleurs,
  Projet16,
  Info,
  Aide,
  Version
};

struct Demande {
  Verbe verbe = Verbe::Fenetre;
  std::vector<std::string>
      fichiers;              // as they were written; never empty but for the window, help and version
  std::vector<int> fois;     // of each file, for `assembler`
  std::string vers, sortie;  // folder and file to write to; empty for the place that the verb chooses
  int flotte;                // threads, the longest float that is no finding
  int lames = 24;            // harnesses of the loom whose sheds are judged
  int groupe = 1;            // ends that the threading list tells in one row
  ReglagesProjet projet;
  Etendue duites;  // picks of every file that names none of its own
  ReglagesDessin dessin;
  std::optional<bool> structure;  // the view asked for; else the one that shows more
  bool remplacer = false, json = false, separer = false, lieux = false;
  const MotVerbe *aide = nullptr;  // the verb that help is wanted of; nullptr for all
};

// A line that asks for nothing that there is: the sentence goes to the weaver, with exit status 2.
struct MauvaiseDemande {
  Phrase texte;
};

// The words behind the program's name. Fails with MauvaiseDemande.
Demande ComprendreDemande(const std::vector<std::string> &mots);

// What --help prints: all verbs, or one with its options.
std::string TexteAide(Langue langue, const MotVerbe *verbe = nullptr);
