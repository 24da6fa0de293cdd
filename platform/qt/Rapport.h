// The end of the process after a failure that nobody caught.
#pragma once

#include <string>

// Tells the report on the error stream and, where somebody sits before a screen, in a window; then ends the
// process with status 1.
[[noreturn]] void RapporterEtFinir(const std::string &rapport);
