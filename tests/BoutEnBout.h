// The program under its pilot and the simulated loom, as children of a test.
#pragma once

#include <gtest/gtest.h>

#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <sstream>

#include "session/Commandes.h"

namespace fs = std::filesystem;

// A child that is told and tells lines: the program under its pilot, or the simulated loom. One that stays
// silent for half a minute is taken for hung; nothing else depends on time.
class Processus : public QProcess {
 public:
  explicit Processus(const QStringList &mots) {
    setProcessChannelMode(ForwardedErrorChannel);
    start(mots[0], mots.mid(1));
  }
  void Dire(const std::string &ligne) {
    write((ligne + "\n").c_str());
    waitForBytesWritten();
  }
  // The next line; empty when the child has ended or hangs.
  std::string Ligne() {
    while (!canReadLine())
      if (!waitForReadyRead()) return "";
    return readLine().chopped(1).toStdString();
  }
  // Lines up to one that begins so; that one is returned, empty when it never comes.
  std::string LigneQuiCommence(const std::string &debut) {
    for (;;) {
      std::string ligne = Ligne();
      if (ligne.empty() || ligne.rfind(debut, 0) == 0) return ligne;
    }
  }
  bool FinitBien() {
    return (state() == NotRunning || waitForFinished()) && exitStatus() == NormalExit && exitCode() == 0;
  }
};

// What a loom raises for a pick of these harnesses: the last eight do not go out, 1 to 8 do twice.
inline std::string Leve(const std::set<int> &lames, int metier = 24) {
  std::set<int> levees;
  for (int lame : lames) {
    if (lame <= metier - 8) levees.insert(lame);
    if (lame <= 8) levees.insert(metier - 8 + lame);
  }
  std::string liste;
  for (int lame : levees) liste += (liste.empty() ? "" : ",") + std::to_string(lame);
  return liste.empty() ? "-" : liste;
}

class BoutEnBout : public ::testing::Test {
 protected:
  const QTemporaryDir temporaire;
  const std::string dossier = temporaire.path().toStdString();
  std::vector<std::set<int>> lames;  // of pick n at [n - 1]
  std::unique_ptr<Processus> metier, programme;

  void SetUp() override {
    fs::create_directory(dossier + "/Data");
    fs::create_directory(dossier + "/Ports");
    fs::create_directory_symlink(BRANDIS_PROGRAMME "/Images", dossier + "/Images");
    fs::create_directory_symlink(BRANDIS_PROGRAMME "/Dessins Boutons", dossier + "/Dessins Boutons");
    std::ofstream motif(dossier + "/Data/motif.wif");
    motif << "[WIF]\r\nVersion=1.1\r\n[LIFTPLAN]\r\n";
    for (int n = 1; n <= 12; ++n) {
      lames.push_back({n, n + 5, 18 + n % 3});
      motif << n << '=' << n << ',' << n + 5 << ',' << 18 + n % 3 << "\r\n";
    }
    motif << "[WEAVING]\r\n";
  }
  void TearDown() override {
    if (programme) Quitter();
    if (!metier) return;
    metier->terminate();
    EXPECT_TRUE(metier->FinitBien()) << "the loom has heard a fault";
  }

  void DemarrerMetier(const QStringList &options = {}) {
    metier =
        std::make_unique<Processus>(QStringList{BRANDIS_PROGRAMME "/metier-simule", "--journal", "--dossier",
                                                temporaire.path(), "--baud", "0", "--cadence", "5"} +
                                    options);
    ASSERT_NE(metier->LigneQuiCommence("loom:"), "");
  }
  void DemarrerProgramme() {
    programme = std::make_unique<Processus>(QStringList{BRANDIS_PILOTE, temporaire.path()});
    ASSERT_NE(Etat(), "");
    Faire("ecrire TxtVitessePortSerie 5");
  }
  void Tisser() {
    DemarrerProgramme();
    Configurer("Pattern");
    Ouvrir();
    Cliquer(Commande::Demarrer);
  }
  void Faire(const std::string &ordre) {
    programme->Dire(ordre);
    ASSERT_EQ(programme->Ligne(), "ok") << ordre;
  }
  void Cliquer(Commande::Index bouton) { Faire("clic BoutonProgramme(" + std::to_string(bouton) + ")"); }
  std::string Etat() {
    programme->Dire("etat");
    return programme->LigneQuiCommence("duite=");
  }
  // Asks again until the state says so; each question lets the program go on.
  bool EtatDevient(const std::string &partie) {
    for (int i = 0; i < 20000; ++i) {
      const std::string etat = Etat();
      if (etat.empty() || etat.find(partie) != std::string::npos) return !etat.empty();
    }
    return false;
  }
  // Asks again until the control stands; a click on it is meant to do nothing.
  bool Parait(const std::string &nom) {
    for (int i = 0; i < 20000; ++i) {
      programme->Dire("clic " + nom);
      const std::string reponse = programme->Ligne();
      if (reponse.empty() || reponse == "ok") return !reponse.empty();
    }
    return false;
  }
  void Configurer(const std::string &option) {
    Cliquer(Commande::Configurer);
    Faire("choisir ComConfiguration(1) COM 1");
    Faire("choisir ComConfiguration(5) " + option);
    Cliquer(Commande::SortirConfiguration);
  }
  void Ouvrir() {
    Cliquer(Commande::OuvrirMotif);
    Faire("fichier " + dossier + "/Data/motif.wif");
    ASSERT_TRUE(EtatDevient("boutons=11010000011"));  // Start and Stop stand
  }
  // The harnesses of the next shed; the loom itself finds fault with any byte of its frame.
  std::string Shed() {
    std::istringstream ligne(metier->LigneQuiCommence("shed "));
    std::string mot, numero, levees;
    ligne >> mot >> numero >> levees;
    return levees;
  }
  std::string Attendu(int duite) const { return Leve(lames[static_cast<std::size_t>((duite - 1) % 12)]); }
  // Weaves `picks` picks of an option, saves in the middle of it and leaves; the next program resumes. A
  // first Resume makes the slot that Save writes over.
  void TisserPuisReprendre(const std::string &option, const std::vector<std::string> &picks) {
    DemarrerMetier({"--entree"});
    DemarrerProgramme();
    Cliquer(Commande::Reprendre);
    Configurer("Pattern");
    Ouvrir();
    if (option != "Pattern") Configurer(option);
    Cliquer(Commande::Demarrer);
    SuiteEst(picks);
    ASSERT_NE(Shed(), "");  // one more pick stands on the loom
    Cliquer(Commande::Enregistrer);
    Faire("clic EnteteRemarque");
    ASSERT_TRUE(EtatDevient("ouvert=0 boutons=1101"));
    Quitter();
    DemarrerProgramme();
    Cliquer(Commande::Reprendre);
    ASSERT_TRUE(EtatDevient("boutons=11010000011"));
    Cliquer(Commande::Demarrer);
  }
  void SuiteEst(const std::vector<std::string> &picks) {
    for (const std::string &pick : picks) {
      ASSERT_EQ(Shed(), pick);
      metier->Dire("");
    }
  }
  void Quitter() {
    Cliquer(Commande::Quitter);
    EXPECT_TRUE(programme->FinitBien());
    programme.reset();
  }
};
