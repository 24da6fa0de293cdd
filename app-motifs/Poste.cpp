#include "app-motifs/Poste.h"

#include <filesystem>

#include "base/FichiersBrandis.h"
#include "motifs/Fichier.h"
#include "motifs/FormeTissable.h"

namespace fs = std::filesystem;

namespace {
// "Chevron.wif" beside "Chevron.Wif" would be one pattern twice in the list of Open: one name, whatever the
// case.
fs::path Cible(const Motif &motif, const std::string &dossier) {
  const fs::path nom = fs::path(motif.chemin).stem().concat(".wif"), voulue = fs::path(dossier) / nom;
  std::error_code erreur;
  if (fs::exists(fs::symlink_status(voulue, erreur))) return voulue;
  for (fs::directory_iterator e(dossier, erreur), fin; !erreur && e != fin; e.increment(erreur))
    if (MemeMot(e->path().filename().native(), nom.native())) return e->path();
  return voulue;
}
}  // namespace

std::string Convertir(const Motif &motif, const std::string &dossier, bool remplacer) {
  const std::string cible = Cible(motif, dossier).string();
  ExigerAutreFichier(motif.chemin, cible);
  EcrireFichier(cible, FormeTissable(motif), remplacer);
  return cible;
}

std::pair<std::string, std::string> FaireProjet16(const Motif &motif, const std::string &data,
                                                  const ReglagesProjet &reglages, bool remplacer) {
  const fs::path dossier = fs::absolute(data), cible = Cible(motif, dossier),
                 configuration = dossier / kNomConfiguration;
  const std::string forme = FormeTissable(motif);
  const Projet16 projet = ComposerProjet16(
      motif, cible, Aujourdhui(), fs::exists(configuration) ? LireBrut(configuration) : "", reglages);
  const VerrouBrandis verrou(dossier);
  const bool pareil = fs::is_regular_file(cible) && LireBrut(cible) == forme;
  if (!pareil) ExigerAutreFichier(motif.chemin, cible);
  if (!pareil) EcrireFichier(cible, forme, remplacer);
  return {cible.string(), InstallerProjet16(projet, dossier)};
}
