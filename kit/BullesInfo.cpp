#include "kit/BullesInfo.h"

#include <set>

#include "kit/FondFenetre.h"
#include "kit/ModuleTransparence.h"
#include "platform/Plateforme.h"
#include "session/FenetreTissagePrincipale.h"
#include "session/ModuleTissage.h"

BulleInfoBasGauche bulleInfoBasGauche;
BulleInfoHautDroit bulleInfoHautDroit;
BulleInfoHautGauche bulleInfoHautGauche;
BulleInfoBasDroit bulleInfoBasDroit;

namespace {
constexpr int kLignes = 6;
constexpr int kLargeur = 2280, kHauteur = 1530, kHauteurLigne = 240;  // twips
// Where the main window stood when the places of the bubbles were measured, in twips.
constexpr double kGaucheMesure = 1620, kHautMesure = 975;

BulleInfo &ChargerBulle(CoinBulle coin) {
  switch (coin) {
    case CoinBulle::BasGauche:
      return Charger(bulleInfoBasGauche);
    case CoinBulle::HautDroit:
      return Charger(bulleInfoHautDroit);
    case CoinBulle::HautGauche:
      return Charger(bulleInfoHautGauche);
    case CoinBulle::BasDroit:
      break;
  }
  return Charger(bulleInfoBasDroit);
}

// Done for the bubble of this one corner, whatever the corner of the row.
void ViderBasDroit() {
  BulleInfo &b = Charger(bulleInfoBasDroit);
  for (int i = 1; i <= kLignes; ++i) b.LBlMessage[i].Caption.clear();
}

void EcrireLignes(BulleInfo &b, const TexteBulle &t) {
  bool nommees[kLignes + 1] = {};
  for (const LigneBulle &l : t.lignes) {
    if (l.numero == 0) break;
    nommees[l.numero] = true;
    if (l.texte) b.LBlMessage[l.numero].Caption = l.texte;
  }
  for (int i = 1; i <= kLignes; ++i)
    if (!nommees[i]) b.LBlMessage[i].Caption.clear();
}

struct Place {
  double haut, gauche;
};

// Of controls inside a panel, whose own place is added by hand.
Place PlaceDansPanneau(FamilleBulle famille, double t, double l, double h, double w) {
  const BoitePicture &nor = fenetre.PicNor, &configuration = fenetre.FenetreConfiguration;
  switch (famille) {
    case FamilleBulle::E:
      return {t + configuration.Top - h + 150, l + configuration.Left + w + 1500};
    case FamilleBulle::F:
      return {t + nor.Top - h + 150, l + nor.Left + w + 1500};
    // Sideways too by the panel's Top.
    case FamilleBulle::G:
      return {t + nor.Top - h + 150, l + nor.Top + w + 300};
    default:
      return {t + nor.Top - h + 170, l + nor.Left + w + 1500};
  }
}

// By the sizes of the moment: those of a hovered button are the swollen ones.
Place CalculerPlace(FamilleBulle famille, const Controle &c) {
  const double t = c.Top, l = c.Left, h = c.Height, w = c.Width;
  const BoitePicture &survole = fenetre.BoutonProgramme[session.BoutonSurvole];
  switch (famille) {
    case FamilleBulle::A:
      return {h + t + 800, l - w + 850};
    case FamilleBulle::B:
      return {t - h + 150, w + l + 1500};
    case FamilleBulle::C:
      return {t - h - 150, w + l};
    case FamilleBulle::D:
      return {h + t + 800, l - w + 250};
    case FamilleBulle::I:
      return {h + t + 850, l - w + 350};
    case FamilleBulle::J:
      return {t - survole.Height + 100, l + w + 1550};
    case FamilleBulle::K:
      return {1400, 4900};
    case FamilleBulle::L:
      return {t - 200, l - 200};
    default:
      return PlaceDansPanneau(famille, t, l, h, w);
  }
}

// Whether a control can be seen: it and all that it lies in.
struct ChercheurVue : Visiteur {
  explicit ChercheurVue(const Controle &c) : cherche(&c) {}
  void Voir(const std::string &, Controle &c, Controle &parent) override {
    if (!c.Visible || caches.contains(&parent)) caches.insert(&c);
    if (&c == cherche) vu = !caches.contains(&c);
  }
  void Voir(const std::string &, Minuterie &) override {}
  const Controle *cherche;
  std::set<const Controle *> caches;
  bool vu = false;
};

// Placed before the mirror shows it, so that it never flashes elsewhere.
void Montrer(BulleInfo &b, const Place &place) {
  b.Visible = true;
  b.Top = place.haut;
  b.Left = place.gauche;
  b.DecalageX = fenetre.GaucheInitial - kGaucheMesure;
  b.DecalageY = fenetre.HautInitial - kHautMesure;
  plateforme().Montrer(b);
}

void AfficherRangee(int source, const Controle &controle) {
  const RangeeBulle &rangee = RangeeDe(source);
  const TexteBulle &textes = TexteDe(source);
  EcrireRemarque(controle, StatutDe(source));
  if (!session.BullesActives) return;
  BulleInfo &b = ChargerBulle(rangee.coin);
  EcrireLignes(b, textes);
  Montrer(b, CalculerPlace(rangee.famille, controle));
}
}  // namespace

