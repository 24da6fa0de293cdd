// What verbs and window both do with the user's Brandis folder.
#pragma once

#include <string>
#include <utility>

#include "motifs/Motif.h"
#include "motifs/Projet16.h"

// The weavable form of a pattern, written into a folder under the pattern's own name with the ending ".wif";
// gives the new file's name.
std::string Convertir(const Motif &motif, const std::string &dossier, bool remplacer);

// Converts, and makes the project of a 16-harness loom in the folder Data. Gives the pattern's name and that
// under which an earlier project was kept, if there was one. A pattern of that name may stand there when it
// is the same. Refuses while Brandis runs in that folder.
std::pair<std::string, std::string> FaireProjet16(const Motif &motif, const std::string &data,
                                                  const ReglagesProjet &reglages, bool remplacer);
