// The three plans against the rules they follow, worked out anew.
#include "tests/Banc.h"

namespace {
class Plans : public BancConfigure {
 protected:
  static void Choisir(const std::string &option, int duite) {
    Configurer({{5, option}, {7, std::to_string(duite)}});
  }
  // Line n of a pattern and tabby plan built at cursor c, n from c - 1 on.
  std::string Melange(int n, int c) const {
    if ((n - c) % 2 != 0) return Wif(c + (n - c - 1) / 2);
    return (n - c) / 2 % 2 == 0 ? kA : kB;
  }
  // Cells and bit string of pick n stand for exactly these harnesses.
  static void ExpectPick(int n, const std::set<int> &lames) {
    std::string bits, cases;
    for (int j = 24; j >= 1; --j) {
      bits += lames.count(j) ? '1' : '0';
      cases += session.MatriceLames(n, j) == 1 ? '1' : '0';
    }
    EXPECT_EQ(cases, bits) << n;
    EXPECT_EQ(fenetre.BitsDuite[n], bits) << n;
  }
  static void ExpectLigne(int n, const std::string &ligne) {
    EXPECT_EQ(session.LignesTravail[n], ligne) << n;
    ExpectPick(n, LamesDe(ligne));
  }
};
}  // namespace

TEST_F(Plans, PatternAndTabbyAtEveryKindOfCursor) {
  for (int w : {37, 12}) {
    OuvrirLignes(Lignes(w));
    for (int c : {1, 2, 3, w / 2, w - 1, w, w + 1}) {
      Choisir("Pattern", c);
      ASSERT_EQ(session.NombreDuites, w);
      for (int n = 1; n <= w; ++n) ExpectLigne(n, Wif(n));
      EXPECT_EQ(session.LignesTravail[w + 1], "");
      Choisir("Pattern and Tabby", c);
      const int total = 2 * w - c + 2;
      ASSERT_EQ(session.NombreDuites, total) << c;
      EXPECT_EQ(session.DuiteCourante, c);
      for (int n = 1; n <= c - 2; ++n) ExpectLigne(n, Wif(n));
      for (int n = std::max(1, c - 1); n <= total; ++n) ExpectLigne(n, Melange(n, c));
      for (int n = total + 1; n <= 7000; ++n) ASSERT_EQ(session.LignesTravail[n], "");
    }
    Choisir("Pattern", w + 8);
    Choisir("Pattern and Tabby", w + 8);  // beyond: the old lines, to the cursor
    EXPECT_EQ(session.NombreDuites, w + 6);
    ExpectLigne(w, Wif(w));
    EXPECT_EQ(session.LignesTravail[w + 6], "");
  }
}

TEST_F(Plans, ASecondPatternHasNothingOfTheFirst) {
  OuvrirLignes(Lignes(30));
  Configurer({{5, "Pattern and Tabby"}});
  V autres = Lignes(40);
  autres.erase(autres.begin(), autres.begin() + 10);
  for (std::size_t i = 0; i < autres.size(); ++i)
    autres[i] = std::to_string(i + 1) + autres[i].substr(autres[i].find('='));
  OuvrirLignes(autres);  // built from its last pick on; the lines before stand as they were read
  ASSERT_EQ(session.NombreDuites, 32);
  for (int n = 1; n <= 32; ++n) ExpectLigne(n, n <= 28 ? Wif(n) : Melange(n, 30));
}

TEST_F(Plans, EmptyingReachesAsFarAsALiftPlan) {
  for (int i : {0, 1, 2500, 2501}) session.LignesTravail[i] = session.LignesWif[std::min(i, 2500)] = "x";
  for (int i : {1, 2500, 2501}) session.MatriceLames(i, 1) = session.MatriceLames(i, 32) = 1;
  InitialiserPatron();
  for (int i : {1, 2500}) {
    EXPECT_EQ(session.LignesTravail[i] + session.LignesWif[i], "") << i;
    EXPECT_EQ(session.MatriceLames(i, 1) + session.MatriceLames(i, 32), 0) << i;
  }
  EXPECT_EQ(session.LignesTravail[0] + session.LignesTravail[2501], "xx");
  EXPECT_EQ(session.MatriceLames(2501, 1) + session.MatriceLames(2501, 32), 2);
}

TEST_F(Plans, PatternAndTabbyEmptiesTheMatrixAPatternBehindItsCursor) {
  OuvrirLignes(Lignes(1300));
  Choisir("Pattern", 1301);
  for (int i : {2601, 2602}) session.MatriceLames(i, 1) = 1;
  Choisir("Pattern and Tabby", 1301);
  EXPECT_EQ(session.MatriceLames(2601, 1), 0);
  EXPECT_EQ(session.MatriceLames(2602, 1), 1);
}

