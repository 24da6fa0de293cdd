// Tables whose bounds are checked; an index outside them fails with 9.
#pragma once

#include <cstddef>
#include <vector>

#include "base/ErreurExecution.h"

// Room for `nombre` elements, made as far as somebody writes: of a session's tables a start touches next to
// nothing, and every page of memory that it touches is time. Copies are deep; references hold.
template <class T, std::size_t nombre>
class Reserve {
 public:
  Reserve() { elements_.reserve(nombre); }
  Reserve(const Reserve &autre) : Reserve() { elements_ = autre.elements_; }
  Reserve &operator=(const Reserve &) = default;
  T &Pour(std::size_t place) {
    if (place >= elements_.size()) elements_.resize(place + 1);
    return elements_[place];
  }
  const T &Lire(std::size_t place) const {
    static const T vierge{};
    return place < elements_.size() ? elements_[place] : vierge;
  }

 private:
  std::vector<T> elements_;
};

// Elements 0 to `dernier`, each as its type makes it. Copies are deep; references hold until the table is
// assigned.
template <class T, int dernier>
class Table {
 public:
  T &operator[](int i) { return elements_.Pour(Place(i)); }
  const T &operator[](int i) const { return elements_.Lire(Place(i)); }
  static constexpr int Dernier() { return dernier; }

 private:
  static std::size_t Place(int i) {
    if (i < 0 || i > dernier) throw ErreurExecution(Erreur::Indice);
    return static_cast<std::size_t>(i);
  }
  Reserve<T, dernier + 1> elements_;
};

// Elements [0..dernier1][0..dernier2]; the first index runs fastest, so one column is contiguous.
template <class T, int dernier1, int dernier2>
class Table2 {
 public:
  T &operator()(int i, int j) { return elements_.Pour(Place(i, j)); }
  const T &operator()(int i, int j) const { return elements_.Lire(Place(i, j)); }

 private:
  static std::size_t Place(int i, int j) {
    if (i < 0 || i > dernier1 || j < 0 || j > dernier2) throw ErreurExecution(Erreur::Indice);
    return static_cast<std::size_t>(i) + static_cast<std::size_t>(j) * (dernier1 + 1);
  }
  Reserve<T, std::size_t{dernier1 + 1} * (dernier2 + 1)> elements_;
};
