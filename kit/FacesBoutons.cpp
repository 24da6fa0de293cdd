// Button faces, their captions, and the panels' frames and titles.
#include <algorithm>
#include <utility>

#include "base/TexteNumerique.h"
#include "controls/Palette.h"
#include "kit/FondFenetre.h"
#include "session/Commandes.h"

namespace {
constexpr int kCoin = 8;
using Coin = unsigned char[kCoin][kCoin];

// Greys of the top left corner; the light falls from there.
constexpr Coin kCoinClair = {
    {192, 192, 192, 191, 189, 186, 185, 183}, {192, 192, 189, 201, 216, 218, 215, 212},
    {192, 188, 203, 234, 237, 231, 227, 226}, {185, 207, 233, 222, 210, 202, 198, 198},
    {172, 209, 226, 210, 198, 192, 192, 192}, {173, 212, 215, 201, 193, 192, 192, 192},
    {171, 211, 210, 198, 192, 192, 192, 192}, {181, 178, 172, 177, 186, 192, 193, 192}};
constexpr Coin kCoinFonce = {
    {138, 145, 183, 209, 203, 198, 197, 197}, {133, 168, 209, 206, 199, 192, 191, 191},
    {132, 165, 201, 195, 187, 179, 178, 178}, {128, 153, 187, 179, 169, 160, 159, 159},
    {124, 140, 174, 163, 150, 141, 140, 140}, {122, 133, 168, 156, 142, 133, 133, 133},
    {121, 131, 166, 155, 142, 133, 133, 133}, {121, 130, 165, 154, 142, 133, 133, 133}};

struct Face {
  const Coin &coin;
  int fond;

  // Away from the light a bright grey turns as much darker than the ground as it was brighter.
  int Ombre(int gris) const { return std::clamp(std::min(gris, 2 * fond - gris), 0, 255); }

  // The left edge gleams from the corner to the bottom; the last row of the corner, which dips, is led over.
  int Cote(int x, int y) const {
    if (y < kCoin) return coin[y][x];
    return y == kCoin ? (coin[kCoin - 2][x] + coin[kCoin - 1][x]) / 2 : coin[kCoin - 2][x];
  }

  // Grey at `x` columns and `y` rows from the nearest corner, which lies right or at the bottom or both.
  int Gris(int x, int y, bool droite, bool bas) const {
    const bool presDuHaut = y <= x;
    const bool sansCreux = bas || (droite && y >= kCoin - 1);  // where it would gleam
    const int gris = presDuHaut ? coin[y][std::min(x, kCoin - 1)] : Cote(x, sansCreux ? kCoin + 1 : y);
    const bool ombre = (bas && presDuHaut) || (droite && !presDuHaut) || (bas && droite);
    return ombre ? Ombre(gris) : gris;
  }
};

// Every pixel follows the corner it is nearest to; between two corners the last column or row goes on, so
// that no seam shows where they join.
void PeindrePixels(Surface &cible, const Face &face) {
  const int l = cible.Largeur(), h = cible.Hauteur();
  for (int y = 0; y < h; ++y)
    for (int x = 0; x < l; ++x) {
      const bool droite = x >= l - kCoin && x >= l / 2, bas = y >= h - kCoin && y >= h / 2;
      const int dx = droite ? l - 1 - x : x, dy = bas ? h - 1 - y : y;
      if (dx < kCoin || dy < kCoin) cible.PSet(x, y, Gris(face.Gris(dx, dy, droite, bas)));
    }
}

void PeindreFace(Surface &cible, const Face &face) {
  const EnPixels echelle(cible);
  cible.Effacer(Gris(face.fond));
  PeindrePixels(cible, face);
}

constexpr Face kFaceClaire{kCoinClair, 192}, kFaceFoncee{kCoinFonce, 133};
constexpr int kBord = 5;  // pixels, of a face

// What lies on a face within its edge: picture, lamp, ground.
void PoserInterieur(Surface &cible, const Surface &face, int l, int h) {
  for (int y = kBord; y < h - kBord; ++y)
    for (int x = kBord; x < l - kBord; ++x) cible.PSet(x, y, face.Point(x, y));
}

// The key comes up: the same face, larger by as much as the button grows, in a dark line.
void Gonfler(BoitePicture &bouton, const Face &face) {
  session.LargeurBoutonSurvole = Arrondir(bouton.Width);
  session.HauteurBoutonSurvole = Arrondir(bouton.Height);
  reglages.EchelleSauvegardee = bouton.Dessin.ScaleMode;
  reglages.FaceGardee = bouton.Dessin;
  bouton.Width += kGonflement;
  bouton.Height += kGonflement;
  Entier l = Arrondir(bouton.Width), h = Arrondir(bouton.Height);
  ConvertirEnPixels(l, h);
  const Surface &avant = reglages.FaceGardee;
  Surface &s = bouton.Dessin;
  s.Redimensionner(l, h, Gris(face.fond));  // keeps what was printed
  s.Boite(0, 0, l - 1, h - 1, Gris(face.fond));
  PeindrePixels(s, face);
  PoserInterieur(s, avant, avant.Largeur(), avant.Hauteur());
  const int d = l - 1, b = h - 1;
  s.Cadre(0, 0, d, b, Palette::EtainBord);
  s.Cadre(1, 1, d - 1, b - 1, Gris(std::min(255, face.fond + 48)));
}

constexpr Police kTitre{"Arial", 10, true, false};

bool EstVide(const std::string &texte) { return LTrim(texte).empty(); }

}  // namespace

