// Measurements of the rooms without a screen.
#include <benchmark/benchmark.h>

#include "commands/RepriseProjet.h"
#include "display/GrilleDuites.h"
#include "mainwindow/FacesCommandes.h"
#include "pattern/LecteurLiftplan.h"
#include "pattern/MatriceLames.h"
#include "session/Commandes.h"
#include "tests/Banc.h"
#include "weaving/EcouteMetier.h"
#include "weaving/PlansTissage.h"

namespace {
constexpr int kDuites = 2500;

// The bench of the tests without a test around it.
class Atelier : public Banc {
 public:
  Atelier() {
    SetUp();
    LancerProgramme();
    std::vector<std::string> lignes;
    for (int i = 1; i <= kDuites; ++i) {
      std::string ligne = std::to_string(i) + "=";
      for (int j = 1; j <= 24; ++j)
        if ((i * 7 + j * 5) % 3 != 0) ligne += (ligne.back() == '=' ? "" : ",") + std::to_string(j);
      lignes.push_back(ligne);
    }
    pf.fichierChoisi = Motif(lignes);
  }
  ~Atelier() override { TearDown(); }
  void TestBody() override {}

  void OuvrirEtDemarrer() {
    session.OptionTissage = Option::Patron;
    session.PortMetier = 1;
    DessinerBoutons();
    BoutonProgramme_Click(Commande::OuvrirMotif);
    BoutonProgramme_Click(Commande::Demarrer);
  }
  PortBanc &Port() { return port; }
};

void LireMotif(benchmark::State &etat) {
  Atelier atelier;
  for (auto _ : etat) OuvrirFichierWif();
  if (session.NombreDuites != kDuites) etat.SkipWithError("the pattern was not read");
}
BENCHMARK(LireMotif)->Unit(benchmark::kMillisecond);

void Matrice(benchmark::State &etat) {
  Atelier atelier;
  OuvrirFichierWif();
  session.NombreLames = 24;
  for (auto _ : etat) ConstruireMatrice();
}
BENCHMARK(Matrice)->Unit(benchmark::kMillisecond);

void UneAvance(benchmark::State &etat) {
  Atelier atelier;
  atelier.OuvrirEtDemarrer();
  for (auto _ : etat) {
    atelier.Port().ecrits.clear();
    atelier.Port().recus.push_back(
        "\x1B"
        "C\r");
    Timer3_Timer();
    if (atelier.Port().ecrits.size() != 1) etat.SkipWithError("no frame went out");
  }
}
BENCHMARK(UneAvance)->Unit(benchmark::kMicrosecond);

void Redessin(benchmark::State &etat) {
  Atelier atelier;
  atelier.OuvrirEtDemarrer();
  fenetre.TissageEnCours = false;
  for (auto _ : etat) AfficherDuites(session.DuiteCourante);
}
BENCHMARK(Redessin)->Unit(benchmark::kMicrosecond);

void Enregistrement(benchmark::State &etat) {
  Atelier atelier;
  OuvrirFichierWif();
  EcrireRepriseLigne(1);
  for (auto _ : etat)
    for (int i = 1; i <= kDuites; ++i) EcrireRepriseLigne(i);
  if (session.Etat != EtatEtape::Reussi) etat.SkipWithError("the lines were not written");
}
BENCHMARK(Enregistrement)->Unit(benchmark::kMillisecond);

void Reprise(benchmark::State &etat) {
  Atelier atelier;
  atelier.OuvrirEtDemarrer();
  std::ofstream(session.CheminApplication + "Data/Resume.Trm");
  EnregistrerProjet();
  for (auto _ : etat) ReprendreProjet();
  if (session.NombreDuites != kDuites) etat.SkipWithError("the project was not resumed");
}
BENCHMARK(Reprise)->Unit(benchmark::kMillisecond);

void Faces(benchmark::State &etat) {
  Atelier atelier;
  for (auto _ : etat)
    for (int i = 0; i < Commande::Nombre; ++i) DessinerBouton(i);
}
BENCHMARK(Faces)->Unit(benchmark::kMillisecond);
}  // namespace
