// Pixels and drawing, as plain data: what pictures, painters and window outlines are made of.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// 0x00RRGGBB.
using Couleur = std::uint32_t;
constexpr Couleur Rgb(int r, int v, int b) {
  return static_cast<Couleur>((r & 255) << 16 | (v & 255) << 8 | (b & 255));
}
constexpr Couleur Gris(int g) { return Rgb(g, g, g); }

constexpr int kTwipsParPixel = 15;

// Size in points at 96 dots per inch.
struct Police {
  std::string_view Nom = "MS Sans Serif";  // a literal
  double Taille = 8.25;
  bool Gras = false;
  bool Italique = false;
  bool operator==(const Police &) const = default;
};

// A text printed on a surface. It is kept beside the pixels, so that it stays sharp at every screen scale.
// Place in twips, of the text's top left corner.
struct TexteImprime {
  int x, y;
  std::string texte;
  Police police;
  Couleur couleur;
  bool operator==(const TexteImprime &) const = default;
};

enum class Echelle { Twips = 1, Pixels = 3 };

// All coordinates in pixels; what falls outside is dropped. Copies share their pixels until one is drawn on.
class Surface {
 public:
  // Row by row, each 0xffRRGGBB as screens take them.
  using Trame = std::shared_ptr<std::uint32_t[]>;

  Surface() = default;
  Surface(int largeur, int hauteur, Couleur fond);
  // Takes over largeur x hauteur pixels that nobody else writes.
  Surface(int largeur, int hauteur, Trame pixels);

  int Largeur() const { return largeur_; }
  int Hauteur() const { return hauteur_; }
  // Changes with every drawing; a mirror compares it with what it last showed.
  std::uint64_t Version() const { return version_; }
  // What they are now; drawing goes on in a copy for as long as somebody holds them.
  std::shared_ptr<const std::uint32_t[]> Pixels() const { return pixels_; }
  const std::vector<TexteImprime> &Textes() const { return textes_; }

  // New size and ground; what was drawn and printed is gone.
  void Refaire(int largeur, int hauteur, Couleur fond);
  // Fills with the ground and takes the printed texts away.
  void Effacer(Couleur fond);

  // New size; what was drawn and printed stays, the new part takes the ground.
  void Redimensionner(int largeur, int hauteur, Couleur fond);

  // -1 cast to Couleur outside the surface.
  Couleur Point(int x, int y) const;
  void PSet(int x, int y, Couleur c);
  // Straight line; the last point is not drawn.
  void Ligne(int x1, int y1, int x2, int y2, Couleur c);
  // Outline of a box, both corners included.
  void Cadre(int x1, int y1, int x2, int y2, Couleur c);
  void Boite(int x1, int y1, int x2, int y2, Couleur c);
  // Copies `image`, cut to `largeur` x `hauteur` pixels where they are given.
  void PaintPicture(const Surface &image, int x, int y, int largeur = -1, int hauteur = -1);
  // Place in twips.
  void Print(int x, int y, const std::string &texte, const Police &police, Couleur c);

  Echelle ScaleMode = Echelle::Twips;

 private:
  void Changer();
  void Detacher();
  std::size_t Place(int x, int y) const;
  int largeur_ = 0, hauteur_ = 0;
  Trame pixels_;
  std::vector<TexteImprime> textes_;
  std::uint64_t version_ = 0;
};
