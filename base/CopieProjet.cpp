#include "base/CopieProjet.h"

#include <cstdint>
#include <sstream>

std::string EnTexte(const CopieProjet &copie) {
  const std::string octets = copie.entete.value_or("") + copie.lignes.value_or("");
  std::uint64_t somme = 14695981039346656037u;  // FNV-1a
  for (char c : octets) somme = (somme ^ static_cast<unsigned char>(c)) * 1099511628211u;
  const auto longueur = [](const std::optional<std::string> &f) {
    return f ? std::to_string(f->size()) : std::string("-1");
  };
  return "brandis-reprise-1 " + longueur(copie.entete) + ' ' + longueur(copie.lignes) + ' ' +
         std::to_string(somme) + '\n' + octets;
}

std::optional<CopieProjet> DeTexte(const std::string &texte) {
  const auto fin = texte.find('\n');
  if (fin == std::string::npos) return std::nullopt;
  std::istringstream tete(texte.substr(0, fin));
  std::string marque;
  long long longueurs[2];
  if (!(tete >> marque >> longueurs[0] >> longueurs[1])) return std::nullopt;
  CopieProjet copie;
  std::size_t place = fin + 1;
  std::optional<std::string> *fichiers[] = {&copie.entete, &copie.lignes};
  for (int i = 0; i < 2; ++i) {
    if (longueurs[i] < 0) continue;
    const auto longueur = static_cast<std::size_t>(longueurs[i]);
    if (longueur > texte.size() - place) return std::nullopt;
    *fichiers[i] = texte.substr(place, longueur);
    place += longueur;
  }
  return EnTexte(copie) == texte ? std::optional(copie) : std::nullopt;
}
