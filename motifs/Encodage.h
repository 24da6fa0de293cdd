// Text of unknown encoding made fit to be shown.
#pragma once

#include <string>
#include <string_view>

bool EstUtf8(std::string_view octets);
// As it is where it is UTF-8, else taken for Latin-1; control characters become blanks.
std::string EnUtf8(std::string_view octets);
// A piece of a file inside a sentence: at most some 40 characters, then "…".
std::string Citer(std::string_view octets);
