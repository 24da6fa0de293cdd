#include "kit/FondFenetre.h"

#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <utility>

#include "base/TexteNumerique.h"
#include "controls/Palette.h"
#include "platform/Plateforme.h"
#include "session/ModuleTissage.h"

ReglagesPeinture reglages;

namespace {
void ChargerRampe(std::initializer_list<const char *> entrees) {
  int i = 0;
  for (const char *e : entrees) reglages.RampeCouleurs[i++] = e;
}

Couleur CouleurRampe(int i) {
  std::string texte;
  DecoderCouleur(reglages.RampeCouleurs[i], texte);
  return CouleurDeTexte(texte);
}

// Rings 1 to `derniere` inwards, and ring 0 at the outer edge last.
void PeindreAnneaux(Surface &cible, int gauche, int haut, int largeur, int hauteur, int derniere) {
  const int droite = gauche + largeur - 1, bas = haut + hauteur - 1;
  for (int i = 1; i <= derniere; ++i) cible.Cadre(gauche + i, haut + i, droite - i, bas - i, CouleurRampe(i));
  cible.Cadre(gauche, haut, droite, bas, CouleurRampe(0));
}

std::string DeuxChiffres(double valeur) {
  const std::string chiffres = "0123456789ABCDEF";
  const int n = static_cast<std::uint16_t>(int{Arrondir(valeur)});
  std::string texte;
  for (int reste = n; reste > 0 || texte.empty(); reste /= 16)
    texte.insert(texte.begin(), chiffres[static_cast<std::size_t>(reste % 16)]);
  return texte.size() < 2 ? "0" + texte : texte;
}
}  // namespace

void DecoderCouleur(const std::string &texte, std::string &sortie) {
  if (texte.empty()) return;
  const auto barre = texte.find('/'), inverse = texte.find('\\');
  const std::string rouge = DeuxChiffres(Val(texte.substr(0, barre)));
  const std::string vert = DeuxChiffres(Val(texte.substr(barre + 1, inverse - barre - 1)));
  const std::string bleu = DeuxChiffres(Val(texte.substr(inverse + 1)));
  sortie = "&H00" + bleu + vert + rouge + "&";
}

Couleur CouleurDeTexte(const std::string &texte) {
  const unsigned long bvr = std::stoul(texte.substr(2), nullptr, 16);
  return Rgb(static_cast<int>(bvr & 255), static_cast<int>(bvr >> 8 & 255),
             static_cast<int>(bvr >> 16 & 255));
}

void ConvertirEnPixels(Entier &largeur, Entier &hauteur) {
  largeur = Arrondir(int{largeur} / double{kTwipsParPixel});
  hauteur = Arrondir(int{hauteur} / double{kTwipsParPixel});
}

void PreparerSurface(BoitePicture &boite) {
  Entier l = Arrondir(boite.Width), h = Arrondir(boite.Height);
  ConvertirEnPixels(l, h);
  boite.Dessin.Refaire(l, h, boite.BackColor);
  boite.DessinPose.clear();
}

void ChargerPicture(BoitePicture &boite, const std::string &nom) {
  boite.Dessin = plateforme().Picture(nom);
  boite.Width = boite.Dessin.Largeur() * kTwipsParPixel;
  boite.Height = boite.Dessin.Hauteur() * kTwipsParPixel;
}

void PeindreDessin(BoitePicture &bouton, const std::string &nom, Entier x, Entier y) {
  ConvertirEnPixels(x, y);
  const std::string chemin = session.CheminApplication + "Dessins Boutons/" + nom + ".BMP";
  bouton.Dessin.PaintPicture(plateforme().LoadPicture(chemin), x, y);
  bouton.DessinPose = nom;
  bouton.PoseX = x;
  bouton.PoseY = y;
}

