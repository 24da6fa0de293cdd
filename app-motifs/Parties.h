// How the loaded parts are entered; each part defines one of these.
#pragma once

#include <string>
#include <vector>

#include "motifs/Motif.h"

extern "C" {
using PartieDessin = std::string(const Motif &motif, const std::string &nom, Langue langue);
using PartieFenetre = int(const std::string &dossierExecutable, Langue langue,
                          const std::vector<std::string> &fichiers);
}
#define BRANDIS_PARTIE extern "C" __attribute__((visibility("default")))
inline constexpr const char *kEntreeDessin = "brandis_motifs_dessiner",
                            *kEntreeFenetre = "brandis_motifs_fenetre";
