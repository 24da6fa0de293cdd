#include "motifs/Planche.h"

#include <cstdlib>
#include <map>

#include "motifs/Arret.h"

namespace {
template <class T>
std::vector<T> Dessines(const std::vector<T> &fils, Etendue e, int reprises) {
  std::vector<T> resultat;
  if (fils.empty()) return resultat;
  for (int i = 0; i < reprises; ++i)
    for (int f = e.dernier; f >= e.premier; --f) resultat.push_back(fils[static_cast<std::size_t>(f - 1)]);
  return resultat;
}
// The shortest beginning that the rest repeats, its last time perhaps in part.
template <class T>
int Periode(const std::vector<T> &valeurs) {
  std::vector<std::size_t> bords(valeurs.size() + 1, 0);
  for (std::size_t i = 1, b = 0; i < valeurs.size(); ++i) {
    while (b > 0 && valeurs[i] != valeurs[b]) b = bords[b];
    if (valeurs[i] == valeurs[b]) ++b;
    bords[i + 1] = b;
  }
  return static_cast<int>(valeurs.size() - bords[valeurs.size()]);
}
}  // namespace

Planche::Planche(const Motif &motif, const ReglagesPlanche &voulus)
    : m_(motif),
      r_(voulus),
      fils_(motif.Fils() > 0 ? Borner(voulus.fils, motif.Fils(), kMotsFil, motif.chemin) : Etendue{1, 0}),
      duites_(Borner(voulus.duites, motif.Duites(), kMotsDuite, motif.chemin)),
      enfilage_(Dessines(motif.enfilage, fils_, r_.reprises)),
      chaine_(Dessines(motif.chaine, fils_, r_.reprises)) {
  Placer();
}

void Planche::Placer() {
  const bool pedales = !m_.pedalage.empty();
  const int fils = static_cast<int>(enfilage_.size()), lames = fils > 0 || pedales ? m_.lames : 0;
  enfilage = {1, 1, fils, fils > 0 ? lames : 0};
  couleursChaine = {1, lames + 2, fils, fils > 0 ? 1 : 0};
  tissu = {1, lames > 0 ? lames + 4 : 1, fils, NombreDuites() * r_.reprises};
  couleursTrame = {fils > 0 ? fils + 2 : 1, tissu.y, 1, tissu.hauteur};
  pas = {couleursTrame.x + 2, tissu.y, pedales ? std::min(m_.pedales, kLamesMax) : m_.lames, tissu.hauteur};
  if (pedales) attaches = {pas.x, 1, pas.largeur, lames};
  hauteur_ = tissu.y + tissu.hauteur + 1;
  if (r_.enHaut) return;
  for (Zone *z : {&enfilage, &couleursChaine, &tissu, &couleursTrame, &attaches, &pas})
    z->y = hauteur_ - z->y - z->hauteur;
}

std::vector<Zone> Planche::Zones() const {
  std::vector<Zone> zones;
  for (const Zone &z : {enfilage, couleursChaine, tissu, couleursTrame, attaches, pas})
    if (!z.Vide()) zones.push_back(z);
  return zones;
}

// One row of marks, number 1 at the left.
void Planche::Marquer(const Zone &zone, Lames lames, Case *cases) const {
  for (int i = 0; i < zone.largeur; ++i) cases[zone.x + i] = lames & Lame(i + 1) ? kCaseMarquee : kCaseVide;
}

// A row of cloth.
void Planche::Tisser(int rang, Case *cases, bool traits) const {
  const auto duite = static_cast<std::size_t>(Duite(rang) - 1);
  const Lames foule = m_.foules[duite];
  const Couleur trame = r_.structure ? kTrameDessus : m_.trame[duite];
  const Lames *lames = enfilage_.data();
  const Couleur *chaine = chaine_.data();
  Case *tisses = cases + tissu.x;
  if (r_.structure)
    for (int i = 0; i < tissu.largeur; ++i) tisses[i] = lames[i] & foule ? kChaineDessus : trame;
  else
    for (int i = 0; i < tissu.largeur; ++i) tisses[i] = lames[i] & foule ? chaine[i] : trame;
  if (!traits) return;
  const int dessous = r_.enHaut ? rang + 1 : rang - 1;
  const bool bord = dessous < 1 || dessous > tissu.hauteur;
  const Lames suivante = bord ? 0 : m_.foules[static_cast<std::size_t>(Duite(dessous) - 1)];
  for (int i = 0; i < tissu.largeur; ++i) {
    const bool leve = lames[i] & foule, voisin = i + 1 == tissu.largeur || lames[i + 1] & foule;
    if (leve || voisin) tisses[i] |= kTraitDroite;
    if (!leve || !(lames[i] & suivante)) tisses[i] |= kTraitBas;
  }
}

