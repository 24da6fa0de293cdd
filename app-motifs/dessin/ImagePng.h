// A pattern's drawing as a PNG file.
#pragma once

#include <string>

#include "motifs/Planche.h"

// The bytes of the file; a cell is 12 pixels wide at most, and the picture at most some 4000 pixels as long
// as a pixel for each cell allows it. Refuses more than 40 million pixels.
std::string EnPng(const Planche &planche);
// The pixels of a cell in that picture.
int PixelsParCase(const Planche &planche);
