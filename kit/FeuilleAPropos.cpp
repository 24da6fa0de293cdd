#include "kit/FeuilleAPropos.h"

#include "base/TexteNumerique.h"
#include "controls/Palette.h"
#include "kit/Fabricant.h"
#include "kit/FondFenetre.h"
#include "kit/ModuleTransparence.h"
#include "kit/ProcedureConnexe.h"
#include "platform/Plateforme.h"
#include "session/FenetreTissagePrincipale.h"
#include "session/ModuleTissage.h"

FeuilleAPropos feuilleAPropos;

namespace {
constexpr int kVitesse = 200;                 // milliseconds
constexpr int kPas = 60, kFinCourse = -2400;  // twips
constexpr int kSite = 4, kCourriel = 5;       // labels
constexpr Couleur kBlanc = Gris(255), kBleu = Rgb(0, 0, 255);

void BoutonFin_Click() { Decharger(feuilleAPropos); }

void tmrDepart_Timer() {
  feuilleAPropos.tmrDepart.Interval(0);
  feuilleAPropos.tmrTexte.Interval(feuilleAPropos.VitesseTexte);
}

void tmrTexte_Timer() {
  BoitePicture &bande = feuilleAPropos.picTexte;
  if (bande.Top <= kFinCourse)
    bande.Top = 0;
  else
    bande.Top -= kPas;
}

// The pointer of the window is that of all its controls.
void Label1_MouseMove(int index) {
  if (index < 1 || index > 9) return;
  FeuilleAPropos &f = feuilleAPropos;
  f.tmrTexte.Interval(0);
  f.MousePointer = kPointeurPerso;
  f.MouseIcon = "CurseurMain";
}

void QuitterLabels(int, double, double) {
  FeuilleAPropos &f = feuilleAPropos;
  // Not at every move: setting the interval starts its period anew, and the text would stand still.
  if (f.tmrTexte.Interval() != f.VitesseTexte) f.tmrTexte.Interval(f.VitesseTexte);
  f.MousePointer = kPointeurDefaut;
  f.MouseIcon.clear();
}

void Label1_Click(int index) {
  if (index == kSite) plateforme().OuvrirAdresse(Fabricant::Site);
  if (index == kCourriel)
    plateforme().OuvrirAdresse(std::string("mailto:") + Fabricant::Courriel + "?subject=Vélo");
}

void Lier(FeuilleAPropos &f) {
  f.tmrDepart.Timer = tmrDepart_Timer;
  f.tmrTexte.Timer = tmrTexte_Timer;
  f.MouseMove = f.Picture1.MouseMove = f.Picture2.MouseMove = f.Image2.MouseMove = QuitterLabels;
  for (int i : {0, 2, 3, 4, 5}) {
    f.Label1[i].MouseMove = [i](int, double, double) { Label1_MouseMove(i); };
    if (i == kSite || i == kCourriel) f.Label1[i].Click = [i] { Label1_Click(i); };
  }
  f.KeyDown = [](int touche, int) {
    if (touche == Touche::Echappement) BoutonFin_Click();
  };
  f.Image2.Click = f.BoutonFin.Click = BoutonFin_Click;
  f.Image2.NomAccessible = Selon("Sortie", "Exit");
  f.BoutonFin.MouseDown = [](int, double, double) { EnfoncerBouton(feuilleAPropos.BoutonFin); };
  f.BoutonFin.MouseUp = [](int, double, double) { RelacherBouton(feuilleAPropos.BoutonFin); };
}

int EnPixelsDe(double twips) { return static_cast<int>(twips) / kTwipsParPixel; }

// A turned rod, lit along its length; it lies across or stands.
void PeindreBaton(Surface &s, int x, int y, int longueur, bool debout) {
  constexpr Couleur kTons[] = {
      Palette::BoisSombre, Palette::BoisMiel,  Palette::BoisBlond, Palette::BoisClair, Palette::BoisClair,
      Palette::BoisBlond,  Palette::BoisBlond, Palette::BoisMiel,  Palette::BoisMiel,  Palette::BoisMoyen,
      Palette::BoisMoyen,  Palette::BoisBrun,  Palette::BoisSombre};
  int rang = 0;
  for (const Couleur ton : kTons) {
    if (debout)
      s.Ligne(x + rang, y, x + rang, y + longueur - 1, ton);
    else
      s.Ligne(x, y + rang, x + longueur - 1, y + rang, ton);
    ++rang;
  }
}

constexpr int kBaton = 13;         // pixels, across a rod
constexpr int kEpaisseurBout = 7;  // its dark end, above and below the strip

// What shows of the rods beyond the strip, and on the step of the ground two more.
void PeindreBouts(Surface &s, int decalage) {
  const int gauche = EnPixelsDe(feuilleAPropos.Picture2.Left) - decalage;
  const int haut = EnPixelsDe(feuilleAPropos.Picture2.Top) - decalage;
  const int droite = gauche + EnPixelsDe(feuilleAPropos.Picture2.Width) - kBaton;
  const int bas = haut + EnPixelsDe(feuilleAPropos.Picture2.Height);
  for (int x : {gauche, droite})
    for (int y : {haut - kEpaisseurBout, bas})
      s.Boite(x + 2, y, x + kBaton - 3, y + kEpaisseurBout - 1, Palette::BoisSombre);
}

void PeindreFond(FeuilleAPropos &f) {
  Entier l = Arrondir(f.Width), h = Arrondir(f.Height);
  ConvertirEnPixels(l, h);
  f.Dessin.Refaire(l, h, f.BackColor);
  PeindreFondPanneau(f.Dessin, Gris(192));
  reglages.DegradeRougeDebut = reglages.DegradeVertDebut = reglages.DegradeBleuDebut = 255;
  reglages.DegradeRougeFin = reglages.DegradeVertFin = reglages.DegradeBleuFin = 128;
  reglages.DegradeVertical = true;
  PeindreDegrade(f.Dessin);
  const EnPixels echelle(f.Dessin);
  constexpr int kMarche = 200;  // row of the ground's step
  PeindreBaton(f.Dessin, 0, kMarche - kBaton / 2, l, false);
  PeindreBouts(f.Dessin, 0);
  ArrondirCoins(f.Dessin, 11, Gris(0), kBlanc);
}

// The loom on the grey body, its name on the castle, and a line around it that stands off the ground.
void PeindreCorps(BoitePicture &corps) {
  PreparerSurface(corps);
  Surface &s = corps.Dessin;
  s.PaintPicture(plateforme().Picture("FondAPropos"), 0, 0);
  s.Cadre(0, 0, s.Largeur() - 1, s.Hauteur() - 1, Palette::EtainBord);
  PeindreBouts(s, EnPixelsDe(feuilleAPropos.Picture1.Left));
  const Police nom{"Arial", 20, true, false};
  s.Print(2970, 336, "Brandis", nom, Palette::Creme);
  s.Print(2955, 321, "Brandis", nom, Palette::Encre);
}

// The name tapes of the strip: green under the white lines, ivory under the links, stitched down at their
// ends.
void PeindreRubans(FeuilleAPropos &f) {
  constexpr int kLargeur = 252, kHaut = 1, kBas = 22, kPoint = 3;  // pixels
  PreparerSurface(f.picTexte);
  Surface &s = f.picTexte.Dessin;
  const EnPixels echelle(s);
  for (int i : {0, 2, 3, 4, 5}) {
    const Etiquette &e = f.Label1[i];
    if (!e.Visible) continue;
    const bool lien = i == kSite || i == kCourriel;
    const int y = EnPixelsDe(e.Top) - kHaut, b = y + kBas;
    s.Boite(0, y, kLargeur, b, lien ? Palette::Creme : Palette::Vert);
    s.Ligne(0, y, kLargeur, y, lien ? Palette::BoisClair : Palette::VertPale);
    s.Ligne(0, b, kLargeur, b, lien ? Palette::BoisMiel : Palette::VertNuit);
    s.Ligne(0, b + 1, kLargeur, b + 1, Palette::RemarqueBleu);
    for (int p = y + 2; p + 1 < b; p += 2 * kPoint)
      s.Boite(kLargeur - 4, p, kLargeur - 4, p + kPoint - 1, lien ? Palette::Vert : Palette::Orange);
  }
  // The right rod goes down the whole strip, so that it stands still while the strip moves.
  const int rails = EnPixelsDe(f.Picture2.Width) - EnPixelsDe(f.picTexte.Left) - kBaton;
  PeindreBaton(s, rails, 0, s.Hauteur(), true);
  PreparerSurface(f.Picture2);
  Surface &fenetreTexte = f.Picture2.Dessin;
  const EnPixels aussi(fenetreTexte);
  PeindreBaton(fenetreTexte, 0, 0, fenetreTexte.Hauteur(), true);
  PeindreBaton(fenetreTexte, fenetreTexte.Largeur() - kBaton, 0, fenetreTexte.Hauteur(), true);
}

void PeindreBoutonFin(BoitePicture &bouton) {
  const std::string texte = Selon("Sortie", "Exit");
  PreparerSurface(bouton);
  PeindreFaceClaire(bouton.Dessin);
  reglages.BoutonAvecImage = true;
  reglages.BoutonTexteDecale = -50;
  EcrireTexteBouton(bouton, texte, reglages.BoutonAvecImage, "", 1, Gris(0), kBlanc);
  bouton.NomAccessible = texte;
}
}  // namespace

