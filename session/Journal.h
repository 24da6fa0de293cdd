// Data/Journal.txt: what happened, a line each with date and time, in plain words for the weaver. Lines are
// only ever appended, and are pushed to the disk without waiting for it, so that they outlive a power cut.
// A journal that cannot be written is done without, silently. Control characters become blanks.
#pragma once

#include <string>
#include <vector>

#include "base/Entier.h"

constexpr long kTailleJournal = 5'000'000;  // bytes; a longer one becomes Journal.1.txt, in place of the last

// One line of one's own words.
void Noter(const std::string &fait);

void NoterDepart();  // in both languages, since the one in force is not known yet
void NoterFin();     // by Quit; its absence is what the next start looks for
void NoterMotif(const std::string &chemin, Entier duites);
void NoterReprise(const std::string &chemin, Entier duites, Entier duite);
// A frame that went to the line: the pick, the key of its plan line, and the harnesses that the frame raises,
// in their order. Keeps the pick as `DerniereDuiteEnvoyee` of the session.
void NoterDuite(Entier duite, const std::string &cle, const std::vector<int> &lames);
void NoterRapport();  // of the loom; pushed with the pick that follows it
void NoterMessage(const std::string &titre, const std::string &texte);

// What the journal tells of the time before this start.
struct DerniereSeance {
  bool inachevee = false;   // it did not end by Quit
  std::string motif;        // path of the last pattern, empty for none
  std::string duite;        // number of the last pick sent, empty for none
  std::string jour, heure;  // of that pick, as the journal has them
};
DerniereSeance LireDerniereSeance();

// "Last pick sent: 12", or that there was none in this process.
std::string TexteDerniereDuite();
