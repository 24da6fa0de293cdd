// From the pattern file to lines, matrix and bit strings.
#include "pattern/LecteurLiftplan.h"
#include "tests/Banc.h"

namespace {
class Motifs : public BancConfigure {
 protected:
  void Lire(const std::string &contenu) {
    pf.messages.clear();
    Ouvrir(EcrireFichier("m.wif", contenu));
  }
  void Relire(const std::string &contenu) {
    session.CheminWif = EcrireFichier("m.wif", contenu);
    RelireFichierWif();
  }
  static void ExpectPlan(const V &attendu) {
    ASSERT_EQ(session.NombreDuites, static_cast<int>(attendu.size()) - 1);
    for (std::size_t i = 0; i < attendu.size(); ++i) {
      EXPECT_EQ(session.LignesWif[static_cast<int>(i)], attendu[i]) << i;
      EXPECT_EQ(session.LignesTravail[static_cast<int>(i)], attendu[i]) << i;
    }
  }
};

std::string Picks(int n) {
  std::string s = "[LIFTPLAN]\n";
  for (int i = 1; i <= n; ++i) s += std::to_string(i) + "=1,2\n";
  return s;
}
}  // namespace

TEST_F(Motifs, KeepsTheLinesOfTheSectionWhateverEndsThem) {
  for (const std::string fin : {"\r\n", "\n", "\r"}) {
    std::string texte;
    for (const char *l : {"1=9,9", "[TREADLING]", "[liftplan]", "[LIFTPLAN] ", "[LIFTPLAN]", "7=1,2", "",
                          "   ", "[LIFTPLAN]", " x = 3,4 ", "  ", "[TREADLING]", "2=1,2", "[LIFTPLAN]"})
      texte += l + fin;
    Lire(texte + "8=5,6");  // no line end at the end
    ExpectPlan({"[LIFTPLAN]", "7=1,2", "[LIFTPLAN]", " x = 3,4 ", "[LIFTPLAN]", "8=5,6"});
    EXPECT_EQ(session.DuiteCourante, 5);
    EXPECT_EQ(fenetre.LblNombreLigne.Caption, "Number of picks / pattern:  5");
    fenetre.DansLiftplan = false;
  }
  EXPECT_EQ(pf.demande.FileName + pf.demande.Filter, Data("*.Wif") + "Fichier Wif (*.WIF)|*.wif");

  // CR and LF on the two sides of a read of 64 KB are one end: no blank line is counted between them.
  const std::string debut = "[LIFTPLAN]\r\n1=1,";
  Relire(debut + std::string(65535 - debut.size(), '2') + "\r\n2=1,2\r\n");
  EXPECT_EQ(session.NombreDuites, 2);
  EXPECT_EQ(session.NombreDuitesPatron, 2);
  Relire(std::string("[LIFTPLAN]\n1=1\0,2\n", 18) + std::string(1 << 20, '1') + "\n");
  EXPECT_TRUE(session.LignesWif[1] == std::string("1=1\0,2", 6));
  EXPECT_EQ(session.LignesWif[2].size(), 1u << 20);
}

TEST_F(Motifs, AnOpenSectionCarriesOverIntoTheNextReading) {
  Lire("[LIFTPLAN]\n1=1,2");
  EXPECT_TRUE(fenetre.DansLiftplan);
  Lire("Version=1.1\n[LIFTPLAN]\n1=1,2\n[WEAVING]\n3=1,2\n");
  ExpectPlan({"Version=1.1", "[LIFTPLAN]", "1=1,2"});
  EXPECT_FALSE(fenetre.DansLiftplan);
  Lire("[LIFTPLAN]\n");
  EXPECT_EQ(session.NombreDuites, 0);
  EXPECT_EQ(Messages(), V{kSansPlan});
}

TEST_F(Motifs, TheLimitIs2500Picks) {
  std::string plein = Picks(2500);
  plein.insert(plein.find("9="), "\n  \n");  // blanks between picks do not count
  Lire(plein + "[WEAVING]\n");
  EXPECT_EQ(session.NombreDuitesWif, 2500);
  for (const char *suite : {"2501=1,2\n", "\n"}) {  // a blank is stored before it is found blank
    Lire("[WEAVING]\n" + Picks(3) + "[WEAVING]\n");
    Lire(Picks(2500) + suite + "[WEAVING]\n");
    EXPECT_EQ(Messages(), V{"Error|Erreur numéro: 9; Description: Subscript out of range"});
    EXPECT_EQ(session.NombreDuites, 2501);
    EXPECT_EQ(session.NombreDuitesWif, 3);
  }
}

