// The conversion kit that the frames are computed with.
#include "pattern/ConversionsBases.h"
#include "tests/Banc.h"

TEST(Conversions, BetweenTheBases) {
  const struct {
    std::string (*convertir)(const std::string &);
    const char *de, *vers;
  } cas[] = {{ConvB2H, "100000000", "100"}, {ConvB2H, "1111x000", "Fx000"}, {ConvH2B, "a5", "10100101"},
             {ConvH2B, "G1", "G0001"},      {ConvH2D, "ff", "255"},         {ConvH2D, "", ""}};
  for (const auto &[convertir, de, vers] : cas) EXPECT_EQ(convertir(de), vers) << de;
  EXPECT_EQ(ConvD2H("-2147483648"), "80000000");
  EXPECT_EQ(Echec([] { ConvD2H("-2147483649"); }) + Echec([] { ConvD2H("2147483648"); }), 6 + 6);
  for (const auto &[de, vers, reste] : {std::array<std::string, 3>{"0", "0", "0"},
                                        {"1", "1", "1"},
                                        {"2", "10", "1"},
                                        {"5", "101", "1"},
                                        {"200", "11001000", "1"}}) {
    std::string texte = de;
    EXPECT_EQ(ConvD2B(texte), vers);
    EXPECT_EQ(texte, reste) << "worn down";
  }
  EXPECT_EQ(ConvD2H("255") + ConvH2H("a5"), "FFA5");
  for (const auto &[texte, hexadecimal] : {std::pair{"0aF9", true}, {"", false}, {"A G", false}}) {
    fenetre.Text1.Text = texte;
    EXPECT_EQ(VerifH(), hexadecimal) << texte;
  }
  EXPECT_EQ(ConvB2D("12x"), 8);  // 1*4 + 2*2 + 0
  EXPECT_FALSE(ConvB2D(""));
}
