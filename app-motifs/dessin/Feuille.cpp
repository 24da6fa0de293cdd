#include "app-motifs/dessin/Feuille.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <stdexcept>

namespace {
constexpr long long kCasesTracees = 100000;  // more of them are pasted as a picture,
constexpr long long kCasesEnTout = 400000;   // and all of a drawing of more
constexpr int kTuile = 4096;                 // cells of a pasted picture along a side
constexpr double kCoteAvecTraits = 3;        // points

void Choisir(cairo_t *c, Couleur couleur) {
  cairo_set_source_rgb(c, (couleur >> 16 & 255) / 255.0, (couleur >> 8 & 255) / 255.0,
                       (couleur & 255) / 255.0);
}
}  // namespace

void ExigerCairo(cairo_t *c, cairo_surface_t *surface) {
  for (cairo_status_t etat : {cairo_status(c), cairo_surface_status(surface)})
    if (etat != CAIRO_STATUS_SUCCESS && etat != CAIRO_STATUS_SURFACE_FINISHED)
      throw std::runtime_error(cairo_status_to_string(etat));
}

Cadrage ToutCadrer(const Planche &p) {
  return {1, p.Largeur() - 2, {1, p.FilsTraces()}, {1, p.DuitesTracees()}};
}

Marges MargesNumeros(double texte) { return {texte * 1.6, texte * 3.4, texte * 1.5}; }

std::vector<Feuille::Bande> Feuille::Bandes() const {
  const int duites = k_.duites.dernier - k_.duites.premier + 1;
  const double tete = Tete() * cote_;
  if (p_.Reglages().enHaut) return {{1, Tete(), y_}, {p_.YDuite(k_.duites.premier), duites, y_ + tete}};
  return {{p_.YDuite(k_.duites.dernier), duites, y_},
          {p_.tissu.y + p_.tissu.hauteur, Tete(), y_ + duites * cote_}};
}

double Feuille::YRangee(int rangee) const {
  const bool tete = p_.Reglages().enHaut ? rangee < p_.tissu.y : rangee >= p_.tissu.y + p_.tissu.hauteur;
  const Bande b = Bandes()[p_.Reglages().enHaut == tete ? 0 : 1];
  return b.y + (rangee - b.premiere) * cote_;
}

double Feuille::YDuite(int rang) const { return YRangee(p_.YDuite(rang)); }

void Feuille::Cases() {
  for (const Bande &b : Bandes()) {
    if (b.nombre <= 0) continue;
    if (static_cast<long long>(b.nombre) * k_.largeur > kCasesTracees ||
        static_cast<long long>(p_.Largeur()) * p_.Hauteur() > kCasesEnTout) {
      Coller(b);
      continue;
    }
    Tracer(b);
    if (cote_ >= kCoteAvecTraits) Traits(b);
  }
}

// Rows of cells as rectangles. All of one colour are filled at once, so that no light comes in between them.
void Feuille::Tracer(const Bande &bande) {
  struct Suite {
    int x, y, largeur;
  };
  std::map<Couleur, std::vector<Suite>> couleurs;
  std::vector<Case> rangee(static_cast<std::size_t>(p_.Largeur()));
  const auto debut = rangee.begin() + k_.x, fin = debut + k_.largeur;
  for (int i = 0; i < bande.nombre; ++i) {
    p_.Ligne(bande.premiere + i, rangee.data());
    for (auto a = debut; a != fin;) {
      const auto b = std::find_if(a, fin, [a](Case c) { return c != *a; });
      if (!(*a & kHors)) couleurs[*a].push_back({static_cast<int>(a - debut), i, static_cast<int>(b - a)});
      a = b;
    }
  }
  cairo_save(c_);
  cairo_translate(c_, x_, bande.y);
  cairo_scale(c_, cote_, cote_);
  for (const auto &[couleur, suites] : couleurs) {
    for (const Suite &s : suites) cairo_rectangle(c_, s.x, s.y, s.largeur, 1);
    Choisir(c_, couleur);
    cairo_fill(c_);
  }
  cairo_restore(c_);
}

