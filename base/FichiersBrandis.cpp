#include "base/FichiersBrandis.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

bool EstPortable(const std::string &dossier) {
  std::error_code erreur;
  const fs::path data = fs::path(dossier) / kData;
  return fs::is_directory(data, erreur) && access(dossier.c_str(), W_OK) == 0 &&
         access(data.c_str(), W_OK) == 0;
}

std::string DossierUtilisateur() {
  const char *donnees = std::getenv("XDG_DATA_HOME"), *maison = std::getenv("HOME");
  if (donnees && *donnees == '/') return fs::path(donnees) / "brandis";
  if (maison && *maison == '/') return fs::path(maison) / ".local/share/brandis";
  return "";
}

std::string DossierBrandis(const std::string &dossierExecutable) {
  return EstPortable(dossierExecutable) ? dossierExecutable : DossierUtilisateur();
}

std::string LienCom(const std::string &dossier, int numero) {
  return fs::path(dossier) / kPorts / ("com" + std::to_string(numero));
}