void PeindreFaceClaire(Surface &cible) { PeindreFace(cible, kFaceClaire); }
void PeindreFaceFoncee(Surface &cible) { PeindreFace(cible, kFaceFoncee); }

void PeindreSurvolCarre(BoitePicture &bouton) { Gonfler(bouton, kFaceClaire); }
void PeindreSurvolRond(BoitePicture &bouton) { Gonfler(bouton, kFaceFoncee); }

void RendreTailleBouton(BoitePicture &bouton) {
  bouton.Width = int{session.LargeurBoutonSurvole};
  bouton.Height = int{session.HauteurBoutonSurvole};
  // A lamp may have changed meanwhile.
  Surface face = std::exchange(reglages.FaceGardee, {});
  PoserInterieur(face, bouton.Dessin, face.Largeur(), face.Hauteur());
  face.ScaleMode = reglages.EchelleSauvegardee;
  bouton.Dessin = std::move(face);
}

void EcrireTexteBouton(BoitePicture &bouton, const std::string &ligne1, Booleen avecImage,
                       const std::string &ligne2, Entier style, Couleur couleurTexte, Couleur couleurOmbre) {
  if (EstVide(ligne1) || (style != 0 && style != 1)) return;
  const Entier w = Arrondir(bouton.Width), h = Arrondir(bouton.Height);
  const Entier d = Entier(53) * NombreCaracteres(ligne1), e = Entier(53) * NombreCaracteres(ligne2);
  const int j = avecImage ? 120 : 0;
  const Entier gauche1 = Arrondir(w / 2.0 - int{d} + int{reglages.BoutonTexteDecale});
  const Entier tiers = Arrondir(h / 3.0), moitie = Arrondir(h / 2.0);
  const bool seule = EstVide(ligne2);
  const Police police{"Arial", style == 1 && !seule ? 10.0 : 8.0, true, false};
  Surface &s = bouton.Dessin;
  if (style == 0 && seule) {
    s.Print(gauche1 + 200, moitie - 110, ligne1, police, couleurTexte);
  } else if (style == 0) {
    s.Print(gauche1 + j, tiers - 105, ligne1, police, couleurTexte);
    s.Print(Arrondir(w / 2.0 + 150 - int{e} + j + int{reglages.BoutonTexteDecale2}), tiers + 45, ligne2,
            police, couleurTexte);
  } else if (seule) {
    s.Print(gauche1 + j, moitie - 125, ligne1, police, couleurOmbre);
    s.Print(gauche1 + j + 13, moitie - 125 + 8, ligne1, police, couleurTexte);
  } else {
    const Entier y = tiers - 105, gauche2 = Arrondir(w / 2.0 - int{e} + j);
    s.Print(gauche1 + j, y, ligne1, police, couleurOmbre);
    s.Print(gauche1 + j + 13, y + 8, ligne1, police, couleurTexte);
    s.Print(gauche2 + reglages.BoutonTexteDecale, y + 150, ligne2, police, couleurOmbre);
    s.Print(gauche2 + 10 + reglages.BoutonTexteDecale2, y + 160, ligne2, police, couleurTexte);
  }
}