// The lines between the threads, those of one tone at once and each as long as it goes.
void Feuille::Traits(const Bande &bande) {
  const auto largeur = static_cast<std::size_t>(k_.largeur) + 1;
  std::vector<Case> rangee(static_cast<std::size_t>(p_.Largeur()));
  struct Segment {
    double x1, y1, x2, y2;
  };
  std::map<Couleur, std::vector<Segment>> tons;
  std::vector<std::pair<Couleur, int>> colonnes(largeur, {0, -1});  // tone, and the row where it began
  constexpr Couleur kSans = 0xFF000000;
  const auto finir = [&](std::size_t x, int y) {
    if (auto &[ton, depuis] = colonnes[x]; depuis >= 0) {
      const auto cx = static_cast<double>(x);
      tons[ton].push_back({cx, static_cast<double>(depuis), cx, static_cast<double>(y)});
      depuis = -1;
    }
  };
  for (int i = -1; i < bande.nombre; ++i) {
    p_.Ligne(bande.premiere + i, rangee.data(), true);
    const Case *cases = rangee.data() + k_.x - 1;  // with the column before, which has the left frame
    Couleur ton = kSans;
    std::size_t depuis = 0;
    for (std::size_t x = 0; x <= largeur; ++x) {
      const bool trait = x > 0 && x < largeur && cases[x] & kTraitBas;
      const Couleur t = trait ? Trait(CouleurDe(cases[x])) : kSans;
      if (t != ton) {
        if (ton != kSans)
          tons[ton].push_back(
              {static_cast<double>(depuis - 1), i + 1.0, static_cast<double>(x - 1), i + 1.0});
        ton = t;
        depuis = x;
      }
    }
    if (i < 0) continue;
    for (std::size_t x = 0; x < largeur; ++x) {
      const Couleur t = cases[x] & kTraitDroite ? Trait(CouleurDe(cases[x])) : kSans;
      if (t == kSans || (colonnes[x].second >= 0 && colonnes[x].first != t)) finir(x, i);
      if (t != kSans && colonnes[x].second < 0) colonnes[x] = {t, i};
    }
  }
  for (std::size_t x = 0; x < largeur; ++x) finir(x, bande.nombre);
  cairo_set_line_width(c_, std::min(0.4, cote_ / 14));
  for (const auto &[ton, segments] : tons) {
    Choisir(c_, ton);
    for (const Segment &s : segments) {
      cairo_move_to(c_, x_ + s.x1 * cote_, bande.y + s.y1 * cote_);
      cairo_line_to(c_, x_ + s.x2 * cote_, bande.y + s.y2 * cote_);
    }
    cairo_stroke(c_);
  }
}

// Rows of too many cells to be drawn one by one, as pictures: a long piece stays a small file. Some viewers
// smooth pictures, so a cell has more than one pixel.
void Feuille::Coller(const Bande &bande) {
  const int k = static_cast<long long>(bande.nombre) * k_.largeur * 25 <= 40'000'000 ? 5 : 2;
  std::vector<Case> rangee(static_cast<std::size_t>(p_.Largeur()));
  for (int haut = 0; haut < bande.nombre; haut += kTuile)
    for (int gauche = 0; gauche < k_.largeur; gauche += kTuile) {
      const int largeur = std::min(kTuile, k_.largeur - gauche),
                hauteur = std::min(kTuile, bande.nombre - haut);
      const Surface image(cairo_image_surface_create(CAIRO_FORMAT_RGB24, largeur * k, hauteur * k));
      ExigerCairo(c_, image.get());
      unsigned char *octets = cairo_image_surface_get_data(image.get());
      const std::ptrdiff_t pas = cairo_image_surface_get_stride(image.get());
      for (int i = 0; i < hauteur; ++i) {
        p_.Ligne(bande.premiere + haut + i, rangee.data(), true);
        const Case *cases = rangee.data() + k_.x + gauche;
        auto *pixels = reinterpret_cast<Couleur *>(octets + pas * i * k);
        for (int x = 0; x < largeur; ++x) {
          std::fill_n(pixels + x * k, k, CouleurDe(cases[x]));
          if (k > 2 && cases[x] & kTraitDroite) pixels[x * k + k - 1] = Trait(CouleurDe(cases[x]));
        }
        for (int j = 1; j < k; ++j)
          std::memcpy(octets + pas * (i * k + j), pixels, static_cast<std::size_t>(pas));
        auto *bas = reinterpret_cast<Couleur *>(octets + pas * (i * k + k - 1));
        for (int x = 0; k > 2 && x < largeur; ++x)
          if (cases[x] & kTraitBas) std::fill_n(bas + x * k, k, Trait(CouleurDe(cases[x])));
      }
      cairo_surface_mark_dirty(image.get());
      cairo_save(c_);
      cairo_translate(c_, x_ + gauche * cote_, bande.y + haut * cote_);
      cairo_scale(c_, cote_ / k, cote_ / k);
      cairo_set_source_surface(c_, image.get(), 0, 0);
      cairo_pattern_set_filter(cairo_get_source(c_), CAIRO_FILTER_NEAREST);
      cairo_paint(c_);
      cairo_restore(c_);
    }
}

