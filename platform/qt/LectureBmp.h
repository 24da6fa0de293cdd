// Bitmaps of plain pixels, read without the toolkit's picture libraries, which take longer to be found than
// the pixels to be read.
#pragma once

#include <QImage>
#include <string>

// The kinds that the program's own bitmaps have. 24 bits a pixel, lowest row first: copied. 32 bits, top row
// first: the picture stays where the file has it, mapped for as long as somebody holds it, and what is drawn on
// it stays in memory; such a file is replaced, never written over. `Format_RGB32`, and
// `Format_ARGB32_Premultiplied` where a header of 108 bytes tells of transparency, which is copied too. Null
// for everything else, also a file cut short: the toolkit may know it.
QImage LireBmp(const std::string &chemin);
