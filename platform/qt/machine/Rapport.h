// What is told when no window of the system can tell it.
#pragma once

#include <functional>
#include <string>

// Tells the text on the error stream and, where somebody sits before a screen, in a window.
void Annoncer(const std::string &texte);

// After a failure that nobody caught: tells the report, does what is left to be done, then ends the process
// with status 1.
[[noreturn]] void RapporterEtFinir(const std::string &rapport,
                                   const std::function<void()> &ensuite = nullptr);
