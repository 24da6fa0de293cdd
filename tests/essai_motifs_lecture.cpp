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
#include "motifs/Planche.h"

namespace fs = std::filesystem;
using V = std::vector<std::string>;

namespace {
std::atomic<long> gTenus{0}, gPlus{0};  // bytes held now, and at most
}
void *operator new(std::size_t taille) {
  void *p = std::malloc(taille);
  if (!p) throw std::bad_alloc();
  const long tenus = gTenus += static_cast<long>(malloc_usable_size(p));
  if (tenus > gPlus) gPlus = tenus;
  return p;
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
  for (const Constat &c : Verifier(motif, flotte)) textes.push_back((c.faute ? "!" : "") + c.texte.en);
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
      {plan + "2 1,2\n", "4: \"2 1,2\": the sign = is missing"},
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
  V attendus{"harness 20: for the loom of 24 harnesses only.",
             "picks 2 to 4: the same shed repeats.",
             "!pick 5: no harness is lifted.",
             "!picks 9 to 10: no harness is lifted.",
             "!ends 3 to 4: on no harness.",
             "!end 7: on no harness."};
  for (int l = 4; l <= 19; ++l) attendus.push_back("harness " + std::to_string(l) + ": never lifted.");
  EXPECT_EQ(Constats(Tisse("1 2 - - 3 20 -", "1,2 3,20 3,20 3,20 - 1,2 2,3,20 1,2,3,20 0 - 1,20")), attendus);
  EXPECT_EQ(Constats(Tisse("1 2 2 3", "1,2 1,3 2,3 1,3",
                           "[WEAVING]\nShafts=3\n[WARP]\nThreads=5\n[WEFT]\nThreads=3\n")),
            (V{"!5 warp ends declared, 4 given.", "!3 picks declared, 4 given.", "!end 5: on no harness."}));
  const V vingtCinq = Constats(ComprendreMotif("[LIFTPLAN]\n1=1,2\n1=1,3\n2=1,25\n2=25,1\n", "m"));
  EXPECT_EQ(
      V(vingtCinq.begin(), vingtCinq.begin() + 5),
      (V{"the header [WIF] is missing.", "the key 1 is there twice; the first counts.",
         "!harness 25: the larger loom has 24.", "the threading is missing.", "harness 3: never lifted."}));
  EXPECT_EQ(
      Constats(ComprendreMotif(
          "[WIF]\n[LIFTPLAN]\n1=1\n2=2\n[TIEUP]\n1=1\n2=2\n[TREADLING]\n1=1\n2=1\n[THREADING]\n1=1\n2=2\n",
          "m")),
      V{"!lift plan and treadling differ from pick 2 on; the lift plan counts."});
  EXPECT_EQ(Constats(Tisse("1 2", "1,2 1 1 1,2", "[WEAVING]\nShafts=3\n")).back(),
            "harness 3: never lifted.");
}

// Floats at their very length, on both sides and both ways, and where they are.
TEST_F(Lecture, FloatsLongerThanAllowed) {
  const Motif chaine = Tisse("1 2 2 1", "1 1 1 2 2 1 2 1 2");
  EXPECT_EQ(Constats(chaine, 3),
            (V{"picks 1 to 3: the same shed repeats.", "picks 4 to 5: the same shed repeats."}));
  const V attendus{"picks 1 to 3: the same shed repeats.", "picks 4 to 5: the same shed repeats.",
                   "!end 1, picks 1 to 3: warp float of 3 above.",
                   "!ends 2 to 3, picks 1 to 3: warp float of 3 below.",
                   "!end 4, picks 1 to 3: warp float of 3 above."};
  EXPECT_EQ(Constats(chaine, 2), attendus);
  const V trame = Constats(Tisse("1 1 1 2 3 2 2 2", "1,3 2 3,1 2"), 2);
  for (const char *dit :
       {"!pick 1, ends 1 to 3: weft float of 3 below.", "!pick 1, ends 6 to 8: weft float of 3 above.",
        "!pick 4, ends 1 to 3: weft float of 3 above."})
    EXPECT_EQ(std::count(trame.begin(), trame.end(), dit), 1) << dit;
  // Not one line for each of thousands.
  std::string plan;
  for (int i = 0; i < 900; ++i) plan += i % 2 ? "1 " : "2,3 ";
  EXPECT_EQ(Constats(Tisse("1 2 3 2 3 2 3 2 3 1", plan)).back(), "and 400 more (flotte-trame).");
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
