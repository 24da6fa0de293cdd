// The lines of a pattern file: sections in brackets, keys and values. Everything is a view into the file's
// text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

constexpr int kSectionsMax = 10000;

struct Section {
  std::string_view nom;    // as written, without brackets and blanks
  std::string_view texte;  // the lines behind the section line, line ends included
  int ligne;               // of the section line, from 1
};

// One line that says something. A value ends before a comment; `brut` is the value with it.
struct LigneCle {
  std::string_view cle, valeur, brut;
  bool egal;  // a line without "=" has it all in `cle`
  int ligne;
};

// Walks over the lines of a text, whatever ends them.
class Lignes {
 public:
  explicit Lignes(std::string_view texte, int premiere = 1) : reste_(texte), numero_(premiere - 1) {}
  bool Suivante(std::string_view &ligne);
  int Numero() const { return numero_; }             // of the line given last
  std::string_view Reste() const { return reste_; }  // behind it

 private:
  std::string_view reste_;
  int numero_;
};

// The sections from "[WIF]" on, or all where no line says so. `chemin` only names the file in a refusal,
// which follows on more than 10 000 sections.
std::vector<Section> CouperSections(std::string_view texte, const std::string &chemin);

// The next key of a section; false behind the last.
bool CleSuivante(Lignes &lignes, LigneCle &cle);

// Without blanks of any kind at both ends.
std::string_view Rogner(std::string_view texte);
// Equal but for the case of ASCII letters.
bool MemeMot(std::string_view a, std::string_view b);
