#include "simulator/Releve.h"

#include <time.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <ostream>

namespace {
std::string Heure() {
  const auto maintenant = std::chrono::system_clock::now().time_since_epoch();
  const auto millisecondes = std::chrono::duration_cast<std::chrono::milliseconds>(maintenant).count();
  const time_t secondes = static_cast<time_t>(millisecondes / 1000);
  tm locale{};
  localtime_r(&secondes, &locale);
  std::array<char, 48> texte{};
  std::snprintf(texte.data(), texte.size(), "%02d:%02d:%02d.%03d ", locale.tm_hour, locale.tm_min,
                locale.tm_sec, static_cast<int>(millisecondes % 1000));
  return texte.data();
}

std::string Hexadecimal(unsigned octet) {
  constexpr const char *Chiffres = "0123456789ABCDEF";
  return {Chiffres[octet >> 4U & 15U], Chiffres[octet & 15U]};
}

bool Leve(std::uint32_t lames, int lame) { return (lames >> (lame - 1) & 1U) != 0; }

std::string ListeLames(std::uint32_t lames, int nombre) {
  std::string liste;
  for (int lame = 1; lame <= nombre; ++lame)
    if (Leve(lames, lame)) liste += (liste.empty() ? "" : ",") + std::to_string(lame);
  return liste.empty() ? "-" : liste;
}

std::string Rangee(std::uint32_t lames, int nombre) {
  std::string rangee;
  for (int lame = 1; lame <= nombre; ++lame) rangee += Leve(lames, lame) ? '#' : '.';
  return rangee;
}

// What came from the line must not act on the weaver's terminal.
std::string Lisible(const std::string &texte) {
  std::string lisible;
  for (const char c : texte) {
    const auto octet = static_cast<unsigned char>(c);
    lisible += octet >= ' ' && octet < 127 ? std::string(1, c) : "\\x" + Hexadecimal(octet);
  }
  return lisible;
}
}  // namespace

Releve::Releve(std::ostream &sortie, int nombreLames, bool journal)
    : sortie_(sortie), nombreLames_(nombreLames), journal_(journal) {}

void Releve::Dire(const std::string &ligne) {
  sortie_ << (journal_ ? "" : Heure()) << ligne << '\n' << std::flush;
}

void Releve::Noter(const Trame &trame) {
  switch (trame.genre) {
    case GenreTrame::Chargement:
      break;
    case GenreTrame::Relache:
      Dire("release");
      break;
    case GenreTrame::Essai:
      Dire("test");
      break;
    case GenreTrame::Manuel:
      Dire("manual " + Lisible(trame.texte));
      break;
    case GenreTrame::Rejet:
      Dire("passed over " + std::to_string(trame.position) + " bytes");
      break;
    case GenreTrame::Duite:
      NoterDuite(trame);
      break;
    case GenreTrame::Faute:
      Erreur("byte " + std::to_string(trame.position) + " value " + std::to_string(trame.valeur) + " (" +
             Hexadecimal(trame.valeur) + "): " + trame.texte);
      break;
  }
}

void Releve::Erreur(const std::string &texte) {
  ++erreurs_;
  Dire("error " + texte);
}

void Releve::Conclure() { sortie_ << duites_ << " sheds, " << erreurs_ << " errors\n" << std::flush; }

void Releve::NoterDuite(const Trame &trame) {
  std::string octets;
  for (const std::uint8_t octet : trame.octets)
    octets += (journal_ || octets.empty() ? "" : " ") + Hexadecimal(octet);
  const std::string liste = ListeLames(trame.lames, nombreLames_);
  ++duites_;
  const std::string debut = "shed " + std::to_string(duites_) + ' ';
  if (journal_)
    Dire(debut + liste + ' ' + octets);
  else
    Dire(debut + Rangee(trame.lames, nombreLames_) + " lames " + liste + "  " + octets);
}
