// Measurements with the real platform: the mirror offscreen, and the road of a pick on a pseudo-terminal.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <QApplication>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <semaphore>
#include <thread>
#include <vector>

#include "commands/CommandesProgramme.h"
#include "display/TenueCompteur.h"
#include "events/Evenements.h"
#include "kit/ModuleTransparence.h"
#include "mainwindow/CompositionFenetre.h"
#include "platform/qt/machine/PlateformeQt.h"
#include "session/Commandes.h"
#include "session/FenetreTissagePrincipale.h"
#include "weaving/EcouteMetier.h"
#include "weaving/SequenceurDuites.h"

namespace {
constexpr std::size_t kTrame = 16;  // bytes

// The program's folder with a loom's line that this process holds the other end of.
class Metier {
 public:
  Metier() : maitre_(posix_openpt(O_RDWR | O_NOCTTY)) {
    grantpt(maitre_);
    unlockpt(maitre_);
    termios brut{};
    tcgetattr(maitre_, &brut);
    cfmakeraw(&brut);
    tcsetattr(maitre_, TCSANOW, &brut);
    char modele[] = "/tmp/mesures-XXXXXX";
    dossier = mkdtemp(modele);
    namespace fs = std::filesystem;
    fs::create_directory(dossier + "/Ports");
    fs::create_symlink(ptsname(maitre_), dossier + "/Ports/com1");
    fs::copy(BRANDIS_PROGRAMME "/Data", dossier + "/Data");
    fs::remove(dossier + "/Data/Configuration.Con");
    fs::create_directory_symlink(BRANDIS_PROGRAMME "/Images", dossier + "/Images");
    fs::create_directory_symlink(BRANDIS_PROGRAMME "/Dessins Boutons", dossier + "/Dessins Boutons");
  }
  ~Metier() {
    close(maitre_);
    std::filesystem::remove_all(dossier);
  }
  Metier(const Metier &) = delete;
  Metier &operator=(const Metier &) = delete;

  void Rapporter() const {
    if (write(maitre_,
              "\x1B"
              "C\r",
              3) != 3)
      std::abort();
  }
  // Waits for a whole frame.
  bool Recevoir() const {
    char octets[64];
    std::size_t recus = 0;
    while (recus < kTrame) {
      pollfd attente{maitre_, POLLIN, 0};
      if (poll(&attente, 1, 2000) != 1) return false;
      const ssize_t n = read(maitre_, octets, sizeof octets);
      if (n <= 0) return false;
      recus += static_cast<std::size_t>(n);
    }
    return recus == kTrame;
  }
  std::string dossier;

 private:
  int maitre_;
};

// The program as it stands in the middle of weaving, its window open offscreen.
class Programme {
 public:
  Programme() : machine({metier.dossier, {metier.dossier, BRANDIS_PROGRAMME}}) {
    InstallerPlateforme(&machine);
    session = {};
    fenetre = FenetreTissagePrincipale();
    machine.LeMiroir().Ajouter(fenetre);
    machine.LeMiroir().AvantReflet(TenirCompteur);
    machine.LeMiroir().Passer([] {
      fenetre.Chargee = true;
      LierEvenements();
      Form_Load();
      fenetre.Visible = true;
    });
    session.PortMetier = 1;
    session.OptionTissage = Option::Patron;
    machine.LeMiroir().Passer([this] {
      session.CheminWif = metier.dossier + "/Data/Figure24.Wif";
      DessinerBoutons();
      Charger();
      BoutonProgramme_Click(Commande::Demarrer);
      fenetre.Timer3.Interval(30000);  // the measurement polls by itself
    });
    metier.Recevoir();
  }
  Metier metier;
  PlateformeQt machine;

