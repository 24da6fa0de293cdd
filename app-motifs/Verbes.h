// The verbs of the command line. Findings and results go to the output, refusals to the other.
#pragma once

#include <iosfwd>
#include <string>

#include "app-motifs/Demande.h"

// The exit status: 0, 1 where `verifier` found a fault, 2 where a file was refused. `dossierExecutable` is
// where the program and its drawing part lie.
int Executer(const Demande &demande, Langue langue, const std::string &dossierExecutable,
             std::ostream &sortie, std::ostream &erreurs);
