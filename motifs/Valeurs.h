// Numbers and switches of a pattern file, each refused with its line where it is none.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "motifs/Motif.h"

// How a refusal names what is counted.
struct MotsNombre {
  const char *fr, *en;    // "la duite", "pick"
  const char *frs, *ens;  // "duites", "picks"
};
inline constexpr MotsNombre kMotsDuite{"la duite", "pick", "duites", "picks"},
    kMotsFil{"le fil", "thread", "fils", "threads"}, kMotsLame{"la lame", "harness", "lames", "harnesses"},
    kMotsPedale{"la pédale", "treadle", "pédales", "treadles"},
    kMotsCouleur{"la couleur", "colour", "couleurs", "colours"};

// A whole number without sign; false for any other text.
bool EnNombre(std::string_view texte, long long &nombre);

class Valeurs {
 public:
  explicit Valeurs(const std::string &chemin) : chemin_(chemin) {}

  // 0 to `dernier`.
  int Nombre(std::string_view texte, int ligne, int dernier, const MotsNombre &mots) const;
  // The key of a numbered line, 1 to `dernier`.
  int Cle(const LigneCle &cle, int dernier, const MotsNombre &mots) const;
  // Harnesses separated by commas; 0 and nothing stand for none.
  Lames Liste(std::string_view texte, int ligne, const MotsNombre &mots) const;
  // Any number, within a million either way.
  double Decimal(std::string_view texte, int ligne) const;
  bool OuiNon(std::string_view texte, int ligne) const;

  // Every number of a list but 0.
  template <class F>
  void PourChaqueNombre(std::string_view texte, int ligne, int dernier, const MotsNombre &mots,
                        F &&faire) const {
    for (std::size_t debut = 0; debut <= texte.size();) {
      const auto virgule = std::min(texte.find(',', debut), texte.size());
      const std::string_view bout = Rogner(texte.substr(debut, virgule - debut));
      if (const int n = bout.empty() ? 0 : Nombre(bout, ligne, dernier, mots); n > 0) faire(n);
      debut = virgule + 1;
    }
  }

 private:
  const std::string &chemin_;
};
