// Where the program's files lie.
#pragma once

#include <string>

struct DossiersProgramme {
  std::string programme;  // CheminApplication, without a separator at its end
  std::string partage;    // what the installation brought: pictures, and the first filling of the above
};

// The folder with the executable when it holds `Data` and can be written; else the user's data folder, made
// and filled at the first start.
DossiersProgramme TrouverDossiers(const std::string &dossierExecutable);
