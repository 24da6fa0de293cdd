// Where the loom's program keeps the weaver's patterns and projects.
#pragma once

#include <string>

// The folder `Data`: the one beside the executable where it is there and can be written, else that of the
// user's data folder, which is made when it is missing. Refuses where neither HOME nor XDG_DATA_HOME says
// where that is, and where it cannot be made.
std::string DossierData(const std::string &dossierExecutable);
