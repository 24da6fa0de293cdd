// The configuration panel: eight fields through which every change of settings reaches the session.
#pragma once

#include "base/Entier.h"

// Title, labels, lists and current values in the language in force, the panel's frame, then the tabby lines
// once a pattern was opened or resumed.
void DessinerConfiguration();

// Reads the eight fields back into the session, fits grid, strip and labels to the harness count, and builds
// the plan of the option in force. Nothing is validated. Fails with 9 where the plan leaves its tables, 6
// where a number does not fit 16 bits, 481 on a missing picture.
void AppliquerConfiguration();

// Held in reserve, for a resume that keeps the lists as they stand: writes the values without rebuilding the
// lists, and reads the pattern file again.
void AfficherConfiguration();

// Choosing the starting tabby shows at once which comes first.
void ComConfiguration_Click(Entier index);
void ComConfiguration_GotFocus(Entier index);
