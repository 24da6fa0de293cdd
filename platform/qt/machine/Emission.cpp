#include "platform/qt/machine/Emission.h"

#include <linux/serial.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <thread>
#include <utility>

namespace {
constexpr std::chrono::milliseconds kVersPuce(
    20);  // an adapter has the last bytes, and its word on them, by then
constexpr std::chrono::milliseconds kPatience(200);

bool Materiel(int fd) {
  int lignes = 0;
  return ioctl(fd, TIOCMGET, &lignes) == 0;
}

bool Prenant(int fd) {
  pollfd etat{fd, POLLOUT, 0};
  return poll(&etat, 1, 0) > 0 && (etat.revents & POLLOUT);
}

// A closing that waits for a stuck device holds the window for half a minute. False where the driver does not
// allow it.
bool FermerSansAttendre(int fd) {
  serial_struct reglages{};
  if (ioctl(fd, TIOCGSERIAL, &reglages) != 0) return false;
  reglages.closing_wait = ASYNC_CLOSING_WAIT_NONE;
  return ioctl(fd, TIOCSSERIAL, &reglages) == 0;
}
}  // namespace

int OctetsDetenus(int fd) {
  int octets = 0;
  return ioctl(fd, TIOCOUTQ, &octets) == 0 ? octets : 0;
}

void Emission::Ajouter(const std::string &octets, unsigned tour) {
  file_.push_back({octets, tour, 0, {}});
  dernier_ = octets;
}

bool Emission::Suivre(std::function<void()> suite) {
  if (file_.empty()) return false;
  file_.back().suite = std::move(suite);
  return true;
}

void Emission::Vider() {
  file_.clear();
  dernier_.clear();
}

void Emission::GarderTour(unsigned tour) {
  std::erase_if(file_, [tour](const Envoi &e) { return e.tour != tour && e.remis == 0; });
}

void Emission::GarderDernierTour() {
  if (!file_.empty()) GarderTour(file_.back().tour);
}

std::size_t Emission::Restent() const {
  std::size_t octets = 0;
  for (const Envoi &e : file_) octets += e.octets.size() - e.remis;
  return octets;
}

Remise Emission::Pousser(int fd) {
  std::vector<std::function<void()>> suites;
  const Remise remise = Remettre(fd, suites);
  for (const auto &suite : suites) suite();
  return remise;
}

Remise Emission::Remettre(int fd, std::vector<std::function<void()>> &suites) {
  bool avance = OctetsDetenus(fd) < detenus_;
  while (!file_.empty() && OctetsDetenus(fd) == 0 && Prenant(fd)) {
    Envoi &e = file_.front();
    const ssize_t pris = write(fd, e.octets.data() + e.remis, e.octets.size() - e.remis);
    if (pris < 0 && errno != EAGAIN && errno != EINTR) return Remise::Echec;
    if (pris <= 0) break;
    avance = true;
    e.remis += static_cast<std::size_t>(pris);
    fin_ = std::max(fin_, Horloge::now()) + pris * duree_;
    if (e.remis < e.octets.size()) continue;
    if (e.suite) suites.push_back(std::move(e.suite));
    file_.pop_front();
  }
  detenus_ = OctetsDetenus(fd);
  return avance ? Remise::Avance : Remise::Rien;
}

// One without the lines of a modem is no hardware, and keeps nothing that the system does not count. Any
// other keeps what fits its own memory: it is believed that its last bit has left only when the line has had
// the time for it, since an adapter answers from what it said some milliseconds ago.
bool Emission::Partis(int fd) const {
  if (!file_.empty() || OctetsDetenus(fd) > 0) return false;
  if (!Materiel(fd)) return true;
  if (Horloge::now() < fin_ + kVersPuce) return false;
  unsigned etat = 0;
  return ioctl(fd, TIOCSERGETLSR, &etat) != 0 || (etat & TIOCSER_TEMT) != 0;
}

// Sheds of long ago stay behind; a loom is released in one word or in two.
void Emission::GarderFin() {
  constexpr std::size_t kMots = 2;
  const std::size_t debut = file_.empty() || file_.front().remis == 0 ? 0 : 1;
  if (file_.size() > debut + kMots)
    file_.erase(file_.begin() + static_cast<std::ptrdiff_t>(debut), file_.end() - kMots);
}

void Emission::LaisserPartir(int fd) {
  GarderFin();
  for (auto mouvement = Horloge::now(); !Partis(fd);) {
    const Remise remise = Pousser(fd);
    if (remise == Remise::Echec) return;
    const auto maintenant = Horloge::now();
    if (remise == Remise::Avance) mouvement = maintenant;
    const bool chezPuce = file_.empty() && detenus_ == 0;
    if (maintenant >= (chezPuce ? std::max(mouvement, fin_ + kVersPuce) : mouvement) + kPatience)
      return Forcer(fd);
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

// What is stuck is dropped: the last write goes in its place, and gets the time to leave that it needs. What
// is still there then goes with the device, unless closing would wait for it.
void Emission::Forcer(int fd) {
  tcflush(fd, TCOFLUSH);
  file_.clear();
  file_.push_back({dernier_, 0, 0, {}});
  (void)Pousser(fd);
  if (!Materiel(fd)) return;
  const auto limite = Horloge::now() + static_cast<long>(dernier_.size()) * duree_ + kVersPuce;
  while (!Partis(fd) && Horloge::now() < limite) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  if (OctetsDetenus(fd) > 0 && !FermerSansAttendre(fd)) tcflush(fd, TCOFLUSH);
}
