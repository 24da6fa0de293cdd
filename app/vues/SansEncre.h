// A type whose letters have a width and no ink: with it words take their place in a window, the same on every
// machine, and leave no pixel there.
#pragma once

#include <cstdlib>

// Before the application object is made: the toolkit finds none of the machine's types.
void OublierPolices();
// Then, and before the first text: every text is set in the type without ink.
void PrendreSansEncre();
