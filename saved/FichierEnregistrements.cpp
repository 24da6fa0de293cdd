#include "saved/FichierEnregistrements.h"

#include <fcntl.h>

#include <bit>
#include <cstdint>

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

Champ ChampTexte(int position, int taille, const char *nom, std::string &variable, bool rogne) {
  return {position, taille, nom,
          [&variable, taille, rogne] {
            std::string texte = rogne ? Trim(variable) : variable;
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
    : fichier_(chemin, O_RDWR | O_CREAT), longueur_(longueur) {}

long FichierEnregistrements::Nombre() const { return fichier_.Taille() / longueur_; }

std::string FichierEnregistrements::Lire(long n) const {
  std::string enregistrement = fichier_.Lire((n - 1) * longueur_, longueur_);
  enregistrement.resize(static_cast<std::size_t>(longueur_), '\0');
  return enregistrement;
}

void FichierEnregistrements::Ecrire(long n, const std::string &enregistrement) {
  fichier_.Ecrire((n - 1) * longueur_, enregistrement);
}
