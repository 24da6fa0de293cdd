#include "platform/qt/Emission.h"

#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <thread>

namespace {
constexpr int kAvance = 64;  // bytes that the system may hold when it is given the next write
constexpr std::chrono::milliseconds kMarge(50);

int Detenus(int fd) {
  int octets = 0;
  return ioctl(fd, TIOCOUTQ, &octets) == 0 ? octets : 0;
}

bool Materiel(int fd) {
  int lignes = 0;
  return ioctl(fd, TIOCMGET, &lignes) == 0;
}

bool Prenant(int fd) {
  pollfd etat{fd, POLLOUT, 0};
  return poll(&etat, 1, 0) > 0 && (etat.revents & POLLOUT);
}
}  // namespace

void Emission::Vider() {
  file_.clear();
  enRoute_.clear();
  fin_ = Horloge::now();
}

void Emission::GarderDerniere() {
  if (file_.size() > 1) file_.erase(file_.begin(), file_.end() - 1);
}

void Emission::GarderTour(unsigned tour) {
  std::erase_if(file_, [tour](const Ecrit &e) { return e.tour != tour; });
}

std::size_t Emission::Restent() const {
  std::size_t octets = 0;
  for (const Ecrit &e : file_) octets += e.octets.size() - e.remis;
  return octets;
}

bool Emission::Pousser(int fd) {
  while (!enRoute_.empty() && enRoute_.front().fin <= Horloge::now()) enRoute_.pop_front();
  while (!file_.empty() && Detenus(fd) <= kAvance && Prenant(fd)) {
    Ecrit &e = file_.front();
    const ssize_t pris = write(fd, e.octets.data() + e.remis, e.octets.size() - e.remis);
    if (pris < 0) return errno == EAGAIN || errno == EINTR;
    e.remis += static_cast<std::size_t>(pris);
    fin_ = std::max(fin_, Horloge::now()) + pris * duree_;
    e.fin = fin_;
    if (e.remis < e.octets.size()) continue;
    enRoute_.push_back(std::move(e));
    file_.pop_front();
  }
  return true;
}

void Emission::Reprendre() {
  for (; !enRoute_.empty(); enRoute_.pop_back())
    if (enRoute_.back().fin > Horloge::now()) file_.push_front(std::move(enRoute_.back()));
  for (Ecrit &e : file_) e.remis = 0;
  fin_ = Horloge::now();
}

// A device that tells whether its last bit has left is asked; one without the lines of a modem is no
// hardware, and keeps nothing that the system does not count; any other may keep what fits its own memory.
bool Emission::Partis(int fd) const {
  if (!file_.empty() || Detenus(fd) > 0) return false;
  unsigned etat = 0;
  if (ioctl(fd, TIOCSERGETLSR, &etat) == 0) return (etat & TIOCSER_TEMT) != 0;
  return !Materiel(fd) || Horloge::now() >= fin_;
}

void Emission::LaisserPartir(int fd) {
  const auto octets = static_cast<long>(Restent()) + Detenus(fd);
  auto limite = Horloge::now() + octets * duree_;
  if (Materiel(fd)) limite = std::max(limite, fin_);
  limite += kMarge;
  while (Pousser(fd) && !Partis(fd)) {
    if (Horloge::now() >= limite) return Forcer(fd);
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

// What is stuck is dropped, since closing would wait for it. A line that is only full then takes the last
// write.
void Emission::Forcer(int fd) {
  tcflush(fd, TCOFLUSH);
  if (file_.empty() || Materiel(fd)) return;
  GarderDerniere();
  file_.front().remis = 0;
  Pousser(fd);
}
