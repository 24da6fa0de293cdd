// The strict reader of the simulated loom. Every end-to-end test trusts it to
// complain, so what it lets pass and what it refuses is held here.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "simulator/LecteurTrames.h"

using namespace std::string_view_literals;

namespace {
// One letter for each thing heard, with its pattern or the offset of its byte.
std::string Entendre(LecteurTrames &lecteur, std::string_view octets) {
  std::string entendu;
  for (const char c : octets) {
    for (const Trame &trame : lecteur.Lire(static_cast<std::uint8_t>(c))) {
      entendu += "RCDTMF*"[static_cast<int>(trame.genre)];
      if (trame.genre == GenreTrame::Duite) entendu += std::to_string(trame.lames);
      if (trame.genre == GenreTrame::Faute || trame.genre == GenreTrame::Rejet)
        entendu += std::to_string(trame.position);
      if (trame.genre == GenreTrame::Manuel) entendu += '<' + trame.texte + '>';
    }
  }
  return entendu;
}

std::string Entendre(int lames, std::string_view octets) {
  LecteurTrames lecteur(lames);
  return Entendre(lecteur, octets);
}

std::string Duite(std::initializer_list<int> numeros) {
  std::uint32_t lames = 0;
  for (const int lame : numeros) lames |= 1U << (lame - 1);
  return "D" + std::to_string(lames);
}
}  // namespace

TEST(LecteurTrames24, LitLesHuitLamesDeChaqueGroupe) {
  EXPECT_EQ(Entendre(24, "\033R\r\n\033I\x05\x80\x05\x00\r\n\033E\r\n"sv), "RC" + Duite({1, 3, 16, 17, 19}));
  EXPECT_EQ(Entendre(24, "\033I\x80\x01\x80\xFF\r\n\033E\r\n"sv), "C" + Duite({8, 9, 24}));
}

TEST(LecteurTrames24, PrendLesOctetsDuMotifTelsQuels) {
  EXPECT_EQ(Entendre(24, "\033I\033E\r\n\r\n\033E\r\n"sv), "C" + Duite({1, 2, 4, 5, 9, 11, 15, 17, 19, 20}));
}

TEST(LecteurTrames24, RefuseEtSeRetrouveAuDebutSuivant) {
  // A zero byte that was dropped on the way shifts the line end into the pattern.
  EXPECT_EQ(Entendre(24, "\033I\x05\x80\x05\r\n\033R\r\n"sv), "F6R");
  EXPECT_EQ(Entendre(24, "xyz\033R\r\n"sv), "F0*2R");
  EXPECT_EQ(Entendre(24, "\033\033R\r\n"sv), "F1R");
  EXPECT_EQ(Entendre(24, "\033r\r\n\033R\r\n"sv), "F1*2R");
  EXPECT_EQ(Entendre(24, "RELEASE\n"sv), "F0");
}

TEST(LecteurTrames, NExecuteQuUnMotifCharge) {
  EXPECT_EQ(Entendre(24, "\033E\r\n"sv), "F3");
  EXPECT_EQ(Entendre(24, "\033I\x01\x00\x00\x00\r\n\033E\r\n\033E\r\n"sv), "CD1F15");
  EXPECT_EQ(Entendre(24, "\033I\x01\x00\x00\x00\r\n\033R\r\n\033E\r\n"sv), "CRF15");
  EXPECT_EQ(Entendre(16, "SET PATTERN 0x01\nRELEASE\nPUSH PATTERN\n"sv), "CRF37");
}

TEST(LecteurTrames16, LitZeroDeuxOuQuatreChiffres) {
  EXPECT_EQ(Entendre(16, "RELEASE\nSET PATTERN 0x8005\nPUSH PATTERN\n"sv), "RC" + Duite({1, 3, 16}));
  EXPECT_EQ(Entendre(16, "SET PATTERN 0xAF\nPUSH PATTERN\n"sv), "C" + Duite({1, 2, 3, 4, 6, 8}));
  EXPECT_EQ(Entendre(16, "SET PATTERN 0x\nPUSH PATTERN\n"sv), "C" + Duite({}));
  EXPECT_EQ(Entendre(16, "SET PATTERN 0x050\nRELEASE\n"sv), "F17R");
  EXPECT_EQ(Entendre(16, "SET PATTERN 0x05050\nRELEASE\n"sv), "F18*1R");
  EXPECT_EQ(Entendre(16, "SET PATTERN 0x0a\nRELEASE\n"sv), "F15*1R");
  EXPECT_EQ(Entendre(16, "SET PATTERN 0x05\rRELEASE\n"sv), "F16R");
}

TEST(LecteurTrames16, DistingueLesFinsDeLigne) {
  EXPECT_EQ(Entendre(16, "RELEASE\rRELEASE\n\033R\r\nTEST\r"sv), "RRRT");
  EXPECT_EQ(Entendre(16, "SET PATTERN0505\rPUSH PATTERN\r"sv), "M<SET PATTERN0505>M<PUSH PATTERN>");
  EXPECT_EQ(Entendre(16, "TEST\nTEST\r"sv), "F4T");
  EXPECT_EQ(Entendre(16, "RELEASE\r\nTEST\r"sv), "RF8T");
  EXPECT_EQ(Entendre(16, "SET PATTERN0505\nTEST\r"sv), "F15T");
}

TEST(LecteurTrames16, SeRetrouveAuMilieuDUneLigne) {
  EXPECT_EQ(Entendre(16, "SET PATRELEASE\nTEST\r"sv), "F7RT");
  EXPECT_EQ(Entendre(16, "SET PA??TEST\r"sv), "F6*1T");
}

TEST(LecteurTrames, GardeLesOctetsDepuisLaDerniereDuite) {
  LecteurTrames lecteur(24);
  Entendre(lecteur,
           "\033R\r\n\033I\x01\x00\x00\x00\r\n\033E\r\n?\033R\r\n\033I\x02\x00\x00\x00\r\n\033E\r"sv);
  const auto suites = lecteur.Lire('\n');
  ASSERT_EQ(suites.size(), 1U);
  const std::string octets(suites[0].octets.begin(), suites[0].octets.end());
  EXPECT_EQ(octets, "?\033R\r\n\033I\x02\x00\x00\x00\r\n\033E\r\n"sv);
}

TEST(LecteurTrames, UneTrameInacheveeEstUneFaute) {
  LecteurTrames lecteur(24);
  Entendre(lecteur, "\033R\r\n\033I\x01"sv);
  ASSERT_EQ(lecteur.Terminer().size(), 1U);
  EXPECT_TRUE(lecteur.Terminer().empty());
  // A cut is no fault, and what was loaded before it is gone.
  Entendre(lecteur, "\033I\x01\x00\x00\x00\r\n\033"sv);
  lecteur.Oublier();
  EXPECT_TRUE(lecteur.Terminer().empty());
  EXPECT_EQ(Entendre(lecteur, "\033E\r\n"sv).front(), 'F');
}
