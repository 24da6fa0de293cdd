// What waits to go out over the line: one piece for each write of the program, handed to the system as the
// line takes it. The system is given little in advance, so that a release never stands behind sheds of long
// ago.
#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <string>

class Emission {
 public:
  using Horloge = std::chrono::steady_clock;

  // Of one character on the line.
  void Duree(std::chrono::microseconds octet) { duree_ = octet; }
  // `tour` numbers the event in which the write was made.
  void Ajouter(const std::string &octets, unsigned tour) { file_.push_back({octets, tour, 0, {}}); }
  // Forgets everything that waits, and what was handed over.
  void Vider();
  // Forgets all but the last write that waits.
  void GarderDerniere();
  // Forgets all but the writes of one event.
  void GarderTour(unsigned tour);
  // Hands over what the line takes now, without waiting; false when the device has failed.
  bool Pousser(int fd);
  // The line is cut: what had not left whole, by the time that it needs at the speed of the line, waits again
  // from its first byte.
  void Reprendre();

  bool Vide() const { return file_.empty(); }
  std::size_t Restent() const;  // bytes not yet handed over
  // Waits until all that waits or that the system holds has left: no longer than these bytes need on the line
  // and 50 milliseconds. What has not left then is dropped, and the last write is tried once more.
  void LaisserPartir(int fd);

 private:
  struct Ecrit {
    std::string octets;
    unsigned tour;
    std::size_t remis;        // bytes handed over
    Horloge::time_point fin;  // when the line has carried them
  };
  bool Partis(int fd) const;
  void Forcer(int fd);

  std::chrono::microseconds duree_{1000};
  std::deque<Ecrit> file_, enRoute_;  // waiting; handed over and perhaps still on the way
  Horloge::time_point fin_;           // when the line has carried all that was handed over
};