namespace {
// The head of a screw with its slot across, in greys; 0 leaves the ground.
void PoserVis(Surface &cible, int gauche, int haut) {
  static constexpr int kTete[7][7] = {{0, 0, 85, 85, 85, 0, 0},         {0, 85, 255, 227, 227, 85, 0},
                                      {85, 255, 227, 227, 141, 85, 85}, {85, 227, 227, 141, 85, 85, 85},
                                      {85, 227, 141, 85, 85, 168, 85},  {0, 85, 85, 85, 168, 85, 0},
                                      {0, 0, 85, 85, 85, 0, 0}};
  for (int y = 0; y < 7; ++y)
    for (int x = 0; x < 7; ++x)
      if (kTete[y][x] != 0) cible.PSet(gauche + x, haut + y, Gris(kTete[y][x]));
}

void GraverBande(Surface &cible, const BoitePicture &numeros) {
  constexpr int kPas = 16, kMilieu = 8, kHaut = 5, kMarge = 2, kVis = 7;  // pixels
  const EnPixels echelle(cible);
  const int d = cible.Largeur() - 1, b = cible.Hauteur() - 1;
  Entier gauche = Arrondir(numeros.Left), haut = Arrondir(numeros.Top), largeur = Arrondir(numeros.Width),
         rien = 0;
  ConvertirEnPixels(gauche, haut);
  ConvertirEnPixels(largeur, rien);
  for (int x = gauche + kMilieu; x + kMilieu < gauche + largeur; x += kPas) {
    cible.Ligne(x, kHaut, x, haut - 1, Palette::EtainCreux);
    cible.Ligne(x + 1, kHaut, x + 1, haut - 1, Palette::EtainLueur);
  }
  for (int y : {1 + kMarge, b - kMarge - kVis})
    for (int x : {1 + kMarge, d - kMarge - kVis}) PoserVis(cible, x, y);
}

}  // namespace

void EncadrerBande(BoitePicture &bande, const BoitePicture &numeros) {
  PreparerSurface(bande);
  PeindreFondPanneau(bande.Dessin, bande.BackColor);
  GraverBande(bande.Dessin, numeros);
}

void ChargerIndicateur(BoitePicture &boite, int lames) {
  constexpr int kPas = 240, kMilieu = 143, kHaut = 15;  // twips: pitch and first middle of the columns
  constexpr int kDemiChiffre = 46;                      // twips, of this type
  const Police police{"Arial", 8.25, true, false};
  ChargerPicture(boite, "Indicateur" + std::to_string(lames));
  for (int j = 1; j <= lames; ++j) {
    const std::string nombre = std::to_string(j);
    const int moitie = kDemiChiffre * static_cast<int>(nombre.size());
    boite.Dessin.Print(kMilieu + kPas * (j - 1) - moitie, kHaut, nombre, police, Palette::EncreNoire);
  }
}

void PeindreCadreTuiles(Surface &cible) {
  const EnPixels echelle(cible);
  auto tuile = [](int numero) -> const Surface & {
    return plateforme().Picture("BITMAP" + std::to_string(numero));
  };
  const Surface &coin = tuile(775);
  Entier cote(coin.Largeur() * kTwipsParPixel), autre(coin.Hauteur() * kTwipsParPixel);
  ConvertirEnPixels(cote, autre);
  const int t = cote, l = cible.Largeur(), h = cible.Hauteur();
  auto rangee = [&](int y, int gauche, int milieu, int droite) {
    cible.PaintPicture(tuile(gauche), 0, y, t, t);
    // The inner tiles overlap by one column.
    for (int x = t; x <= l - t; x += t - 1) cible.PaintPicture(tuile(milieu), x + 1, y, t, t);
    cible.PaintPicture(tuile(droite), l - t, y, t, t);
  };
  if (l < t) return;
  rangee(0, 775, 776, 777);
  for (int y = t; y <= h - t; y += t) rangee(y, 778, 779, 780);
  rangee(h - t, 787, 788, 789);
}

void PeindreFenetreMessage(Surface &cible) {
  PeindreCadreTuiles(cible);
  const EnPixels echelle(cible);
  const int l = cible.Largeur();
  cible.PaintPicture(plateforme().Picture("BITMAP869"), 20, 20);
  for (int x = 130; x <= l - 160; x += 29) cible.PaintPicture(plateforme().Picture("BITMAP870"), x + 2, 20);
  cible.PaintPicture(plateforme().Picture("BITMAP871"), l - 160, 20);
  cible.Ligne(30, 87, l - 30, 87, Palette::Fil);  // the fourth side of the line that the tiles draw
}

void PeindreFondPrincipal(Surface &cible, const std::string &image, Couleur fond) {
  const EnPixels echelle(cible);
  const int d = cible.Largeur() - 1, b = cible.Hauteur() - 1;
  cible.Effacer(fond);
  if (!image.empty()) cible.PaintPicture(plateforme().Picture(image), 0, 0);
  cible.Cadre(0, 0, d, b, Gris(128));
  cible.Ligne(0, 0, d, 0, Gris(255));
  cible.Ligne(0, 0, 0, b, Gris(255));
}

