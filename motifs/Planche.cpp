#include "motifs/Planche.h"

#include <algorithm>

Planche::Planche(const Motif &motif)
    : m_(motif),
      enfilage_(motif.enfilage.rbegin(), motif.enfilage.rend()),
      chaine_(motif.chaine.rbegin(), motif.chaine.rend()) {
  const bool pedales = !motif.pedalage.empty();
  const int fils = motif.Fils(), lames = fils > 0 || pedales ? motif.lames : 0;
  enfilage = {1, 1, fils, fils > 0 ? lames : 0};
  couleursChaine = {1, lames + 2, fils, fils > 0 ? 1 : 0};
  tissu = {1, lames > 0 ? lames + 4 : 1, fils, motif.Duites()};
  couleursTrame = {fils > 0 ? fils + 2 : 1, tissu.y, 1, tissu.hauteur};
  pas = {couleursTrame.x + 2, tissu.y, pedales ? std::min(motif.pedales, kLamesMax) : motif.lames,
         tissu.hauteur};
  if (pedales) attaches = {pas.x, 1, pas.largeur, lames};
}

std::vector<Zone> Planche::Zones() const {
  std::vector<Zone> zones;
  for (const Zone &z : {enfilage, couleursChaine, tissu, couleursTrame, attaches, pas})
    if (!z.Vide()) zones.push_back(z);
  return zones;
}

// One row of marks, number 1 at the left.
void Planche::Marquer(const Zone &zone, Lames lames, Couleur *cases) const {
  for (int i = 0; i < zone.largeur; ++i) cases[zone.x + i] = lames & Lame(i + 1) ? kCaseMarquee : kCaseVide;
}

void Planche::Ligne(int y, Couleur *cases) const {
  std::fill(cases, cases + Largeur(), kPapier);
  const auto dans = [y](const Zone &z) { return !z.Vide() && y >= z.y && y < z.y + z.hauteur; };
  if (dans(enfilage)) {
    const Lames lame = Lame(enfilage.y + enfilage.hauteur - y);
    std::transform(enfilage_.begin(), enfilage_.end(), cases + enfilage.x,
                   [lame](Lames l) { return l & lame ? kCaseMarquee : kCaseVide; });
  }
  if (dans(attaches)) {
    const Lames lame = Lame(attaches.y + attaches.hauteur - y);
    for (int i = 0; i < attaches.largeur; ++i) {
      const auto p = static_cast<std::size_t>(i);
      cases[attaches.x + i] = p < m_.attaches.size() && m_.attaches[p] & lame ? kCaseMarquee : kCaseVide;
    }
  }
  if (dans(couleursChaine)) std::copy(chaine_.begin(), chaine_.end(), cases + couleursChaine.x);
  if (y < tissu.y || y >= tissu.y + tissu.hauteur) return;

  const auto duite = static_cast<std::size_t>(y - tissu.y);
  const Lames foule = m_.foules[duite];
  const Couleur trame = m_.trame[duite];
  const Lames *lames = enfilage_.data();
  const Couleur *chaine = chaine_.data();
  Couleur *tisses = cases + tissu.x;
  for (int i = 0; i < tissu.largeur; ++i) tisses[i] = lames[i] & foule ? chaine[i] : trame;
  cases[couleursTrame.x] = trame;
  Marquer(pas, m_.pedalage.empty() ? foule : m_.pedalage[duite], cases);
}
