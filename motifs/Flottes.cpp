#include "motifs/Flottes.h"

#include <algorithm>
#include <map>

#include "motifs/Arret.h"

namespace {
constexpr std::size_t kLongueursMax = 12;  // that have a finding of their own
constexpr long long kCasesMax =
    static_cast<long long>(kFilsMax) * kDuitesMetier;  // crossings, of the largest cloth a loom can take

// The floats of one direction by their length, the longest kept apart.
class ParLongueur {
 public:
  ParLongueur(Constat::Genre genre, Phrase une, Phrase plusieurs)
      : genre_(genre), une_(std::move(une)), plusieurs_(std::move(plusieurs)) {}

  void Ajouter(int longueur, const Lieu &ou, long long fois) {
    auto place = longueurs_.find(longueur);
    if (place == longueurs_.end()) {
      if (longueurs_.size() == kLongueursMax && longueur < longueurs_.begin()->first)
        return Reste(longueur, ou, fois);
      place = longueurs_.emplace(longueur, Nouvelle(longueur)).first;
    }
    place->second.Ajouter(ou, fois);
    if (longueurs_.size() > kLongueursMax) Ceder();
  }

  void Dire(std::vector<Constat> &constats) const {
    for (auto l = longueurs_.rbegin(); l != longueurs_.rend(); ++l) {
      const std::string n = " " + std::to_string(l->first);
      constats.push_back(l->second.Faire({plusieurs_.fr + n, plusieurs_.en + n}));
      constats.back().longueur = l->first;
    }
    if (reste_.nombre == 0) return;
    const std::string n = EnGroupes(reste_.nombre), a = std::to_string(plusCourte_),
                      b = std::to_string(plusLongue_);
    const Phrase ou = TexteLieu(reste_.lieux.front());
    Constat c = reste_;
    c.texte = {plusieurs_.fr + " " + a + (a == b ? "" : " à " + b) + " : " + n + ", d'abord " + ou.fr + ".",
               plusieurs_.en + " " + a + (a == b ? "" : " to " + b) + ": " + n + ", first at " + ou.en + "."};
    c.longueur = plusLongue_;
    constats.push_back(std::move(c));
  }

 private:
  Recolte Nouvelle(int longueur) const {
    const std::string n = " " + std::to_string(longueur);
    return {genre_, false, {une_.fr + n, une_.en + n}};
  }
  // The shortest length that has a finding of its own joins the rest.
  void Ceder() {
    const Constat c = longueurs_.begin()->second.Faire();
    const int longueur = longueurs_.begin()->first;
    longueurs_.erase(longueurs_.begin());
    if (reste_.nombre == 0 || c.lieux.front().duite < reste_.lieux.front().duite)
      reste_.lieux.insert(reste_.lieux.begin(), c.lieux.front());
    Compter(longueur, c.nombre);
  }
  void Reste(int longueur, const Lieu &ou, long long fois) {
    if (reste_.lieux.empty()) reste_.lieux.push_back(ou);
    Compter(longueur, fois);
  }
  void Compter(int longueur, long long fois) {
    plusCourte_ = reste_.nombre == 0 ? longueur : std::min(plusCourte_, longueur);
    plusLongue_ = std::max(plusLongue_, longueur);
    reste_.nombre += fois;
    static_cast<Lieu &>(reste_) = reste_.lieux.front();
    if (reste_.lieux.size() > kLieuxMax) reste_.lieux.pop_back();
  }

  Constat::Genre genre_;
  Phrase une_, plusieurs_;
  std::map<int, Recolte> longueurs_;
  Constat reste_ = Rien();
  int plusCourte_ = 0, plusLongue_ = 0;

  Constat Rien() const {
    Constat c(genre_, false, {});
    c.nombre = 0;
    return c;
  }
};

class Recherche {
 public:
  Recherche(const Motif &motif, int flotte) : m_(motif), flotte_(flotte) {
    const long long cases = static_cast<long long>(m_.Fils()) * m_.Duites();
    tout_ = cases <= kCasesMax;
    duites_ = tout_ ? m_.Duites() : kDuitesMetier;
  }

  std::vector<Constat> Faire() {
    std::vector<Constat> constats;
    if (m_.enfilage.empty()) return constats;
    if (!tout_)
      constats.push_back({Constat::NonJuge,
                          false,
                          {"les flottés sont cherchés dans les 2500 premières duites seulement.",
                           "floats are looked for in the first 2500 picks only."}});
    Etendues(m_.enfilage, [&](int a, int b) { Chaine(a, b); });
    for (int a = 1, b = 1; a <= duites_; a = b = b + 1) {
      while (b < duites_ && Foule(b + 1) == Foule(a)) ++b;
      Trame(a, b);
    }
    if (!sansFin_.Vide())
      constats.push_back(sansFin_.Faire({"flottés sans fin, dessus", "floats without end, above"}));
    chaine_.Dire(constats);
    trame_.Dire(constats);
    return constats;
  }

 private:
  Lames Foule(int duite) const { return m_.foules[static_cast<std::size_t>(duite - 1)]; }

