// The events of the main window that reach commands from outside the dispatcher, and their binding.
#pragma once

// Binds every event of `fenetre` to its procedure. Done once before Form_Load, and again after the record was
// made anew.
void LierEvenements();
