// Dates as the labels show them.
#pragma once

#include <string>

// "yyyy-mm-dd" of a date in whole days since 30 December 1899.
std::string TexteDate(double date);
