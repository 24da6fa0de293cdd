// What the journal tells of the time before this start.
#pragma once

#include <string>

struct DerniereSeance {
  bool inachevee = false;  // it did not end by Quit
  std::string motif;       // path of the pattern of the last pick, or where none was sent, of the last opened
  std::string duite;       // number of the last pick sent, its place in the plan; empty for none
  std::string jour, heure;   // of that pick, as the journal has them
  std::string cle;           // of its plan line
  bool inverse = false;      // the pick behind it would have been the one before
  bool retrouvable = false;  // a new process can put its shed on the loom, and that of the next report

  // The plan it stood in, as it was built.
  struct Plan {
    int option = 0;      // 1 to 3 as `OptionTissage`, 0 for unknown
    int duites = 0;      // its picks
    int depart = 0;      // pattern and tabby: the cursor at which it was built, 0 for unknown
    int avantToile = 0;  // tabby: the pick at which the pattern was left, 0 for unknown
  } plan;
};

// Both journals, the older first; read only where the session before did not end by Quit.
DerniereSeance LireDerniereSeance();
