// brandis-motifs on a large piece: 2500 picks, 24 harnesses, 1200 ends in six colours.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <filesystem>
#include <random>

#include "app-motifs/Poste.h"
#include "app-motifs/dessin/Dessin.h"
#include "app-motifs/fenetre/VueMotif.h"
#include "motifs/Constats.h"
#include "motifs/Fichier.h"
#include "motifs/LectureMotif.h"

namespace {
// Tie-up and treadling, as most files have it.
std::string GrandMotif() {
  std::mt19937 hasard(3);
  std::string t =
      "[WIF]\nVersion=1.1\n[WEAVING]\nShafts=24\nTreadles=24\n[WARP]\nThreads=1200\n[WEFT]\nThreads=2500\n["
      "COLOR TABLE]\n";
  const auto lignes = [&t](const char *section, int nombre, auto valeur) {
    t += section;
    for (int i = 1; i <= nombre; ++i) t += std::to_string(i) + "=" + valeur(i) + "\n";
  };
  lignes("", 6,
         [&](int) { return std::to_string(hasard() % 256) + ",90," + std::to_string(hasard() % 256); });
  lignes("[WARP COLORS]\n", 1200, [](int i) { return std::to_string(i / 20 % 6 + 1); });
  lignes("[WEFT COLORS]\n", 2500, [](int i) { return std::to_string(i / 30 % 6 + 1); });
  lignes("[THREADING]\n", 1200, [](int i) { return std::to_string(i % 24 + 1); });
  lignes("[TREADLING]\n", 2500, [](int i) { return std::to_string(i * 7 % 24 + 1); });
  lignes("[TIEUP]\n", 24, [&](int) {
    std::string lames = "1";
    for (int l = 2; l <= 24; ++l)
      if (hasard() % 2) lames += "," + std::to_string(l);
    return lames;
  });
  return t;
}

// A folder for the run, in memory where there is one, so that the disk is not measured.
const std::string &Dossier() {
  static const std::string dossier = [] {
    std::string modele =
        std::filesystem::is_directory("/dev/shm") ? "/dev/shm/motifs-XXXXXX" : "/tmp/motifs-XXXXXX";
    return std::string(mkdtemp(modele.data()));
  }();
  return dossier;
}
const std::string &Fichier() {
  static const std::string chemin = [] {
    EcrireFichier(Dossier() + "/grand.wif", GrandMotif(), true);
    std::filesystem::create_directory(Dossier() + "/vers");
    return Dossier() + "/grand.wif";
  }();
  return chemin;
}

void ConversionMotif(benchmark::State &etat) {
  for (auto _ : etat) Convertir(LireMotif(Fichier()), Dossier() + "/vers", true);
}
BENCHMARK(ConversionMotif)->Unit(benchmark::kMillisecond);

void ConstatsMotif(benchmark::State &etat) {
  const Motif motif = LireMotif(Fichier());
  for (auto _ : etat) benchmark::DoNotOptimize(Verifier(motif));
}
BENCHMARK(ConstatsMotif)->Unit(benchmark::kMillisecond);

// 0 png, 1 svg, 2 pdf
void ImageMotif(benchmark::State &etat) {
  const Motif motif = LireMotif(Fichier());
  const char *const noms[] = {"x.png", "x.svg", "x.pdf"};
  ReglagesDessin reglages;
  reglages.cote = 2;  // some 300 sheets
  for (auto _ : etat)
    benchmark::DoNotOptimize(Dessiner(motif, noms[etat.range(0)], reglages, Langue::Francais));
}
BENCHMARK(ImageMotif)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

// One frame of a window of 1600 x 1000 while the drawing moves: all of it, then at 1, 3 and 12 pixels a cell.
void TrameFenetre(benchmark::State &etat) {
  VueMotif vue(Langue::Francais);
  vue.resize(1600, 1000);
  vue.Montrer(
      std::make_shared<DessinPret>(std::make_shared<const Motif>(LireMotif(Fichier())), ReglagesPlanche{}));
  if (etat.range(0) > 0) vue.Zoomer(static_cast<double>(etat.range(0)) / vue.Zoom(), {800, 500});
  QImage image(vue.size(), QImage::Format_RGB32);
  double sens = 1.01;
  for (auto _ : etat) {
    vue.Zoomer(sens, {800, 500});
    sens = 1 / sens;
    vue.render(&image);
  }
}
BENCHMARK(TrameFenetre)->Arg(0)->Arg(1)->Arg(3)->Arg(12)->Unit(benchmark::kMillisecond);

void OuvertureDessin(benchmark::State &etat) {
  VueMotif vue(Langue::Francais);
  const auto motif = std::make_shared<const Motif>(LireMotif(Fichier()));
  for (auto _ : etat) vue.Montrer(std::make_shared<DessinPret>(motif, ReglagesPlanche{}));
}
BENCHMARK(OuvertureDessin)->Unit(benchmark::kMillisecond);

// The worst kind of file, 10 MB of it.
void DixMegaoctets(benchmark::State &etat) {
  std::string texte = "[WIF]\n[LIFTPLAN]\n1=1\n[NOTES]\n";
  while (texte.size() < 10'000'000) texte += "1=1,2,3\n";
  const std::string chemin = Dossier() + "/dix.wif";
  EcrireFichier(chemin, texte, true);
  for (auto _ : etat) benchmark::DoNotOptimize(LireMotif(chemin));
}
BENCHMARK(DixMegaoctets)->Unit(benchmark::kMillisecond);
}  // namespace

int main(int nombre, char **mots) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(nombre, mots);
  benchmark::Initialize(&nombre, mots);
  benchmark::RunSpecifiedBenchmarks();
  std::filesystem::remove_all(Dossier());
}
