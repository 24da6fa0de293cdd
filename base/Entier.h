// 16-bit checked integer and the True/False flag.
#pragma once

#include <cstdint>

#include "base/ErreurExecution.h"

// Signed 16-bit, 0 when made; every + - * and every narrowing that leaves -32768..32767 fails with 6, and
// leaves the number as it was. Comparing and dividing go by way of int, which loses nothing.
class Entier {
 public:
  constexpr Entier() = default;
  constexpr Entier(int valeur) : valeur_(Verifier(valeur)) {}
  constexpr Entier(long long valeur) : valeur_(Verifier(valeur)) {}
  constexpr operator int() const { return valeur_; }

  constexpr Entier &operator+=(int b) { return *this = Entier(static_cast<long long>(valeur_) + b); }
  constexpr Entier &operator-=(int b) { return *this = Entier(static_cast<long long>(valeur_) - b); }
  constexpr Entier &operator++() { return *this += 1; }
  constexpr Entier &operator--() { return *this -= 1; }
  constexpr Entier operator-() const { return Entier(-static_cast<long long>(valeur_)); }

 private:
  static constexpr std::int16_t Verifier(long long valeur) {
    if (valeur < INT16_MIN || valeur > INT16_MAX) throw ErreurExecution(Erreur::Depassement);
    return static_cast<std::int16_t>(valeur);
  }
  std::int16_t valeur_ = 0;
};

constexpr Entier operator+(Entier a, Entier b) { return Entier(static_cast<long long>(int{a}) + int{b}); }
constexpr Entier operator-(Entier a, Entier b) { return Entier(static_cast<long long>(int{a}) - int{b}); }
constexpr Entier operator*(Entier a, Entier b) { return Entier(static_cast<long long>(int{a}) * int{b}); }
constexpr Entier operator+(Entier a, int b) { return Entier(static_cast<long long>(int{a}) + b); }
constexpr Entier operator-(Entier a, int b) { return Entier(static_cast<long long>(int{a}) - b); }
constexpr Entier operator*(Entier a, int b) { return Entier(static_cast<long long>(int{a}) * b); }
constexpr Entier operator+(int a, Entier b) { return b + a; }
constexpr Entier operator-(int a, Entier b) { return Entier(static_cast<long long>(a) - int{b}); }
constexpr Entier operator*(int a, Entier b) { return b * a; }

// True = -1 and False = 0, in memory as in files; any other stored value reads as True.
class Booleen {
 public:
  constexpr Booleen() = default;
  constexpr Booleen(bool valeur) : valeur_(valeur) {}
  static constexpr Booleen DeValeur(Entier valeur) { return Booleen(valeur != 0); }
  constexpr operator bool() const { return valeur_; }
  constexpr Entier Valeur() const { return Entier(valeur_ ? -1 : 0); }

 private:
  bool valeur_ = false;
};
