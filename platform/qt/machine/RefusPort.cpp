#include "platform/qt/machine/RefusPort.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>

#include "session/ModuleTissage.h"

namespace fs = std::filesystem;

namespace {
enum class Refus { Absent, SansDroits, PasSerie, Occupe };

Refus Examiner(const std::string &appareil) {
  struct stat genre {};
  if (stat(appareil.c_str(), &genre) != 0) return errno == EACCES ? Refus::SansDroits : Refus::Absent;
  if (!S_ISCHR(genre.st_mode)) return Refus::PasSerie;
  const int descripteur = open(appareil.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (descripteur < 0) {
    if (errno == EBUSY) return Refus::Occupe;
    return errno == EACCES || errno == EPERM ? Refus::SansDroits : Refus::Absent;
  }
  termios reglages{};
  const int etat = tcgetattr(descripteur, &reglages), raison = errno;
  close(descripteur);
  if (etat == 0) return Refus::Occupe;  // nothing else is wrong with it
  // EIO: a name that the system keeps for a serial line behind which there is no chip.
  return raison == ENOTTY || raison == EIO ? Refus::PasSerie : Refus::Absent;
}

// " : minicom (1234)" where the lock file that programs leave for each other tells it, else nothing.
std::string Occupant(const std::string &appareil) {
  std::string nom = appareil.substr(appareil.rfind("/dev/", 0) == 0 ? 5 : 0);
  std::replace(nom.begin(), nom.end(), '/', '_');
  long processus = 0;
  std::ifstream("/var/lock/LCK.." + nom) >> processus;
  std::string programme;
  std::getline(std::ifstream("/proc/" + std::to_string(processus) + "/comm"), programme);
  return programme.empty() ? "" : Selon(" : ", ": ") + programme + " (" + std::to_string(processus) + ")";
}
}  // namespace

std::string RaisonRefusPort(int numero, const std::string &chemin) {
  std::error_code erreur;
  const std::string appareil = fs::canonical(chemin, erreur);
  const std::string port = "COM " + std::to_string(numero);
  const std::string debut = port + (erreur ? "" : " (" + appareil + ")") + Selon(" : ", ": ");
  switch (erreur ? Refus::Absent : Examiner(appareil)) {
    case Refus::SansDroits:
      return debut + Selon("vous n'avez pas le droit de l'employer.", "you have no right to use it.");
    case Refus::PasSerie:
      return debut + Selon("ce n'est pas une ligne série.", "this is not a serial line.");
    case Refus::Occupe:
      return debut + Selon("un autre programme l'emploie", "another program uses it") + Occupant(appareil) +
             ".";
    case Refus::Absent:
      break;
  }
  return debut +
         Selon("il n'y a pas de port ; le câble est-il branché ?", "no such port; is the cable plugged in?");
}
