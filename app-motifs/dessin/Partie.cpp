// The drawing part, loaded by the verb `dessiner`.
#include "app-motifs/Parties.h"
#include "app-motifs/dessin/Dessin.h"

BRANDIS_PARTIE std::string brandis_motifs_dessiner(const Motif &motif, const std::string &nom,
                                                   const ReglagesDessin &reglages, Langue langue) {
  return Dessiner(motif, nom, reglages, langue);
}
