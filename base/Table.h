// Tables whose bounds are checked; an index outside them fails with 9.
#pragma once

#include <array>
#include <cstddef>

#include "base/ErreurExecution.h"

// Elements 0 to `dernier`, each as its type makes it. They lie in the table itself: copies are deep, and
// references hold for as long as the table is there.
template <class T, int dernier>
class Table {
 public:
  T &operator[](int i) { return elements_[Place(i)]; }
  const T &operator[](int i) const { return elements_[Place(i)]; }
  static constexpr int Dernier() { return dernier; }

 private:
  static std::size_t Place(int i) {
    if (i < 0 || i > dernier) throw ErreurExecution(Erreur::Indice);
    return static_cast<std::size_t>(i);
  }
  std::array<T, dernier + 1> elements_{};
};

// Elements [0..dernier1][0..dernier2]; the first index runs fastest, so one column is contiguous.
template <class T, int dernier1, int dernier2>
class Table2 {
 public:
  T &operator()(int i, int j) { return elements_[Place(i, j)]; }
  const T &operator()(int i, int j) const { return elements_[Place(i, j)]; }

 private:
  static std::size_t Place(int i, int j) {
    if (i < 0 || i > dernier1 || j < 0 || j > dernier2) throw ErreurExecution(Erreur::Indice);
    return static_cast<std::size_t>(i) + static_cast<std::size_t>(j) * (dernier1 + 1);
  }
  std::array<T, std::size_t{dernier1 + 1} * (dernier2 + 1)> elements_{};
};
