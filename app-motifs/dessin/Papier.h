// A pattern's drawing on paper: PDF in A4 pages, SVG as one drawing.
#pragma once

#include <string>

#include "motifs/Planche.h"

// `cote` millimetres a thread, over as many sheets as that takes: each bears the threading, its numbers, the
// two threads that the next one has too, and marks to lay them upon each other. Behind them the list of
// picks. Refuses more than 1000 sheets, and threads too wide for a sheet.
std::string EnPdf(const Planche &planche, double cote, Langue langue);
// Refuses more than 40 million cells.
std::string EnSvg(const Planche &planche, Langue langue);
