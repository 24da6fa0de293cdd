// The lamps in the corner of the command buttons: green on, red off.
#pragma once

#include "base/Entier.h"

// Sets and paints the lamp of one button, 0..21. A button that is neither at rest nor hovered in its height
// gets no lamp. Fails with 9 on another index.
void ChangerVoyant(Entier index, bool etat);

void EteindreVoyantsMode();  // 4, 5 and 17 off
void VoyantsArretA();        // 9 on, then 10 off
void VoyantsArretB();        // 10 off, then 9 on
// Held in reserve: the pairs of a start and of its end, for a caller that paints both lamps at once.
void VoyantsDepart();  // 10 on, then 9 off
void VoyantsArretC();  // 9 off, then 10 on