  // Ends that lie on the same harnesses float alike; neighbours are told together.
  void Chaine(int a, int b) {
    Souffler();
    const Lames lames = m_.enfilage[static_cast<std::size_t>(a - 1)];
    const auto dessus = [&](int d) { return (Foule(d) & lames) != 0; };
    int bord = 1;  // the first pick that differs from the last: what begins before it comes over the seam
    while (bord <= duites_ && dessus(bord) == dessus(duites_)) ++bord;
    if (bord > duites_) {
      if (dessus(1) && tout_) sansFin_.Ajouter(Cote(Lieu::Fils(a, b), 1), b - a + 1);
      return;
    }
    if (!tout_) bord = 1;
    for (int debut = bord, d = bord + 1; debut <= duites_; ++d) {
      if (d <= duites_ && dessus(d) == dessus(debut)) continue;
      Lieu ou = Lieu::Duites(debut, d - 1);
      const int longueur = d - debut + (d > duites_ ? bord - 1 : 0);
      if (d > duites_) ou.suite = bord - 1;
      ou.fil = a;
      ou.dernierFil = b;
      if (longueur > flotte_) chaine_.Ajouter(longueur, Cote(ou, dessus(debut) ? 1 : -1), b - a + 1);
      debut = d;
    }
  }

  // The picks from a to b raise the same shed. A pick that lifts nothing is told elsewhere.
  void Trame(int a, int b) {
    const Lames foule = Foule(a);
    if (foule == 0) return;
    Souffler();
    const auto dessous = [&](std::size_t fil) { return (m_.enfilage[fil] & foule) != 0; };
    for (std::size_t debut = 0, f = 1; debut < m_.enfilage.size(); ++f) {
      if (f < m_.enfilage.size() && dessous(f) == dessous(debut)) continue;
      const int longueur = static_cast<int>(f - debut);
      if (longueur > flotte_) {
        Lieu ou = Lieu::Duites(a, b);
        ou.fil = static_cast<int>(debut) + 1;
        ou.dernierFil = static_cast<int>(f);
        trame_.Ajouter(longueur, Cote(ou, dessous(debut) ? -1 : 1), b - a + 1);
      }
      debut = f;
    }
  }

  static Lieu Cote(Lieu ou, int cote) {
    ou.cote = cote;
    return ou;
  }

  const Motif &m_;
  const int flotte_;
  bool tout_ = true;
  int duites_ = 0;
  Recolte sansFin_{Constat::FlotteSansFin, false, {"flotté sans fin", "float without end"}};
  ParLongueur chaine_{Constat::FlotteChaine,
                      {"flotté de chaîne de", "warp float of"},
                      {"flottés de chaîne de", "warp floats of"}},
      trame_{Constat::FlotteTrame,
             {"flotté de trame de", "weft float of"},
             {"flottés de trame de", "weft floats of"}};
};
}  // namespace

std::vector<Constat> Flottes(const Motif &motif, int flotte) { return Recherche(motif, flotte).Faire(); }

Toile ToileDe(const Motif &motif) {
  constexpr Lames kImpaires = 0x5555555555555555;
  Toile toile;
  for (int f = 2; f <= motif.Fils(); ++f) {
    const Lames a = motif.enfilage[static_cast<std::size_t>(f - 2)],
                b = motif.enfilage[static_cast<std::size_t>(f - 1)];
    ++toile.voisins;
    const bool ensemble = ((a & kImpaires) != 0) == ((b & kImpaires) != 0) &&
                          ((a & ~kImpaires) != 0) == ((b & ~kImpaires) != 0);
    if (!ensemble) continue;
    ++toile.nombre;
    if (!toile.reunis.empty() && toile.reunis.back().dernierFil == f - 1)
      toile.reunis.back().dernierFil = f;
    else if (toile.reunis.size() < kLieuxMax)
      toile.reunis.push_back(Lieu::Fils(f - 1, f));
  }
  return toile;
}

Phrase TexteToile(const Toile &t) {
  if (t.nombre == 0)
    return {"toile : lames impaires et paires séparent tous les fils voisins.",
            "tabby: odd and even harnesses part all neighbouring ends."};
  const std::string n = std::to_string(t.nombre), de = std::to_string(t.voisins);
  char part[16];
  std::snprintf(part, sizeof part, "%.1f", 100.0 * t.nombre / t.voisins);
  const Phrase ou = TexteLieu(t.reunis.front());
  std::string virgule = part;
  std::replace(virgule.begin(), virgule.end(), '.', ',');
  return {"toile : lames impaires et paires réunissent " + n + " des " + de + " fils voisins (" + virgule +
              " %), d'abord " + ou.fr + ".",
          "tabby: odd and even harnesses join " + n + " of " + de + " neighbouring ends (" + part +
              " %), first " + ou.en + "."};
}

Phrase TexteReprise(const Motif &motif) {
  const std::string n = std::to_string(motif.Duites());
  if (motif.Duites() % 2 == 0)
    return {"avec la toile dès la duite 1, la liaison A vient deux fois de suite à la reprise : " + n +
                " duites font un nombre pair.",
            "with tabby from pick 1, tabby A comes twice in a row at the seam: " + n +
                " picks are an even number."};
  return {"avec la toile dès la duite 1, les liaisons alternent aussi à la reprise : " + n +
              " duites font un nombre impair.",
          "with tabby from pick 1, the tabby picks alternate at the seam too: " + n +
              " picks are an odd number."};
}
