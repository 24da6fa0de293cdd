#include "motifs/DossierBrandis.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "base/FichiersBrandis.h"
#include "motifs/Fichier.h"

namespace fs = std::filesystem;

std::string DossierData(const std::string &dossierExecutable) {
  const std::string dossier = DossierBrandis(dossierExecutable);
  if (dossier.empty())
    throw Refus(
        "brandis/Data", 0,
        {"HOME et XDG_DATA_HOME manquent : le dossier des motifs est inconnu (--vers le donne).",
         "HOME and XDG_DATA_HOME are missing: the folder of the patterns is unknown (--to gives it)."});
  const fs::path data = fs::path(dossier) / kData;
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
