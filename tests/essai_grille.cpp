// The moving draft as cells and labels, and the lamps.
#include "display/GrilleDuites.h"
#include "display/Voyants.h"
#include "tests/Banc.h"

namespace {
class Grille : public Banc {
 protected:
  void SetUp() override {
    Banc::SetUp();
    Demarrer();
    Configurer({{1, "COM 1"}, {5, "Pattern"}});
  }
  static std::string Etiquette(int r) { return fenetre.LblIndiqueLigneRendu[r].Caption; }
  static std::set<int> Cases(int r) {
    std::set<int> s;
    for (int j = 1; j <= 32; ++j)
      if (fenetre.PicPourTissage.Cases[r][j].Visible) s.insert(j);
    return s;
  }
  // Row r shows pick q of Lignes(), or nothing for 0.
  static void ExpectRangee(int r, int q, const std::vector<std::string> &lignes) {
    if (q == 0) {
      EXPECT_EQ(Etiquette(r), "") << r;
      EXPECT_TRUE(Cases(r).empty()) << r;
      return;
    }
    const std::string chiffres = std::to_string(q);
    EXPECT_EQ(Etiquette(r), std::string(4 - chiffres.size(), '0') + chiffres) << r;
    EXPECT_EQ(Cases(r), LamesDe(lignes.at(static_cast<std::size_t>(q - 1)))) << r;
  }
  static void ExpectRangees(const std::map<int, int> &attendu, const std::vector<std::string> &lignes) {
    for (const auto &[r, q] : attendu) ExpectRangee(r, q, lignes);
  }
};
}  // namespace

TEST_F(Grille, BothLayoutsNearBothEnds) {
  const auto l = Lignes(100);
  Ouvrir(Motif(l));
  Configurer({{4, "Down"}, {7, "95"}});
  ExpectRangees({{1, 5}, {5, 1}, {6, 100}, {10, 96}, {11, 95}, {12, 94}, {20, 86}}, l);
  Configurer({{7, "3"}});
  ExpectRangees({{1, 13}, {10, 4}, {11, 3}, {13, 1}, {14, 100}, {20, 94}}, l);
  Configurer({{4, "Up"}, {7, "95"}});  // no wrap under the current row
  ExpectRangees({{1, 85}, {10, 94}, {11, 95}, {16, 100}, {17, 0}, {18, 0}, {19, 0}, {20, 0}}, l);
  Configurer({{7, "3"}});
  ExpectRangees({{1, 93}, {8, 100}, {9, 1}, {10, 2}, {11, 3}, {12, 4}, {20, 12}}, l);
}

TEST_F(Grille, WeaveDirectionDecidesTheOtherRedraws) {
  const auto l = Lignes(50);
  Ouvrir(Motif(l));
  Configurer({{4, "Down"}, {6, "Reverse"}, {7, "20"}});
  ExpectRangees({{10, 21}, {12, 19}}, l);
  fenetre.Drapeau[2].Click();  // ascending for this one redraw
  ExpectRangees({{10, 19}, {12, 21}}, l);
  Commande(10);
  ExpectRangees({{10, 20}, {11, 19}, {12, 18}}, l);
  Commande(5);
  ExpectRangees({{11, 1}, {10, 50}, {12, 2}}, l);
}

TEST_F(Grille, ShortPlansAreWoven) {
  const std::vector<std::string> toile{"1=1,3,5", "2=2,4,6"};
  Ouvrir(Motif(toile));
  Commande(10);
  for (int i = 0; i < 4; ++i) Rapport();
  for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(port.ecrits.at(i), Cadre24(toile[i % 2]));
  // One correction of the wrap reaches two rows each way; what lies beyond stays blank.
  ExpectRangees(
      {{1, 0}, {7, 0}, {8, 2}, {9, 1}, {10, 2}, {11, 1}, {12, 2}, {13, 1}, {14, 0}, {15, 0}, {20, 0}}, toile);
  Commande(9);
  Configurer({{4, "Up"}});
  ExpectRangees({{1, 0}, {9, 1}, {10, 2}, {11, 1}, {12, 2}, {13, 0}}, toile);
  const std::vector<std::string> seule{"1=7,8"};
  Ouvrir(Motif(seule));
  Commande(10);
  ExpectRangees({{10, 1}, {11, 1}, {12, 0}}, seule);
  EXPECT_EQ(port.ecrits.back(), Cadre24(seule[0]));
}

