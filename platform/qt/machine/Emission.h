// What waits to go out over the line: one piece for each write of the program, handed to the system when it
// holds nothing any more, so that a release never stands behind sheds of long ago.
#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <vector>

// What came of an attempt to hand over.
enum class Remise {
  Rien,    // nothing has moved since the attempt before
  Avance,  // the system took a byte, or holds fewer than before
  Echec,   // the device has failed
};

class Emission {
 public:
  using Horloge = std::chrono::steady_clock;

  // Of one character on the line.
  void Duree(std::chrono::microseconds octet) { duree_ = octet; }
  // `tour` numbers the event in which the write was made.
  void Ajouter(const std::string &octets, unsigned tour);
  // What is to run when the last write has been handed over; False where none waits.
  bool Suivre(std::function<void()> suite);
  // Forgets everything that waits.
  void Vider();
  // Forgets what waits but for the writes of one event, and for a write of which a byte has gone already.
  void GarderTour(unsigned tour);
  // The same for the event that wrote last.
  void GarderDernierTour();
  // Hands over what the line takes now, without waiting; then runs what was to follow.
  Remise Pousser(int fd);

  bool Vide() const { return file_.empty(); }
  std::size_t Restent() const;  // bytes not yet handed over
  // Waits, for as long as bytes leave, until the line has carried what is held and the last two writes; what
  // waits before these is forgotten. Where no byte has left for 200 milliseconds all is dropped, and the last
  // write is handed over.
  void LaisserPartir(int fd);

 private:
  struct Envoi {
    std::string octets;
    unsigned tour;
    std::size_t remis;  // bytes handed over
    std::function<void()> suite;
  };
  bool Partis(int fd) const;
  Remise Remettre(int fd, std::vector<std::function<void()>> &suites);
  void GarderFin();
  void Forcer(int fd);

  std::chrono::microseconds duree_{1000};
  std::deque<Envoi> file_;
  std::string dernier_;      // the last write since all was forgotten
  Horloge::time_point fin_;  // when the line has carried all that was handed over
  int detenus_ = 0;          // bytes that the system held at the last attempt
};

// Bytes that the system holds and the device has not taken.
int OctetsDetenus(int fd);
