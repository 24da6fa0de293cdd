// Button faces, their captions, and the panels' frames and titles.
#include <algorithm>

#include "base/TexteNumerique.h"
#include "kit/FondFenetre.h"
#include "kit/Palette.h"
#include "weaving/Commandes.h"

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

  // Grey at `x` columns and `y` rows from the nearest corner, which lies right or at the bottom or both.
  int Gris(int x, int y, bool droite, bool bas) const {
    const bool presDuHaut = y <= x;
    // The left edge runs on to the bottom as it is, without the gleam of the corner above.
    const int rangee = bas && !presDuHaut ? kCoin - 1 : std::min(y, kCoin - 1);
    const int gris = coin[rangee][std::min(x, kCoin - 1)];
    const bool ombre = (bas && presDuHaut) || (droite && !presDuHaut) || (bas && droite);
    return ombre ? Ombre(gris) : gris;
  }
};

// Every pixel follows the corner it is nearest to; between two corners the last column or row goes on, so
// that no seam shows where they join.
void PeindreFace(Surface &cible, const Face &face) {
  const Echelle gardee = reglages.EchelleSauvegardee = cible.ScaleMode;
  cible.ScaleMode = Echelle::Pixels;
  cible.Effacer(Gris(face.fond));
  const int l = cible.Largeur(), h = cible.Hauteur();
  for (int y = 0; y < h; ++y)
    for (int x = 0; x < l; ++x) {
      const bool droite = x >= l - kCoin && x >= l / 2, bas = y >= h - kCoin && y >= h / 2;
      const int dx = droite ? l - 1 - x : x, dy = bas ? h - 1 - y : y;
      if (dx < kCoin || dy < kCoin) cible.PSet(x, y, Gris(face.Gris(dx, dy, droite, bas)));
    }
  cible.ScaleMode = gardee;
}

void Gonfler(BoitePicture &bouton, int fond) {
  session.LargeurBoutonSurvole = Arrondir(bouton.Width);
  session.HauteurBoutonSurvole = Arrondir(bouton.Height);
  reglages.EchelleSauvegardee = bouton.Dessin.ScaleMode;
  bouton.Width += kGonflement;
  bouton.Height += kGonflement;
  const int l0 = bouton.Dessin.Largeur(), h0 = bouton.Dessin.Hauteur();
  Entier l = Arrondir(bouton.Width), h = Arrondir(bouton.Height);
  ConvertirEnPixels(l, h);
  bouton.Dessin.Redimensionner(l, h, Gris(fond));
  // The face stands up from its side, which grows darker away from the light.
  const int epaisseur = std::max(l - l0, h - h0);
  for (int i = 0; i < epaisseur; ++i) {
    const Couleur cote = Gris(std::max(fond - 30 - 18 * i, 20));
    bouton.Dessin.Ligne(l0 + i, i, l0 + i, h0 + i + 1, cote);
    bouton.Dessin.Ligne(i, h0 + i, l0 + i + 1, h0 + i, cote);
  }
}

const Police kTitre{"Arial", 10, true, false};

bool EstVide(const std::string &texte) { return LTrim(texte).empty(); }

}  // namespace

void PeindreFaceClaire(Surface &cible) { PeindreFace(cible, {kCoinClair, 192}); }
void PeindreFaceFoncee(Surface &cible) { PeindreFace(cible, {kCoinFonce, 133}); }

void PeindreSurvolCarre(BoitePicture &bouton) { Gonfler(bouton, 192); }
void PeindreSurvolRond(BoitePicture &bouton) { Gonfler(bouton, 133); }

void RendreTailleBouton(BoitePicture &bouton) {
  bouton.Width = int{session.LargeurBoutonSurvole};
  bouton.Height = int{session.HauteurBoutonSurvole};
  Entier l = session.LargeurBoutonSurvole, h = session.HauteurBoutonSurvole;
  ConvertirEnPixels(l, h);
  bouton.Dessin.Redimensionner(l, h, 0);
  bouton.Dessin.ScaleMode = reglages.EchelleSauvegardee;
}

void EcrireTexteBouton(BoitePicture &bouton, const std::string &ligne1, Drapeau avecImage,
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
  cible.Effacer(fond);
  cible.Cadre(0, 0, d, b, Gris(0));
  cible.Cadre(1, 1, d - 1, b - 1, Gris(255));
  cible.Ligne(1, 1, d - 1, 1, Gris(192));
  cible.Ligne(1, 1, 1, b - 1, Gris(192));
}

void PeindreFondPanneauTitre(Surface &cible, const std::string &titre, Couleur fond) {
  PeindreFondPanneau(cible, fond);
  cible.Print(5 * kTwipsParPixel, 9 * kTwipsParPixel, titre, {"Arial", 8.25, true, false}, 0);
}