void EcrireTitreCadre(Surface &cible, const std::string &texte, Couleur couleurTexte, Couleur couleurOmbre) {
  if (EstVide(texte)) return;
  cible.Print(200, 150, texte, kTitre, couleurOmbre);
  cible.Print(215, 165, texte, kTitre, couleurTexte);
}

void EcrireTitreRouge(Surface &cible, const std::string &texte) {
  if (EstVide(texte)) return;
  cible.Print(15 * kTwipsParPixel, 11 * kTwipsParPixel, texte, kTitre, Gris(255));
  cible.Print(16 * kTwipsParPixel, 12 * kTwipsParPixel, texte, kTitre, Rgb(255, 0, 0));
}

void EcrireTitreRougeHaut(Surface &cible, const std::string &texte) {
  if (EstVide(texte)) return;
  cible.Print(15 * kTwipsParPixel, 6 * kTwipsParPixel, texte, kTitre, Gris(255));
  cible.Print(16 * kTwipsParPixel, 7 * kTwipsParPixel, texte, kTitre, Rgb(255, 0, 0));
}

void PeindreFondPanneau(Surface &cible, Couleur fond) {
  const int d = cible.Largeur() - 1, b = cible.Hauteur() - 1;
  cible.Effacer(fond);
  cible.Cadre(0, 0, d, b, Gris(0));
  cible.Cadre(1, 1, d - 1, b - 1, Gris(255));
}

void PeindreFondPanneauOnglet(Surface &cible, const std::string &titre, Couleur fond) {
  constexpr int kBas = 31, kDroite = 107;  // pixels
  PeindreFondPanneau(cible, fond);
  cible.Boite(1, 1, kDroite, kBas, Palette::Papier);
  cible.Ligne(kDroite + 1, 1, kDroite + 1, kBas - 1, Palette::BoisMiel);
  cible.Boite(1, kBas - 2, kDroite, kBas - 1, Palette::OrangeSombre);
  cible.Ligne(1, kBas, kDroite, kBas, Palette::Vert);
  EcrireTitreCadre(cible, titre, Palette::Encre, Gris(255));
}

void PeindreFondPanneauCreux(Surface &cible, Couleur fond) {
  const int d = cible.Largeur() - 1, b = cible.Hauteur() - 1;
  PeindreFondPanneau(cible, fond);
  cible.Cadre(2, 2, d - 2, b - 2, Palette::LinOmbre);
  cible.Ligne(2, 2, d - 1, 2, Palette::EtainOmbre);
  cible.Ligne(2, 2, 2, b - 1, Palette::EtainOmbre);
}

void PeindreFondPanneauTitre(Surface &cible, const std::string &titre, Couleur fond) {
  constexpr int kCoupe = 5, kRegle = 5;  // pixels
  const int d = cible.Largeur() - 1, b = cible.Hauteur() - 1;
  cible.Effacer(fond);
  cible.Cadre(0, 0, d, b, Palette::BoisBrun);
  for (int y : {kRegle, b - kRegle}) cible.Ligne(kCoupe, y, d - 2, y, Palette::PapierLigne);
  for (int i = 0; i <= kCoupe; ++i) {
    const int x = kCoupe - i;
    if (x > 0)
      cible.Ligne(0, i, x - 1, i, Palette::BoisClair), cible.Ligne(0, b - i, x - 1, b - i, Palette::BoisMiel);
    cible.PSet(x, i, Palette::BoisBrun);
    cible.PSet(x, b - i, Palette::BoisBrun);
  }
  cible.Print(5 * kTwipsParPixel, 9 * kTwipsParPixel, titre, {"Arial", 8.25, true, false}, 0);
}
