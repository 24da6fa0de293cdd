// Reading, judging and rewriting patterns: what is refused and where, findings, round trips, thousands of
// wild files.
#include <gtest/gtest.h>
#include <malloc.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <new>
#include <random>

#include "motifs/Assemblage.h"
#include "motifs/Constats.h"
#include "motifs/DossierBrandis.h"
#include "motifs/Fichier.h"
#include "motifs/FormeTissable.h"
#include "motifs/LectureMotif.h"
#include "motifs/Levees.h"
#include "motifs/Planche.h"
#include "motifs/Ramener.h"

namespace fs = std::filesystem;
using V = std::vector<std::string>;

namespace {
std::atomic<long> gTenus{0}, gPlus{0};  // bytes held now, and at most
}
void *operator new(std::size_t taille, const std::nothrow_t &) noexcept {
  void *p = std::malloc(taille);
  const long tenus = gTenus += static_cast<long>(malloc_usable_size(p));
  if (tenus > gPlus) gPlus = tenus;
  return p;
}
void *operator new(std::size_t taille) {
  if (void *p = operator new(taille, std::nothrow)) return p;
  throw std::bad_alloc();
}
void operator delete(void *p) noexcept {
  if (p) gTenus -= static_cast<long>(malloc_usable_size(p));
  std::free(p);
}
void operator delete(void *p, std::size_t) noexcept { operator delete(p); }

namespace {
class Lecture : public ::testing::Test {
 protected:
  void SetUp() override {
    char modele[] = "/tmp/lecture-XXXXXX";
    dossier = mkdtemp(modele);
  }
  void TearDown() override { fs::remove_all(dossier); }
  std::string Fichier(const std::string &nom, const std::string &octets) const {
    std::ofstream(dossier + "/" + nom, std::ios::binary) << octets;
    return dossier + "/" + nom;
  }
  std::string dossier;
};

std::string Repete(const std::string &texte, int fois) {
  std::string tout;
  while (fois-- > 0) tout += texte;
  return tout;
}

// "12: the sentence" of a refusal, or "read".
template <class F>
std::string Dit(F &&faire) {
  try {
    faire();
  } catch (const Refus &r) {
    return std::to_string(r.Ligne()) + ": " + r.what();
  }
  return "read";
}
std::string DitDe(const std::string &texte) {
  return Dit([&] { ComprendreMotif(texte, "m.wif"); });
}

Motif Tisse(const std::string &enfilage, const std::string &plan, const std::string &reste = "") {
  const auto section = [](const std::string &nom, const std::string &lignes) {
    std::string t = "[" + nom + "]\n";
    std::stringstream mots(lignes);
    int n = 0;
    for (std::string m; mots >> m;) t += std::to_string(++n) + "=" + (m == "-" ? "" : m) + "\n";
    return t;
  };
  return ComprendreMotif("[WIF]\n" + reste + section("THREADING", enfilage) + section("LIFTPLAN", plan),
                         "m.wif");
}
V Constats(const Motif &motif, int flotte = kFlotteMax) {
  V textes;
  for (const Constat &c : Verifier(motif, flotte))
    if (c.genre != Constat::TelQuelAutrement) textes.push_back((c.faute ? "!" : "") + c.texte.en);
  return textes;
}
}  // namespace

