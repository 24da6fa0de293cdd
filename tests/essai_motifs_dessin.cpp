// Drawings of patterns: what a cell shows, where lines and numbers stand, and what is too large.
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>

#include "app-motifs/dessin/Dessin.h"
#include "motifs/CouleursTrame.h"
#include "motifs/FormeTissable.h"
#include "motifs/LectureMotif.h"

namespace {
// Four ends on harnesses 1 2 3 3, three picks, all threads white.
Motif Blanc() {
  return ComprendreMotif(
      "[WIF]\n[TEXT]\nTitle=Blanc\n[WEAVING]\nShafts=3\n[WARP]\nColor=255,255,255\n[WEFT]\nColor=255,255,"
      "255\n"
      "[COLOR PALETTE]\nRange=0,255\n[THREADING]\n1=1\n2=2\n3=3\n4=3\n[LIFTPLAN]\n1=1,3\n2=2,3\n3=3,3\n",
      "blanc.wif");
}
std::vector<Case> Rangee(const Planche &p, int y, bool traits = false) {
  std::vector<Case> cases(static_cast<std::size_t>(p.Largeur()));
  p.Ligne(y, cases.data(), traits);
  return cases;
}
std::string Dit(const std::function<void()> &faire) {
  try {
    faire();
  } catch (const Refus &r) {
    return r.En(Langue::Anglais);
  }
  return "done";
}
int Feuilles(const std::string &pdf) {
  const auto compte = pdf.find("/Count ");
  return compte == std::string::npos ? 0 : std::atoi(pdf.c_str() + compte + 7);
}
Motif Long(int duites, int fils) {
  std::string t = "[WIF]\n[WEAVING]\nShafts=2\n[THREADING]\n";
  for (int i = 1; i <= fils; ++i) t += std::to_string(i) + "=" + std::to_string(i % 2 + 1) + "\n";
  t += "[LIFTPLAN]\n";
  for (int i = 1; i <= duites; ++i) t += std::to_string(i) + "=1,2\n";
  return ComprendreMotif(t, "long.wif");
}
}  // namespace

TEST(Dessin, FirstPickBelowAndRepeats) {
  const Motif m = Blanc();
  for (const bool enHaut : {false, true})
    for (const int reprises : {1, 2}) {
      const Planche p(m, {.structure = true, .enHaut = enHaut, .reprises = reprises});
      EXPECT_EQ(p.FilsTraces(), 4 * reprises);
      EXPECT_EQ(p.YDuite(1) > p.YDuite(2), !enHaut);
      EXPECT_EQ(p.YLame(1) < p.YLame(2), !enHaut);
      for (int d = 1; d <= p.DuitesTracees(); ++d) {
        const auto cases = Rangee(p, p.YDuite(d));
        for (int f = 1; f <= p.FilsTraces(); ++f)
          EXPECT_EQ(cases[static_cast<std::size_t>(p.XFil(f))] == kChaineDessus,
                    m.FilLeve((f - 1) % 4, (d - 1) % 3))
              << f << " " << d;
      }
      EXPECT_EQ(Rangee(p, p.YLame(2))[static_cast<std::size_t>(p.XFil(2))], kCaseMarquee);
    }
  const Planche part(m, {.duites = {2, 3}, .fils = {3, 4}});
  EXPECT_EQ(part.FilsTraces(), 2);
  EXPECT_EQ(part.Duite(1), 2);
  EXPECT_EQ(part.Fil(2), 4);
  EXPECT_EQ(Dit([&] { Planche(m, {.duites = {4, 9}}); }), "blanc.wif: pick 4 is not there: 3 picks in all.");
  EXPECT_TRUE(CouleursMuettes(m));
  EXPECT_EQ(Rapport(Long(7, 9)), std::pair(2, 1));
}

// White on white is no blank paper: a line wherever one thread ends and another begins, none along a thread.
TEST(Dessin, LinesPartTheThreads) {
  const Motif m = Blanc();
  const Planche p(m, {.enHaut = true});
  const auto haut = Rangee(p, p.YDuite(1), true);
  const auto trait = [&](int fil, Case sorte) {
    return (haut[static_cast<std::size_t>(p.XFil(fil))] & sorte) != 0;
  };
  // Pick 1 lifts ends 1, 3 and 4; pick 2 lifts 2, 3 and 4.
  EXPECT_FALSE(trait(3, kTraitBas)) << "end 3 runs on over pick 2";
  EXPECT_TRUE(trait(1, kTraitBas));
  EXPECT_TRUE(trait(2, kTraitBas));
  EXPECT_TRUE(trait(4, kTraitDroite)) << "two ends side by side";
  const auto bas = Rangee(p, p.YDuite(3), true);  // the weft lies over ends 2 and 1
  EXPECT_FALSE(bas[static_cast<std::size_t>(p.XFil(2))] & kTraitDroite);
  EXPECT_NE(Trait(0xFFFFFF), 0xFFFFFFu);
  EXPECT_NE(Trait(0), 0u);
}

TEST(Dessin, NumbersByTheRoomThereIs) {
  EXPECT_EQ(PasNumeros(4, 40, 10), 1);
  EXPECT_EQ(PasNumeros(4, 12, 10), 4);
  EXPECT_EQ(PasNumeros(5, 3, 10), 5);
  EXPECT_EQ(PasNumeros(5, 1, 10), 10);
  EXPECT_EQ(PasNumeros(5, 0.3, 10), 50);
  std::string vus;
  PourChaqueNumero({3, 16}, 11, 8, 5,
                   [&](int rang, int n) { vus += std::to_string(rang) + ":" + std::to_string(n) + " "; });
  EXPECT_EQ(vus, "5:15 13:15 ");  // eight threads from 11 on, twice
}

