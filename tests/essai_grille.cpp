// The moving draft as cells and labels, and the lamps.
#include "base/TexteNumerique.h"
#include "display/GrilleDuites.h"
#include "display/Voyants.h"
#include "tests/Banc.h"

namespace {
class Grille : public BancConfigure {
 protected:
  static std::string Etiquette(int r) { return fenetre.LblIndiqueLigneRendu[r].Caption; }
  static std::set<int> Cases(int r) {
    std::set<int> s;
    for (int j = 1; j <= 32; ++j)
      if (fenetre.PicPourTissage.PicPourImage[r][j].Visible) s.insert(j);
    return s;
  }
  // Row r shows pick q, or nothing for 0.
  void ExpectRangees(const std::map<int, int> &attendu) const {
    for (const auto &[r, q] : attendu) {
      EXPECT_EQ(Etiquette(r), q == 0 ? "" : FormatQuatreChiffres(q)) << r;
      EXPECT_EQ(Cases(r), q == 0 ? std::set<int>() : LamesDe(Wif(q))) << r;
    }
  }
};
}  // namespace

TEST_F(Grille, BothLayoutsNearBothEnds) {
  OuvrirLignes(Lignes(100));
  Configurer({{4, "Down"}, {7, "95"}});
  ExpectRangees({{1, 5}, {5, 1}, {6, 100}, {10, 96}, {11, 95}, {12, 94}, {20, 86}});
  Configurer({{7, "3"}});
  ExpectRangees({{1, 13}, {10, 4}, {11, 3}, {13, 1}, {14, 100}, {20, 94}});
  Configurer({{4, "Up"}, {7, "95"}});  // no wrap under the current row
  ExpectRangees({{1, 85}, {10, 94}, {11, 95}, {16, 100}, {17, 0}, {18, 0}, {19, 0}, {20, 0}});
  Configurer({{7, "3"}});
  ExpectRangees({{1, 93}, {8, 100}, {9, 1}, {10, 2}, {11, 3}, {12, 4}, {20, 12}});
}

TEST_F(Grille, WeaveDirectionDecidesTheOtherRedraws) {
  OuvrirLignes(Lignes(50));
  Configurer({{4, "Down"}, {6, "Reverse"}, {7, "20"}});
  ExpectRangees({{10, 21}, {12, 19}});
  fenetre.Drapeau[2].Click();  // ascending for this one redraw
  ExpectRangees({{10, 19}, {12, 21}});
  Commander(Commande::Demarrer);
  ExpectRangees({{10, 20}, {11, 19}, {12, 18}});
  Commander(Commande::TisserPatron);
  ExpectRangees({{11, 1}, {10, 50}, {12, 2}});
}

TEST_F(Grille, ShortPlansAreWoven) {
  OuvrirLignes({"1=1,3,5", "2=2,4,6"});
  Commander(Commande::Demarrer);
  Rapports(4);
  EXPECT_EQ(Ecrits(), (V{Duite(1), Duite(2), Duite(1), Duite(2), Duite(1)}));
  // One correction of the wrap reaches two rows each way; what lies beyond stays blank.
  ExpectRangees(
      {{1, 0}, {7, 0}, {8, 2}, {9, 1}, {10, 2}, {11, 1}, {12, 2}, {13, 1}, {14, 0}, {15, 0}, {20, 0}});
  Commander(Commande::Arreter);
  Configurer({{4, "Up"}});
  OuvrirLignes({"1=7,8"});
  Commander(Commande::Demarrer);
  ExpectRangees({{10, 1}, {11, 1}, {12, 0}});
  EXPECT_EQ(port.ecrits.back(), Duite(1));
}

TEST_F(Grille, LabelsTellTheSource) {
  OuvrirLignes({"12=1,2", "0012=1,2", "12345=1,2", "TabbyB =1,2", "tabbyA=1,2", "x=", "7=", "8=1,2"});
  Configurer({{4, "Up"}, {7, "2"}});
  const char *const attendu[] = {"0012", "0012", "12345", "TabbyB", "", "", "0007", "0008"};
  for (int r = 10; r <= 17; ++r) EXPECT_EQ(Etiquette(r), attendu[r - 10]) << r;
  EXPECT_TRUE(Cases(16).empty());
  Configurer({{5, "Tabby"}});
  EXPECT_EQ(Etiquette(11) + Etiquette(12), "TabbyBTabbyA");
  fenetre.Drapeau[1].Click();
  EXPECT_EQ(Etiquette(11) + Etiquette(12), "LiaisonBLiaisonA");
}

TEST_F(Grille, ColumnsFollowTheHarnessCounts) {
  V l = Lignes(20);
  l[4] = "5=1,16,17,24,25,32";
  OuvrirLignes(l);
  Configurer({{7, "5"}});
  EXPECT_EQ(Cases(11), (std::set<int>{1, 16, 17, 24}));
  Configurer({{2, "16"}});  // the draft keeps 16 columns after the count went back to 24
  EXPECT_EQ(session.NombreLames, 24);
  EXPECT_EQ(Cases(11), (std::set<int>{1, 16}));
  Configurer({{2, "32"}});
  session.NombreLames = 32;
  AfficherDuites(5);
  EXPECT_EQ(Cases(11), (std::set<int>{1, 16, 17, 24, 25, 32}));
  const auto &cases = fenetre.PicPourTissage.PicPourImage;
  EXPECT_TRUE(cases[11][24].Picture == ImageCase::Rouge && cases[10][24].Picture == ImageCase::Noir);
  EXPECT_TRUE(cases[11][25].Picture == ImageCase::Blanc && cases[12][1].Picture == ImageCase::Noir);
}

TEST_F(Grille, TheHiddenStripLiesUnderTheColumns) {
  for (int j : {1, 32}) {
    const CaseDuite &c = fenetre.BitEnvoie[j], &dessus = fenetre.PicPourTissage.PicPourImage[11][j];
    EXPECT_EQ(fenetre.PicPourControle.Left + c.Left, fenetre.PicPourTissage.Left + dessus.Left);
    EXPECT_EQ(std::tuple(c.Top, c.Width, c.Height), std::tuple(210, 225, 210));
  }
}

TEST_F(Grille, LampsAfterARepaintOfAllFaces) {
  for (const auto &[option, voyant] : {std::pair{"Pattern", Commande::TisserPatron},
                                       {"Tabby", Commande::TisserToile},
                                       {"Pattern and Tabby", Commande::TisserPatronEtToile}}) {
    Configurer({{5, option}, {7, "1"}});
    Commander(Commande::BasculerBulles);
    fenetre.Drapeau[2].Click();
    for (int i = 0; i < Commande::Nombre; ++i)
      EXPECT_EQ(fenetre.Voyants[i], i == voyant || (i == Commande::BasculerBulles && session.BullesActives))
          << option << ", " << i;
  }
}
