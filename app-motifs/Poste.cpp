#include "app-motifs/Poste.h"

#include <filesystem>

#include "motifs/Fichier.h"
#include "motifs/FormeTissable.h"
#include "motifs/Projet16.h"

namespace fs = std::filesystem;

namespace {
fs::path Cible(const Motif &motif, const std::string &dossier) {
  return fs::path(dossier) / fs::path(motif.chemin).stem().concat(".wif");
}
}  // namespace

std::string Convertir(const Motif &motif, const std::string &dossier, bool remplacer) {
  const std::string cible = Cible(motif, dossier).string();
  EcrireFichier(cible, FormeTissable(motif), remplacer);
  return cible;
}

std::pair<std::string, std::string> FaireProjet16(const Motif &motif, const std::string &data, int port,
                                                  bool remplacer) {
  const fs::path dossier = fs::absolute(data), cible = Cible(motif, dossier),
                 reglages = dossier / "Configuration.Con";
  const std::string forme = FormeTissable(motif);
  Projet16 projet =
      ComposerProjet16(motif, cible, Aujourdhui(), fs::exists(reglages) ? LireBrut(reglages) : "");
  if (port > 0) projet.entete.replace(265, 2, {static_cast<char>(port), '\0'});
  const bool pareil = fs::is_regular_file(cible) && LireBrut(cible) == forme;
  if (!pareil) EcrireFichier(cible, forme, remplacer);
  return {cible.string(), InstallerProjet16(projet, dossier)};
}
