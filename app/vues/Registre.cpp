#include "app/vues/Registre.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

namespace fs = std::filesystem;

namespace {
using Lignes = std::vector<std::string>;
constexpr const char *kFin = ".txt", *kEntreTraits = " | ", *kComme = "  pixels as in ";

// Of each control, pixels it has shown and the view that tells them.
using Montres = std::map<std::pair<std::string, Lignes>, std::string>;

void EcrireElement(std::ostream &s, const Element &f, const std::string &vue, Montres &montres) {
  s << f.nom;
  for (const std::string &t : f.traits) s << kEntreTraits << t;
  s << '\n';
  for (const std::string &l : f.imprimes) s << "  prints " << l << '\n';
  for (const std::string &l : f.cases) s << "  cells " << l << '\n';
  if (f.pixels.empty()) return;
  const auto [place, neuf] = montres.try_emplace({f.nom, f.pixels}, vue);
  if (!neuf) {
    s << kComme << place->second << '\n';
    return;
  }
  for (const std::string &l : f.pixels) s << "  pixels " << l << '\n';
}

void LireLigne(Releve &releve, const std::string &ligne) {
  const auto suite = [&](const char *debut, Lignes Element::*ou) {
    if (ligne.starts_with(debut) && !releve.empty())
      (releve.back().*ou).push_back(ligne.substr(std::string(debut).size()));
  };
  if (ligne.starts_with("  ")) {
    suite("  prints ", &Element::imprimes);
    suite("  cells ", &Element::cases);
    suite("  pixels ", &Element::pixels);
    return;
  }
  Element f;
  const std::string separateur = kEntreTraits;
  for (std::size_t debut = 0; debut <= ligne.size();) {
    const std::size_t fin = std::min(ligne.find(separateur, debut), ligne.size());
    (debut == 0 ? f.nom : f.traits.emplace_back()) = ligne.substr(debut, fin - debut);
    debut = fin + separateur.size();
  }
  releve.push_back(std::move(f));
}

const Element *Trouver(const Releve &releve, const std::string &nom) {
  const auto f = std::find_if(releve.begin(), releve.end(), [&](const Element &x) { return x.nom == nom; });
  return f == releve.end() ? nullptr : &*f;
}

// What a reader knows a control by: its name, and what it is called or says.
std::string Designer(const Element &f) {
  for (const char *mot : {"called ", "text "})
    for (const std::string &t : f.traits)
      if (t.starts_with(mot) && t.size() < 60) return f.nom + " (" + t.substr(std::string(mot).size()) + ")";
  return f.nom;
}

Lignes Mots(const std::string &ligne) {
  std::istringstream s(ligne);
  return {std::istream_iterator<std::string>(s), {}};
}

// Where pixels differ, and what a piece of one colour has become.
std::string PixelsAutres(const Lignes &avant, const Lignes &la) {
  if (avant.empty()) return "is painted, and was not";
  if (la.empty()) return "is no longer painted";
  int morceaux = 0, gauche = 1 << 20, haut = gauche, droite = 0, bas = 0;
  std::string unie;
  bool toutUni = true;
  for (std::size_t y = 0; y < std::max(avant.size(), la.size()); ++y) {
    const Lignes a = y < avant.size() ? Mots(avant[y]) : Lignes{}, b = y < la.size() ? Mots(la[y]) : Lignes{};
    for (std::size_t x = 0; x < std::max(a.size(), b.size()); ++x) {
      if (x < a.size() && x < b.size() && a[x] == b[x]) continue;
      ++morceaux;
      const int px = static_cast<int>(x) * kMorceau, py = static_cast<int>(y) * kMorceau;
      gauche = std::min(gauche, px), droite = std::max(droite, px + kMorceau - 1);
      haut = std::min(haut, py), bas = std::max(bas, py + kMorceau - 1);
      const std::string neuf = x < b.size() ? b[x] : "......";
      if (unie.empty()) unie = neuf;
      toutUni &= neuf == unie && neuf.find_first_of("ghijklmnopqrstuvwxyz") == std::string::npos;
    }
  }
  const auto place = [](int x, int y) { return std::to_string(x) + "," + std::to_string(y); };
  return "is painted differently from " + place(gauche, haut) + " to " + place(droite, bas) + " (" +
         std::to_string(morceaux) + (morceaux == 1 ? " piece" : " pieces") + ")" +
         (!toutUni           ? ""
          : unie == "......" ? ", where nothing is left"
                             : ", where all is #" + unie + " now");
}

class Comparaison {
 public:
  std::map<std::string, std::set<std::string>> phrases;  // with the views that each holds in

  void Comparer(const std::string &vue, const Releve &avant, const Releve &maintenant) {
    vue_ = &vue;
    for (const Element &a : avant)
      if (const Element *b = Trouver(maintenant, a.nom))
        if (a == *b)
          continue;
        else
          ComparerElements(a, *b);
      else
        Dire(Designer(a) + " is gone");
    for (const Element &b : maintenant)
      if (!Trouver(avant, b.nom)) Dire(Designer(b) + " is there, and was not");
    ComparerOrdre(avant, maintenant);
  }

 private:
  void Dire(const std::string &phrase) { phrases[phrase].insert(*vue_); }

