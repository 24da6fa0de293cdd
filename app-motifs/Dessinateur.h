// The parts of the program that are loaded only when they are wanted: a verb must not wait for a window
// system, nor for the libraries that draw.
#pragma once

#include <string>
#include <vector>

#include "app-motifs/ReglagesDessin.h"

// The picture of a pattern as bytes, of the kind that the ending of `nom` tells (png, svg, pdf). Refuses
// other endings and a missing part; `dossierExecutable` is where the program lies, and its parts there or in
// ../lib/brandis/parties.
std::string DessinerAvecLaPartie(const std::string &dossierExecutable, const Motif &motif,
                                 const std::string &nom, const ReglagesDessin &reglages, Langue langue);

// Opens the window with these files and gives the exit status of its event loop.
int OuvrirFenetre(const std::string &dossierExecutable, Langue langue, std::vector<std::string> fichiers);
