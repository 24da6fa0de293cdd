// The loom's end of the line: a pseudo-terminal, the link that names it to the program, and the pace at which
// bytes go over it.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

using Horloge = std::chrono::steady_clock;
using Instant = Horloge::time_point;

// The pseudo-terminal or its link cannot be made; the text says why.
struct EchecLigne : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class LigneSimulee {
 public:
  // lien: path of the link. baud: pace of the line, 0 for at once.
  LigneSimulee(std::string lien, long baud);
  ~LigneSimulee();
  LigneSimulee(const LigneSimulee &) = delete;
  LigneSimulee &operator=(const LigneSimulee &) = delete;

  // Makes the pseudo-terminal and the link. Throws EchecLigne, and then leaves the line cut.
  void Brancher();
  // Closes the pseudo-terminal; removes the link if it is still this line's own.
  void Couper();
  bool Branchee() const { return maitre_ >= 0; }

  const std::string &Esclave() const { return esclaveNom_; }
  const std::string &Lien() const { return lien_; }

  // Descriptor to poll for reading; none while cut or while a byte is under way.
  std::optional<int> AttendreLecture() const;
  // When the byte under way will have arrived.
  std::optional<Instant> Echeance() const;
  // The poll found bytes waiting: the first of them is now under way.
  void OctetsEnVue(Instant maintenant);
  // Bytes that have arrived by now at the pace of the line.
  std::vector<std::uint8_t> Lire(Instant maintenant);
  // Everything that is there, whatever the pace.
  std::vector<std::uint8_t> Vider();
  // False when nobody takes the bytes and the queue is full.
  bool Ecrire(std::string_view octets);
  // How long so many bytes take.
  std::chrono::microseconds Duree(std::size_t nombre) const;

  // Speed that the program has set, in baud; 0 for one without a name, none as long as it stands where
  // Brancher put it.
  std::optional<long> Vitesse() const;

 private:
  void Ouvrir();
  void Lier();
  std::vector<std::uint8_t> LireAuPlus(std::size_t nombre);

  std::string lien_;
  long baud_;
  int maitre_ = -1;
  int esclave_ = -1;  // kept open: the program may close its end without a hang-up
  std::string esclaveNom_;
  std::optional<Instant> arrivee_;  // of the byte under way
};
