#include "motifs/Valeurs.h"

#include <charconv>
#include <cmath>

#include "motifs/Encodage.h"

bool EnNombre(std::string_view texte, long long &nombre) {
  const auto [fin, erreur] = std::from_chars(texte.data(), texte.data() + texte.size(), nombre);
  // More digits than a number holds are a number all the same, beyond every bound.
  const bool entier = fin == texte.data() + texte.size() && !texte.empty() && texte[0] != '-';
  if (entier && erreur == std::errc::result_out_of_range) nombre = INT64_MAX;
  return entier && erreur != std::errc::invalid_argument;
}

int Valeurs::Nombre(std::string_view texte, int ligne, int dernier, const MotsNombre &mots) const {
  long long nombre = 0;
  const std::string cite = Citer(texte);
  if (!EnNombre(texte, nombre))
    throw Refus(chemin_, ligne,
                {"« " + cite + " » n'est pas un nombre de 0 à " + std::to_string(dernier) + ".",
                 "\"" + cite + "\" is no number from 0 to " + std::to_string(dernier) + "."});
  if (nombre > dernier) {
    const std::string borne = std::to_string(dernier);
    throw Refus(chemin_, ligne,
                {cite + " dépasse les " + borne + " " + mots.frs + " que ce programme lit.",
                 cite + " is beyond the " + borne + " " + mots.ens + " that this program reads."});
  }
  return static_cast<int>(nombre);
}

int Valeurs::Cle(const LigneCle &cle, int dernier, const MotsNombre &mots) const {
  const int n = Nombre(cle.cle, cle.ligne, dernier, mots);
  if (n > 0) return n;
  throw Refus(chemin_, cle.ligne,
              {std::string(mots.fr) + " 0 n'existe pas.", std::string(mots.en) + " 0 does not exist."});
}

Lames Valeurs::Liste(std::string_view texte, int ligne, const MotsNombre &mots) const {
  Lames lames = 0;
  PourChaqueNombre(texte, ligne, kLamesMax, mots, [&](int n) { lames |= Lame(n); });
  return lames;
}

double Valeurs::Decimal(std::string_view texte, int ligne) const {
  double nombre = 0;
  const auto [fin, erreur] = std::from_chars(texte.data(), texte.data() + texte.size(), nombre);
  if (erreur == std::errc() && fin == texte.data() + texte.size() && std::fabs(nombre) <= 1e6) return nombre;
  const std::string cite = Citer(texte);
  throw Refus(
      chemin_, ligne,
      {"« " + cite + " » n'est pas une valeur de couleur.", "\"" + cite + "\" is no value of a colour."});
}

bool Valeurs::OuiNon(std::string_view texte, int ligne) const {
  for (const char *mot : {"true", "yes", "on", "1", "t", "y"})
    if (MemeMot(texte, mot)) return true;
  for (const char *mot : {"false", "no", "off", "0", "f", "n"})
    if (MemeMot(texte, mot)) return false;
  const std::string cite = Citer(texte);
  throw Refus(chemin_, ligne,
              {"« " + cite + " » n'est ni true ni false.", "\"" + cite + "\" is neither true nor false."});
}