 private:
  static void Charger();
};

void Programme::Charger() {
  std::ifstream fichier(session.CheminWif);
  int n = 0;
  for (std::string ligne; std::getline(fichier, ligne) && n < 200;)
    if (n > 0 || ligne.rfind("[LIFTPLAN]", 0) == 0) session.LignesWif[n++] = ligne;
  session.NombreDuitesWif = n - 1;
  session.NombreDuites = n - 1;
  fenetre.PatronCharge = true;
  BoutonProgramme_Click(Commande::TisserPatron);
}

// Not by way of the poll, which lets events run and so mirrors and paints before it comes back.
void RefletDUneDuite(benchmark::State &etat) {
  Programme programme;
  const Miroir &miroir = programme.machine.LeMiroir();
  long ecritures = 0;
  for (auto _ : etat) {
    etat.PauseTiming();
    DuiteSuivante();
    const long avant = miroir.Ecritures();
    etat.ResumeTiming();
    programme.machine.Rafraichir();
    etat.PauseTiming();
    ecritures += miroir.Ecritures() - avant;
    programme.metier.Recevoir();
    etat.ResumeTiming();
  }
  if (ecritures == 0) etat.SkipWithError("nothing was mirrored");
  etat.counters["properties"] =
      benchmark::Counter(static_cast<double>(ecritures), benchmark::Counter::kAvgIterations);
}
BENCHMARK(RefletDUneDuite)->Unit(benchmark::kMicrosecond)->Iterations(500);

// The loom's ear on a thread of its own, so that the moment of the last byte is seen when it comes.
class Oreille {
 public:
  explicit Oreille(const Metier &metier)
      : fil_([this, &metier] {
          while (metier.Recevoir()) {
            fin_ = std::chrono::steady_clock::now();
            recue_.release();
          }
        }) {}
  ~Oreille() { fil_.join(); }
  std::chrono::steady_clock::time_point Fin() {
    recue_.acquire();
    return fin_;
  }

 private:
  std::chrono::steady_clock::time_point fin_;
  std::binary_semaphore recue_{0};
  std::thread fil_;
};

// From the report written by the loom to the last byte of the next frame read by it, without the poll's wait.
void RouteDUneDuite(benchmark::State &etat) {
  Programme programme;
  Oreille oreille(programme.metier);  // ends by itself when no frame comes any more
  std::vector<double> durees;
  for (auto _ : etat) {
    const auto debut = std::chrono::steady_clock::now();
    programme.metier.Rapporter();
    Timer3_Timer();
    const double duree = std::chrono::duration<double>(oreille.Fin() - debut).count();
    etat.SetIterationTime(duree);
    durees.push_back(duree * 1e6);
    programme.machine.Rafraichir();
    QCoreApplication::processEvents();  // the queue is empty by the time the weaver has trodden
    usleep(1000);
  }
  std::sort(durees.begin(), durees.end());
  if (durees.empty()) return;
  etat.counters["p50_us"] = durees[durees.size() / 2];
  etat.counters["p99_us"] = durees[durees.size() * 99 / 100];
}
BENCHMARK(RouteDUneDuite)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(2000);

// The outline of the skin as it is drawn, with no progress window standing.
void RegionHabillage(benchmark::State &etat) {
  Programme programme;
  const Surface &peau = programme.machine.Picture("Habillage");
  for (auto _ : etat) benchmark::DoNotOptimize(CreerRegionImage(peau));
}
BENCHMARK(RegionHabillage)->Unit(benchmark::kMillisecond);

// The same bytes over the same kind of line with no program between: what the machine itself takes.
void RouteNue(benchmark::State &etat) {
  Metier metier;
  const int ligne = open((metier.dossier + "/Ports/com1").c_str(), O_RDWR | O_NOCTTY);
  Oreille oreille(metier);
  std::vector<double> durees;
  for (auto _ : etat) {
    const auto debut = std::chrono::steady_clock::now();
    metier.Rapporter();
    char octets[kTrame] = {};
    for (ssize_t lus = 0; lus < 3;) lus += std::max<ssize_t>(read(ligne, octets, sizeof octets), 0);
    if (write(ligne, octets, kTrame) != static_cast<ssize_t>(kTrame)) etat.SkipWithError("the line is full");
    const double duree = std::chrono::duration<double>(oreille.Fin() - debut).count();
    etat.SetIterationTime(duree);
    durees.push_back(duree * 1e6);
    usleep(1000);
  }
  std::sort(durees.begin(), durees.end());
  etat.counters["p50_us"] = durees[durees.size() / 2];
  etat.counters["p99_us"] = durees[durees.size() * 99 / 100];
  close(ligne);
}
BENCHMARK(RouteNue)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(2000);

void MemoireResidente(benchmark::State &etat) {
  Programme programme;
  for (auto _ : etat) programme.machine.Rafraichir();
  std::ifstream statm("/proc/self/statm");
  long taille = 0, residente = 0;
  statm >> taille >> residente;
  etat.counters["MiB"] = static_cast<double>(residente * sysconf(_SC_PAGESIZE)) / (1024 * 1024);
}
BENCHMARK(MemoireResidente)->Iterations(1);
}  // namespace

int main(int argc, char **argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
