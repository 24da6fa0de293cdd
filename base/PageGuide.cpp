#include "base/PageGuide.h"

#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

std::string PageGuide(const std::string &dossierExecutable, bool francais) {
  const fs::path ici = dossierExecutable;
  for (const fs::path &dossier : {ici / "Guide", ici.parent_path() / BRANDIS_GUIDE}) {
    const fs::path page = dossier / (francais ? "fr.html" : "en.html");
    std::error_code erreur;
    if (fs::is_regular_file(page, erreur)) return page;
  }
  return "";
}
