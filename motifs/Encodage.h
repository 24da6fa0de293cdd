// Text of unknown encoding made fit to be shown.
#pragma once

#include <string>
#include <string_view>

bool EstUtf8(std::string_view octets);
// As it is where it is UTF-8, else taken for Latin-1; control characters of either kind become blanks, so
// that none reaches a terminal.
std::string EnUtf8(std::string_view octets);
// At most so many characters of a UTF-8 text, then "…".
std::string Abreger(const std::string &texte, int caracteres);
// A piece of a file inside a sentence: at most some 40 characters, then "…".
std::string Citer(std::string_view octets);
