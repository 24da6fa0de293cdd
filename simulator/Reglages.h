// What the simulated loom is told on its command line.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/CycleMetier.h"

struct Reglages {
  std::string dossier;
  int port = 1;
  int lames = 24;
  long baud = 1200;
  Delai cadence{1000};
  bool entree = false;
  bool journal = false;
  bool aide = false;
  std::optional<long> duites;
  Scenario fautes;
};

// The command line cannot be used; the text says why.
struct ErreurUsage : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// arguments: without the program's name. dossier: used where none is given.
Reglages LireReglages(const std::vector<std::string> &arguments, std::string dossier);

// A whole number from minimum to a thousand million, and nothing else.
std::optional<long> LireNombre(std::string_view texte, long minimum);

// Speed that the loom expects to find set on its line.
long VitesseAttendue(int lames);

extern const char *const kTexteAide;