TEST_F(Motifs, EveryWayOutOfOpen) {
  const std::string bon = Motif(Lignes(20));
  Ouvrir(bon);
  EXPECT_EQ(fenetre.LblCheminWif.Caption, bon);
  EXPECT_FALSE(fenetre.Voyants[Commande::OuvrirMotif]) << "the reading is over";
  Ouvrir("");  // a cancelled dialog is silent, and the pattern is gone
  EXPECT_TRUE(pf.messages.empty());
  EXPECT_EQ(session.NombreDuites, 0);
  EXPECT_EQ(session.CheminWif + session.LignesWif[1] + session.LignesTravail[20], "");
  EXPECT_EQ(session.DuiteCourante, 20);

  const std::string sansPlan = EcrireFichier("vide.wif", "[WIF]\n1=2,3\n");
  for (const std::string &chemin : {Data("absent.wif"), Data(""), sansPlan, EcrireFichier("zero.wif", "")}) {
    Ouvrir("  " + chemin);
    EXPECT_EQ(session.CheminWif, chemin);
    EXPECT_EQ(Messages(), V{kSansPlan}) << chemin;
    EXPECT_FALSE(session.NombreDuites > 0 || fenetre.UnInstant.Visible);
  }
  session.LangueFrancaise = true;
  Ouvrir(sansPlan);
  EXPECT_EQ(Messages(), V{"\r\n Le Fichier : «» n'est pas sauvé\r\n dans le mode Liftplan."});

  // A tab is no blank: it is kept as a pick, and its row has no key to show. The reader tells it.
  Lire("[LIFTPLAN]\n1=1,2\n\t\n[WEAVING]\n");
  EXPECT_EQ(session.LignesWif[2], "\t");
  EXPECT_EQ(Messages(), V{"Erreur|Erreur numéro: 5; Description: Invalid procedure call or argument"});
}

TEST_F(Motifs, ReadingAgainForAProject) {
  session.DuiteCourante = 7;
  Relire("[LIFTPLAN]\n1=1,2\n\n  \n2=3,4\n[WEAVING]\n");
  EXPECT_EQ(session.NombreDuites, 2);
  EXPECT_EQ(session.NombreDuitesPatron, 4);  // blanks stay counted here
  EXPECT_EQ(session.LignesWif[2], "2=3,4");
  EXPECT_EQ(session.DuiteCourante, 7);

  session.NombreDuitesWif = 99;
  for (int lames : {16, 8}) {
    session.NombreLames = lames;
    Relire(Picks(5) + "[WEAVING]\n");
    EXPECT_EQ(session.NombreDuitesWif, 99);
    session.LangueFrancaise = true;
  }
  EXPECT_EQ(Messages(), (V{"Error|  Error 16 Harnesses only", "Erreur|  Erreur 16 lames seulement"}));
}

TEST_F(Motifs, LinesBecomeCellsAndBits) {
  OuvrirLignes(
      {"1=1,3,16", "2=5", "3=", "4=1,2,", "6=2.5,1.5", "7= 1 0 ,2x,abc", "8=24,17,24", "9=32,1", "a=b=3,4"});
  const char *const attendu[] = {"1 3 16 000000001000000000000101",
                                 "5 ",
                                 "0 ",
                                 "0 1 2 000000000000000000000011",
                                 "2 000000000000000000000010",
                                 "0 2 10 000000000000001000000010",
                                 "17 24 100000010000000000000000",
                                 "1 32 000000000000000000000001",
                                 "0 4 000000000000000000001000"};
  for (int i = 1; i <= 9; ++i) {
    std::string s;
    for (int j = 0; j <= 32; ++j)
      if (session.MatriceLames(i, j) == 1) s += std::to_string(j) + " ";
    EXPECT_EQ(s + fenetre.BitsDuite[i], attendu[i - 1]) << i;
  }
  Configurer({{2, "16"}});
  EXPECT_EQ(fenetre.BitsDuite[1], "1000000000000101");
  EXPECT_EQ(fenetre.BitsDuite[7], "0000000000000000");  // 17 and 24 are lost
  EXPECT_EQ(session.MatriceLames(7, 24), 1);
}

TEST_F(Motifs, LinesBeyondTheTablesEndTheRun) {
  const auto liste = [](int n) {
    std::string s = "1=1";
    for (int i = 2; i <= n; ++i) s += "," + std::to_string(1 + i % 24);
    return s;
  };
  const std::pair<std::string, int> cas[] = {{liste(50), 0},  {liste(51), 9},
                                             {"5=32,1", 0},   {"5=33", 9},
                                             {"5=-1,2", 9},   {"5=1,33", 9},
                                             {"5=32.5,1", 0}, {"5=-0.5,1", 0},
                                             {"5=1E999", 9},  {"5=" + std::string(40000, '0') + ",1", 6}};
  for (const auto &[texte, numero] : cas) {
    const std::string chemin = Motif({texte, "2=1,2"});
    EXPECT_EQ(Echec([&] { Ouvrir(chemin); }), numero) << texte.substr(0, 60);
  }
}
