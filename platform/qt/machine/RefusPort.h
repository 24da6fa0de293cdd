// Why a port cannot be opened.
#pragma once

#include <string>

// A sentence in the language in force, about the port COM `numero` and the device that stands behind it, an
// empty path for none. To be asked at once after the failure: the device is looked at as it is now.
std::string RaisonRefusPort(int numero, const std::string &chemin);
