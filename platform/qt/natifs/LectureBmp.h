// Bitmaps of plain pixels, read without the toolkit's picture libraries, which take longer to be found than
// the pixels to be read.
#pragma once

#include <QImage>
#include <string>

// The kinds that the program's own bitmaps have: 24 bits a pixel, lowest row first; and 32 bits, top row
// first, which lie in the file as in memory. `Format_RGB32`, and `Format_ARGB32_Premultiplied` where a header
// of 108 bytes tells of transparency. Null for everything else, also a file cut short: the toolkit may know
// it.
QImage LireBmp(const std::string &chemin);
