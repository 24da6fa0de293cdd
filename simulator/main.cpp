// metier-simule: a dobby loom that is not there, to weave, show and test without one.
#include <signal.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <iostream>
#include <system_error>

#include "base/FichiersBrandis.h"
#include "simulator/MetierSimule.h"

namespace {
std::array<int, 2> tuyauArret{};

extern "C" void DemanderArret(int) {
  const ssize_t ecrits = write(tuyauArret[1], "", 1);
  static_cast<void>(ecrits);
}

// Signals wake the poll through a pipe, so that the link is removed and the counts are printed whatever ends
// the loom.
bool PoserSignaux() {
  if (pipe(tuyauArret.data()) != 0) return false;
  struct sigaction action {};
  action.sa_handler = DemanderArret;
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &action, nullptr);
  // In the background a read of the terminal fails instead of stopping the loom.
  action.sa_handler = SIG_IGN;
  for (const int signal : {SIGTTIN, SIGTTOU, SIGPIPE}) sigaction(signal, &action, nullptr);
  return true;
}

std::string DossierProgramme(const char *nom) {
  std::error_code erreur;
  const std::filesystem::path soi = std::filesystem::read_symlink("/proc/self/exe", erreur);
  const std::string ici = (erreur ? std::filesystem::absolute(nom) : soi).parent_path();
  const std::string dossier = DossierBrandis(ici);
  return dossier.empty() ? ici : dossier;
}
}  // namespace

int main(int nombre, char **arguments) {
  try {
    const Reglages reglages =
        LireReglages({arguments + 1, arguments + nombre}, DossierProgramme(arguments[0]));
    if (reglages.aide) {
      std::cout << kTexteAide;
      return 0;
    }
    if (!PoserSignaux()) throw EchecLigne("cannot make a pipe");
    MetierSimule metier(reglages);
    metier.Raccorder();
    metier.Tourner(tuyauArret[0]);
    return metier.Finir();
  } catch (const std::exception &echec) {
    std::cerr << "metier-simule: " << echec.what() << std::endl;
    return 2;
  }
}
