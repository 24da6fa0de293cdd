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

// The project of a pattern whose weavable form stands in `cheminWif` (an absolute path), at its last pick, so
// that the first Start weaves pick 1. Port, lookahead, scrolling and starting tabby come from
// `configuration`, the 20 bytes of Configuration.Con, or are those of a first start where it is empty.
// Refuses harnesses beyond 16, and paths of more than 255 bytes.
Projet16 ComposerProjet16(const Motif &motif, const std::string &cheminWif, double jour,
                          const std::string &configuration);

// Puts a project into the folder Data. One that is there is first kept under names with the date, which come
// back.
std::string InstallerProjet16(const Projet16 &projet, const std::string &data);
