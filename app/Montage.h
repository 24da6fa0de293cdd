// Wires the program: platform, windows, events, start. Used by the program and by whoever drives it for a
// test.
#pragma once

#include <vector>

#include "controls/Controles.h"
#include "platform/qt/machine/PlateformeQt.h"

// Every window of the system, the main window first: the others lie above it.
const std::vector<Fenetre *> &ToutesFenetres();

// Installs the machine, mirrors all windows on it, binds the events, and brings the main window up.
void Monter(PlateformeQt &machine);
