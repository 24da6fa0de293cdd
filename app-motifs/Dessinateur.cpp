#include "app-motifs/Dessinateur.h"

#include <dlfcn.h>

#include <filesystem>

#include "app-motifs/Parties.h"

namespace fs = std::filesystem;

namespace {
// Loaded for good: the libraries behind a part do not like to be taken out again.
template <class Entree>
Entree *Charger(const fs::path &dossier, const std::string &nom, const char *entree) {
  std::error_code erreur;
  const fs::path ici = dossier / (nom + ".so");
  const fs::path partie =
      fs::exists(ici, erreur) ? ici : (dossier / BRANDIS_PARTIES).lexically_normal() / (nom + ".so");
  void *biblio = dlopen(partie.c_str(), RTLD_NOW | RTLD_LOCAL);
  void *adresse = biblio ? dlsym(biblio, entree) : nullptr;
  if (!adresse) {
    const std::string raison = dlerror();
    throw Refus(partie.string(), 0,
                {"cette partie du programme manque (" + raison + ").",
                 "this part of the program is missing (" + raison + ")."});
  }
  return reinterpret_cast<Entree *>(adresse);
}
}  // namespace

std::string DessinerAvecLaPartie(const std::string &dossierExecutable, const Motif &motif,
                                 const std::string &nom, const ReglagesDessin &reglages, Langue langue) {
  std::string octets;
  Charger<PartieDessin>(dossierExecutable, "motifs-dessin", kEntreeDessin)(motif, nom, reglages, langue,
                                                                           octets);
  return octets;
}

int OuvrirFenetre(const std::string &dossierExecutable, Langue langue, std::vector<std::string> fichiers) {
  return Charger<PartieFenetre>(dossierExecutable, "motifs-fenetre", kEntreeFenetre)(dossierExecutable,
                                                                                     langue, fichiers);
}
