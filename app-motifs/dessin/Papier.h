// A pattern's drawing on paper: PDF in A4 pages, SVG as one drawing.
#pragma once

#include <string>

#include "motifs/Planche.h"

std::string EnPdf(const Motif &motif, Langue langue);
std::string EnSvg(const Motif &motif, Langue langue);
