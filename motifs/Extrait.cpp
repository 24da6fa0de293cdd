#include "motifs/Extrait.h"

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

namespace {
bool Borne(std::string_view texte, int &borne) {
  long long n = 0;
  if (!EnNombre(texte, n) || n < 1 || n > kFilsMax) return false;
  borne = static_cast<int>(n);
  return true;
}

std::string Bornes(Etendue e) { return std::to_string(e.premier) + "-" + std::to_string(e.dernier); }

template <class T>
void Couper(std::vector<T> &valeurs, Etendue e) {
  if (valeurs.empty()) return;
  valeurs.erase(valeurs.begin() + e.dernier, valeurs.end());
  valeurs.erase(valeurs.begin(), valeurs.begin() + (e.premier - 1));
}
}  // namespace

std::optional<Etendue> LireEtendue(std::string_view texte) {
  Etendue e;
  const auto tiret = texte.find('-');
  if (!Borne(Rogner(texte.substr(0, tiret)), e.premier)) return {};
  const std::string_view fin = tiret == std::string_view::npos ? "" : Rogner(texte.substr(tiret + 1));
  if (tiret == std::string_view::npos)
    e.dernier = e.premier;
  else if (fin.empty())
    e.dernier = kFilsMax;
  else if (!Borne(fin, e.dernier) || e.dernier < e.premier)
    return {};
  return e;
}

std::pair<std::string, Etendue> SeparerEtendue(const std::string &mot) {
  std::error_code erreur;
  const auto crochet = mot.rfind('[');
  if (mot.empty() || mot.back() != ']' || crochet == std::string::npos || crochet == 0 ||
      fs::exists(mot, erreur))
    return {mot, {}};
  const auto e = LireEtendue(std::string_view(mot).substr(crochet + 1, mot.size() - crochet - 2));
  if (!e) return {mot, {}};
  return {mot.substr(0, crochet), *e};
}

Etendue Borner(Etendue e, int nombre, const MotsNombre &mots, const std::string &chemin) {
  if (e.Toute()) return {1, nombre};
  if (e.premier > nombre)
    throw Refus(chemin, 0,
                {mots.fr + (" " + std::to_string(e.premier)) + " n'est pas là : " + std::to_string(nombre) +
                     " " + mots.frs + " en tout.",
                 mots.en + (" " + std::to_string(e.premier)) + " is not there: " + std::to_string(nombre) +
                     " " + mots.ens + " in all."});
  return {e.premier, std::min(e.dernier, nombre)};
}

Motif Extraire(const Motif &motif, Etendue duites) {
  const Etendue e = Borner(duites, motif.Duites(), kMotsDuite, motif.chemin);
  Motif extrait = motif;
  if (e.premier == 1 && e.dernier == motif.Duites()) return extrait;
  Couper(extrait.foules, e);
  Couper(extrait.trame, e);
  Couper(extrait.pedalage, e);
  extrait.absentes.clear();
  for (const Lieu &l : motif.absentes) {
    const int a = std::max(l.duite, e.premier), b = std::min(l.derniereDuite, e.dernier);
    if (a <= b) extrait.absentes.push_back(Lieu::Duites(a - e.premier + 1, b - e.premier + 1));
  }
  extrait.separations.clear();
  for (int d : motif.separations)
    if (d >= e.premier && d <= e.dernier) extrait.separations.push_back(d - e.premier + 1);
  const fs::path chemin(motif.chemin);
  extrait.chemin =
      (chemin.parent_path() / chemin.stem().concat("-" + Bornes(e)).concat(chemin.extension().string()))
          .string();
  extrait.titre = (motif.titre.empty() ? chemin.stem().string() : motif.titre) + " [" + Bornes(e) + "]";
  extrait.extrait = true;
  return extrait;
}
