#include "motifs/DossierBrandis.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "motifs/Fichier.h"

namespace fs = std::filesystem;

namespace {
bool Portable(const fs::path &dossier) {
  std::error_code erreur;
  const fs::path data = dossier / "Data";
  return fs::is_directory(data, erreur) && access(dossier.c_str(), W_OK) == 0 &&
         access(data.c_str(), W_OK) == 0;
}

fs::path DossierUtilisateur() {
  const char *xdg = std::getenv("XDG_DATA_HOME");
  if (xdg && fs::path(xdg).is_absolute()) return fs::path(xdg) / "brandis" / "Data";
  const char *maison = std::getenv("HOME");
  if (maison && fs::path(maison).is_absolute()) return fs::path(maison) / ".local/share/brandis/Data";
  throw Refus(
      "brandis/Data", 0,
      {"HOME et XDG_DATA_HOME manquent : le dossier des motifs est inconnu (--vers le donne).",
       "HOME and XDG_DATA_HOME are missing: the folder of the patterns is unknown (--vers gives it)."});
}
}  // namespace

std::string DossierData(const std::string &dossierExecutable) {
  if (Portable(dossierExecutable)) return (fs::path(dossierExecutable) / "Data").string();
  const fs::path data = DossierUtilisateur();
  std::error_code erreur;
  fs::create_directories(data, erreur);
  if (erreur || !fs::is_directory(data)) {
    const Phrase raison = RaisonSysteme(erreur ? erreur.value() : ENOTDIR);
    throw Refus(data.string(), 0,
                {"ce dossier ne peut être créé : " + raison.fr + ".",
                 "this folder cannot be made: " + raison.en + "."});
  }
  return data.string();
}
