#include "simulator/LigneSimulee.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

namespace fs = std::filesystem;

namespace {
// No program would choose it, so whoever sets a speed is seen to have done so.
constexpr speed_t kVitesseInitiale = B50;

constexpr std::array<std::pair<speed_t, long>, 12> kVitesses = {{{B110, 110},
                                                                 {B300, 300},
                                                                 {B600, 600},
                                                                 {B1200, 1200},
                                                                 {B1800, 1800},
                                                                 {B2400, 2400},
                                                                 {B4800, 4800},
                                                                 {B9600, 9600},
                                                                 {B19200, 19200},
                                                                 {B38400, 38400},
                                                                 {B57600, 57600},
                                                                 {B115200, 115200}}};

[[noreturn]] void Echouer(const std::string &action) {
  throw EchecLigne(action + ": " + std::strerror(errno));
}
}  // namespace

LigneSimulee::LigneSimulee(std::string lien, long baud) : lien_(std::move(lien)), baud_(baud) {}

LigneSimulee::~LigneSimulee() { Couper(); }

void LigneSimulee::Brancher() {
  try {
    Ouvrir();
    Lier();
  } catch (...) {
    Couper();
    throw;
  }
}

void LigneSimulee::Ouvrir() {
  maitre_ = posix_openpt(O_RDWR | O_NOCTTY);
  if (maitre_ < 0 || grantpt(maitre_) != 0 || unlockpt(maitre_) != 0)
    Echouer("cannot make a pseudo-terminal");
  const char *nom = ptsname(maitre_);
  if (nom == nullptr) Echouer("the pseudo-terminal has no name");
  esclaveNom_ = nom;
  esclave_ = open(nom, O_RDWR | O_NOCTTY);
  if (esclave_ < 0) Echouer("cannot open " + esclaveNom_);
  fcntl(maitre_, F_SETFL, O_NONBLOCK);
  fcntl(maitre_, F_SETFD, FD_CLOEXEC);
  fcntl(esclave_, F_SETFD, FD_CLOEXEC);

  termios reglage{};
  if (tcgetattr(esclave_, &reglage) != 0) Echouer("cannot read the line settings");
  reglage.c_iflag = 0;
  reglage.c_oflag = 0;
  reglage.c_lflag = 0;
  reglage.c_cc[VMIN] = 1;
  reglage.c_cc[VTIME] = 0;
  cfsetispeed(&reglage, kVitesseInitiale);
  cfsetospeed(&reglage, kVitesseInitiale);
  if (tcsetattr(esclave_, TCSANOW, &reglage) != 0) Echouer("cannot set the line");
}

void LigneSimulee::Lier() {
  const fs::path lien(lien_);
  std::error_code erreur;
  fs::create_directories(lien.parent_path(), erreur);
  if (erreur) throw EchecLigne("cannot make " + lien.parent_path().string() + ": " + erreur.message());
  if (fs::is_symlink(fs::symlink_status(lien, erreur))) {
    // A link left behind may name the very terminal that was made just now: the system gives freed numbers
    // again. One to an adapter that is unplugged waits for it.
    const fs::path cible = fs::read_symlink(lien, erreur);
    if (cible != esclaveNom_ && (fs::exists(lien, erreur) || cible.parent_path() != "/dev/pts"))
      throw EchecLigne(lien_ + " is in use: it points to " + cible.string());
    fs::remove(lien, erreur);
  } else if (fs::exists(lien, erreur)) {
    throw EchecLigne(lien_ + " is in use: it is no link");
  }
  fs::create_symlink(esclaveNom_, lien, erreur);
  if (erreur) throw EchecLigne("cannot make the link " + lien_ + ": " + erreur.message());
}

void LigneSimulee::Couper() {
  std::error_code erreur;
  if (!esclaveNom_.empty() && fs::read_symlink(lien_, erreur) == esclaveNom_ && !erreur)
    fs::remove(lien_, erreur);
  if (esclave_ >= 0) close(esclave_);
  if (maitre_ >= 0) close(maitre_);
  esclave_ = -1;
  maitre_ = -1;
  esclaveNom_.clear();
  arrivee_.reset();
}

std::optional<int> LigneSimulee::AttendreLecture() const {
  if (!Branchee() || arrivee_) return std::nullopt;
  return maitre_;
}

std::optional<Instant> LigneSimulee::Echeance() const { return arrivee_; }

void LigneSimulee::OctetsEnVue(Instant maintenant) { arrivee_ = maintenant + Duree(1); }

// Bytes still under way wait in the kernel. A program that empties its transmit buffer does not take them
// back, as a pseudo-terminal has handed them over already.
std::vector<std::uint8_t> LigneSimulee::Lire(Instant maintenant) {
  if (!Branchee() || !arrivee_ || maintenant < *arrivee_) return {};
  if (baud_ == 0) {
    arrivee_.reset();
    return LireAuPlus(4096);
  }
  const auto voulus = static_cast<std::size_t>((maintenant - *arrivee_) / Duree(1)) + 1;
  std::vector<std::uint8_t> octets = LireAuPlus(voulus);
  if (octets.size() < voulus)
    arrivee_.reset();
  else
    *arrivee_ += Duree(octets.size());
  return octets;
}

std::vector<std::uint8_t> LigneSimulee::Vider() {
  std::vector<std::uint8_t> tout;
  while (Branchee()) {
    const std::vector<std::uint8_t> octets = LireAuPlus(4096);
    if (octets.empty()) break;
    tout.insert(tout.end(), octets.begin(), octets.end());
  }
  return tout;
}

std::vector<std::uint8_t> LigneSimulee::LireAuPlus(std::size_t nombre) {
  std::vector<std::uint8_t> octets(std::min<std::size_t>(nombre, 4096));
  const ssize_t lus = read(maitre_, octets.data(), octets.size());
  octets.resize(lus > 0 ? static_cast<std::size_t>(lus) : 0);
#ifdef TIOCNXCL
  // A program that was killed leaves its lock on the terminal, which lives on here; the next one must be able
  // to open it.
  ioctl(esclave_, TIOCNXCL);
#endif
  return octets;
}

bool LigneSimulee::Ecrire(std::string_view octets) {
  if (!Branchee()) return false;
  return write(maitre_, octets.data(), octets.size()) == static_cast<ssize_t>(octets.size());
}

std::chrono::microseconds LigneSimulee::Duree(std::size_t nombre) const {
  if (baud_ == 0) return std::chrono::microseconds(0);
  return std::chrono::microseconds(static_cast<long>(nombre) * 10'000'000L / baud_);
}

std::optional<long> LigneSimulee::Vitesse() const {
  termios reglage{};
  if (!Branchee() || tcgetattr(maitre_, &reglage) != 0) return std::nullopt;
  const speed_t vitesse = cfgetospeed(&reglage);
  if (vitesse == kVitesseInitiale) return std::nullopt;
  for (const auto &[code, baud] : kVitesses)
    if (code == vitesse) return baud;
  return 0;
}
