// Plan lines turned into the harness matrix and into one bit string per pick.
#pragma once

#include <string>

#include "base/Entier.h"

// Rebuilds BitsDuite and marks the matrix cells of picks 1..NombreDuites from LignesTravail, showing its
// progress in Attente. The caller has zeroed the matrix. Fails with 9 where a line or the plan is beyond the
// tables, and nothing on the way from a command catches it.
void ConstruireMatrice();

// Marks the cells of one pick from the part of its line behind "=", and appends its bits to BitsDuite. A line
// of a single number marks its cell but gets no bits.
void LireLigneLames(const std::string &texte, Entier duite);

// The bits of a whole plan line by itself, as a loom of so many harnesses gets them. Fails as the above.
std::string BitsDeLigne(const std::string &ligne, int lames);

// Reads the cells of a pick when the cursor stands on 1, and throws them away.
void LireCaseMatrice(Entier duite);

// Writes the label of a row of the draft: the number at the head of the line, or the tabby's name in the
// language in force. Fails with 5 on a line without "=".
void EcrireIndicateurLigne(Entier rangee, Entier duite);