BulleInfo::BulleInfo(const char *picture, const Ligne (&lignes)[6]) : picture_(picture) {
  Width = kLargeur;
  Height = kHauteur;
  SansSouris = true;  // its tail may lie on the command that it explains
  Placer(PicTransparente, 0, 0, kLargeur, kHauteur);
  for (int i = 1; i <= kLignes; ++i) {
    const Ligne &l = lignes[i - 1];
    Etiquette &e = LBlMessage[i];
    Placer(e, l.gauche, l.haut, l.largeur, kHauteurLigne);
    e.Caption = "LblMessage";
    e.Font = {"Arial", 8.25, true, false};
    e.Alignment = Alignement::Centre;
  }
}

void BulleInfo::Visiter(Visiteur &v) {
  v.Voir("PicTransparente", PicTransparente, *this);
  for (int i = 1; i <= kLignes; ++i)
    v.Voir("LBlMessage(" + std::to_string(i) + ")", LBlMessage[i], PicTransparente);
}

void BulleInfo::Load() {
  ChargerPicture(PicTransparente, picture_);
  Dessin = PicTransparente.Dessin;
  FaconnerFenetre(*this, PicTransparente);
}

BulleInfoBasGauche::BulleInfoBasGauche()
    : BulleInfo("BulleInfoBasGauche", {{495, 150, 1305},
                                       {150, 345, 1995},
                                       {0, 540, 2280},
                                       {-30, 750, 2355},
                                       {105, 945, 2070},
                                       {270, 1140, 1755}}) {}

BulleInfoHautDroit::BulleInfoHautDroit()
    : BulleInfo("BulleInfoHautDroit", {{525, 165, 1305},
                                       {180, 360, 1995},
                                       {30, 555, 2280},
                                       {0, 765, 2355},
                                       {135, 960, 2070},
                                       {300, 1155, 1755}}) {}

BulleInfoHautGauche::BulleInfoHautGauche()
    : BulleInfo("BulleInfoHautGauche", {{675, 195, 1035},
                                        {195, 375, 1995},
                                        {45, 555, 2280},
                                        {15, 750, 2355},
                                        {150, 930, 2070},
                                        {315, 1110, 1755}}) {
  LBlMessage[1].Height = 210;
}

BulleInfoBasDroit::BulleInfoBasDroit()
    : BulleInfo("BulleInfoBasDroit", {{465, 135, 1305},
                                      {120, 330, 1995},
                                      {-30, 525, 2280},
                                      {-60, 735, 2355},
                                      {75, 930, 2070},
                                      {240, 1125, 1755}}) {}

void AfficherBulleBouton(Entier index) {
  ViderBasDroit();
  if (index < 0 || index > fenetre.BoutonProgramme.Dernier()) return;
  AfficherRangee(index, fenetre.BoutonProgramme[index]);
}

void AfficherBulleAide() {
  ViderBasDroit();
  AfficherRangee(SourceBulle::BoutonAide, fenetre.BoutonAide);
}

void AfficherBulleDrapeau(Entier index) {
  if (index == 1) AfficherRangee(SourceBulle::DrapeauFrancais, fenetre.Drapeau[1]);
  if (index == 2) AfficherRangee(SourceBulle::DrapeauAnglais, fenetre.Drapeau[2]);
}

void AfficherBulleBarre() { AfficherRangee(SourceBulle::BarreDeplacement, fenetre.BarreDeplacement); }

void AfficherBulleLogo() {
  ViderBasDroit();
  AfficherRangee(SourceBulle::LogoNor, fenetre.LogoNor);
}

void EcrireRemarque(const Controle &controle, Paire texte) {
  fenetre.Statut = {&controle, texte};
  fenetre.Remarque.Caption = texte.EnVigueur();
}

void EffacerRemarque() {
  fenetre.Statut = {};
  fenetre.Remarque.Caption.clear();
}

void AccorderRemarque() {
  const SourceRemarque statut = fenetre.Statut;
  if (!statut.controle) return;
  ChercheurVue chercheur(*statut.controle);
  fenetre.Visiter(chercheur);
  if (chercheur.vu)
    EcrireRemarque(*statut.controle, statut.texte);
  else
    EffacerRemarque();
}

void FermerBulles() {
  EffacerRemarque();
  using enum CoinBulle;
  for (CoinBulle coin : {HautDroit, HautGauche, BasGauche, BasDroit}) {
    BulleInfo &b = ChargerBulle(coin);
    if (b.Visible) Decharger(b);
  }
}
