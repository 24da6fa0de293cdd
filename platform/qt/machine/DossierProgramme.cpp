#include "platform/qt/machine/DossierProgramme.h"

#include <QLocale>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <system_error>

#include "base/FichiersBrandis.h"

namespace fs = std::filesystem;

namespace {
[[noreturn]] void RefuserSansDossier() {
  const bool francais = QLocale::system().language() == QLocale::French;
  throw SansDossier(
      francais
          ? "Brandis n'a pas de dossier pour ses réglages et ses projets: ni HOME ni XDG_DATA_HOME n'est "
            "défini, et le dossier du programme ne peut pas être écrit."
          : "Brandis has no folder for its settings and projects: neither HOME nor XDG_DATA_HOME is set, and "
            "the program's own folder cannot be written.");
}

bool Present(const fs::path &chemin) {
  std::error_code erreur;
  return fs::symlink_status(chemin, erreur).type() != fs::file_type::not_found;
}

// Under another name first: a copy that is cut off is no file yet. What comes from a read-only installation
// can be written here.
void Copier(const fs::path &source, const fs::path &cible) {
  if (Present(cible)) return;
  const fs::path partielle = cible.string() + ".partiel";
  std::error_code erreur;
  fs::remove(partielle, erreur);
  if (!fs::copy_file(source, partielle, erreur) || erreur) return;
  fs::permissions(partielle, fs::perms::owner_write, fs::perm_options::add, erreur);
  fs::rename(partielle, cible, erreur);
}

// Patterns and settings. The saved project goes by itself; what is half done or told of another folder stays
// there.
bool ACopier(const fs::path &fichier) {
  const std::string fin = fichier.extension().string();
  return fin != ".Trm" && fin != ".Avant" && fin != ".Ecartee" && fin != ".neuf" && fin != ".partiel" &&
         fichier.filename().string().rfind("Journal", 0) != 0;
}

void CopierMotifs(const fs::path &source, const fs::path &data) {
  std::error_code ignoree;
  for (const auto &entree : fs::recursive_directory_iterator(source, ignoree)) {
    const fs::path cible = data / entree.path().lexically_relative(source);
    if (entree.is_directory(ignoree)) fs::create_directories(cible, ignoree);
    if (entree.is_regular_file(ignoree) && ACopier(entree.path())) Copier(entree.path(), cible);
  }
}

// Beside a project that is there nothing comes in. The header comes last: it alone makes a project.
void CopierProjet(const fs::path &source, const fs::path &data) {
  const char *const noms[] = {kNomCopie, kNomLignes, kNomEntete};
  for (const char *nom : noms)
    if (Present(data / nom)) return;
  for (const char *nom : noms) Copier(source / nom, data / nom);
}

// What fails here shows later, where the file is wanted, with its own message.
void Completer(const fs::path &dossier, std::initializer_list<fs::path> sources) {
  std::error_code ignoree;
  const fs::path data = dossier / kData;
  for (const char *nom : {kData, kPorts}) fs::create_directories(dossier / nom, ignoree);
  for (const fs::path &source : sources) {
    CopierMotifs(source / kData, data);
    CopierProjet(source / kData, data);
  }
  // Without a header to replace, the first save would write none.
  for (const char *nom : {kNomLignes, kNomEntete})
    if (!Present(data / nom)) std::ofstream(data / nom);
}
}  // namespace

DossiersProgramme TrouverDossiers(const std::string &dossierExecutable) {
  const fs::path partage = (fs::path(dossierExecutable) / BRANDIS_PARTAGE).lexically_normal();
  if (EstPortable(dossierExecutable)) return {dossierExecutable, {dossierExecutable, partage}};
  const std::string dossier = DossierUtilisateur();
  if (dossier.empty()) RefuserSansDossier();
  Completer(dossier, {dossierExecutable, partage});
  return {dossier, {dossier, dossierExecutable, partage}};
}
