// The diagnostic panel: its four buttons, its frame, and its strip of solenoid boxes.
#pragma once

// Paints buttons 18 to 21 and the panel in the language in force, and centres it. Fails with 53 or 481 on a
// missing picture.
void DessinerDiagnostic();

// Fits the strip to 16 or 24 harnesses; any other count leaves it as it is.
void AdapterNombreLames();
