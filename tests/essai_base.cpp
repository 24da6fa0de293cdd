// Checked integers, tables and numbers as text.
#include <cmath>
#include <limits>

#include "base/Table.h"
#include "base/TexteDate.h"
#include "base/TexteNumerique.h"
#include "tests/Banc.h"

TEST(Base, EntierFailsOnEveryWayOutOf16Bits) {
  const Entier grand = 32767, petit = -32768;
  const std::function<void()> sorties[] = {
      [&] { (void)(grand + 1); },      [&] { (void)(petit - 1); },
      [&] { (void)(grand * grand); },  [&] { (void)-petit; },
      [&] { ++Entier(grand); },        [] { (void)Entier(32768); },
      [] { (void)Arrondir(32767.5); }, [] { (void)Arrondir(std::numeric_limits<double>::infinity()); }};
  for (const auto &sortie : sorties) EXPECT_EQ(Echec(sortie), 6) << &sortie - sorties;
  EXPECT_EQ(int{grand + petit}, -1);
}

TEST(Base, TablesRefuseWhatIsOutside) {
  Table<int, 3> t;
  Table2<int, 2, 4> m;
  EXPECT_EQ(Echec([&] { t[3] = m(2, 4) = 7; }), 0);
  EXPECT_EQ(t[3], 7);
  const std::function<void()> dehors[] = {[&] { t[4] = 1; }, [&] { t[-1] = 1; }, [&] { m(3, 0) = 1; },
                                          [&] { m(0, -1) = 1; }};
  for (const auto &acces : dehors) EXPECT_EQ(Echec(acces), 9);
}

TEST(Base, CopiesOfTablesAreDeepAndReferencesHold) {
  Table<std::string, 100> t, copie;
  std::string &premier = t[0] = "a";
  t[100] = "z";
  std::string &second = copie[1] = "b";
  copie = t;
  copie[99] = "y";
  premier = "c", second = "d";
  EXPECT_EQ(t[0] + t[50] + t[99] + t[100], "cz");
  EXPECT_EQ(copie[0] + copie[1] + copie[99] + copie[100], "adyz");
  Table2<Entier, 2, 4> m;
  m(2, 3) = 7;
  EXPECT_EQ(int{m(1, 3)} + int{m(0, 4)} + int{m(2, 3)}, 7);
}

TEST(Base, ValReadsTheNumberAtTheHead) {
  const std::pair<const char *, double> cas[] = {
      {"12", 12}, {" 1 2 . 5x", 12.5}, {"-3", -3},  {"+4", 4},     {"1.2.3", 1.2},
      {"", 0},    {"abc", 0},          {"\t5", 0},  {"5\t6", 5},   {"2E2", 200},
      {"2E", 2},  {"2E-1x", 0.2},      {".5", 0.5}, {"-.5", -0.5}, {"&H10", 0},
      {"-", 0},   {"1,2", 1},          {"1e1", 10}, {"007", 7},    {"1E-999", 0}};
  for (const auto &[texte, valeur] : cas) EXPECT_DOUBLE_EQ(Val(texte), valeur) << texte;
  EXPECT_TRUE(Val("1E999") == HUGE_VAL && Val("-1E999") == -HUGE_VAL);
}

TEST(Base, NumbersAreWrittenAndRoundedTheOldWay) {
  EXPECT_EQ(Str(12) + Str(0) + Str(-3) + Str(0.5) + Str(2.25), " 12 0-3 .5 2.25");
  for (const auto &[x, n] : {std::pair{0.5, 0}, {1.5, 2}, {2.5, 2}, {-0.5, 0}, {-1.5, -2}, {2.4999, 2}})
    EXPECT_EQ(int{Arrondir(x)}, n) << x;
  EXPECT_EQ(FormatQuatreChiffres(12) + FormatQuatreChiffres(12345), "001212345");
  EXPECT_EQ(Trim("  a\t ") + Trim("   "), "a\t");
  EXPECT_EQ(Str(1e20) + Str(1.0 / 3) + Str(-0.25), " 1E+20 .333333333333333-.25");
  EXPECT_EQ(NombreCaracteres("Précédent") + NombreCaracteres("\xE9t\xE9"), 9 + 3);
  EXPECT_EQ(PlaceCaractere("Précédent", 3) + PlaceCaractere("\xC3", 1) + PlaceCaractere("é", 5), 4u + 1 + 2);
}

TEST(Base, DatesOfDamagedFilesKeepFourDigitYears) {
  for (const auto &[jours, texte] : {std::pair{0.0, "1899-12-30"},
                                     {45983.9, "2025-11-22"},
                                     {-1e9, "0100-01-01"},
                                     {1e300, "9999-12-31"},
                                     {std::nan(""), "1899-12-30"}})
    EXPECT_EQ(TexteDate(jours), texte);
}
