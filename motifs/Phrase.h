// A sentence for the weaver in both languages, and the failure that carries one.
#pragma once

#include <stdexcept>
#include <string>

enum class Langue { Francais, Anglais };

// French where the desktop speaks French, else English: LC_ALL, LC_MESSAGES, LANG, the first that is set;
// before them LANGUAGE, unless the desktop speaks C.
Langue LangueDuBureau();

struct Phrase {
  std::string fr, en;
  const std::string &En(Langue langue) const { return langue == Langue::Francais ? fr : en; }
};

// What cannot be read or written: one sentence, the file, and the line in it (0 where no line is concerned).
class Refus : public std::runtime_error {
 public:
  Refus(std::string chemin, int ligne, Phrase phrase)
      : std::runtime_error(phrase.en),
        chemin_(std::move(chemin)),
        ligne_(ligne),
        phrase_(std::move(phrase)) {}

  const std::string &Chemin() const { return chemin_; }
  int Ligne() const { return ligne_; }
  const Phrase &Texte() const { return phrase_; }
  // "file:12: sentence", without the number where there is no line.
  std::string En(Langue langue) const;

 private:
  std::string chemin_;
  int ligne_;
  Phrase phrase_;
};