// Text with its middle at the height y; `part` of its width lies left of x.
void Feuille::Ecrire(double x, double y, const std::string &texte, double part) {
  cairo_text_extents_t mesure;
  cairo_text_extents(c_, texte.c_str(), &mesure);
  cairo_move_to(c_, x - mesure.x_advance * part, y + texte_ * 0.35);
  cairo_show_text(c_, texte.c_str());
}

void Feuille::Numeros() {
  cairo_set_font_size(c_, texte_);
  Choisir(c_, 0x444444);
  const auto chiffres = [](int n) { return static_cast<double>(std::to_string(n).size()); };
  const bool enHaut = p_.Reglages().enHaut;
  const double ecart = texte_ * 0.75, demi = cote_ / 2;
  // Beyond a field of harnesses or treadles, seen from the cloth.
  const auto dehors = [&](const Zone &z) {
    return enHaut ? YRangee(z.y) - ecart : YRangee(z.y + z.hauteur - 1) + cote_ + ecart;
  };
  const auto pasDe = [&](int base, int plusGrand) {
    return PasNumeros(base, cote_, texte_ * (0.62 * chiffres(plusGrand) + 0.5));
  };
  const int debutFils = p_.Fils().premier, debutDuites = p_.Duites().premier;
  if (!p_.enfilage.Vide() && k_.fils.dernier >= k_.fils.premier) {
    PourChaqueNumero(k_.fils, debutFils, p_.NombreFils(), pasDe(5, p_.Fils().dernier), [&](int rang, int n) {
      Ecrire(XFil(rang) + demi, dehors(p_.enfilage), std::to_string(n), 0.5);
    });
    PourChaqueNumero(
        {1, p_.enfilage.hauteur}, 1, kLamesMax, PasNumeros(4, cote_, texte_ * 1.1),
        [&](int l, int n) { Ecrire(x_ - texte_ * 0.3, YRangee(p_.YLame(l)) + demi, std::to_string(n), 1); });
  }
  const int droite = k_.x + k_.largeur;
  if (droite > p_.pas.x) {
    const double pied = YDuite(k_.duites.premier) + (enHaut ? -ecart : cote_ + ecart);
    const double y = p_.attaches.Vide() ? pied : dehors(p_.attaches);
    PourChaqueNumero({1, p_.pas.largeur}, 1, kLamesMax, pasDe(4, p_.pas.largeur), [&](int rang, int n) {
      Ecrire(x_ + (p_.pas.x + rang - 1 - k_.x) * cote_ + demi, y, std::to_string(n), 0.5);
    });
  }
  PourChaqueNumero(k_.duites, debutDuites, p_.NombreDuites(), PasNumeros(5, cote_, texte_ * 1.1),
                   [&](int rang, int n) {
                     Ecrire(x_ + Largeur() + texte_ * 0.3, YDuite(rang) + demi, std::to_string(n), 0);
                   });
}
