#include "base/TexteNumerique.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

namespace {
bool EstChiffre(char c) { return c >= '0' && c <= '9'; }

// Walks over a text as if it held no spaces.
class Lecture {
 public:
  explicit Lecture(std::string_view texte) : texte_(texte) { SauterEspaces(); }
  char Courant() const { return place_ < texte_.size() ? texte_[place_] : '\0'; }
  void Suivant() {
    ++place_;
    SauterEspaces();
  }

 private:
  void SauterEspaces() {
    while (place_ < texte_.size() && texte_[place_] == ' ') ++place_;
  }
  std::string_view texte_;
  std::size_t place_ = 0;
};

bool Prendre(Lecture &lecture, std::string &nombre) {
  bool trouve = false;
  for (; EstChiffre(lecture.Courant()); lecture.Suivant(), trouve = true) nombre += lecture.Courant();
  return trouve;
}

void PrendreExposant(Lecture lecture, std::string &nombre) {
  if (lecture.Courant() != 'E' && lecture.Courant() != 'e') return;
  lecture.Suivant();
  std::string exposant = "e";
  if (lecture.Courant() == '-' || lecture.Courant() == '+') {
    if (lecture.Courant() == '-') exposant += '-';
    lecture.Suivant();
  }
  if (Prendre(lecture, exposant)) nombre += exposant;
}

// Bytes of the character that begins here: a whole UTF-8 sequence, or one byte that is none.
std::size_t OctetsCaractere(std::string_view texte, std::size_t place) {
  const auto octet = [&](std::size_t i) { return static_cast<unsigned char>(texte[i]); };
  const unsigned char tete = octet(place);
  const std::size_t octets = tete < 0xC2 ? 1 : tete < 0xE0 ? 2 : tete < 0xF0 ? 3 : tete < 0xF5 ? 4 : 1;
  if (place + octets > texte.size()) return 1;
  for (std::size_t i = place + 1; i < place + octets; ++i)
    if ((octet(i) & 0xC0) != 0x80) return 1;
  return octets;
}

double EnDouble(const std::string &nombre) {
  double valeur = 0;
  const auto [fin, erreur] = std::from_chars(nombre.data(), nombre.data() + nombre.size(), valeur);
  if (erreur != std::errc::result_out_of_range) return valeur;
  const bool petit = nombre.find("e-") != std::string::npos;
  return petit ? 0 : nombre[0] == '-' ? -HUGE_VAL : HUGE_VAL;
}
}  // namespace

double Val(std::string_view texte) {
  Lecture lecture(texte);
  std::string nombre;
  if (lecture.Courant() == '-' || lecture.Courant() == '+') {
    if (lecture.Courant() == '-') nombre += '-';
    lecture.Suivant();
  }
  bool chiffres = Prendre(lecture, nombre);
  if (lecture.Courant() == '.') {
    if (!chiffres) nombre += '0';
    nombre += '.';
    lecture.Suivant();
    if (Prendre(lecture, nombre)) chiffres = true;
  }
  if (!chiffres) return 0;
  PrendreExposant(lecture, nombre);
  return EnDouble(nombre);
}

std::string Str(double nombre) {
  // Not printf, which writes the comma of a French desktop: the reader of numbers knows the period alone.
  char tampon[40];
  const auto fin =
      std::to_chars(tampon, tampon + sizeof tampon, std::fabs(nombre), std::chars_format::general, 15);
  std::string texte = Majuscules(std::string_view(tampon, static_cast<std::size_t>(fin.ptr - tampon)));
  if (texte.rfind("0.", 0) == 0) texte.erase(0, 1);
  return (std::signbit(nombre) && nombre != 0 ? "-" : " ") + texte;
}

std::string Str(int nombre) { return (nombre < 0 ? "" : " ") + std::to_string(nombre); }

double ArrondirAuPair(double nombre) { return std::nearbyint(nombre); }

Entier Arrondir(double nombre) {
  const double entier = ArrondirAuPair(nombre);
  if (!(std::fabs(entier) <= 40000)) throw ErreurExecution(Erreur::Depassement);
  return Entier(static_cast<int>(entier));
}

std::string FormatQuatreChiffres(int nombre) {
  char tampon[16];
  std::snprintf(tampon, sizeof tampon, "%04d", nombre);
  return tampon;
}

std::string_view LTrim(std::string_view texte) {
  const auto debut = texte.find_first_not_of(' ');
  return debut == std::string_view::npos ? std::string_view() : texte.substr(debut);
}

std::string_view RTrim(std::string_view texte) {
  const auto fin = texte.find_last_not_of(' ');
  return fin == std::string_view::npos ? std::string_view() : texte.substr(0, fin + 1);
}

std::string Trim(std::string_view texte) { return std::string(RTrim(LTrim(texte))); }

int NombreCaracteres(std::string_view texte) {
  int nombre = 0;
  for (std::size_t place = 0; place < texte.size(); place += OctetsCaractere(texte, place)) ++nombre;
  return nombre;
}

std::size_t PlaceCaractere(std::string_view texte, int rang) {
  std::size_t place = 0;
  for (; rang > 0 && place < texte.size(); --rang) place += OctetsCaractere(texte, place);
  return place;
}

std::string Majuscules(std::string_view texte) {
  std::string resultat(texte);
  for (char &c : resultat)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return resultat;
}
