// Numbers as text, the way the system reads and writes them, and trimming of spaces.
#pragma once

#include <string>
#include <string_view>

#include "base/Entier.h"

// The number at the head of a text: spaces are skipped everywhere, then sign, digits, one period, an
// exponent E with digits; 0 where there is none. Beyond the range of a double: infinity.
double Val(std::string_view texte);

// Decimal text with a blank in the sign's place for 0 and above, up to 15 significant digits; a period in
// every locale.
std::string Str(double nombre);
std::string Str(int nombre);

// To the nearest whole number, halves to the even neighbour.
double ArrondirAuPair(double nombre);
// The same into 16 bits; fails with 6 beyond them.
Entier Arrondir(double nombre);

// At least four digits, with leading zeros.
std::string FormatQuatreChiffres(int nombre);

// Only spaces are trimmed, never tabs.
std::string_view LTrim(std::string_view texte);
std::string_view RTrim(std::string_view texte);
std::string Trim(std::string_view texte);

// Characters of a UTF-8 text (bytes that are not UTF-8 count one each).
int NombreCaracteres(std::string_view texte);
// Byte at which character `rang`, counted from 0 the same way, begins; the end of the text beyond it.
std::size_t PlaceCaractere(std::string_view texte, int rang);

// ASCII letters in capitals.
std::string Majuscules(std::string_view texte);
