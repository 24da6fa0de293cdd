// The cursor: one step along the plan, its direction, and the entry of a pick by number.
#pragma once

#include "base/Entier.h"

// One step in the direction in force, round at both ends; redraws, which sends the pick while weaving, and
// puts Save on offer. Fails as AfficherDuites does; nothing is caught here.
void DuiteSuivante();
// One step backwards.
void DuitePrecedente();

// Shows the direction in force on buttons 6 and 7. Fails with 53 or 481 on a missing picture.
void BasculerInversion();

// Enter in the pick entry: a number from 0 to NombreDuites becomes the cursor, is shown, and sent while
// weaving; any other number does nothing. Fails with 6 beyond 32767.
void TxtDuite_KeyDown(int touche);
int TxtDuite_KeyPress(int code);
// Takes the pick entry away, its lamp off; nothing is taken.
void FermerEntreeDuite();