TEST_F(Plans, APlanOfOnePick) {
  OuvrirLignes({"1=2,5"});
  EXPECT_EQ(session.ToileA + session.ToileB, kA + kB);
  ExpectLigne(1, "1=2,5");
  Choisir("Tabby", 1);
  ExpectLigne(40, kB);
}

TEST_F(Plans, WhatWasWovenBeforeStands) {
  OuvrirLignes(Lignes(60));
  Choisir("Tabby", 10);
  Choisir("Pattern and Tabby", 45);
  for (int n = 1; n <= 40; ++n) ExpectLigne(n, n % 2 ? kA : kB);
  for (int n = 41; n <= 43; ++n) EXPECT_EQ(session.LignesTravail[n] + fenetre.BitsDuite[n], "");
  ExpectLigne(44, Wif(44));
  Choisir("Tabby", 10);
  Choisir("Pattern and Tabby", 21);
  // The row before the cursor is not cleared: it keeps the tabby's cells beside those of its new line.
  EXPECT_EQ(session.LignesTravail[20], Wif(20));
  std::set<int> lames = LamesDe(Wif(20));
  lames.merge(LamesDe(kB));
  ExpectPick(20, lames);
  ExpectLigne(21, kA);
}

TEST_F(Plans, ThePlacesThatEndTheRun) {
  const auto ouvrirEtMeler = [this](int w, int duite) {
    LancerProgramme();
    Configurer({{1, "COM 1"}, {5, "Pattern"}});
    OuvrirLignes(Lignes(w));
    return Echec([&] { Choisir("Pattern and Tabby", duite); });
  };
  for (const auto &[w, duite, numero] :
       {std::array{1249, 1, 0}, {1249, 0, 9}, {1250, 2, 0}, {1250, 1, 9}, {30, 32768, 6}, {1250, 6000, 9}})
    EXPECT_EQ(ouvrirEtMeler(w, duite), numero) << w << ", " << duite;
}

TEST_F(Plans, OpenedWithTabbyOnlyTheTailIsMixed) {
  Configurer({{5, "Pattern and Tabby"}, {7, "1"}});
  OuvrirLignes(Lignes(30));
  EXPECT_EQ(session.DuiteCourante, 30);
  EXPECT_EQ(session.NombreDuites, 32);
  for (int n = 1; n <= 32; ++n) ExpectLigne(n, n < 29 ? Wif(n) : Melange(n, 30));
  Commander(Commande::Demarrer);
  EXPECT_EQ(Ecrits(), V{Duite(30)});
}

TEST_F(Plans, StartUpPlansWithoutAPattern) {
  for (const auto &[option, duite, plan] :
       {std::array{0, 7, 0}, {1, 7, 0}, {2, 7, 40}, {3, 5, 3}, {3, 2, 0}, {3, 1, 1}, {3, 7000, 6998}}) {
    EcrireFichier("Configuration.Con", Mots({1, 24, 11, 0, option, 0, duite, 0, 0, 0}));
    LancerProgramme();
    EXPECT_EQ(session.NombreDuites, plan) << option << ", " << duite;
    EXPECT_EQ(session.DuiteCourante, duite);
    EXPECT_EQ(session.LignesTravail[1] + session.ToileA + session.ToileB, "");
  }
}

TEST_F(Plans, StartingTabbyColoursTheLabelsOnly) {
  OuvrirLignes(Lignes(12));
  for (const char *choix : {"Tabby A", "Liaison B", " Liaison A ", "Tabby B"}) {
    fenetre.ComConfiguration[8].Text = choix;
    fenetre.ComConfiguration[8].Click();
    const bool a = std::string(choix).find('A') != std::string::npos;
    EXPECT_EQ(session.ToileDepart, a) << choix;
    EXPECT_EQ((a ? fenetre.LblTabbyA : fenetre.LblTabbyB).ForeColor, Rgb(255, 0, 0));
    EXPECT_EQ((a ? fenetre.LblTabbyB : fenetre.LblTabbyA).ForeColor, 0u);
  }
  Configurer({{5, "Tabby"}, {7, "1"}, {8, "Tabby B"}});
  ExpectLigne(1, kA);
  session.NombreLames = 16;
  fenetre.ComConfiguration[8].Click();
  EXPECT_EQ(session.ToileA + session.ToileB, "TabbyA=1,3,5,7,9,11,13,15TabbyB=2,4,6,8,10,12,14,16");
}