TEST_F(Lecture, RefusesWithLineAndReason) {
  const std::string plan = "[WIF]\n[LIFTPLAN]\n1=1,2\n";
  const std::pair<std::string, const char *> cas[] = {
      {"", "1: to the end neither"},
      {"[WIF]\nVersion=1.1\n[THREADING]\n1=1\n", "5: to the end neither"},
      {"[WIF]\n\n[TIEUP]\n1=1\n", "3: the tie-up is there, but the treadling"},
      {"[WIF]\n[TREADLING]\n1=1\n", "2: the treadling is there, but the tie-up"},
      {"[WIF]\n[LIFTPLAN]\n; rien\n", "2: the plan has no pick"},
      {"[WIF]\n[TIEUP]\n1=1\n[TREADLING]\n", "4: the plan has no pick"},
      {"[WIF]\r[LIFTPLAN]\r1=1\r2=un\r", "4: \"un\" is no number from 0 to 64"},
      {plan + "2=-3\n", "4: \"-3\" is no number"},
      {plan + "2=1.5\n", "4: \"1.5\" is no number"},
      {plan + "2=3 4\n", "4: \"3 4\" is no number"},
      {plan + "2=65\n", "4: 65 is beyond the 64 harnesses"},
      {plan + "-1=2\n", "4: \"-1\" is no number"},
      {plan + "0=2\n", "4: pick 0 does not exist"},
      {plan + "1000000000=2\n", "4: 1000000000 is beyond the 32767 picks"},
      {plan + "99999999999999999999999=2\n", "4: 99999999999999999999999 is beyond"},
      {"[WIF]\n[TIEUP]\n1=1\n[TREADLING]\n1=1\n[WEAVING]\nRising Shed=false\nShafts=abc\n",
       "8: \"abc\" is no"},
      {plan + "[WEFT]\nThreads=1000000000\n", "5: 1000000000 is beyond the 32767 threads"},
      {plan + "[WARP]\nThreads=beaucoup\n", "5: \"beaucoup\" is no number"},
      {plan + "[WEAVING]\nShafts=1000000000\n", "5: 1000000000 is beyond the 64 harnesses"},
      {plan + "[WEAVING]\nRising Shed=vers le haut\n", "5: \"vers le haut\" is neither true nor false"},
      {plan + "[COLOR PALETTE]\nEntries=1000000000\n", "5: 1000000000 is beyond the 32767 colours"},
      {plan + "[COLOR TABLE]\n1=rouge,0,0\n", "5: \"rouge\" is no value of a colour"},
      {plan + "[WEFT]\nColor=nan\n", "5: \"nan\" is no value of a colour"}};
  for (const auto &[texte, attendu] : cas)
    EXPECT_EQ(DitDe(texte).rfind(attendu, 0), 0u) << texte << "\n" << DitDe(texte);
  std::string sections;
  for (int i = 0; i <= 10000; ++i) sections += "[x]\n";
  EXPECT_EQ(DitDe(sections), "10001: more than 10 000 sections.");
}