TEST_F(Grille, LabelsTellTheSource) {
  auto l = Lignes(12);
  l[0] = "12=1,2", l[1] = "0012=1,2", l[2] = "12345=1,2", l[3] = "TabbyB =1,2", l[4] = "tabbyA=1,2",
  l[5] = "x=", l[6] = "7=";
  Ouvrir(Motif(l));
  Configurer({{4, "Up"}, {7, "2"}});
  const std::pair<int, const char *> anglais[] = {{10, "0012"}, {11, "0012"}, {12, "12345"}, {13, "TabbyB"},
                                                  {14, ""},     {15, ""},     {16, "0007"},  {17, "0008"}};
  for (const auto &[r, texte] : anglais) EXPECT_EQ(Etiquette(r), texte) << r;
  EXPECT_TRUE(Cases(16).empty());
  Configurer({{5, "Tabby"}});
  EXPECT_EQ(Etiquette(11) + Etiquette(12), "TabbyBTabbyA");
  fenetre.Drapeau[1].Click();
  EXPECT_EQ(Etiquette(11) + Etiquette(12), "LiaisonBLiaisonA");
}

TEST_F(Grille, ColumnsFollowTheHarnessCounts) {
  auto l = Lignes(20);
  l[4] = "5=1,16,17,24,25,32";
  Ouvrir(Motif(l));
  Configurer({{7, "5"}});
  EXPECT_EQ(Cases(11), (std::set<int>{1, 16, 17, 24}));
  Configurer({{2, "16"}});  // the draft keeps 16 columns after the count went back to 24
  EXPECT_EQ(session.NombreLames, 24);
  EXPECT_EQ(Cases(11), (std::set<int>{1, 16}));
  Configurer({{2, "32"}});
  session.NombreLames = 32;
  AfficherDuites(5);
  EXPECT_EQ(Cases(11), (std::set<int>{1, 16, 17, 24, 25, 32}));
  for (int r = 1; r <= 20; ++r)
    for (int j = 1; j <= 32; ++j)
      EXPECT_EQ(fenetre.PicPourTissage.Cases[r][j].Picture, j > 24    ? ImageCase::Blanc
                                                            : r == 11 ? ImageCase::Rouge
                                                                      : ImageCase::Noir);

  for (const auto &[lames, premiere] : {std::pair{8, 8}, {24, 21}, {0, 1}}) {
    session.NombreLamesGrille = 24;
    AfficherDuites(5);
    session.NombreLamesGrille = lames;
    PreparerGrille();
    for (int r = 1; r <= 20; ++r) EXPECT_EQ(Etiquette(r).empty(), r >= premiere) << lames << ", " << r;
    EXPECT_TRUE(Cases(11).empty());
    EXPECT_EQ(fenetre.LblNombreLigne.Caption, "");
  }
}

TEST_F(Grille, LampIsAFewPixelsInTheCorner) {
  BoitePicture &b = fenetre.BoutonProgramme[4];
  const int l = b.Dessin.Largeur(), h = b.Dessin.Hauteur();
  for (bool vert : {false, true}) {
    ChangerVoyant(4, vert);
    for (int x : {l - 9, l - 6})
      for (int y : {h - 11, h - 8})
        EXPECT_EQ(b.Dessin.Point(x, y), vert ? Rgb(10, 239, 123) : Rgb(250, 3, 3));
    EXPECT_EQ(b.Dessin.Point(l - 8, h - 12), Gris(85));
    EXPECT_EQ(b.Dessin.Point(l - 10, h - 10), Gris(85));
  }
  b.Height = 500;
  ChangerVoyant(4, false);
  EXPECT_EQ(b.Dessin.Point(l - 8, h - 10), Rgb(10, 239, 123));
  b.Height = 515;
  session.SurvolActif = true;  // grown by five pixels
  ChangerVoyant(4, false);
  EXPECT_EQ(b.Dessin.Point(l - 14, h - 16), Rgb(250, 3, 3));
}

TEST_F(Grille, LampsAfterARepaintOfAllFaces) {
  for (const auto &[option, voyant] : {std::pair{"Pattern", 5}, {"Tabby", 4}, {"Pattern and Tabby", 17}}) {
    Configurer({{5, option}, {7, "1"}});
    Commande(11);
    fenetre.Drapeau[2].Click();
    for (int i = 0; i <= 21; ++i)
      EXPECT_EQ(fenetre.Voyants[i], i == voyant || (i == 11 && session.BullesActives)) << option << ", " << i;
  }
  Ouvrir(Motif(Lignes(12)));
  Commande(10);
  fenetre.Drapeau[1].Click();
  EXPECT_TRUE(fenetre.Voyants[10] && !fenetre.Voyants[9]);
}
