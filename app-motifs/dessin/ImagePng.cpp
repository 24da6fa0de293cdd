#include "app-motifs/dessin/ImagePng.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>
#include <unordered_map>

#include "app-motifs/dessin/Dessin.h"
#include "app-motifs/dessin/Feuille.h"

namespace {
constexpr int kPixelsMax = 4000, kCaseMax = 12, kCaseAvecTraits = 4;
constexpr double kTexte = 10;  // pixels

// Pixels as places in a table of colours, as long as it has room.
class Table {
 public:
  // False when there are more than 256 colours.
  bool Place(Couleur couleur, std::uint8_t &place) {
    // Most pixels are of a few colours: a look into a small table of those last seen.
    Vue &vue = vues_[(couleur ^ couleur >> 9 ^ couleur >> 18) % vues_.size()];
    if (vue.couleur != couleur || !vue.connue) {
      const auto [c, neuve] = places_.emplace(couleur, couleurs_.size());
      if (neuve && couleurs_.size() == 256) return false;
      if (neuve) couleurs_.push_back(couleur);
      vue = {couleur, static_cast<std::uint8_t>(c->second), true};
    }
    place = vue.place;
    return true;
  }
  std::string Octets() const {
    std::string octets;
    for (Couleur c : couleurs_)
      for (int d : {16, 8, 0}) octets += static_cast<char>(c >> d & 255);
    return octets;
  }
  std::size_t Taille() const { return couleurs_.size(); }

 private:
  std::unordered_map<Couleur, std::size_t> places_;
  std::vector<Couleur> couleurs_;
  struct Vue {
    Couleur couleur = 0;
    std::uint8_t place = 0;
    bool connue = false;
  };
  std::array<Vue, 512> vues_{};
};

// The numbers as shades, 0 to 15, of every pixel; cairo draws no text into a table of colours.
class Chiffres {
 public:
  Chiffres(const Planche &planche, int x, int y, int pixels, int largeur, int hauteur)
      : surface_(cairo_image_surface_create(CAIRO_FORMAT_A8, largeur, hauteur)) {
    const Contexte c(cairo_create(surface_.get()));
    cairo_select_font_face(c.get(), "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    Feuille(c.get(), planche, ToutCadrer(planche), x + pixels, y + pixels, pixels, kTexte).Numeros();
    ExigerCairo(c.get(), surface_.get());
    cairo_surface_flush(surface_.get());
  }
  const std::uint8_t *Rangee(int y) const {
    return cairo_image_surface_get_data(surface_.get()) +
           static_cast<std::ptrdiff_t>(y) * cairo_image_surface_get_stride(surface_.get());
  }

 private:
  const Surface surface_;
};

// The picture in pixels: the drawing, and room for its numbers.
struct Toile {
  explicit Toile(const Planche &p) : planche(p), pixels(PixelsParCase(p)) {
    const Marges m = MargesNumeros(kTexte);
    x = static_cast<int>(m.gauche);
    y = p.Reglages().enHaut ? static_cast<int>(m.dehors) : 0;
    const long long l = x + 1LL * p.Largeur() * pixels + static_cast<int>(m.droite),
                    h = 1LL * p.Hauteur() * pixels + static_cast<int>(m.dehors);
    ExigerPixels(p.Dessine(), l, h);
    largeur = static_cast<int>(l);
    hauteur = static_cast<int>(h);
  }

  // Calls voir(row of colours) for every row of pixels, from the top.
  template <class F>
  void PourChaqueRangee(F &&voir) const {
    const Chiffres chiffres(planche, x, y, pixels, largeur, hauteur);
    const bool traits = pixels >= kCaseAvecTraits;
    std::vector<Case> cases(static_cast<std::size_t>(planche.Largeur()));
    std::vector<Couleur> rangee(static_cast<std::size_t>(largeur), kPapier), trait(rangee);
    const auto voirAvec = [&](const std::vector<Couleur> &source, int ligne) {
      const std::uint8_t *c = chiffres.Rangee(ligne);
      if (std::all_of(c, c + largeur, [](std::uint8_t a) { return a < 16; })) return voir(source);
      std::vector<Couleur> ecrite = source;
      for (std::size_t i = 0; i < ecrite.size(); ++i)
        if (const int nuance = c[i] / 16; nuance > 0 && ecrite[i] == kPapier)
          ecrite[i] = static_cast<Couleur>(0xFF - nuance * 12) * 0x010101;
      voir(ecrite);
    };
    int ligne = 0;
    for (; ligne < y; ++ligne) voirAvec(rangee, ligne);
    for (int r = 0; r < planche.Hauteur(); ++r) {
      planche.Ligne(r, cases.data(), traits);
      auto *p = rangee.data() + x, *q = trait.data() + x;
      for (Case c : cases) {
        const Couleur plein = CouleurDe(c);
        std::fill_n(p, pixels, plein);
        std::fill_n(q, pixels, c & kTraitBas ? Trait(plein) : plein);
        p += pixels;
        q += pixels;
        if (c & kTraitDroite) p[-1] = q[-1] = Trait(plein);
      }
      for (int k = 0; k < pixels; ++k, ++ligne) voirAvec(traits && k == pixels - 1 ? trait : rangee, ligne);
    }
    std::fill(rangee.begin(), rangee.end(), kPapier);
    for (; ligne < hauteur; ++ligne) voirAvec(rangee, ligne);
  }

  const Planche &planche;
  const int pixels;
  int x, y, largeur, hauteur;
};

std::string Coder(png_image &image, const std::string &pixels, const std::string &table) {
  image.version = PNG_IMAGE_VERSION;
  image.flags = PNG_IMAGE_FLAG_FAST;
  png_alloc_size_t taille = PNG_IMAGE_PNG_SIZE_MAX(image);
  std::string octets(taille, '\0');
  if (!png_image_write_to_memory(&image, octets.data(), &taille, 0, pixels.data(), 0,
                                 table.empty() ? nullptr : table.data()))
    throw std::runtime_error(image.message);
  octets.resize(taille);
  return octets;
}
}  // namespace

int PixelsParCase(const Planche &planche) {
  return std::clamp(kPixelsMax / std::max(planche.Largeur(), planche.Hauteur()), 1, kCaseMax);
}

std::string EnPng(const Planche &planche) {
  const Toile toile(planche);
  png_image image{};
  image.width = static_cast<png_uint_32>(toile.largeur);
  image.height = static_cast<png_uint_32>(toile.hauteur);
  const std::size_t aire = std::size_t{image.width} * image.height;

  Table table;
  std::string places(aire, '\0');
  auto *p = reinterpret_cast<std::uint8_t *>(places.data());
  bool assez = true;
  toile.PourChaqueRangee([&](const std::vector<Couleur> &rangee) {
    for (Couleur c : rangee) assez = assez && table.Place(c, *p++);
  });
  if (assez) {
    image.format = PNG_FORMAT_RGB_COLORMAP;
    image.colormap_entries = static_cast<png_uint_32>(table.Taille());
    return Coder(image, places, table.Octets());
  }
  image.format = PNG_FORMAT_RGB;
  places.assign(aire * 3, '\0');
  char *q = places.data();
  toile.PourChaqueRangee([&](const std::vector<Couleur> &rangee) {
    for (Couleur c : rangee)
      for (int d : {16, 8, 0}) *q++ = static_cast<char>(c >> d & 255);
  });
  return Coder(image, places, "");
}
