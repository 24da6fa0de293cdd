// The dispatcher of the 22 command buttons.
#pragma once

#include "base/Entier.h"

// Runs the command of one button, 0..21; any other index does nothing. Steps show their own failures and
// leave Etat 0; what a step does not catch goes on to the caller.
void BoutonProgramme_Click(Entier index);
