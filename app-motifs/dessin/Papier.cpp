#include "app-motifs/dessin/Papier.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <memory>
#include <stdexcept>
#include <vector>

namespace {
// All lengths are points.
constexpr double kPageLargeur = 595.28, kPageHauteur = 841.89, kMarge = 36, kTete = 26, kNumeros = 26;
constexpr double kCaseMax = 10, kCaseAvecGrille = 3, kTexte = 9;
constexpr int kCasesTracees = 100000, kPixelsParCase = 2;

struct Detruire {
  void operator()(cairo_t *c) const { cairo_destroy(c); }
  void operator()(cairo_surface_t *s) const { cairo_surface_destroy(s); }
};
using Contexte = std::unique_ptr<cairo_t, Detruire>;
using Surface = std::unique_ptr<cairo_surface_t, Detruire>;

cairo_status_t Ajouter(void *texte, const unsigned char *octets, unsigned int nombre) {
  static_cast<std::string *>(texte)->append(reinterpret_cast<const char *>(octets), nombre);
  return CAIRO_STATUS_SUCCESS;
}

class Feuille {
 public:
  Feuille(cairo_t *c, const Motif &motif, Langue langue)
      : planche(motif), c_(c), motif_(motif), langue_(langue) {
    cairo_select_font_face(c_, "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(c_, kTexte);
  }

  const Planche planche;

  // Rows of the head (threading, tie-up), which every page repeats.
  int Tete() const { return planche.tissu.y; }

  // The head and the picks first .. last (from 1), from a place on the page.
  void Peindre(double x, double y, double cote, int premiere, int derniere) {
    Rangees(x, y, cote, 0, Tete());
    Rangees(x, y + Tete() * cote, cote, planche.YDuite(premiere), derniere - premiere + 1);
    if (cote >= kCaseAvecGrille) {
      cairo_set_source_rgba(c_, 0, 0, 0, 0.25);
      cairo_set_line_width(c_, std::min(0.4, cote / 14));
      for (Zone z : planche.Zones()) {
        if (z.y >= Tete()) z.hauteur = derniere - premiere + 1;
        Grille(x + z.x * cote, y + z.y * cote, cote, z);
      }
    }
    Numeros(x + planche.Largeur() * cote, y + Tete() * cote, cote, premiere, derniere);
  }

  void Entete(double largeur, int premiere, int derniere, int page, int pages) {
    cairo_set_source_rgb(c_, 0, 0, 0);
    const bool fr = langue_ == Langue::Francais;
    std::string droite =
        (fr ? "duites " : "picks ") + std::to_string(premiere) + " – " + std::to_string(derniere);
    if (pages > 1) droite += ", page " + std::to_string(page) + " / " + std::to_string(pages);
    cairo_text_extents_t mesure;
    cairo_text_extents(c_, droite.c_str(), &mesure);
    cairo_move_to(c_, kMarge + largeur - mesure.x_advance, kMarge + kTexte);
    cairo_show_text(c_, droite.c_str());
    cairo_save(c_);  // a long title ends where the picks begin
    cairo_rectangle(c_, kMarge, 0, std::max(0.0, largeur - mesure.x_advance - 2 * kTexte), kMarge + kTete);
    cairo_clip(c_);
    cairo_move_to(c_, kMarge, kMarge + kTexte);
    cairo_show_text(c_, motif_.titre.empty() ? motif_.chemin.c_str() : motif_.titre.c_str());
    cairo_restore(c_);
  }

 private:
  void Rangees(double x, double y, double cote, int premiere, int nombre) {
    cairo_save(c_);
    cairo_translate(c_, x, y);
    cairo_scale(c_, cote, cote);
    if (static_cast<long long>(nombre) * planche.Largeur() <= kCasesTracees)
      Tracer(premiere, nombre);
    else
      Coller(premiere, nombre);
    cairo_restore(c_);
  }

  // Rows of cells as rectangles. All of one colour are filled at once, so that no light comes in between
  // them.
  void Tracer(int premiere, int nombre) {
    struct Bande {
      int x, y, largeur;
    };
    std::map<Couleur, std::vector<Bande>> couleurs;
    std::vector<Couleur> cases(static_cast<std::size_t>(planche.Largeur()));
    for (int i = 0; i < nombre; ++i) {
      planche.Ligne(premiere + i, cases.data());
      for (auto a = cases.begin(); a != cases.end();) {
        const auto b = std::find_if(a, cases.end(), [a](Couleur c) { return c != *a; });
        if (*a != kPapier)
          couleurs[*a].push_back({static_cast<int>(a - cases.begin()), i, static_cast<int>(b - a)});
        a = b;
      }
    }
    for (const auto &[couleur, bandes] : couleurs) {
      for (const Bande &b : bandes) cairo_rectangle(c_, b.x, b.y, b.largeur, 1);
      cairo_set_source_rgb(c_, (couleur >> 16 & 255) / 255.0, (couleur >> 8 & 255) / 255.0,
                           (couleur & 255) / 255.0);
      cairo_fill(c_);
    }
  }

  // Rows of too many cells to be drawn one by one, as a picture: a long piece stays a small file. Some
  // viewers smooth pictures, so a cell has more than one pixel.
  void Coller(int premiere, int nombre) {
    constexpr int k = kPixelsParCase;
    const Surface image(cairo_image_surface_create(CAIRO_FORMAT_RGB24, planche.Largeur() * k, nombre * k));
    unsigned char *octets = cairo_image_surface_get_data(image.get());
    if (!octets) throw std::runtime_error(cairo_status_to_string(cairo_surface_status(image.get())));
    const std::ptrdiff_t pas = cairo_image_surface_get_stride(image.get());
    std::vector<Couleur> cases(static_cast<std::size_t>(planche.Largeur()));
    for (int i = 0; i < nombre; ++i) {
      planche.Ligne(premiere + i, cases.data());
      auto *rangee = reinterpret_cast<Couleur *>(octets + pas * i * k);
      for (std::size_t x = 0; x < cases.size() * k; ++x) rangee[x] = cases[x / k];
      for (int j = 1; j < k; ++j)
        std::memcpy(octets + pas * (i * k + j), rangee, static_cast<std::size_t>(pas));
    }
    cairo_surface_mark_dirty(image.get());
    cairo_scale(c_, 1.0 / k, 1.0 / k);
    cairo_set_source_surface(c_, image.get(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(c_), CAIRO_FILTER_NEAREST);
    cairo_paint(c_);
  }

  void Grille(double x, double y, double cote, const Zone &zone) {
    for (int i = 0; i <= zone.largeur; ++i) {
      cairo_move_to(c_, x + i * cote, y);
      cairo_line_to(c_, x + i * cote, y + zone.hauteur * cote);
    }
    for (int i = 0; i <= zone.hauteur; ++i) {
      cairo_move_to(c_, x, y + i * cote);
      cairo_line_to(c_, x + zone.largeur * cote, y + i * cote);
    }
    cairo_stroke(c_);
  }

  // Every tenth pick, or as many tens as leave the numbers room.
  void Numeros(double x, double y, double cote, int premiere, int derniere) {
    int pas = 10;
    while (pas * cote < kTexte + 1) pas *= pas % 3 ? 5 : 2;
    cairo_set_source_rgb(c_, 0.3, 0.3, 0.3);
    for (int d = premiere; d <= derniere; ++d) {
      if (d % pas != 0 && d != premiere) continue;
      if (d == premiere && d % pas != 0 && (pas - d % pas) * cote < kTexte + 1 &&
          d + pas - d % pas <= derniere)
        continue;
      cairo_move_to(c_, x + 1, y + (d - premiere + 0.5) * cote + kTexte * 0.35);
      cairo_show_text(c_, std::to_string(d).c_str());
    }
  }

  cairo_t *c_;
  const Motif &motif_;
  Langue langue_;
};

void Finir(cairo_t *c, cairo_surface_t *surface) {
  cairo_surface_finish(surface);
  for (cairo_status_t etat : {cairo_status(c), cairo_surface_status(surface)})
    if (etat != CAIRO_STATUS_SUCCESS && etat != CAIRO_STATUS_SURFACE_FINISHED)
      throw std::runtime_error(cairo_status_to_string(etat));
}
}  // namespace

std::string EnPdf(const Motif &motif, Langue langue) {
  std::string octets;
  const Surface surface(cairo_pdf_surface_create_for_stream(Ajouter, &octets, kPageLargeur, kPageHauteur));
  const Contexte contexte(cairo_create(surface.get()));
  Feuille feuille(contexte.get(), motif, langue);
  const double largeur = kPageLargeur - 2 * kMarge, hauteur = kPageHauteur - 2 * kMarge - kTete;
  double cote =
      std::min({kCaseMax, (largeur - kNumeros) / feuille.planche.Largeur(), hauteur / (feuille.Tete() + 10)});
  // What passes a page by little goes on it a little smaller.
  if (const double juste = hauteur / (feuille.Tete() + motif.Duites()); juste > cote * 0.75)
    cote = std::min(cote, juste);
  const int place = std::max(1, static_cast<int>(hauteur / cote + 1e-6) - feuille.Tete());
  const int pages = (motif.Duites() + place - 1) / place, parPage = (motif.Duites() + pages - 1) / pages;
  for (int page = 0; page < pages; ++page) {
    const int premiere = page * parPage + 1, derniere = std::min(motif.Duites(), premiere + parPage - 1);
    feuille.Entete(largeur, premiere, derniere, page + 1, pages);
    feuille.Peindre(kMarge, kMarge + kTete, cote, premiere, derniere);
    cairo_show_page(contexte.get());
  }
  Finir(contexte.get(), surface.get());
  return octets;
}

std::string EnSvg(const Motif &motif, Langue langue) {
  std::string octets;
  const Planche planche(motif);
  const double cote = kCaseMax, largeur = std::max(planche.Largeur() * cote + kNumeros, 240.0);
  const Surface surface(cairo_svg_surface_create_for_stream(Ajouter, &octets, largeur + 2 * kMarge,
                                                            planche.Hauteur() * cote + 2 * kMarge + kTete));
  const Contexte contexte(cairo_create(surface.get()));
  Feuille feuille(contexte.get(), motif, langue);
  cairo_set_source_rgb(contexte.get(), 1, 1, 1);
  cairo_paint(contexte.get());
  feuille.Entete(largeur, 1, motif.Duites(), 1, 1);
  feuille.Peindre(kMarge, kMarge + kTete, cote, 1, motif.Duites());
  Finir(contexte.get(), surface.get());
  return octets;
}
