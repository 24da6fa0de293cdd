// The conversion kit that the frames are computed with.
#include "pattern/ConversionsBases.h"
#include "tests/Banc.h"

TEST(Conversions, BinaryToHexadecimalAndDecimal) {
  EXPECT_EQ(ConvB2H("00000101"), "05");
  EXPECT_EQ(ConvB2H("10000000"), "80");
  EXPECT_EQ(ConvB2H("101"), "5");
  EXPECT_EQ(ConvB2H("100000000"), "100");
  EXPECT_EQ(ConvB2H(""), "");
  EXPECT_EQ(ConvB2H("1111x000"), "Fx000");
  EXPECT_EQ(ConvB2D("10000001"), 129);
  EXPECT_EQ(ConvB2D("12x"), 8);  // 1*4 + 2*2 + 0
  EXPECT_FALSE(ConvB2D(""));
}

TEST(Conversions, HexadecimalToBinaryAndDecimal) {
  EXPECT_EQ(ConvH2B("a5"), "10100101");
  EXPECT_EQ(ConvH2B("G1"), "G0001");
  EXPECT_EQ(ConvH2D("80"), "128");
  EXPECT_EQ(ConvH2D("FF"), "255");
  EXPECT_EQ(ConvH2D("0A"), "10");
  EXPECT_EQ(ConvH2D("ff"), "255");
  EXPECT_EQ(ConvH2D(""), "");
  EXPECT_EQ(ConvH2H("ab1"), "AB1");
}

TEST(Conversions, DecimalToBinaryWearsItsArgumentDown) {
  std::string n = "5";
  EXPECT_EQ(ConvD2B(n), "101");
  EXPECT_EQ(n, "1");
  for (const auto &[texte, binaire] :
       {std::pair{"2", "10"}, {"3", "11"}, {"0", "0"}, {"1", "1"}, {"255", "11111111"}}) {
    n = texte;
    EXPECT_EQ(ConvD2B(n), binaire);
  }
  EXPECT_EQ(ConvD2H("255"), "FF");
  n = "abc";
  EXPECT_THROW(ConvD2B(n), ErreurExecution);
  EXPECT_THROW(ConvD2H(""), ErreurExecution);
  EXPECT_EQ(ConvB2B("x") + ConvD2D("y"), "xy");
}

TEST(Conversions, VerifHLooksAtText1) {
  for (const auto &[texte, bon] :
       {std::pair{"", false}, {"0aF9", true}, {"0g", false}, {"g0", false}, {"F", true}}) {
    fenetre.Text1.Text = texte;
    EXPECT_EQ(VerifH(), bon) << texte;
  }
}
