// The conversion kit: numbers held as text between binary (B), decimal (D) and hexadecimal (H).
// The frames are computed with ConvB2D, ConvB2H and ConvH2D; the others stand ready.
#pragma once

#include <optional>
#include <string>

std::string ConvB2B(const std::string &texte);
// Value of a binary text, its last character the least significant. Every character counts by its own
// numeric reading, a non-digit 0. Nothing for an empty text, which callers read as 0.
std::optional<double> ConvB2D(const std::string &texte);
// Digits of a binary text, four characters at a time from the right; a group that is not binary stays as it
// is.
std::string ConvB2H(const std::string &texte);
// Wears its argument down to "1". Fails with 13 on a text that is no number, 6 beyond 32 bits.
std::string ConvD2B(std::string &texte);
std::string ConvD2D(const std::string &texte);
std::string ConvD2H(const std::string &texte);  // 13, 6
std::string ConvH2B(const std::string &texte);
// Decimal text, empty for an empty text.
std::string ConvH2D(const std::string &texte);
std::string ConvH2H(const std::string &texte);
// True when Text1 of the main window holds only hexadecimal digits, and at least one.
bool VerifH();
