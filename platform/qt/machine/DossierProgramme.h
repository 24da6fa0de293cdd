// Where the program's files lie.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

struct DossiersProgramme {
  std::string programme;  // CheminApplication, without a separator at its end; can be written
  // Folders that hold `Images` and `Dessins Boutons`, the first that has a picture counts.
  std::vector<std::string> dessins;
};

// The text, for the weaver, says what is missing.
struct SansDossier : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The folder with the executable when it holds `Data` and can be written; else the user's data folder, where
// what is missing is filled in at every start from that folder or from the installed `share`. Fails with
// SansDossier when the environment does not tell the user's folder.
DossiersProgramme TrouverDossiers(const std::string &dossierExecutable);
