// The windows that speak, the help, outlines and painters.
#include "Banc.h"
#include "display/Voyants.h"
#include "events/EvenementsSurvol.h"
#include "kit/Fabricant.h"
#include "kit/ModuleTransparence.h"
#include "mainwindow/PanneauDiagnostic.h"

namespace {
std::string LignesDe(const BulleInfo &b) {
  std::string s;
  for (int i = 1; i <= 6; ++i) s += (i > 1 ? "|" : "") + b.LBlMessage[i].Caption;
  return s;
}

// '.' is the transparent grey, any other letter a colour of its own.
Surface DeTrame(const V &lignes) {
  Surface s(static_cast<int>(lignes[0].size()), static_cast<int>(lignes.size()), Gris(1));
  for (int y = 0; y < s.Hauteur(); ++y)
    for (int x = 0; x < s.Largeur(); ++x) {
      const char c = lignes[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
      if (c != '.') s.PSet(x, y, Gris(c));
    }
  return s;
}

std::vector<Couleur> Points(const Surface &s) {
  std::vector<Couleur> points;
  for (int i = 0; i < s.Largeur() * s.Hauteur(); ++i)
    points.push_back(s.Point(i % s.Largeur(), i / s.Largeur()));
  return points;
}

class Fenetres : public Banc {
 protected:
  void SetUp() override {
    Banc::SetUp();
    LancerProgramme();
    session.BullesActives = true;
  }
  static void Bouger(Controle &c) { c.MouseMove(0, 30, 30); }
};
}  // namespace

TEST_F(Fenetres, ChaqueCommandeASonAide) {
  for (int i = 0; i < SourceBulle::Nombre; ++i) {
    const auto &[francais, anglais] = RangeeDe(i).textes;
    for (const TexteBulle *t : {&francais, &anglais}) {
      const bool duFabricant = i == SourceBulle::LogoNor && t == &francais;
      EXPECT_EQ(*t->statut == 0, duFabricant && !*Fabricant::NomEtSite) << i;
      for (const LigneBulle &l : t->lignes) EXPECT_TRUE(l.numero >= 0 && l.numero <= 6) << i;
    }
  }
  EXPECT_EQ(Echec([] { RangeeDe(SourceBulle::Nombre); }), Erreur::Indice);
}

TEST_F(Fenetres, LeChampDuPortNommeLAppareil) {
  ListeChoix &champ = fenetre.ComConfiguration[1];
  champ.Text = "COM 2";
  champ.Click();
  EXPECT_EQ(fenetre.Remarque.Caption, "COM 2: ttyUSB0, USB adapter");
  session.LangueFrancaise = true;
  champ.Text = "COM 3";
  Bouger(champ);
  EXPECT_EQ(fenetre.Remarque.Caption, "COM 3 : aucun appareil");
  fenetre.FenetreConfiguration.MouseMove(0, 30, 30);
  EXPECT_EQ(fenetre.Remarque.Caption, "");
  champ.Text.clear();
  champ.GotFocus();
  EXPECT_EQ(fenetre.Remarque.Caption, "");
}

TEST_F(Fenetres, ToutCeQuiAgitAUnNomDansLesDeuxLangues) {
  struct : Visiteur {
    std::map<std::string, std::string> noms;
    void Voir(const std::string &nom, Controle &c, Controle &) override {
      const bool agit = c.Click || c.genre() == Genre::Texte || c.genre() == Genre::Case;
      if (agit || c.genre() == Genre::Liste) noms[nom] = c.NomAccessible;
    }
    void Voir(const std::string &, Minuterie &) override {}
  } anglais, francais;
  fenetre.Visiter(anglais);
  fenetre.Drapeau[1].Click();
  fenetre.Visiter(francais);
  for (const auto &[nom, texte] : francais.noms) {
    EXPECT_NE(texte, "") << nom;
    const bool neutre = nom == "txtTerm";
    EXPECT_EQ(texte == anglais.noms[nom], neutre) << nom;
  }
}

TEST_F(Fenetres, UnAutreNombreDeLamesLaisseLaBande) {
  for (const auto &[lames, largeur] : {std::pair{16, 4250}, {8, 4250}, {32, 4250}, {24, 6205}, {12, 6205}}) {
    session.NombreLames = lames;
    AdapterNombreLames();
    EXPECT_EQ(fenetre.PicPourControle2.Width, largeur) << lames;
    EXPECT_EQ(fenetre.CheckSelenoide[17].Visible, largeur == 6205) << lames;
  }
}

TEST_F(Fenetres, UnVoyantQuiChangeSeVoit) {
  BoitePicture &b = fenetre.BoutonProgramme[Commande::TisserPatron];
  const int l = b.Dessin.Largeur(), h = b.Dessin.Hauteur();
  for (bool survole : {false, true}) {
    if (survole) Bouger(b);  // a lamp stays where it was when the button grows
    for (bool etat : {true, false}) {
      const auto version = b.Dessin.Version();
      ChangerVoyant(Commande::TisserPatron, etat);
      EXPECT_NE(b.Dessin.Version(), version) << "what the screen goes by";
      EXPECT_EQ(fenetre.Voyants[Commande::TisserPatron], etat);
      EXPECT_EQ(b.Dessin.Point(l - 8, h - 10), etat ? Rgb(10, 239, 123) : Rgb(250, 3, 3));
    }
  }
  BoitePicture &autre = fenetre.BoutonProgramme[Commande::TisserToile];
  ChangerVoyant(Commande::TisserToile, true);
  EXPECT_EQ(autre.Dessin.Point(autre.Dessin.Largeur() - 8, autre.Dessin.Hauteur() - 10), Rgb(10, 239, 123))
      << "another button has not grown";
  b.Height = 500;
  const auto version = b.Dessin.Version();
  ChangerVoyant(Commande::TisserPatron, true);
  EXPECT_TRUE(b.Dessin.Version() == version && !fenetre.Voyants[Commande::TisserPatron])
      << "of another height it has no lamp";
}

TEST_F(Fenetres, LaProgressionSEnVaAvecLeDepart) {
  EXPECT_EQ(session.OptionTissage, 0) << "no plan is built, whose end would hide it too";
  EXPECT_TRUE(attente.Chargee && !attente.Visible);
}

TEST_F(Fenetres, VieDesBulles) {
  session.LangueFrancaise = true;
  AfficherBulleBouton(Commande::Arreter);
  AfficherBulleBouton(Commande::Demarrer);  // leaves one line of the other as it was
  EXPECT_EQ(LignesDe(bulleInfoBasGauche), "|du tissage\"|Début|le tissage||");
  FermerBulles();
  EXPECT_TRUE(!bulleInfoBasGauche.Chargee && bulleInfoHautDroit.Chargee && bulleInfoBasDroit.Chargee);
  AfficherBulleBouton(Commande::Demarrer);
  EXPECT_EQ(LignesDe(bulleInfoBasGauche), "|du tissage\"|Début|LblMessage||");
  Bouger(fenetre.LogoNor);
  Bouger(fenetre.BoutonAide);  // empties the bubble of another corner
  EXPECT_EQ(LignesDe(bulleInfoBasDroit), "|||||");
}

TEST_F(Fenetres, UnBoutonGonfleEtReprendSaTaille) {
  for (int i : {Commande::OuvrirMotif, Commande::TisserToile}) {
    BoitePicture &b = fenetre.BoutonProgramme[i];
    const double l = b.Width, gauche = b.Left, haut = b.Top;
    const auto face = Points(b.Dessin);
    Bouger(b);
    EXPECT_TRUE(b.Width == l + 80 && b.Height == 515);
    const auto version = b.Dessin.Version();
    b.MouseDown(kBoutonGauche, 0, 0);
    Bouger(b);
    Bouger(fenetre.BoutonProgramme[Commande::Reprendre]);
    EXPECT_EQ(b.Dessin.Version(), version);
    EXPECT_EQ(std::pair(b.Left, b.Top), std::pair(gauche + 15, haut + 15));
    b.MouseUp(kBoutonGauche, 0, 0);
    Bouger(i == Commande::OuvrirMotif ? fenetre.Picture2 : fenetre.FenetreConfiguration);
    EXPECT_TRUE(b.Left == gauche && b.Top == haut && b.Width == l && b.Height == 435);
    EXPECT_EQ(Points(b.Dessin), face);
  }
}

TEST_F(Fenetres, IconeDeNotification) {
  FenetreTissagePrincipale &f = fenetre;
  const auto message = [&](double numero) { f.MouseMove(0, numero * kTwipsParPixel, 0); };
  for (int etat : {1, 2}) {
    f.WindowState = etat;
    f.Resize();
    message(514);
    EXPECT_FALSE(f.Visible);
    message(513);
    EXPECT_TRUE(f.Visible && f.WindowState == 0);
    std::string bulle = std::string("Brandis") + '\0';
    bulle.resize(64, ' ');
    EXPECT_EQ(std::exchange(pf.icones, {}), (decltype(pf.icones){{0, bulle}, {2, bulle}})) << etat;
  }
  f.Resize();
  pf.iconePossible = false;
  f.WindowState = 1;
  f.Resize();
  EXPECT_TRUE(f.Visible && pf.icones.size() == 1) << "nothing could bring it back";
}

TEST_F(Fenetres, ApresUnDeplacementLAideSEteint) {
  const BoitePicture &ouvrir = fenetre.BoutonProgramme[Commande::OuvrirMotif];
  const double largeur = ouvrir.Width;
  Bouger(fenetre.BoutonProgramme[Commande::OuvrirMotif]);
  EXPECT_TRUE(session.SurvolActif && ouvrir.Width > largeur);
  fenetre.Drapeau[2].Click();
  EXPECT_TRUE(!session.SurvolActif && ouvrir.Width == largeur) << "a repaint ends the hover";
  Bouger(fenetre.BarreDeplacement);
  EXPECT_TRUE(bulleInfoHautGauche.Visible);
  fenetre.Top += 1;
  Bouger(fenetre.LogoNor);
  EXPECT_FALSE(session.BullesActives || bulleInfoHautGauche.Visible || bulleInfoBasDroit.Visible);
  Bouger(fenetre.LogoNor);  // with help off a vertical move does not count, and the status line speaks
  EXPECT_EQ(fenetre.Remarque.Caption, "Button Information");
  fenetre.Left += 1;
  Bouger(fenetre.BoutonProgramme[Commande::OuvrirMotif]);
  EXPECT_FALSE(session.SurvolActif);
}

TEST_F(Fenetres, MessageCourt) {
  FenetreMessageCourt &f = fenetreMessageCourt;
  Decharger(f);
  session.Etat = 48;
  AfficherMessageCourt("Erreur", "un");
  EXPECT_EQ(f.Timer1.Interval(), 1000);
  f.Timer1.Timer();
  f.Timer1.Timer();
  session.Etat = 16;
  AfficherMessageCourt("Error", "deux");
  EXPECT_EQ(pf.messages.back(), "Error|deux");
  EXPECT_EQ(f.DessinMessage.Picture, "BITMAP280");
  f.Timer1.Timer();
  EXPECT_TRUE(f.Visible);
  f.Timer1.Timer();
  EXPECT_FALSE(f.Visible || f.Chargee || f.Timer1.Interval());
  for (int i = 1; i <= 5; ++i) {
    AfficherMessageCourt("Error", "trois");
    f.Ligne[i].Click();
    EXPECT_FALSE(f.Visible) << i;
  }
}

TEST_F(Fenetres, MessageModal) {
  FenetreMessage &f = fenetreMessage;
  const auto ferme = [&](Controle &c, int touche, int maj) {
    Charger(f).Visible = true;
    c.KeyDown(touche, maj);
    return !f.Visible && !f.Chargee;
  };
  EXPECT_FALSE(ferme(f, 79, 0) || ferme(f, 13, 0));
  EXPECT_TRUE(ferme(f, 27, 0) && ferme(f, 79, 4) && ferme(f.Picture2, 13, 0) && ferme(f.Picture2, 32, 0));
  session.LangueFrancaise = true;
  pf.pendantModal = [&](Fenetre &) {
    // Another language changes nothing of a window that stands, and messages still come in.
    fenetre.Drapeau[2].Click();
    EXPECT_EQ(f.ImageMessage.Picture, "ImageMessageFrancais");
    AfficherMessageCourt("Error", "dessous");
    EXPECT_TRUE(f.Visible && fenetreMessageCourt.Visible);
    const double gauche = f.Picture2.Left, haut = f.Picture2.Top;
    for (int i = 0; i < 2; ++i) f.Picture2.MouseDown(kBoutonGauche, 0, 0);
    EXPECT_EQ(std::pair(f.Picture2.Left, f.Picture2.Top), std::pair(gauche + 15, haut + 15));
    for (int i = 0; i < 2; ++i) f.Picture2.MouseUp(kBoutonGauche, 0, 0);
    EXPECT_EQ(std::pair(f.Picture2.Left, f.Picture2.Top), std::pair(gauche, haut));
  };
  AfficherMessage("texte");
  EXPECT_EQ(pf.messages, (V{"texte", "Error|dessous"}));
  EXPECT_EQ(pf.focus, &f.Picture2) << "Enter and Space close it";
  EXPECT_EQ(Charger(f).ImageMessage.Picture, "ImageMessageAnglais");
}

TEST_F(Fenetres, MessageAvecBoutons) {
  FenetreMessageErreur &f = fenetreMessageErreur;
  session.Etat = 8;
  Charger(f);
  for (int i = 1; i <= 4; ++i) f.Ligne[i].Caption = "l" + std::to_string(i);
  pf.Montrer(f);
  EXPECT_EQ(Messages(), V{"Titre|l1|l2|l3|l4"});
  f.BoutonOk.Click();
  EXPECT_TRUE(session.Etat == 8 && !f.Chargee);
  Charger(f).BoutonModifierIngredientDirectement.Click();
  EXPECT_TRUE(session.Etat == 88 && !f.Chargee);
}

TEST_F(Fenetres, Remarque) {
  FeuilleRemarque &f = feuilleRemarque;
  for (int i = 1; i <= 8; ++i) session.LignesRemarque[i] = "l" + std::to_string(i);
  session.NombreLignesRemarque = 6;
  session.DelaiRemarque = 2.5;
  pf.pendantModal = [&](Fenetre &) {
    EXPECT_EQ(f.Timer1.Interval(), 2500);
    EXPECT_EQ(std::pair(f.Top, f.Left), std::pair(7900.0, (15360 - 8115) / 2.0 - 500));
    f.Timer1.Timer();
    EXPECT_FALSE(f.Visible || f.Chargee);
  };
  AfficherRemarque("En-tête");
  EXPECT_EQ(Messages(), V{"En-tête|l1|l2|l3|l4|l5|l6"});
  session.NombreLignesRemarque = 9;
  EXPECT_EQ(Echec([&] { Charger(f); }), Erreur::Indice);
}

TEST_F(Fenetres, APropos) {
  FeuilleAPropos &f = feuilleAPropos;
  session.LangueFrancaise = true;
  fenetre.BoutonProgramme[Commande::TisserToile].Visible = true;
  const auto visibles = [] {
    int n = fenetre.PicPourTissage.Visible + fenetre.Drapeau[1].Visible;
    for (int i :
         {Commande::Quitter, Commande::OuvrirMotif, Commande::Reprendre, Commande::TisserToile,
          Commande::ChoisirDuite, Commande::Configurer, Commande::Rafraichir, Commande::Diagnostiquer})
      n += fenetre.BoutonProgramme[i].Visible;
    return n;
  };
  pf.pendantModal = [&](Fenetre &) {
    EXPECT_EQ(visibles(), 0);
    EXPECT_EQ(std::pair(f.Left, f.Top), std::pair(fenetre.PicPourTissage.Left + fenetre.Left - 1000,
                                                  fenetre.PicPourTissage.Top + fenetre.Top));
    EXPECT_EQ(f.tmrTexte.Interval(), 0);
    f.tmrDepart.Timer();
    EXPECT_EQ(f.tmrTexte.Interval(), 200);
    for (const auto &[haut, apres] : {std::pair{30, -30}, {-2399, -2459}, {-2400, 0}}) {
      f.picTexte.Top = haut;
      f.tmrTexte.Timer();
      EXPECT_EQ(f.picTexte.Top, apres);
    }
    Bouger(f.Label1[4]);
    EXPECT_EQ(f.tmrTexte.Interval(), 0);
    Bouger(f.Image2);
    EXPECT_EQ(f.tmrTexte.Interval(), 200);
    const char *const lignes[] = {"Version Béta 1.1",       "",
                                  Fabricant::RaisonSociale, Fabricant::Nom,
                                  Fabricant::Site,          Fabricant::Courriel};
    for (int i : {0, 2, 3, 4, 5}) {
      EXPECT_EQ(f.Label1[i].Caption, lignes[i]);
      EXPECT_EQ(f.Label1[i].Visible, *lignes[i] != 0) << "a line that is not set is left out";
    }
    for (int i : {4, 5})
      if (f.Label1[i].Visible) f.Label1[i].Click();
    f.Image2.Click();
    EXPECT_FALSE(f.Visible || f.Chargee);
  };
  fenetre.BoutonAide.Click();
  EXPECT_EQ(visibles(), 10);
  EXPECT_EQ(static_cast<bool>(fenetre.LogoNor.Click), *Fabricant::Site != 0);
  if (fenetre.LogoNor.Click) fenetre.LogoNor.Click();
  V adresses;
  if (*Fabricant::Site) adresses.push_back(Fabricant::Site);
  if (*Fabricant::Courriel)
    adresses.push_back(std::string("mailto:") + Fabricant::Courriel + "?subject=Vélo");
  if (*Fabricant::Site) adresses.push_back(Fabricant::Site);  // the logo's
  EXPECT_EQ(pf.adresses, adresses);
}

TEST_F(Fenetres, Contours) {
  EXPECT_EQ(CreerRegionImage(DeTrame({"..aab.", "......", "a.b.aa"})),
            (Region{{0, 2, 5}, {2, 0, 1}, {2, 2, 3}, {2, 4, 5}}));
  EXPECT_EQ(CreerRegionImage(DeTrame({"....", "..a."})), (Region{{1, 2, 3}}));
  EXPECT_EQ(Echec([] { CreerRegionImage(DeTrame({"..a."})); }), Erreur::DivisionParZero);
  attente.Visible = true;
  const int avant = pf.rafraichis;
  CreerRegionImage(DeTrame(V(9, "..")));
  EXPECT_EQ(attente.LblPourcent.Caption, " 100 %");
  EXPECT_EQ(pf.rafraichis - avant, 9);
}

TEST(Peintres, UneCopieNeSuitPasSonModele) {
  Surface modele(3, 2, Gris(1)), copie = modele;
  const auto tenus = copie.Pixels();
  copie.PSet(1, 1, Gris(2));
  EXPECT_EQ(Points(modele), std::vector<Couleur>(6, Gris(1)));
  EXPECT_EQ(copie.Point(1, 1), Gris(2));
  EXPECT_EQ(tenus[4], 0xff000000u | Gris(1)) << "what the screen holds";
}

TEST(Peintres, ToutTraitChangeLaVersion) {
  const Surface image(2, 2, Gris(3));
  Surface s(4, 4, Gris(1));
  const std::pair<const char *, std::function<void()>> traits[] = {
      {"PSet", [&] { s.PSet(1, 1, Gris(2)); }},
      {"Ligne", [&] { s.Ligne(0, 0, 3, 0, Gris(2)); }},
      {"Cadre", [&] { s.Cadre(0, 0, 3, 3, Gris(4)); }},
      {"Boite", [&] { s.Boite(0, 0, 1, 1, Gris(5)); }},
      {"PaintPicture", [&] { s.PaintPicture(image, 1, 1); }},
      {"Print", [&] { s.Print(0, 0, "a", {}, 0); }},
      {"Redimensionner", [&] { s.Redimensionner(5, 4, Gris(1)); }},
      {"Refaire", [&] { s.Refaire(3, 3, Gris(1)); }},
      {"Effacer", [&] { s.Effacer(Gris(6)); }}};
  for (const auto &[nom, tracer] : traits) {
    const auto avant = s.Version();
    tracer();
    EXPECT_GT(s.Version(), avant) << nom << ": the screen would not show it";
  }
}

TEST(Peintres, HorsDeLaSurfaceRienNEstLuNiPeint) {
  const Surface nulle(-3, -2, 0);
  EXPECT_EQ(std::pair(nulle.Largeur(), nulle.Hauteur()), std::pair(0, 0));
  Surface s(3, 2, Gris(1));
  const auto version = s.Version();
  for (const auto &[x, y] : {std::pair{-1, 0}, {0, -1}, {3, 0}, {0, 2}}) {
    s.PSet(x, y, Gris(2));
    EXPECT_EQ(s.Point(x, y), static_cast<Couleur>(-1)) << x << " " << y;
  }
  EXPECT_TRUE(s.Version() == version && Points(s) == std::vector<Couleur>(6, Gris(1)));
}

TEST(Peintres, TexteDeBoutonCompteLesCaracteres) {
  BoitePicture b;
  Placer(b, 0, 0, 1500, 435);
  reglages = {};
  reglages.BoutonTexteDecale = -50;
  reglages.BoutonTexteDecale2 = 10;
  for (const auto &[ligne1, ligne2, voyant] :
       {std::tuple{"Toile +", "Patron", 1}, {"Précédent", " ", 0}, {" ", "Patron", 1}})
    EcrireTexteBouton(b, ligne1, true, ligne2, voyant, Gris(0), Gris(255));
  std::vector<std::pair<int, int>> places;
  for (const TexteImprime &e : b.Dessin.Textes()) places.emplace_back(e.x, e.y);
  EXPECT_EQ(places,
            (std::vector<std::pair<int, int>>{{449, 40}, {462, 48}, {502, 190}, {572, 200}, {423, 108}}));
}