FeuilleAPropos::FeuilleAPropos() {
  Width = 8580;
  Height = 5400;
  Fenetre::Caption = "Brandis";
  Placer(Picture1, 405, 375, 7770, 4605);
  Picture1.BackColor = Gris(128);
  Placer(Image1, 945, 1740, 2100, 1275);
  Image1.Picture = "Image1APropos";
  Placer(BoutonFin, 6255, 3855, 1110, 375);
  Placer(Picture2, 3705, 2190, 4710, 1200);
  Placer(picTexte, 345, 30, 3885, 2385);
  picTexte.BackColor = Picture2.BackColor = Rgb(192, 192, 255);
  constexpr int kHauts[6] = {255, 0, 701, 1147, 1593, 2040};
  const char *const textes[6] = {
      "Version Béta 1.1", "", Fabricant::RaisonSociale, Fabricant::Nom, Fabricant::Site, Fabricant::Courriel};
  for (int i : {0, 2, 3, 4, 5}) {
    Etiquette &e = Label1[i];
    Placer(e, 15, kHauts[i], 2805, 315);
    e.Caption = textes[i];
    e.Visible = !e.Caption.empty();
    e.Font = {"Arial", 9.75, true, false};
    e.NomAccessible = e.Caption;
    e.ForeColor = i == kSite || i == kCourriel ? kBleu : kBlanc;
  }
}

