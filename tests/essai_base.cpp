// Checked integers, tables and numbers as text.
#include <limits>

#include "base/Table.h"
#include "base/TexteNumerique.h"
#include "tests/Banc.h"

namespace {
template <class F>
int Numero(F &&f) {
  try {
    f();
  } catch (const ErreurExecution &e) {
    return e.Number();
  }
  return 0;
}
}  // namespace

TEST(Base, EntierFailsOnEveryWayOutOf16Bits) {
  const Entier grand = 32767, petit = -32768;
  EXPECT_EQ(Numero([&] { (void)(grand + 1); }), 6);
  EXPECT_EQ(Numero([&] { (void)(petit - 1); }), 6);
  EXPECT_EQ(Numero([&] { (void)(grand * grand); }), 6);
  EXPECT_EQ(Numero([&] { (void)-petit; }), 6);
  EXPECT_EQ(Numero([&] {
              Entier e = grand;
              ++e;
            }),
            6);
  EXPECT_EQ(Numero([] {
              Entier e = 32768;
              (void)e;
            }),
            6);
  EXPECT_EQ(Numero([] { (void)Arrondir(32767.5); }), 6);
  EXPECT_EQ(Numero([] { (void)Arrondir(std::numeric_limits<double>::infinity()); }), 6);
  EXPECT_EQ(int{grand + petit}, -1);
}

TEST(Base, TablesRefuseWhatIsOutside) {
  Table<int, 3> t;
  Table2<int, 2, 4> m;
  EXPECT_EQ(t[3] = 7, 7);
  EXPECT_EQ(Numero([&] { t[4] = 1; }), 9);
  EXPECT_EQ(Numero([&] { t[-1] = 1; }), 9);
  EXPECT_EQ(m(2, 4) = 5, 5);
  EXPECT_EQ(Numero([&] { m(3, 0) = 1; }), 9);
  EXPECT_EQ(Numero([&] { m(0, -1) = 1; }), 9);
  EXPECT_EQ(ErreurExecution(9).Rapport(), "Run-time error '9': Subscript out of range");
}

TEST(Base, ValReadsTheNumberAtTheHead) {
  const std::pair<const char *, double> cas[] = {
      {"12", 12}, {" 1 2 . 5x", 12.5}, {"-3", -3},  {"+4", 4},     {"1.2.3", 1.2},
      {"", 0},    {"abc", 0},          {"\t5", 0},  {"5\t6", 5},   {"2E2", 200},
      {"2E", 2},  {"2E-1x", 0.2},      {".5", 0.5}, {"-.5", -0.5}, {"&H10", 0},
      {"-", 0},   {"1,2", 1},          {"1e1", 10}, {"007", 7},    {".", 0}};
  for (const auto &[texte, valeur] : cas) EXPECT_DOUBLE_EQ(Val(texte), valeur) << texte;
  EXPECT_GT(Val("1E999"), 1e300);
  EXPECT_EQ(Val("1E-999"), 0);
}

TEST(Base, NumbersAreWrittenAndRoundedTheOldWay) {
  EXPECT_EQ(Str(12), " 12");
  EXPECT_EQ(Str(0), " 0");
  EXPECT_EQ(Str(-3), "-3");
  EXPECT_EQ(Str(0.5), " .5");
  EXPECT_EQ(Str(2.25), " 2.25");
  for (const auto &[x, n] : {std::pair{0.5, 0}, {1.5, 2}, {2.5, 2}, {-0.5, 0}, {-1.5, -2}, {2.4999, 2}})
    EXPECT_EQ(int{Arrondir(x)}, n) << x;
  EXPECT_EQ(FormatQuatreChiffres(12), "0012");
  EXPECT_EQ(FormatQuatreChiffres(12345), "12345");
  EXPECT_EQ(Trim("  a\t "), "a\t");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(NombreCaracteres("Précédent"), 9);
}