void PeindreFondInformation(Surface &cible) {
  const EnPixels echelle(cible);
  ChargerRampe({"220/226\\222", "203/139\\13",  "229/156\\12",  "251/171\\12", "230/157\\10", "202/137\\9",
                "173/118\\8",   "144/98\\7",    "115/78\\5",    "15/13\\61",   "33/19\\18",   "41/36\\24",
                "49/52\\30",    "56/67\\36",    "57/79\\44",    "50/84\\56",   "54/94\\71",   "78/112\\93",
                "102/131\\115", "125/150\\136", "149/169\\158", "172/187\\170"});
  PeindreAnneaux(cible, 0, 0, cible.Largeur(), cible.Hauteur(), 21);
}

void PeindreCadreInformation(Surface &cible, Entier gauche, Entier haut, Entier largeur, Entier hauteur) {
  const EnPixels echelle(cible);
  ChargerRampe({"220/226\\222", "172/187\\179", "137/159\\147", "102/131\\115"});
  PeindreAnneaux(cible, gauche, haut, largeur, hauteur, 3);
}

void PeindreCadreRemarque(Surface &cible, Entier gauche, Entier haut, Entier largeur, Entier hauteur) {
  const EnPixels echelle(cible);
  ChargerRampe({"0/16\\33",     "203/139\\13",  "33/24\\8",     "33/24\\8",    "33/24\\8",
                "8/8\\8",       "8/8\\8",       "24/24\\24",    "57/57\\41",   "66/66\\49",
                "74/74\\57",    "99/90\\74",    "115/99\\99",   "123/132\\99", "148/148\\115",
                "165/148\\132", "156/148\\132", "132/132\\140", "90/107\\148", "66/82\\123",
                "49/74\\107",   "24/49\\82",    "16/33\\57",    "8/24\\41",    "0/16\\33"});
  PeindreAnneaux(cible, gauche, haut, largeur, hauteur, 24);
  if (reglages.StyleCadreRemarque != 1) return;
  // The outer rings stay; the inner ones would lie under the heading and under the lines.
  constexpr int kAnneaux = 8;
  cible.PaintPicture(plateforme().Picture("CoinRemarque1"), gauche + kAnneaux, haut + kAnneaux);
  const Surface &coin = plateforme().Picture("CoinRemarque2");
  cible.PaintPicture(coin, gauche + largeur - kAnneaux - coin.Largeur(), haut + kAnneaux);
}

void ArrondirCoins(Surface &cible, int rayon, Couleur bord, Couleur dedans) {
  const int d = cible.Largeur() - 1, b = cible.Hauteur() - 1;
  for (int y = 0; y <= rayon; ++y)
    for (int x = 0; x <= rayon; ++x) {
      const double ecart = std::hypot(rayon - x, rayon - y) - rayon;
      if (ecart < -1.5) continue;
      const Couleur c = ecart > 0.5 ? Palette::CleMagenta : ecart > -0.5 ? bord : dedans;
      for (const auto &[u, v] : {std::pair{x, y}, {d - x, y}, {x, b - y}, {d - x, b - y}})
        cible.PSet(u, v, c);
    }
}

void PeindreDegrade(Surface &cible) {
  const EnPixels echelle(cible);
  constexpr int kMarge = 2;  // leaves the frame that stands
  const bool vertical = reglages.DegradeVertical;
  const int debut = vertical ? 200 : 0;
  const int fin = (vertical ? cible.Hauteur() : cible.Largeur()) - (vertical ? kMarge : 0);
  if (fin <= debut) return;
  auto composante = [&](int i, int de, int a) {
    return static_cast<int>(ArrondirAuPair(de + static_cast<double>(a - de) / (fin - debut) * (i - debut)));
  };
  for (int i = debut; i < fin; ++i) {
    const Couleur c = Rgb(composante(i, reglages.DegradeRougeDebut, reglages.DegradeRougeFin),
                          composante(i, reglages.DegradeVertDebut, reglages.DegradeVertFin),
                          composante(i, reglages.DegradeBleuDebut, reglages.DegradeBleuFin));
    if (vertical)
      cible.Ligne(kMarge, i, cible.Largeur() - kMarge, i, c);
    else
      cible.Ligne(i, 0, i, cible.Hauteur(), c);
  }
}
