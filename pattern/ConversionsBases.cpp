#include "pattern/ConversionsBases.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string_view>

#include "base/TexteNumerique.h"
#include "session/FenetreTissagePrincipale.h"

namespace {
constexpr std::string_view kChiffres = "0123456789ABCDEF";

bool EstHexadecimal(char c) { return kChiffres.find(c) != std::string::npos; }

// The whole text as a 32-bit number, halves to the even neighbour.
std::int32_t EnEntierLong(const std::string &texte) {
  const std::string serre = Trim(texte);
  const bool nombre = !serre.empty() && serre.find_first_not_of("0123456789.+-eE") == std::string::npos &&
                      serre.find_first_of("0123456789") != std::string::npos;
  if (!nombre) throw ErreurExecution(Erreur::TypeIncompatible);
  const double valeur = ArrondirAuPair(Val(serre));
  if (!(valeur >= INT32_MIN && valeur <= INT32_MAX)) throw ErreurExecution(Erreur::Depassement);
  return static_cast<std::int32_t>(valeur);
}

std::string Bits(int chiffre) {
  std::string bits;
  for (int poids = 8; poids > 0; poids /= 2) bits += chiffre & poids ? '1' : '0';
  return bits;
}

std::string ChiffreDeGroupe(std::string groupe) {
  groupe.insert(0, 4 - groupe.size(), '0');
  if (groupe.find_first_not_of("01") != std::string::npos) return groupe;
  return std::string(1, kChiffres[std::stoul(groupe, nullptr, 2)]);
}
}  // namespace

std::string ConvB2B(const std::string &texte) { return texte; }

std::optional<double> ConvB2D(const std::string &texte) {
  if (texte.empty()) return std::nullopt;
  double valeur = 0;
  for (char c : texte) valeur = valeur * 2 + (c >= '0' && c <= '9' ? c - '0' : 0);
  return valeur;
}

std::string ConvB2H(const std::string &texte) {
  std::string resultat;
  for (std::size_t fin = texte.size(); fin > 0; fin -= std::min<std::size_t>(fin, 4)) {
    const std::size_t debut = fin < 4 ? 0 : fin - 4;
    resultat.insert(0, ChiffreDeGroupe(texte.substr(debut, fin - debut)));
  }
  return resultat;
}

std::string ConvD2B(std::string &texte) {
  const std::int32_t depart = EnEntierLong(texte);
  if (Val(texte) == 0 || Val(texte) == 1) return texte;
  std::string chiffres;
  for (std::int32_t n = depart;;) {
    chiffres += n % 2 != 0 ? '1' : '0';
    n /= 2;
    texte = std::to_string(n);
    if (n <= 1) break;
  }
  chiffres += '1';
  std::reverse(chiffres.begin(), chiffres.end());
  return chiffres;
}

std::string ConvD2D(const std::string &texte) { return texte; }

std::string ConvD2H(const std::string &texte) {
  char tampon[16];
  std::snprintf(tampon, sizeof tampon, "%X", static_cast<unsigned>(EnEntierLong(texte)));
  return tampon;
}

std::string ConvH2B(const std::string &texte) {
  std::string resultat;
  for (char c : Majuscules(texte)) {
    const auto chiffre = kChiffres.find(c);
    resultat += chiffre == std::string::npos ? std::string(1, c) : Bits(static_cast<int>(chiffre));
  }
  return resultat;
}

std::string ConvH2D(const std::string &texte) {
  const auto valeur = ConvB2D(ConvH2B(texte));
  return valeur ? Majuscules(LTrim(Str(*valeur))) : std::string();
}

std::string ConvH2H(const std::string &texte) { return Majuscules(texte); }

bool VerifH() {
  const std::string texte = Majuscules(fenetre.Text1.Text);
  return !texte.empty() && std::all_of(texte.begin(), texte.end(), EstHexadecimal);
}
