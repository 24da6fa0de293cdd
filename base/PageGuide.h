// Where the weaver's guide lies.
#pragma once

#include <string>

// Its page in a language: in the folder `Guide` beside the executable, else where the package puts it. Empty
// where it is in neither.
std::string PageGuide(const std::string &dossierExecutable, bool francais);