// The frames of the fields, whose left and upper lines belong to the paper beside them, and the lines between
// all cells but those of the cloth.
void Planche::Border(int y, Case *cases) const {
  for (const Zone &z : Zones()) {
    if (y == z.y - 1)
      for (int x = z.x; x < z.x + z.largeur; ++x) cases[x] |= kTraitBas;
    if (y < z.y || y >= z.y + z.hauteur) continue;
    cases[z.x - 1] |= kTraitDroite;
    if (z.x == tissu.x && z.y == tissu.y) continue;
    for (int x = z.x; x < z.x + z.largeur; ++x) cases[x] |= kTraitDroite | kTraitBas;
  }
}

void Planche::Ligne(int y, Case *cases, bool traits) const {
  Souffler();
  std::fill(cases, cases + Largeur(), kHors | kPapier);
  const auto dans = [y](const Zone &z) { return !z.Vide() && y >= z.y && y < z.y + z.hauteur; };
  const auto lameDe = [&](const Zone &z) { return Lame(r_.enHaut ? z.y + z.hauteur - y : y - z.y + 1); };
  if (dans(enfilage)) {
    const Lames lame = lameDe(enfilage);
    std::transform(enfilage_.begin(), enfilage_.end(), cases + enfilage.x,
                   [lame](Lames l) { return l & lame ? kCaseMarquee : kCaseVide; });
  }
  if (dans(attaches)) {
    const Lames lame = lameDe(attaches);
    for (int i = 0; i < attaches.largeur; ++i) {
      const auto p = static_cast<std::size_t>(i);
      cases[attaches.x + i] = p < m_.attaches.size() && m_.attaches[p] & lame ? kCaseMarquee : kCaseVide;
    }
  }
  if (dans(couleursChaine)) std::copy(chaine_.begin(), chaine_.end(), cases + couleursChaine.x);
  if (const int rang = RangDuite(y); rang >= 1 && rang <= tissu.hauteur) {
    const auto duite = static_cast<std::size_t>(Duite(rang) - 1);
    Tisser(rang, cases, traits);
    cases[couleursTrame.x] = m_.trame[duite];
    Marquer(pas, m_.pedalage.empty() ? m_.foules[duite] : m_.pedalage[duite], cases);
  }
  if (traits) Border(y, cases);
}

bool CouleursMuettes(const Motif &motif) {
  const auto comptes = [](const std::vector<Couleur> &fils) {
    std::map<Couleur, double> c;
    for (Couleur f : fils) c[f] += 1.0 / static_cast<double>(fils.size());
    return c;
  };
  const auto ecart = [](Couleur a, Couleur b) {
    int plusGrand = 0;
    for (int d : {16, 8, 0})
      plusGrand =
          std::max(plusGrand, std::abs(static_cast<int>(a >> d & 255) - static_cast<int>(b >> d & 255)));
    return plusGrand;
  };
  double pareils = 0;
  const auto trame = comptes(motif.trame);
  if (trame.size() > 64) return false;
  for (const auto &[c, partChaine] : comptes(motif.chaine))
    for (const auto &[t, partTrame] : trame)
      if (ecart(c, t) < 24) pareils += partChaine * partTrame;
  return pareils > 0.9;
}

std::pair<int, int> Rapport(const Motif &motif) { return {Periode(motif.enfilage), Periode(motif.foules)}; }

int PasNumeros(int base, double cote, double place) {
  if (cote >= 1.7 * place) return 1;  // fewer are easier to find
  // 4 8 16 32 …, and 5 10 20 50 100 …
  int pas = base;
  while (pas * cote < place && pas < kFilsMax) {
    int tete = pas;
    while (tete >= 10) tete /= 10;
    pas = base == 5 && tete == 2 ? pas / 2 * 5 : pas * 2;
  }
  return pas;
}