void FeuilleAPropos::Visiter(Visiteur &v) {
  v.Voir("Picture1", Picture1, *this);
  v.Voir("Image1", Image1, Picture1);
  v.Voir("Image2", Image2, Picture1);
  v.Voir("BoutonFin", BoutonFin, Picture1);
  v.Voir("Picture2", Picture2, *this);  // lies across the body's edge
  v.Voir("picTexte", picTexte, Picture2);
  for (int i : {0, 2, 3, 4, 5}) v.Voir("Label1(" + std::to_string(i) + ")", Label1[i], picTexte);
  v.Voir("tmrDepart", tmrDepart);
  v.Voir("tmrTexte", tmrTexte);
  v.Voir("Timer3", Timer3);
}

void FeuilleAPropos::Load() {
  Lier(*this);
  VitesseTexte = kVitesse;
  PeindreFond(*this);
  Contour = CreerRegionImage(Dessin);
  Picture1.Top = Picture1.Left = 400;
  PeindreCorps(Picture1);
  Placer(Image2, 0, 0, Picture1.Width, Picture1.Height);
  picTexte.Width = Picture2.Width;
  PeindreRubans(*this);
  PeindreBoutonFin(BoutonFin);
  Top = fenetre.PicPourTissage.Top + fenetre.Top;
  Left = fenetre.PicPourTissage.Left + fenetre.Left - 1000;
  tmrDepart.Interval(1);
}

void AfficherAPropos() {
  FeuilleAPropos &f = Charger(feuilleAPropos);
  f.Visible = true;
  plateforme().MontrerModal(f);
}