TEST(Dessin, SheetsAndWhatIsTooLarge) {
  const Motif petit = Blanc(), grand = Long(3058, 40);
  EXPECT_EQ(Feuilles(Dessiner(petit, "x.pdf", {}, Langue::Anglais)), 2);  // the drawing, the picks
  const int feuilles = Feuilles(Dessiner(grand, "x.pdf", {}, Langue::Anglais));
  ReglagesDessin r;
  r.cote = 2;
  EXPECT_LT(Feuilles(Dessiner(grand, "x.pdf", r, Langue::Francais)), feuilles);
  r.cote = 20;
  EXPECT_NE(Dit([&] { Dessiner(grand, "x.pdf", r, Langue::Anglais); }).find("sheets: 1000 at most"),
            std::string::npos);
  EXPECT_NE(Dit([&] {
              Dessiner(ComprendreMotif("[WIF]\n[LIFTPLAN]\n1=24,1\n", "m"), "x.pdf", r, Langue::Anglais);
            }).find("mm at most"),
            std::string::npos);
  const Motif geant = Long(32767, 32767);
  for (const char *nom : {"x.png", "x.svg", "x.pdf"}) {
    const std::string dit = Dit([&] { Dessiner(geant, nom, {}, Langue::Anglais); });
    EXPECT_NE(dit.find("--picks and --ends draw a part"), std::string::npos) << nom << dit;
  }
  ReglagesDessin part;
  part.planche.duites = part.planche.fils = {32000, 32767};
  EXPECT_EQ(Dessiner(geant, "x.png", part, Langue::Anglais).substr(1, 3), "PNG");
}

TEST(Dessin, PartsOfAPiece) {
  const auto lue = [](const char *t) {
    const auto e = LireEtendue(t);
    return e ? std::pair(e->premier, e->dernier) : std::pair(0, 0);
  };
  EXPECT_EQ(lue("1-2400"), std::pair(1, 2400));
  EXPECT_EQ(lue(" 7 "), std::pair(7, 7));
  EXPECT_EQ(lue("2401-"), std::pair(2401, kFilsMax));
  for (const char *non : {"", "-", "0-4", "9-3", "1-99999", "a-b", "1-2-3"})
    EXPECT_EQ(lue(non).first, 0) << non;
  EXPECT_EQ(SeparerEtendue("a.wif[3-]").first, "a.wif");
  EXPECT_EQ(SeparerEtendue("a[1].wif").first, "a[1].wif");
  EXPECT_EQ(SeparerEtendue("a.wif[x]").first, "a.wif[x]");

  const Motif m = ComprendreMotif(
      "[WIF]\n[WEAVING]\nShafts=4\nTreadles=3\n[WEFT]\nThreads=4\n[WEFT COLORS]\n1=255,0,0\n3=0,0,255\n"
      "[COLOR PALETTE]\nRange=0,255\n[THREADING]\n1=1\n2=2\n[TIEUP]\n1=1\n2=2\n3=3,4\n"
      "[TREADLING]\n1=1\n2=2\n3=3\n4=1\n",
      "dir/m.wif");
  const Motif part = Extraire(m, {2, 3});
  EXPECT_EQ(part.chemin, "dir/m-2-3.wif");
  const Motif encore = ComprendreMotif(FormeTissable(part), "n");
  EXPECT_EQ(encore.foules, (std::vector<Lames>{Lame(2), Lame(3) | Lame(4)}));
  EXPECT_EQ(encore.enfilage, m.enfilage);
  EXPECT_EQ(encore.trame[1], 0x0000FFu);
  EXPECT_EQ(encore.titre, "m [2-3]");
  EXPECT_EQ(Extraire(m, {}).chemin, "dir/m.wif");
  EXPECT_EQ(Dit([&] { Extraire(m, {5, 6}); }), "dir/m.wif: pick 5 is not there: 4 picks in all.");
}

TEST(Dessin, ColourChangesOfTheWeft) {
  std::string t = "[WIF]\n[TEXT]\nTitle=Plaid\n[COLOR PALETTE]\nRange=0,255\n[WEFT COLORS]\n";
  const auto couleur = [&](int d, const char *rvb) { t += std::to_string(d) + "=" + rvb + "\n"; };
  for (int d = 1; d <= 24; ++d) couleur(d, "200,20,20");
  couleur(25, "20,60,200");
  for (int d = 26; d <= 45; ++d) couleur(d, (d - 26) % 4 < 2 ? "255,255,255" : "20,60,200");
  for (int d = 46; d <= 300; ++d) couleur(d, "215,30,25");
  t += "[LIFTPLAN]\n";
  for (int d = 1; d <= 300; ++d) t += std::to_string(d) + "=1,2\n";
  const std::string dit = FeuilleCouleurs(ComprendreMotif(t, "p.wif"), Langue::Anglais);
  EXPECT_EQ(dit,
            "Plaid: weft colours\n300 picks, 4 colours, 12 changes\n\n"
            "picks 1 to 24       red 1\n"
            "pick 25             blue\n"
            "picks 26 to 45      5 times: 2 white, 2 blue\n"
            "picks 46 to 300     red 2\n\n"
            "red 1               #C81414  24 picks, 8 %, first 1, last 24\n"
            "blue                #143CC8  11 picks, 4 %, first 25, last 45\n"
            "white               #FFFFFF  10 picks, 3 %, first 26, last 43\n"
            "red 2               #D71E19  255 picks, 85 %, first 46, last 300\n");
}
