// What a loom hears: the bytes of the line, cut strictly into frames.
//
// The reader is pure. It is fed byte by byte, knows nothing of ports or clocks, and says at each byte what
// that byte completed or spoiled.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

enum class GenreTrame {
  Relache,     // drop what is held
  Chargement,  // a pattern was loaded, nothing moves yet
  Duite,       // the loaded pattern is applied
  Essai,       // the loom's own test
  Manuel,      // a line typed by hand, `texte` is the line
  Faute,       // a byte that no frame allows here: `position`, `valeur`, `texte`
  Rejet        // the reader is in step again after `position` bytes passed over
};

struct Trame {
  GenreTrame genre = GenreTrame::Faute;
  std::uint32_t lames = 0;           // bit 0 is harness 1
  std::vector<std::uint8_t> octets;  // all bytes since the last Duite
  std::string texte;
  std::size_t position = 0;  // of the byte on the line, from 0
  std::uint8_t valeur = 0;
};

class LecteurTrames {
 public:
  // nombreLames: 24 for the escape protocol, 16 for the text protocol.
  explicit LecteurTrames(int nombreLames);

  // Takes one byte; returns what it brought about, most often nothing.
  std::vector<Trame> Lire(std::uint8_t octet);

  // The line has fallen silent for good: an unfinished frame is a fault.
  std::vector<Trame> Terminer();

  // The line was cut. Forgets the frame under way and the loaded pattern; the count of bytes goes on.
  void Oublier();

 private:
  bool Permis(std::uint8_t octet) const;
  bool Permis24(std::uint8_t octet) const;
  bool Permis16(std::uint8_t octet) const;
  bool Complete() const;
  void Rejeter(std::uint8_t octet, std::vector<Trame> &suites);
  bool Retrouver(std::uint8_t octet);
  void Conclure(std::vector<Trame> &suites);
  void Conclure24(std::vector<Trame> &suites);
  void Conclure16(std::vector<Trame> &suites);
  void Charger(std::uint32_t lames, std::vector<Trame> &suites);
  void Executer(std::vector<Trame> &suites);
  Trame Faute(std::uint8_t octet, std::string texte) const;

  int nombreLames_;
  std::string trame_;                // the frame under way
  std::vector<std::uint8_t> recus_;  // since the last Duite
  std::string rejetes_;              // bytes since the reader lost step
  bool perdu_ = false;
  bool charge_ = false;
  std::uint32_t lames_ = 0;
  std::size_t position_ = 0;
};
