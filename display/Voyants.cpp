#include "display/Voyants.h"

#include "base/TexteNumerique.h"
#include "controls/Palette.h"
#include "kit/FondFenetre.h"
#include "session/Commandes.h"
#include "session/FenetreTissagePrincipale.h"

namespace {
constexpr int kHauteurSurvol = kHauteurBouton + kGonflement;  // twips

// The socket around the lamp tells its state by shape too: a disc when it is lit, a ring when it is not.
void PeindreDouille(Surface &face, int l, int h, bool allume, bool etroite) {
  // Columns of the round from the left, row by row.
  constexpr int kRetraits[] = {3, 2, 1, 0, 0, 0, 0, 1, 2, 3}, kRetraitsEtroits[] = {2, 1, 0, 0, 0, 0, 1, 2};
  const int diametre = etroite ? 8 : 10, marge = etroite ? 1 : 0;
  const auto retrait = [&](int y) { return etroite ? kRetraitsEtroits[y] : kRetraits[y]; };
  const auto dedans = [&](int x, int y) {
    return y >= 0 && y < diametre && x >= retrait(y) && x < diametre - retrait(y);
  };
  for (int y = 0; y < diametre; ++y)
    for (int x = retrait(y); x < diametre - retrait(y); ++x) {
      const bool plein = dedans(x - 1, y) && dedans(x + 1, y) && dedans(x, y - 1) && dedans(x, y + 1);
      const Couleur bord = allume ? Palette::VertNuit : Palette::Brique;
      const Couleur fond = allume ? Palette::VoyantVert : Palette::EtainClair;
      face.PSet(l - 12 + marge + x, h - 14 + marge + y, plein ? fond : bord);
    }
}

// From the bottom right corner of an inner size of l x h pixels.
void PeindreVoyant(Surface &face, int l, int h, Couleur couleur, bool etroite) {
  const EnPixels echelle(face);
  PeindreDouille(face, l, h, couleur == Palette::VoyantVert, etroite);
  face.Boite(l - 9, h - 12, l - 6, h - 12, Palette::EtainBord);
  face.Boite(l - 10, h - 12, l - 10, h - 8, Palette::EtainBord);
  face.Boite(l - 9, h - 11, l - 6, h - 8, couleur);
}
}  // namespace

void ChangerVoyant(Entier index, bool etat) {
  fenetre.VoyantAllume = etat;
  BoitePicture &bouton = fenetre.BoutonProgramme[index];
  const Entier hauteur = Arrondir(bouton.Height);
  if (hauteur != kHauteurBouton && hauteur != kHauteurSurvol) return;
  fenetre.Voyants[index] = etat;
  bouton.EnMarche = etat;
  // The lamp of a hovered button stays where it was.
  const int gonflement = hauteur == kHauteurSurvol && session.SurvolActif ? kGonflement / kTwipsParPixel : 0;
  PeindreVoyant(bouton.Dessin, bouton.Dessin.Largeur() - gonflement, bouton.Dessin.Hauteur() - gonflement,
                etat ? Palette::VoyantVert : Palette::VoyantRouge, Fiche(index).bagueEtroite);
}

void EteindreVoyantsMode() {
  for (int mode : {Commande::TisserToile, Commande::TisserPatron, Commande::TisserPatronEtToile})
    ChangerVoyant(mode, false);
}

void VoyantsArretA() {
  ChangerVoyant(Commande::Arreter, true);
  ChangerVoyant(Commande::Demarrer, false);
}

void VoyantsArretB() {
  ChangerVoyant(Commande::Demarrer, false);
  ChangerVoyant(Commande::Arreter, true);
}

void VoyantsDepart() {
  ChangerVoyant(Commande::Demarrer, true);
  ChangerVoyant(Commande::Arreter, false);
}

void VoyantsArretC() {
  ChangerVoyant(Commande::Arreter, false);
  ChangerVoyant(Commande::Demarrer, true);
}
