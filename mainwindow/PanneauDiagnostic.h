// The diagnostic panel: its four buttons, its frame, and its strip of solenoid boxes.
#pragma once

// Paints buttons 18 to 21 and the panel in the language in force, and centres it. Fails with 53 or 481 on a
// missing picture.
void DessinerDiagnostic();

// Fits the strip to a loom that has a protocol of its own; any other harness count leaves it as it is.
void AdapterNombreLames();
