#include "saved/FichierEnregistrements.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <bit>
#include <cerrno>
#include <cstdint>

#include "base/ErreurSysteme.h"
#include "base/TexteNumerique.h"

namespace {
std::string EnOctets(std::uint64_t valeur, int taille) {
  std::string octets;
  for (int i = 0; i < taille; ++i) octets += static_cast<char>(valeur >> (8 * i) & 255);
  return octets;
}

std::uint64_t DeOctets(const std::string &octets) {
  std::uint64_t valeur = 0;
  for (std::size_t i = octets.size(); i-- > 0;) valeur = valeur << 8 | static_cast<unsigned char>(octets[i]);
  return valeur;
}

std::string EntierEnOctets(Entier valeur) { return EnOctets(static_cast<std::uint16_t>(int{valeur}), 2); }
Entier EntierDeOctets(const std::string &o) {
  return Entier(int{static_cast<std::int16_t>(static_cast<std::uint16_t>(DeOctets(o)))});
}

// A folder that is missing, rather than the file in it, is told as such.
[[noreturn]] void LeverPourChemin(const std::string &chemin, int erreur) {
  const auto barre = chemin.rfind('/');
  struct stat infos {};
  if (erreur == ENOENT && barre != std::string::npos && stat(chemin.substr(0, barre).c_str(), &infos) != 0)
    LeverErreurSysteme(ENOTDIR);
  LeverErreurSysteme(erreur);
}

mode_t Droits(const std::string &chemin) {
  struct stat infos {};
  if (stat(chemin.c_str(), &infos) != 0) LeverPourChemin(chemin, errno);
  return infos.st_mode;
}
}  // namespace

Champ ChampEntier(int position, const char *nom, Entier &variable) {
  return {position, 2, nom, [&variable] { return EntierEnOctets(variable); },
          [&variable](const std::string &o) { variable = EntierDeOctets(o); }};
}

Champ ChampDrapeau(int position, const char *nom, Drapeau &variable) {
  return {position, 2, nom, [&variable] { return EntierEnOctets(variable.Valeur()); },
          [&variable](const std::string &o) { variable = Drapeau::DeValeur(EntierDeOctets(o)); }};
}

Champ ChampDate(int position, const char *nom, double &variable) {
  return {position, 8, nom, [&variable] { return EnOctets(std::bit_cast<std::uint64_t>(variable), 8); },
          [&variable](const std::string &o) { variable = std::bit_cast<double>(DeOctets(o)); }};
}

Champ ChampTexte(int position, int taille, const char *nom, std::string &variable) {
  return {position, taille, nom,
          [&variable, taille] {
            std::string texte = variable;
            texte.resize(static_cast<std::size_t>(taille), ' ');
            return texte;
          },
          [&variable](const std::string &o) { variable = Trim(o); }};
}

std::string ComposerEnregistrement(std::span<const Champ> champs, int longueur) {
  std::string enregistrement(static_cast<std::size_t>(longueur), '\0');
  for (const Champ &c : champs)
    enregistrement.replace(static_cast<std::size_t>(c.position), static_cast<std::size_t>(c.taille),
                           c.donner());
  return enregistrement;
}

void RepartirEnregistrement(std::span<const Champ> champs, const std::string &enregistrement) {
  for (const Champ &c : champs)
    c.prendre(
        enregistrement.substr(static_cast<std::size_t>(c.position), static_cast<std::size_t>(c.taille)));
}

FichierEnregistrements::FichierEnregistrements(const std::string &chemin, int longueur)
    : descripteur_(open(chemin.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666)), longueur_(longueur) {
  if (descripteur_ < 0) LeverPourChemin(chemin, errno);
}

FichierEnregistrements::~FichierEnregistrements() { close(descripteur_); }

long FichierEnregistrements::Nombre() const {
  struct stat infos {};
  if (fstat(descripteur_, &infos) != 0) LeverErreurSysteme(errno);
  return static_cast<long>(infos.st_size) / longueur_;
}

std::string FichierEnregistrements::Lire(long n) const {
  std::string enregistrement(static_cast<std::size_t>(longueur_), '\0');
  std::size_t lus = 0;
  while (lus < enregistrement.size()) {
    const ssize_t r = pread(descripteur_, enregistrement.data() + lus, enregistrement.size() - lus,
                            (n - 1) * longueur_ + static_cast<off_t>(lus));
    if (r < 0) LeverErreurSysteme(errno);
    if (r == 0) break;
    lus += static_cast<std::size_t>(r);
  }
  return enregistrement;
}

void FichierEnregistrements::Ecrire(long n, const std::string &enregistrement) {
  std::size_t ecrits = 0;
  while (ecrits < enregistrement.size()) {
    const ssize_t r = pwrite(descripteur_, enregistrement.data() + ecrits, enregistrement.size() - ecrits,
                             (n - 1) * longueur_ + static_cast<off_t>(ecrits));
    if (r < 0) LeverErreurSysteme(errno);
    ecrits += static_cast<std::size_t>(r);
  }
}

bool EstLectureSeule(const std::string &chemin) { return (Droits(chemin) & S_IWUSR) == 0; }

void OterLectureSeule(const std::string &chemin) {
  if (chmod(chemin.c_str(), (Droits(chemin) | S_IWUSR) & 07777) != 0) LeverErreurSysteme(errno);
}
