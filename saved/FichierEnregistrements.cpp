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

Rubrique RubriqueEntier(int position, Entier &variable) {
  return {position, 2, [&variable] { return EntierEnOctets(variable); },
          [&variable](const std::string &o) { variable = EntierDeOctets(o); }};
}

Rubrique RubriqueBooleen(int position, Booleen &variable) {
  return {position, 2, [&variable] { return EntierEnOctets(variable.Valeur()); },
          [&variable](const std::string &o) { variable = Booleen::DeValeur(EntierDeOctets(o)); }};
}

Rubrique RubriqueDate(int position, double &variable) {
  return {position, 8, [&variable] { return EnOctets(std::bit_cast<std::uint64_t>(variable), 8); },
          [&variable](const std::string &o) { variable = std::bit_cast<double>(DeOctets(o)); }};
}

Rubrique RubriqueTexte(int position, int taille, std::string &variable, bool rogne) {
  return {position, taille,
          [&variable, taille, rogne] {
            std::string texte = rogne ? Trim(variable) : variable;
            texte.resize(static_cast<std::size_t>(taille), ' ');
            return texte;
          },
          [&variable](const std::string &o) { variable = Trim(o); }};
}

std::vector<Rubrique> AvecLesChamps(std::vector<Rubrique> rubriques, int FicheChamp::*position) {
  for (const FicheChamp &champ : LesChamps())
    rubriques.push_back({champ.*position, 2, [&champ] { return EntierEnOctets(ValeurDe(champ)); },
                         [&champ](const std::string &o) { PoserValeur(champ, EntierDeOctets(o)); }});
  return rubriques;
}

std::string ComposerEnregistrement(std::span<const Rubrique> rubriques, int longueur) {
  std::string enregistrement(static_cast<std::size_t>(longueur), '\0');
  for (const Rubrique &r : rubriques)
    enregistrement.replace(static_cast<std::size_t>(r.position), static_cast<std::size_t>(r.taille),
                           r.donner());
  return enregistrement;
}

void RepartirEnregistrement(std::span<const Rubrique> rubriques, const std::string &enregistrement) {
  for (const Rubrique &r : rubriques)
    r.prendre(
        enregistrement.substr(static_cast<std::size_t>(r.position), static_cast<std::size_t>(r.taille)));
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
