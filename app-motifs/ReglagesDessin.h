// What a picture of a pattern is asked to be.
#pragma once

#include "motifs/Planche.h"

constexpr double kCoteMin = 0.5, kCoteMax = 20;    // millimetres a thread on paper
constexpr long long kPixelsImageMax = 40'000'000;  // of a picture

struct ReglagesDessin {
  ReglagesPlanche planche;
  double cote = 4;  // millimetres a thread, on paper
};
