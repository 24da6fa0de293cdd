// The saved project with which a 16-harness loom begins: the program itself starts with 24 and makes none.
#pragma once

#include <string>

#include "motifs/Motif.h"

struct Projet16 {
  std::string entete;  // Resume.Trm, 281 bytes
  std::string lignes;  // Resume2.Trm, 70 bytes for each pick
};

// Days since 30 December 1899, in local time.
double Aujourdhui();

struct ReglagesProjet {
  int port = 0;    // COM number, 0 for the one of the settings
  int option = 1;  // 1 pattern, 2 tabby, 3 pattern and tabby
  int duite = 1;   // the pick of the pattern that the first Start weaves
};

// The project of a pattern whose weavable form stands in `cheminWif` (an absolute path). Port, lookahead,
// scrolling and starting tabby come from `configuration`, the 20 bytes of Configuration.Con, or are those of
// a first start where it is empty: the draft scrolls down. Refuses harnesses beyond 16, paths of more than
// 255 bytes, a pick that is not there, and a plan with tabby that Brandis could not hold.
Projet16 ComposerProjet16(const Motif &motif, const std::string &cheminWif, double jour,
                          const std::string &configuration, const ReglagesProjet &reglages = {});

// Puts a project into the folder Data, as a save does: the one that is there is laid aside, both files are
// brought in, and one rename makes the new one count; whatever ends in between leaves the old one to the next
// start. The old one is kept besides under names with the date, which come back.
std::string InstallerProjet16(const Projet16 &projet, const std::string &data);

// Brandis must not save over what is being written, nor resume half of it: holds the folder Data against it.
// Refuses while it runs there. Where no lock can be made there is none.
class VerrouBrandis {
 public:
  explicit VerrouBrandis(const std::string &data);
  ~VerrouBrandis();
  VerrouBrandis(const VerrouBrandis &) = delete;
  VerrouBrandis &operator=(const VerrouBrandis &) = delete;

 private:
  int descripteur_;
};
