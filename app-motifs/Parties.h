// How the loaded parts are entered; each part defines one of these.
#pragma once

#include <string>
#include <vector>

#include "app-motifs/ReglagesDessin.h"

extern "C" {
// `octets` becomes the finished file, in the format that the ending of `nom` tells; nothing is written. Fails
// with Refus.
using PartieDessin = void(const Motif &motif, const std::string &nom, const ReglagesDessin &reglages,
                          Langue langue, std::string &octets);
// Runs the window with these files open until it is closed; the exit status. Nothing comes out of it: what a
// file is refused for stands in the window.
using PartieFenetre = int(const std::string &dossierExecutable, Langue langue,
                          const std::vector<std::string> &fichiers);
}
#define BRANDIS_PARTIE extern "C" __attribute__((visibility("default")))
inline constexpr const char *kEntreeDessin = "brandis_motifs_dessiner",
                            *kEntreeFenetre = "brandis_motifs_fenetre";
