// Data/Journal.txt: what happened, a line each with date and time, in plain words for the weaver. Lines are
// only ever appended, and are pushed to the disk without waiting for it, so that they outlive a power cut.
// A journal that cannot be written is done without, silently. Control characters become blanks. What the next
// start reads back of it: session/DerniereSeance.h.
#pragma once

#include <string>
#include <vector>

#include "base/Entier.h"

constexpr long kTailleJournal = 5'000'000;  // bytes; a longer one becomes Journal.1.txt, in place of the last

// One line of one's own words.
void Noter(const std::string &fait);

// In both languages, since the one in force is not known yet. Looks once whether a power cut left a line
// without its end, and marks it.
void NoterDepart();
void NoterFin();  // by Quit; its absence is what the next start looks for
void NoterOuverture(Entier duites);
void NoterReprise(Entier duites, Entier duite);
void NoterMotif(const std::string &chemin);
// The plan that was just built, with NombreDuites, and for pattern and tabby the cursor, which is kept as
// `DepartPlan`. Nothing is written while there is no pattern.
void NoterPlan();
void NoterSens();  // in which the next step goes

// A frame handed to the line: the pick, the key of its plan line, the harnesses that the frame raises, in
// their order, and whether a new process can put the same shed on the loom. Keeps the pick as
// `DerniereDuiteEnvoyee` of the session; where the line keeps the frame back, once it has left.
void NoterDuite(Entier duite, const std::string &cle, const std::vector<int> &lames, bool retrouvable);

// The loom's report. Written with the next line, so that the shed leaves first, or by `EcrireRapport` where
// none came.
void NoterRapport();
void EcrireRapport();

void NoterMessage(const std::string &titre, const std::string &texte);

// "Last pick sent: 12", or that there was none in this process.
std::string TexteDerniereDuite();
