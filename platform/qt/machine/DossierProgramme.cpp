#include "platform/qt/machine/DossierProgramme.h"

#include <unistd.h>

#include <QLocale>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <system_error>

namespace fs = std::filesystem;

namespace {
bool Portable(const fs::path &dossier) {
  const fs::path data = dossier / "Data";
  return fs::is_directory(data) && access(dossier.c_str(), W_OK) == 0 && access(data.c_str(), W_OK) == 0;
}

// A folder that the environment names in full; empty for none.
fs::path DeEnvironnement(const char *variable) {
  const char *valeur = std::getenv(variable);
  return valeur && fs::path(valeur).is_absolute() ? fs::path(valeur) : fs::path();
}

fs::path DossierUtilisateur() {
  const fs::path donnees = DeEnvironnement("XDG_DATA_HOME"), maison = DeEnvironnement("HOME");
  if (!donnees.empty()) return donnees / "brandis";
  if (!maison.empty()) return maison / ".local/share/brandis";
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
  const char *const noms[] = {"Reprise.Avant", "Resume2.Trm", "Resume.Trm"};
  for (const char *nom : noms)
    if (Present(data / nom)) return;
  for (const char *nom : noms) Copier(source / nom, data / nom);
}

// What fails here shows later, where the file is wanted, with its own message.
void Completer(const fs::path &dossier, std::initializer_list<fs::path> sources) {
  std::error_code ignoree;
  const fs::path data = dossier / "Data";
  for (const char *nom : {"Data", "Ports"}) fs::create_directories(dossier / nom, ignoree);
  for (const fs::path &source : sources) {
    CopierMotifs(source / "Data", data);
    CopierProjet(source / "Data", data);
  }
  // Without a header to replace, the first save would write none.
  for (const char *nom : {"Resume2.Trm", "Resume.Trm"})
    if (!Present(data / nom)) std::ofstream(data / nom);
}
}  // namespace

DossiersProgramme TrouverDossiers(const std::string &dossierExecutable) {
  const fs::path partage = (fs::path(dossierExecutable) / BRANDIS_PARTAGE).lexically_normal();
  if (Portable(dossierExecutable)) return {dossierExecutable, {dossierExecutable, partage}};
  const fs::path dossier = DossierUtilisateur();
  Completer(dossier, {dossierExecutable, partage});
  return {dossier, {dossier, dossierExecutable, partage}};
}
