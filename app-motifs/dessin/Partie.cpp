// The drawing part, loaded by the verb `dessiner`.
#include "app-motifs/Parties.h"
#include "app-motifs/dessin/Dessin.h"

BRANDIS_PARTIE void brandis_motifs_dessiner(const Motif &motif, const std::string &nom,
                                            const ReglagesDessin &reglages, Langue langue,
                                            std::string &octets) {
  octets = Dessiner(motif, nom, reglages, langue);
}
