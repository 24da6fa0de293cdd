#include "platform/qt/DossierProgramme.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace {
bool Portable(const fs::path &dossier) {
  const fs::path data = dossier / "Data";
  return fs::is_directory(data) && access(dossier.c_str(), W_OK) == 0 && access(data.c_str(), W_OK) == 0;
}

fs::path DossierUtilisateur() {
  const char *xdg = std::getenv("XDG_DATA_HOME");
  if (xdg && fs::path(xdg).is_absolute()) return fs::path(xdg) / "brandis";
  const char *maison = std::getenv("HOME");
  return fs::path(maison ? maison : "/tmp") / ".local/share/brandis";
}

// What fails here shows later, where the file is wanted, with its own message.
void Remplir(const fs::path &dossier, const fs::path &partage) {
  std::error_code ignoree;
  fs::create_directories(dossier / "Ports", ignoree);
  for (const char *nom : {"Data", "Dessins Boutons"}) {
    fs::create_directories(dossier / nom, ignoree);
    fs::copy(partage / nom, dossier / nom, fs::copy_options::recursive | fs::copy_options::skip_existing,
             ignoree);
  }
  // A read-only installation must not make read-only copies.
  for (const auto &entree : fs::recursive_directory_iterator(dossier, ignoree))
    fs::permissions(entree.path(), fs::perms::owner_write, fs::perm_options::add | fs::perm_options::nofollow,
                    ignoree);
}
}  // namespace

DossiersProgramme TrouverDossiers(const std::string &dossierExecutable) {
  const fs::path partage = fs::path(dossierExecutable).parent_path() / "share" / "brandis";
  if (Portable(dossierExecutable)) return {dossierExecutable, partage};
  const fs::path dossier = DossierUtilisateur();
  if (!fs::exists(dossier / "Data")) Remplir(dossier, partage);
  return {dossier, partage};
}
