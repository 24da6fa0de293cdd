#include "app-motifs/dessin/ImagePng.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>
#include <unordered_map>

namespace {
constexpr int kPixelsMax = 4000, kCaseMax = 12, kCaseAvecGrille = 5;

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

// Calls voir(y, row of colours) for every row of pixels, from the top.
template <class F>
void PourChaqueRangee(const Planche &planche, int pixels, F &&voir) {
  const int largeur = planche.Largeur();
  const bool grille = pixels >= kCaseAvecGrille;
  std::vector<Couleur> cases(static_cast<std::size_t>(largeur)),
      rangee(cases.size() * static_cast<std::size_t>(pixels));
  for (int y = 0; y < planche.Hauteur(); ++y) {
    planche.Ligne(y, cases.data());
    auto *p = rangee.data();
    for (Couleur c : cases) {
      std::fill_n(p, pixels, c);
      p += pixels;
      if (grille && c != kPapier) p[-1] = Assombrie(c);
    }
    for (int k = 0; k < pixels; ++k) {
      if (grille && k == pixels - 1)
        for (std::size_t x = 0; x < rangee.size(); ++x)
          if (const Couleur c = cases[x / static_cast<std::size_t>(pixels)]; c != kPapier)
            rangee[x] = Assombrie(c);
      voir(y * pixels + k, rangee);
    }
  }
}

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
  const int pixels = PixelsParCase(planche);
  png_image image{};
  image.width = static_cast<png_uint_32>(planche.Largeur() * pixels);
  image.height = static_cast<png_uint_32>(planche.Hauteur() * pixels);
  const std::size_t aire = std::size_t{image.width} * image.height;

  Table table;
  std::string places(aire, '\0');
  auto *p = reinterpret_cast<std::uint8_t *>(places.data());
  bool assez = true;
  PourChaqueRangee(planche, pixels, [&](int, const std::vector<Couleur> &rangee) {
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
  PourChaqueRangee(planche, pixels, [&](int, const std::vector<Couleur> &rangee) {
    for (Couleur c : rangee)
      for (int d : {16, 8, 0}) *q++ = static_cast<char>(c >> d & 255);
  });
  return Coder(image, places, "");
}