  void ComparerElements(const Element &a, const Element &b) {
    const std::string qui = Designer(a);
    ComparerTraits(qui, a.traits, b.traits);
    for (const std::string &l : a.imprimes)
      if (std::count(b.imprimes.begin(), b.imprimes.end(), l) == 0) Dire(qui + " no longer prints " + l);
    for (const std::string &l : b.imprimes)
      if (std::count(a.imprimes.begin(), a.imprimes.end(), l) == 0) Dire(qui + " now prints " + l);
    ComparerCases(qui, a.cases, b.cases);
    if (a.pixels != b.pixels) Dire(qui + " " + PixelsAutres(a.pixels, b.pixels));
  }

  void ComparerCases(const std::string &qui, const Lignes &a, const Lignes &b) {
    const auto blanche = [](const std::string &l) { return l.find_first_not_of('.') == std::string::npos; };
    if (a != b && std::all_of(b.begin(), b.end(), blanche))
      return Dire(qui + " is blank: none of its cells shows");
    for (std::size_t r = 0; r < std::min(a.size(), b.size()); ++r)
      if (a[r] != b[r]) Dire(qui + ", row " + std::to_string(r + 1) + ", was " + a[r] + " and is " + b[r]);
  }

  // Each begins with a word that says what it is.
  void ComparerTraits(const std::string &qui, const Lignes &a, const Lignes &b) {
    const auto decouper = [](const Lignes &traits) {
      std::map<std::string, std::string> valeurs;
      for (const std::string &t : traits) {
        const std::size_t blanc = t.find(' ');
        valeurs[t.substr(0, blanc)] = blanc == std::string::npos ? "" : t.substr(blanc + 1);
      }
      return valeurs;
    };
    const auto avant = decouper(a), la = decouper(b);
    for (const auto &[mot, valeur] : avant)
      if (const auto t = la.find(mot); t == la.end())
        Dire(qui + " was " + mot + " " + valeur + " and is so no longer");
      else if (t->second != valeur)
        Dire(qui + " was " + mot + " " + valeur + " and is now " + mot + " " + t->second);
    for (const auto &[mot, valeur] : la)
      if (!avant.contains(mot)) Dire(qui + " is now " + mot + " " + valeur);
  }

  void ComparerOrdre(const Releve &avant, const Releve &maintenant) {
    const auto communs = [](const Releve &de, const Releve &autre) {
      Lignes noms;
      for (const Element &f : de)
        if (Trouver(autre, f.nom)) noms.push_back(f.nom);
      return noms;
    };
    const Lignes a = communs(avant, maintenant), b = communs(maintenant, avant);
    const auto [premier, neuf] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    if (premier != a.end() && neuf != b.end()) Dire(*neuf + " lies where " + *premier + " lay in the stack");
  }

  const std::string *vue_ = nullptr;
};
}  // namespace

bool EcrireRegistre(const std::string &dossier, const Registre &registre,
                    const std::vector<std::string> &ordre) {
  fs::create_directories(dossier);
  for (const auto &f : fs::directory_iterator(dossier))
    if (f.path().extension() == kFin) fs::remove(f.path());
  Montres montres;
  bool tout = true;
  for (const std::string &vue : ordre) {
    std::ofstream s(fs::path(dossier) / (vue + kFin), std::ios::binary);
    for (const Element &f : registre.at(vue)) EcrireElement(s, f, vue, montres);
    tout &= s.flush().good();
  }
  return tout;
}

Registre LireRegistre(const std::string &dossier) {
  Registre registre;
  if (!fs::is_directory(dossier)) return registre;
  for (const auto &f : fs::directory_iterator(dossier)) {
    if (f.path().extension() != kFin) continue;
    Releve &releve = registre[f.path().stem()];
    std::ifstream s(f.path(), std::ios::binary);
    for (std::string ligne; std::getline(s, ligne);) LireLigne(releve, ligne);
  }
  const std::string comme = "as in ";
  for (auto &[vue, releve] : registre)
    for (Element &f : releve) {
      if (f.pixels.size() != 1 || !f.pixels[0].starts_with(comme)) continue;
      const auto autre = registre.find(f.pixels[0].substr(comme.size()));
      const Element *source = autre == registre.end() ? nullptr : Trouver(autre->second, f.nom);
      f.pixels = source ? source->pixels : Lignes{};
    }
  return registre;
}

std::vector<std::string> Differences(const Registre &avant, const Registre &maintenant) {
  Comparaison comparaison;
  for (const auto &[vue, releve] : avant)
    if (const auto m = maintenant.find(vue); m != maintenant.end())
      comparaison.Comparer(vue, releve, m->second);
    else
      comparaison.phrases["The view is no longer made"].insert(vue);
  for (const auto &[vue, releve] : maintenant)
    if (!avant.contains(vue)) comparaison.phrases["The view has no record yet"].insert(vue);
  std::vector<std::string> phrases;
  for (const auto &[phrase, vues] : comparaison.phrases) {
    std::string ou;
    std::size_t n = 0;
    for (const std::string &v : vues)
      if (++n <= 4) ou += (n > 1 ? ", " : "") + v;
    phrases.push_back(phrase + ": " + ou + (n > 4 ? " and " + std::to_string(n - 4) + " more" : "") + ".");
  }
  return phrases;
}
