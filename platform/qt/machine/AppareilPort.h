// What stands behind a port number, in words: the numbers alone do not tell the adapter from a socket of the
// board.
#pragma once

#include <string>

// "ttyUSB0, USB adapter" of a path, in the language in force; the name alone where the system knows no more
// of it, empty where nothing stands there.
std::string NommerAppareil(const std::string &chemin);