TEST_F(Lecture, RefusesWhatIsNoTextWithoutWaiting) {
  mkfifo((dossier + "/tube").c_str(), 0600);
  const std::string debut = "[WIF]\r\n\r\n";
  const std::pair<std::string, std::string> cas[] = {
      {dossier, "0: this is a folder, not a file."},
      {dossier + "/tube", "0: this is not an ordinary file."},
      {"/dev/zero", "0: this is not an ordinary file."},
      {dossier + "/absent", "0: this file cannot be read: there is no such file or folder."},
      {Fichier("long", debut + std::string(5'000'000, 'a')), "3: this line is longer than 1 MB."},
      {Fichier("binaire", debut + std::string(70'000, '\n') + '\0' + debut),
       "70003: a zero byte: this is no text."},
      {Fichier("gros", Repete(std::string(9'999, 'a') + "\n", 3'600)), ": this file is larger than 32 MB."}};
  for (const auto &[chemin, attendu] : cas) {
    const long avant = gTenus;
    gPlus = avant;
    const std::string dit = Dit([&, c = chemin] { LireMotif(c); });
    EXPECT_NE(dit.find(attendu), std::string::npos) << chemin << ": " << dit;
    EXPECT_LT(gPlus - avant, 100'000'000) << chemin;
  }
  if (geteuid() != 0) {
    const std::string ferme = Fichier("ferme", "[WIF]\n");
    chmod(ferme.c_str(), 0);
    EXPECT_EQ(Dit([&] { LireMotif(ferme); }), "0: this file cannot be read: permission is denied.");
  }
}

// The worst files: at most four times their size, whether they are refused or read.
TEST_F(Lecture, MemoryStaysWithinFourTimesTheFile) {
  for (const std::string motif : {"1=1,1,1,1\n", "[a]\n", ";\n", "\r", "[", "=\n", "a=b\n", "é"})
    for (const std::string tete : {"", "[TREADLING]\n1=1\n[TIEUP]\n", "[TIEUP]\n1=1\n[TREADLING]\n",
                                   "[LIFTPLAN]\n", "[COLOR TABLE]\n"}) {
      std::string texte = "[WIF]\n[THREADING]\n1=1\n" + tete;
      while (texte.size() < 400'000) texte += texte.size() % 60'000 < 10 ? "\n" : motif;
      const std::string chemin = Fichier("pire", texte);
      const long avant = gTenus;
      gPlus = avant;
      Dit([&] { Verifier(LireMotif(chemin)); });
      EXPECT_LT(gPlus - avant, 4 * static_cast<long>(texte.size())) << tete << motif;
    }
}

TEST_F(Lecture, TellsEveryFindingWithItsPlace) {
  EXPECT_EQ(Constats(Tisse("1 2 3 4 1 2 3 4", "1,2 2,3 3,4 1,4")), V{});
  EXPECT_EQ(Constats(Tisse("1 2 - - 3 4 -", "1,2 3,4 3,4 3,4 0 1,2 2,3,4 1,2,3,4 0 0 1,4")),
            (V{"!picks that lift no harness: 3, first at pick 5.",
               "!ends on no harness: 3, first at ends 3 to 4.", "picks 2 to 4: the same shed repeats.",
               "tabby: odd and even harnesses join 1 of 6 neighbouring ends (16.7 %), first ends 3 to 4."}));
  EXPECT_EQ(Constats(Tisse("1 2 3 4", "1,2 1,3 2,3 1,4",
                           "[WEAVING]\nShafts=3\n[WARP]\nThreads=5\n[WEFT]\nThreads=3\n")),
            (V{"5 warp ends declared, 4 given; the rest is left out.", "3 picks declared, 4 given.",
               "3 harnesses declared, and harness 4 is used."}));
  EXPECT_EQ(Constats(ComprendreMotif("[LIFTPLAN]\n1=1,2\n1=1,3\n2=1,25\n2=25,1\n2=4\n", "m")),
            (V{"!on 24 harnesses 1 of 2 picks are raised otherwise, first pick 2: 1 instead of 1,25. No way "
               "out: without a "
               "threading nobody knows which ends would change their harness.",
               "!harness 25: the larger loom has 24.", "the header [WIF] is missing.",
               "lines there twice, the first of which counts: 2, first at line 3.",
               "the threading is missing.", "harnesses never lifted (3-24): 22, first at harness 3."}));
  EXPECT_EQ(
      Constats(ComprendreMotif(
          "[WIF]\n[LIFTPLAN]\n1=1\n2=2\n[TIEUP]\n1=1\n2=2\n[TREADLING]\n1=1\n2=1\n[THREADING]\n1=1\n2=2\n",
          "m")),
      V{"!lift plan and treadling differ from pick 2 on; the lift plan counts."});
  EXPECT_EQ(Constats(Tisse("1 2 4 1", "1,2 1 1 1,2", "[WEAVING]\nShafts=3\n")),
            (V{"3 harnesses declared, and harness 4 is used.", "repeated sheds: 2, first at picks 2 to 3.",
               "harness 4: never lifted, and ends are on it.", "harness 3: never lifted.",
               "tabby: odd and even harnesses join 1 of 3 neighbouring ends (33.3 %), first ends 2 to 3.",
               "floats without end, above: 2, first at end 1, above."}));
}

// Six sheds and a count of 1200 are six sheds; what no line gives between them is empty, and told.
TEST_F(Lecture, PicksThatAreOnlyAnnounced) {
  const Motif m = ComprendreMotif(
      "[WIF]\n[WEFT]\nThreads=1200\n[THREADING]\n1=1\n2=2\n[LIFTPLAN]\n1=1\n2=2\n5=1\n6=\n7\n8=2\n9=1\n",
      "m");
  EXPECT_EQ(m.foules, (std::vector<Lames>{1, 2, 0, 0, 1, 0, 0, 2, 1}));
  EXPECT_EQ(Constats(m),
            (V{"!picks 3 to 4: no line of the plan gives it; nothing is lifted.",
               "!picks 6 to 7: no harness is lifted.", "1200 picks declared, 9 given; the rest is left out.",
               "without the sign =, taken for an empty line.",
               "picks 9 to 1, over the seam: the same shed repeats."}));
  const Motif forme = ComprendreMotif(FormeTissable(m), "m");
  EXPECT_EQ(forme.foules, m.foules);
  EXPECT_EQ(Constats(forme)[0], "!picks that lift no harness: 4, first at picks 3 to 4.");

  // Settings that say nothing hold no good plan up; treadles that lead nowhere are told.
  EXPECT_EQ(Constats(Tisse("1 2", "1 2 1", "[WEAVING]\nShafts=abc\nTreadles=\nRising Shed=\n")).front(),
            "no value that can be read, passed over: 3, first at line 3.");
  EXPECT_EQ(
      Constats(ComprendreMotif("[WIF]\n[WEAVING]\nTreadles=2\n[THREADING]\n1=1\n2=2\n[TIEUP]\n1=1\n2=2\n"
                               "[TREADLING]\n1=1,3\n2=2\n3=1\n4=2,4\n",
                               "m")),
      (V{"2 treadles declared, and treadle 4 is used.",
         "treadles pressed that nothing is tied to: 2, first at pick 1, treadle 3."}));
}

// A file that Brandis reads otherwise than it is meant, where nobody converts it.
TEST_F(Lecture, OpenedAsItStands) {
  const auto dit = [](const std::string &texte) {
    for (const Constat &c :
         Verifier(ComprendreMotif("[WIF]\n[THREADING]\n1=1\n2=2\n[LIFTPLAN]\n" + texte, "m")))
      if (c.genre == Constat::TelQuelAutrement) return c.texte.en.substr(0, c.texte.en.find(';'));
    return std::string();
  };
  std::string beaucoup = "1=1";
  for (int i = 0; i < 50; ++i) beaucoup += ",2";
  EXPECT_EQ(dit("1=1,2\n2=2,2\n[WEAVING]\n"), "");
  EXPECT_EQ(dit("1=1,2\n2=2,2\n"),
            "opened as it stands, this file spoils the next, which is read into its plan");
  EXPECT_EQ(dit("1=1,2\n2=2\n[WEAVING]\n"),
            "opened as it stands, this file is read otherwise: 1 pick, first pick 2");
  EXPECT_EQ(dit("2=2,2\n1=1,2\n[WEAVING]\n"),
            "opened as it stands, this file is read otherwise: 2 picks, first pick 1");
  EXPECT_EQ(dit("1=1,2\n3=2,2\n[WEAVING]\n"),
            "opened as it stands, this file is read otherwise: 2 picks, first pick 2");
  EXPECT_EQ(dit(beaucoup + "\n[WEAVING]\n"), "opened as it stands, this file ends Brandis at pick 1");
  EXPECT_EQ(dit("1=1,2\n[TEXT]\n[WEAVING]\n"), "opened as it stands, this file ends Brandis at pick 2");
}

// Floats at their very length, on both sides and both ways, over the seam, and where they are.
TEST_F(Lecture, FloatsLongerThanAllowed) {
  const auto flottes = [](const Motif &m, int flotte) {
    V textes;
    for (const Constat &c : Verifier(m, flotte))
      if (c.longueur > 0 || c.genre == Constat::FlotteSansFin)
        textes.push_back((c.faute ? "!" : "") + c.texte.en);
    return textes;
  };
  const Motif chaine = Tisse("1 2 2 1", "1 1 1 2 2 1 2 1 2");
  EXPECT_EQ(flottes(chaine, 3), V{});
  EXPECT_EQ(flottes(chaine, 2), V{"warp floats of 3: 4, first at picks 1 to 3, end 1, above."});
  const std::vector<Constat> lieux = Verifier(chaine, 2);
  ASSERT_EQ(lieux.back().lieux.size(), 3u);
  EXPECT_EQ(TexteLieu(lieux.back().lieux[1]).en, "picks 1 to 3, ends 2 to 3, below");
  // Three picks at the end and two at the head are five in the cloth.
  EXPECT_EQ(flottes(Tisse("1 2 1 2", "1 1 2 1 2 2 1 1 1"), 3),
            (V{"warp floats of 5: 4, first at picks 7 to 2, over the seam, end 1, above."}));
  EXPECT_EQ(
      flottes(Tisse("1 2 3", "1,3 2,3 1,3 2,3"), 1),
      (V{"end 3, above: float without end.", "weft floats of 2: 2, first at pick 2, ends 2 to 3, below."}));
  EXPECT_EQ(flottes(Tisse("1 1 1 2 3 2 2 2", "1,3 2 3,1 2"), 2),
            (V{"weft floats of 3: 8, first at pick 1, ends 1 to 3, below."}));
  // One row for each length, however many there are of it; the shortest share one.
  std::string plan;
  for (int i = 0; i < 900; ++i) plan += i % 2 ? "1 " : "2,3 ";
  EXPECT_EQ(flottes(Tisse("1 2 3 2 3 2 3 2 3 1", plan), 7),
            V{"weft floats of 8: 900, first at pick 1, ends 2 to 9, below."});
  std::string fils;
  for (int n = 2; n <= 21; ++n)
    for (int i = 0; i < n; ++i) fils += n % 2 ? "1 " : "2 ";
  const V rangees = flottes(Tisse(fils, "1 2"), 1);
  ASSERT_EQ(rangees.size(), 13u);
  EXPECT_EQ(rangees[0], "weft floats of 21: 2, first at pick 1, ends 210 to 230, below.");
  EXPECT_EQ(rangees[12], "weft floats of 2 to 9: 16, first at pick 1, ends 1 to 2, above.");
}

// What takes longest to look through stays within what a loom can take, and that is told.
TEST_F(Lecture, JudgesWithinBounds) {
  Motif m = Tisse("1 2", "1 2");
  m.enfilage.assign(32767, 1);
  m.foules.clear();
  for (int i = 0; i < 32767; ++i) m.foules.push_back(i < 2500 ? 1 + static_cast<Lames>(i % 2) : 3);
  m.chaine.resize(32767);
  m.trame.resize(32767);
  const std::vector<Constat> constats = Verifier(m);
  EXPECT_EQ(std::count_if(constats.begin(), constats.end(),
                          [](const Constat &c) { return c.genre == Constat::NonJuge; }),
            1);
  EXPECT_LT(constats.size(), 30u);
}

TEST_F(Lecture, TextFitToBeShown) {
  const Motif m = ComprendreMotif("[WIF]\n[TEXT]\nTitle=" + Repete("é", 5000) +
                                      "\nAuthor=a\x1b[31mb\xC2\x9B"
                                      "31mc\n[THREADING]\n1=1\n[LIFTPLAN]\n1=1\n",
                                  "/a/b/m.wif");
  EXPECT_EQ(m.titre, Repete("é", 300) + "…");
  EXPECT_EQ(m.auteur, "a [31mb 31mc");
  EXPECT_EQ(ComprendreMotif("[TEXT]\nAuthor=\xE9\x9B"
                            "2J\n[LIFTPLAN]\n1=1\n",
                            "m")
                .auteur,
            "é 2J");
  EXPECT_EQ(Refus("a\n\x1b[2Jb", 3, {"non", "no"}).En(Langue::Anglais), "a  [2Jb:3: no");
  const Motif sansTitre = ComprendreMotif("[WIF]\n[THREADING]\n1=1\n[LIFTPLAN]\n1=1\n", "/a/b/m.wif");
  EXPECT_EQ(ComprendreMotif(EnfilageTissable(sansTitre, 1, Langue::Anglais), "e").titre, "Threading: m");
  EXPECT_EQ(ComprendreMotif(Assembler({{sansTitre, 2}}, false), "e").titre, "m x2");
  EXPECT_NE(Dit([] { LireMotif("/x/dessin.DTX"); }).find("there: Save as WIF"), std::string::npos);
}

// By hand: a harness that goes out stays, its twin above stays, others join what lifts like them or take a
// free one.
TEST_F(Lecture, BringsHarnessesIn) {
  const auto ramene = [](const Motif &m, int lames) {
    V dit;
    try {
      const Ramene r = Ramener(m, lames);
      const Motif neuf = ComprendreMotif(FormeSurEnfilage(m, r.enfilage, r.foules, r.lames), "r");
      EXPECT_EQ(neuf.enfilage, r.enfilage);
      EXPECT_EQ(neuf.foules, r.foules);
      EXPECT_EQ(neuf.lames, r.lames);
      EXPECT_EQ(ComparerLevees(neuf, lames).nombre, 0);
      for (int d = 0; d < m.Duites(); ++d)
        for (int f = 0; f < m.Fils(); ++f) EXPECT_EQ(neuf.FilLeve(f, d), m.FilLeve(f, d)) << d << " " << f;
      for (const Phrase &p : r.pas) dit.push_back(p.en);
    } catch (const Refus &r) {
      dit.push_back(r.what());
    }
    return dit;
  };
  EXPECT_EQ(ramene(Tisse("1 2 17 18", "1,17 2,18"), 24), V{});  // goes out already
  EXPECT_EQ(ramene(Tisse("1 2 17 18 20", "1,17,20 2,18"), 24), V{"harness 20 → 1: 1 end, 5."});
  EXPECT_EQ(ramene(Tisse("1 2 20 21 20", "1,21 2,20 20"), 24),
            (V{"harness 20 → 16: 2 ends, the first 3.", "harness 21 → 1: 1 end, 4."}));
  EXPECT_EQ(ramene(Tisse("1 2 9 10", "1,9 2,10 9"), 16), V{"harness 9 → 8: 1 end, 3."});
  EXPECT_EQ(ramene(Tisse("", "1 20"), 24),
            V{"without a threading nobody knows which ends would change their harness."});
  // All 24 in use, in 16 pairs and singles; and in 17 ways, which is one too many.
  std::string fils, plan;
  for (int l = 1; l <= 24; ++l) fils += std::to_string(l) + " ";
  const auto lever = [&](int facons) {
    plan.clear();
    for (int d = 1; d <= facons; ++d) {
      std::string leve;
      for (int l = 1; l <= 24; ++l)
        if ((l - 1) % facons + 1 == d) leve += (leve.empty() ? "" : ",") + std::to_string(l);
      plan += leve + " ";
    }
    return Tisse(fils, plan);
  };
  EXPECT_EQ(ramene(lever(16), 24), V{});
  EXPECT_EQ(ramene(lever(15), 24).size(), 8u);
  EXPECT_EQ(ramene(lever(17), 24), V{"the ends move in 17 ways, and 16 harnesses go out on the loom of 24."});
  EXPECT_EQ(ramene(lever(8), 16).size(), 8u);  // 9 to 16 lift as 1 to 8
  // By lot, on more harnesses than any loom has and several to an end.
  std::mt19937 h(11);
  int pris = 0;
  for (int i = 0; i < 400; ++i) {
    const int lames = 17 + static_cast<int>(h() % 10), facons = 3 + static_cast<int>(h() % 16);
    std::vector<int> comme(64);
    for (int &c : comme) c = static_cast<int>(h()) & 15;
    Motif m = Tisse("1 2", "1 2");
    m.enfilage.clear();
    m.foules.assign(12, 0);
    for (int f = 0; f < 30; ++f) {
      m.enfilage.push_back(Lame(1 + static_cast<int>(h() % static_cast<unsigned>(lames))));
      if (h() % 9 == 0) m.enfilage.back() |= Lame(1 + static_cast<int>(h() % static_cast<unsigned>(lames)));
    }
    for (Lames &f : m.foules) {
      const auto bits = h();
      for (int l = 1; l <= lames; ++l)
        if (bits >> (comme[static_cast<std::size_t>(l)] % facons) & 1) f |= Lame(l);
    }
    m.lames = lames;
    m.octets = std::make_shared<const std::string>("[WIF]\n");
    m.sections.clear();
    const V dit = ramene(m, h() % 4 ? 24 : 16);
    pris += dit.empty() || dit.back().find("the ends move") == std::string::npos;
  }
  EXPECT_GT(pris, 150);
  EXPECT_LT(pris, 400);
}

TEST_F(Lecture, ColoursOfAnyRange) {
  const auto couleurs = [](const std::string &palette, const std::string &table, const std::string &trame) {
    const Motif m = ComprendreMotif("[WIF]\n[COLOR PALETTE]\n" + palette + "\n[COLOR TABLE]\n" + table +
                                        "\n[WARP]\nColor=1\n[WEFT]\n" + trame +
                                        "\n[THREADING]\n1=1\n2=2\n[LIFTPLAN]\n1=1\n2=2\n3=1\n",
                                    "m");
    char texte[64];
    std::snprintf(texte, sizeof texte, "%06x %06x %06x %06x", m.chaine[0], m.trame[0], m.trame[1],
                  m.trame[2]);
    return std::string(texte);
  };
  const std::string suite = "Color=2\n[WEFT COLORS]\n2=1\n3=9";
  EXPECT_EQ(couleurs("Range=0,255", "1=255,0,128\n2=1,2,3", suite), "ff0080 010203 ff0080 010203");
  EXPECT_EQ(couleurs("Range=0,65535", "1=65535,0,32896\n2=257,514,771", suite),
            "ff0080 010203 ff0080 010203");
  EXPECT_EQ(couleurs("Range=1,101", "1=101,1,51\n2=1,1,300", suite), "ff0080 0000ff ff0080 0000ff");
  EXPECT_EQ(couleurs("", "1=999,0,500\n2=0,0,0", "Color=0,0,999\n[WEFT COLORS]\n3=7,999,999,999"),
            "ff0080 0000ff 0000ff ffffff");
}

TEST_F(Lecture, WritesWholeOrNotAtAll) {
  const std::string cible = Fichier("la.wif", "ancien");
  EXPECT_THROW(EcrireFichier(cible, "neuf", false), DejaLa);
  EXPECT_EQ(LireBrut(cible), "ancien");
  EcrireFichier(cible, "neuf", true);
  EXPECT_EQ(LireBrut(cible), "neuf");
  EcrireFichier(dossier + "/autre.wif", std::string(3'000'000, 'x'), false);
  EXPECT_EQ(fs::file_size(dossier + "/autre.wif"), 3'000'000u);
  EXPECT_NE(Dit([&] { EcrireFichier(dossier, "x", true); }), "read");
  EXPECT_NE(Dit([&] { EcrireFichier("/dev/null", "x", true); }), "read");
  EXPECT_NE(Dit([&] { EcrireFichier(dossier + "/pas/la.wif", "x", false); }), "read");
  int fichiers = 0;
  for (const auto &e : fs::directory_iterator(dossier)) fichiers += e.is_regular_file();
  EXPECT_EQ(fichiers, 2);  // nothing provisional stays
}

TEST_F(Lecture, FolderOfTheUser) {
  fs::create_directories(dossier + "/bin");
  setenv("XDG_DATA_HOME", (dossier + "/xdg").c_str(), 1);
  setenv("HOME", (dossier + "/maison").c_str(), 1);
  EXPECT_EQ(DossierData(dossier + "/bin"), dossier + "/xdg/brandis/Data");
  setenv("XDG_DATA_HOME", "relatif", 1);
  EXPECT_EQ(DossierData(dossier + "/bin"), dossier + "/maison/.local/share/brandis/Data");
  EXPECT_TRUE(fs::is_directory(dossier + "/maison/.local/share/brandis/Data"));
  unsetenv("HOME");
  EXPECT_NE(Dit([&] { DossierData(dossier + "/bin"); }).find("HOME and XDG_DATA_HOME are missing"),
            std::string::npos);
  fs::create_directories(dossier + "/bin/Data");
  EXPECT_EQ(DossierData(dossier + "/bin"), dossier + "/bin/Data");
}

TEST_F(Lecture, SectionsAndThreading) {
  const Motif a = Tisse("1 2 3", "1,2 3"), b = Tisse("3 2 1", "2", "[WEFT]\nColor=255,0,0\n");
  const Motif c = ComprendreMotif(Assembler({{a, 2}, {b, 3}}, true), "c");
  EXPECT_EQ(c.foules, (std::vector<Lames>{3, 4, 0, 3, 4, 0, 2, 0, 2, 0, 2}));
  EXPECT_EQ(c.separations, (std::vector<int>{3, 6, 8, 10}));
  EXPECT_TRUE(Fautes(c).empty());
  EXPECT_EQ(ComprendreMotif(Assembler({{c, 2}}, true), "c").separations.size(), 9u);
  EXPECT_EQ(c.enfilage, a.enfilage);
  EXPECT_EQ(c.trame[6], 0xFF0000u);
  EXPECT_EQ(c.trame[0], a.trame[0]);
  EXPECT_EQ(ComprendreMotif(Assembler({{b, 2}}, false), "c").foules, (std::vector<Lames>{2, 2}));
  EXPECT_EQ(ComparerChaines({{a, 1}, {b, 1}}).size(), 1u);
  EXPECT_EQ(Assembler({{b, 2500}}, false).find("2501="), std::string::npos);
  EXPECT_NE(Dit([&] {
              Assembler({{b, 2500}, {a, 1}}, false);
            }).find("2502 picks up to here"),
            std::string::npos);
  EXPECT_NE(Dit([&] { Assembler({{b, 1251}}, true); }).find("2501 picks"), std::string::npos);

  const Motif d = Tisse("1 2,5 - 7 3", "1 2");
  EXPECT_EQ(ComprendreMotif(EnfilageTissable(d, 1, Langue::Anglais), "e").foules,
            (std::vector<Lames>{1, 18, 0, 64, 4}));
  EXPECT_EQ(ComprendreMotif(EnfilageTissable(d, 2, Langue::Anglais), "e").foules,
            (std::vector<Lames>{19, 64, 4}));
  EXPECT_NE(Dit([&] { EnfilageTissable(Tisse("", "1"), 1, Langue::Anglais); }), "read");
}

TEST_F(Lecture, OnlyWhatTheLoomCanWeave) {
  EXPECT_NE(Dit([] { FormeTissable(Tisse("1", "1,24 25")); }).find("harness 25 is raised"),
            std::string::npos);
  std::string plan;
  for (int i = 0; i < 2500; ++i) plan += "1,2 ";
  EXPECT_NE(FormeTissable(Tisse("1", plan)).find("\r\n2500=1,2\r\n[WEAVING]"), std::string::npos);
  EXPECT_NE(Dit([&] { FormeTissable(Tisse("1", plan + "3")); }).find("2501 picks"), std::string::npos);
}

// A file glued together of two keeps both headers, in one.
TEST_F(Lecture, HeadersOfAGluedFile) {
  const Motif deux =
      ComprendreMotif("[WIF]\nSource Program=A\n[LIFTPLAN]\n1=1\n[WIF]\nVersion=1.0\nDate=hier\n", "m");
  const std::string forme = FormeTissable(deux);
  EXPECT_EQ(forme.rfind("[WIF]\r\nSource Program=A\r\n\r\nVersion=1.0\r\nDate=hier\r\n", 0), 0u) << forme;
  EXPECT_EQ(FormeTissable(ComprendreMotif(forme, "m")), forme);
  const std::string vide =
      FormeTissable(ComprendreMotif("[WIF]\nVersion=1.1\n[WIF]\n\n[LIFTPLAN]\n1=1\n[wif]\n", "m"));
  EXPECT_EQ(FormeTissable(ComprendreMotif(vide, "m")), vide);
}

// Bytes thrown into right files: a refusal with its reason, or a pattern that survives its own
// weavable form unchanged.
TEST_F(Lecture, ThousandsOfWildFiles) {
  const std::string signes = "=,\n\r[]90-;\xFF\x1a";
  const V bouts{"[TIEUP]\n", "[LIFTPLAN]\n", "[COLOR TABLE]\n1=2,3", "[WARP]\nThreads=12\n", "999999999999"};
  V fichiers;
  for (const auto &e : fs::directory_iterator(BRANDIS_FICHIERS)) fichiers.push_back(LireBrut(e.path()));
  std::sort(fichiers.begin(), fichiers.end());
  std::mt19937 h(7);
  int lus = 0, refuses = 0;
  for (int i = 0; i < 3000; ++i) {
    std::string texte = fichiers[h() % fichiers.size()];
    for (auto n = i % 4 ? 1 + h() % 6 : 0; n > 0; --n) {
      const std::size_t place = h() % texte.size();
      if (h() % 3 == 0)
        texte.erase(place, 1 + h() % 40);
      else
        texte.insert(place,
                     h() % 3 ? std::string(1, signes[h() % signes.size()]) : bouts[h() % bouts.size()]);
      if (texte.empty()) texte = "[";
    }
    try {
      const Motif m = ComprendreMotif(texte, "m");
      Verifier(m, 1 + static_cast<int>(h() % 9));
      const Planche planche(m);
      std::vector<Couleur> cases(static_cast<std::size_t>(planche.Largeur()));
      for (int y = -1; y <= planche.Hauteur(); ++y) planche.Ligne(y, cases.data());
      ++lus;
      const std::string forme = FormeTissable(m);
      const Motif encore = ComprendreMotif(forme, "m");
      ASSERT_EQ(encore.foules, m.foules) << texte;
      ASSERT_EQ(encore.enfilage, m.enfilage) << texte;
      ASSERT_EQ(encore.chaine, m.chaine) << texte;
      ASSERT_EQ(encore.trame, m.trame) << texte;
      ASSERT_EQ(FormeTissable(encore), forme) << texte;
    } catch (const Refus &r) {
      ++refuses;
      EXPECT_NE(std::string(r.what()), "");
    }
  }
  EXPECT_GT(lus, 1000);
  EXPECT_GT(refuses, 200);
}
