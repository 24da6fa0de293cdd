// The three plans against the rules they follow, worked out anew, and the commands that choose between them.
#include "tests/Banc.h"

namespace {
const std::string kA = "TabbyA=1,3,5,7,9,11,13,15,17,19,21,23", kB = "TabbyB=2,4,6,8,10,12,14,16,18,20,22,24";

class Plans : public Banc {
 protected:
  void SetUp() override {
    Banc::SetUp();
    Demarrer();
    Configurer({{1, "COM 1"}, {5, "Pattern"}});
  }
  void OuvrirLignes(int n) {
    lignes = Lignes(n);
    Ouvrir(Motif(lignes));
  }
  const std::string &Wif(int i) const { return lignes.at(static_cast<std::size_t>(i - 1)); }
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
  std::vector<std::string> lignes;
};
}  // namespace

TEST_F(Plans, PatternAndTabbyAtEveryKindOfCursor) {
  for (int w : {37, 12}) {
    OuvrirLignes(w);
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
      EXPECT_EQ(session.LignesTravail[0], "[LIFTPLAN]");
    }
    Choisir("Pattern", w + 8);
    Choisir("Pattern and Tabby", w + 8);  // beyond: the old lines, to the cursor
    EXPECT_EQ(session.NombreDuites, w + 6);
    ExpectLigne(w, Wif(w));
    EXPECT_EQ(session.LignesTravail[w + 6], "");
  }
}

TEST_F(Plans, WhatWasWovenBeforeStands) {
  OuvrirLignes(60);
  Choisir("Tabby", 10);
  Choisir("Pattern and Tabby", 45);
  for (int n = 1; n <= 40; ++n) ExpectLigne(n, n % 2 ? kA : kB);
  for (int n = 41; n <= 43; ++n) EXPECT_EQ(session.LignesTravail[n] + fenetre.BitsDuite[n], "");
  ExpectLigne(44, Wif(44));
  Choisir("Tabby", 10);
  Choisir("Pattern and Tabby", 21);
  ExpectLigne(19, kA);
  // The row before the cursor is not cleared: it keeps the tabby's cells beside those of its new line.
  EXPECT_EQ(session.LignesTravail[20], Wif(20));
  std::set<int> lames = LamesDe(Wif(20));
  lames.merge(LamesDe(kB));
  ExpectPick(20, lames);
  ExpectLigne(21, kA);
  ExpectLigne(22, Wif(21));
}

TEST_F(Plans, ModeCommandsMoveTheCursorAndSendWhileWeaving) {
  OuvrirLignes(30);
  Commande(10);
  for (int i = 1; i < 5; ++i) Rapport();
  const auto voir = [this](int commande, int duite, int total, const std::string &ligne) {
    Commande(commande);
    EXPECT_EQ(session.DuiteCourante, duite);
    EXPECT_EQ(session.NombreDuites, total);
    EXPECT_EQ(port.ecrits.back(), Cadre24(ligne));
    for (int i : {4, 5, 17}) EXPECT_EQ(fenetre.Voyants[i], i == commande);
  };
  voir(5, 1, 30, Wif(1));  // never in tabby: from the beginning
  voir(17, 1, 61, kA);
  for (int i = 1; i < 9; ++i) Rapport();
  voir(4, 9, 40, kA);
  for (int i = 0; i < 7; ++i) Rapport();
  voir(5, 10, 30, Wif(10));  // the pick behind the one that was left
  voir(17, 10, 52, kA);
  ExpectLigne(52, Melange(52, 10));
  const std::size_t envois = port.ecrits.size();
  Commande(9);
  for (int i : {4, 5, 17}) BoutonProgramme_Click(i);
  EXPECT_EQ(port.ecrits.size(), envois + 1);
}

TEST_F(Plans, ThePlacesThatEndTheRun) {
  OuvrirLignes(1249);
  Choisir("Pattern and Tabby", 1);
  EXPECT_EQ(session.NombreDuites, 2499);
  ExpectLigne(2499, kB);
  EXPECT_EQ(Echec([] { Choisir("Pattern and Tabby", 0); }), 9);
  Demarrer();
  Configurer({{5, "Pattern"}});
  OuvrirLignes(1250);
  Choisir("Pattern and Tabby", 2);
  EXPECT_EQ(session.NombreDuites, 2500);
  EXPECT_EQ(Echec([] { Choisir("Pattern and Tabby", 1); }), 9);
  EXPECT_EQ(Echec([] { Choisir("Pattern and Tabby", 32768); }), 6);
  EXPECT_EQ(Echec([] { Choisir("Pattern and Tabby", 6000); }), 9);
}

TEST_F(Plans, OpenedWithTabbyOnlyTheTailIsMixed) {
  Configurer({{5, "Pattern and Tabby"}, {7, "1"}});
  OuvrirLignes(30);
  EXPECT_EQ(session.DuiteCourante, 30);
  EXPECT_EQ(session.NombreDuites, 32);
  for (int n = 1; n <= 28; ++n) ExpectLigne(n, Wif(n));
  const std::string fin[] = {Wif(29), kA, Wif(30), kB};
  for (int n = 29; n <= 32; ++n) ExpectLigne(n, fin[n - 29]);
  Commande(10);
  EXPECT_EQ(port.Tout(), Cadre24(Wif(30)));
}

TEST_F(Plans, StartUpPlansWithoutAPattern) {
  const struct {
    int option, duite, plan;
  } cas[] = {{0, 7, 0}, {1, 7, 0}, {2, 7, 40}, {3, 5, 3}, {3, 2, 0}, {3, 1, 1}, {3, 7000, 6998}};
  for (const auto &[option, duite, plan] : cas) {
    EcrireFichier("Configuration.Con", Mots({1, 24, 11, 0, option, 0, duite, 0, 0, 0}));
    Demarrer();
    EXPECT_EQ(session.NombreDuites, plan) << option << ", " << duite;
    EXPECT_EQ(session.DuiteCourante, duite);
    EXPECT_EQ(session.LignesTravail[1] + session.ToileA + session.ToileB, "");
    EXPECT_EQ(session.OptionTissage, option);
  }
}

TEST_F(Plans, StartingTabbyColoursTheLabelsOnly) {
  OuvrirLignes(12);
  for (const char *choix : {"Tabby A", "Liaison B", " Liaison A ", "Tabby B"}) {
    fenetre.ComConfiguration[8].Text = choix;
    fenetre.ComConfiguration[8].Click();
    const bool a = std::string(choix).find('A') != std::string::npos;
    EXPECT_EQ(session.ToileDepart, a) << choix;
    EXPECT_EQ(fenetre.LblTabbyA.ForeColor == Rgb(255, 0, 0), a);
    EXPECT_EQ(fenetre.LblTabbyB.ForeColor == Rgb(255, 0, 0), !a);
    EXPECT_EQ(fenetre.LblTabbyA.Caption + fenetre.LblTabbyB.Caption, kA + kB);
  }
  Configurer({{5, "Tabby"}, {7, "1"}, {8, "Tabby B"}});
  ExpectLigne(1, kA);
  session.NombreLames = 16;
  fenetre.ComConfiguration[8].Click();
  EXPECT_EQ(session.ToileA + session.ToileB, "TabbyA=1,3,5,7,9,11,13,15TabbyB=2,4,6,8,10,12,14,16");
}
