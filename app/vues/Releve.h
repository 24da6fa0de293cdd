// One view as text: each control that is to be seen, by name, with its place, size, words, type, colours and
// picture, and its pixels piece by piece. Texts are told and not painted (SansEncre.h).
#pragma once

#include <string>
#include <vector>

#include "app/vues/Vues.h"

// A control: what it is, one word and its value each ("size 83x29"), and behind them the lines that are
// printed on it, then a draft's cells, then its pixels.
struct Element {
  std::string nom;
  std::vector<std::string> traits, imprimes, cases, pixels;
  bool operator==(const Element &) const = default;
};
using Releve = std::vector<Element>;

// Pixels of a side of one piece; those at the right and at the bottom may be smaller.
constexpr int kMorceau = 32;

// The window as it stands, and what lies in it from the bottom to the top.
Releve Relever(const Vues &vues, Fenetre &f);
