// End to end: the real windows, offscreen, against the simulated loom on a pseudo-terminal.
#include <algorithm>
#include <fstream>
#include <memory>

#include "tests/Processus.h"

namespace fs = std::filesystem;

namespace {
// Bits of harnesses premiere..premiere+7 of a plan line, the lowest the least significant.
int Octet(const std::vector<int> &lames, int premiere) {
  int octet = 0;
  for (int lame : lames)
    if (lame >= premiere && lame < premiere + 8) octet |= 1 << (lame - premiere);
  return octet;
}

// What the loom prints for a pick of these harnesses: a frame carries 8..1, 16..9 and 8..1 again.
std::string Leve(const std::vector<int> &lames) {
  const int a = Octet(lames, 1), b = Octet(lames, 9);
  std::string liste;
  for (int lame = 1; lame <= 24; ++lame) {
    const int octet = lame <= 8 || lame > 16 ? a : b;
    if (octet >> (lame - 1) % 8 & 1) liste += (liste.empty() ? "" : ",") + std::to_string(lame);
  }
  if (liste.empty()) liste = "-";
  char trame[64];
  std::snprintf(trame, sizeof trame, " 1B520D0A1B49%02X%02X%02X000D0A1B450D0A", a, b, a);
  return liste + trame;
}

class BoutEnBout : public ::testing::Test {
 protected:
  std::string dossier;
  std::vector<std::vector<int>> lames;  // of pick n at [n - 1]
  std::unique_ptr<Processus> metier, programme;

  void SetUp() override {
    char modele[] = "/tmp/brandis-XXXXXX";
    dossier = mkdtemp(modele);
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
    programme.reset();
    metier.reset();
    fs::remove_all(dossier);
  }

  void DemarrerMetier(std::vector<std::string> options = {}) {
    std::vector<std::string> mots{
        BRANDIS_PROGRAMME "/metier-simule", "--journal", "--dossier", dossier, "--baud", "0"};
    if (std::find(options.begin(), options.end(), "--cadence") == options.end())
      options.insert(options.end(), {"--cadence", "5"});
    mots.insert(mots.end(), options.begin(), options.end());
    metier = std::make_unique<Processus>(mots);
    ASSERT_NE(metier->LigneQuiCommence("loom:"), "");
  }
  void DemarrerProgramme() {
    programme = std::make_unique<Processus>(std::vector<std::string>{BRANDIS_PILOTE, dossier});
    ASSERT_NE(Etat(), "");
    Faire("ecrire TxtVitessePortSerie 5");
  }
  void Faire(const std::string &ordre) {
    programme->Dire(ordre);
    ASSERT_EQ(programme->Ligne(), "ok") << ordre;
  }
  void Cliquer(int bouton) { Faire("clic BoutonProgramme(" + std::to_string(bouton) + ")"); }
  std::string Etat() {
    programme->Dire("etat");
    return programme->LigneQuiCommence("duite=");
  }
  // Asks again until the state says so; each question lets the program go on.
  bool EtatDevient(const std::string &partie) {
    for (int i = 0; i < 20000; ++i)
      if (Etat().find(partie) != std::string::npos) return true;
    return false;
  }
  void Configurer(const std::string &option) {
    Cliquer(14);
    Faire("choisir ComConfiguration(1) COM 1");
    Faire("choisir ComConfiguration(5) " + option);
    Cliquer(13);
  }
  void Ouvrir() {
    Cliquer(1);
    Faire("fichier " + dossier + "/Data/motif.wif");
    ASSERT_TRUE(EtatDevient("boutons=11010000011"));  // Start and Stop stand
  }
  // The next shed: its harnesses and the bytes of its frame, without a release that was left from a stop.
  std::string Shed() {
    const std::string ligne = metier->LigneQuiCommence("shed ");
    const auto place = ligne.find(' ', 5), octets = ligne.rfind(' ');
    if (place == std::string::npos) return "";
    const auto debut = std::max(octets + 1, ligne.size() - std::min<std::size_t>(ligne.size(), 32));
    return ligne.substr(place + 1, octets - place) + ligne.substr(debut);
  }
  std::string Attendu(int duite) const { return Leve(lames[static_cast<std::size_t>((duite - 1) % 12)]); }
  // Saves in the middle of weaving, and leaves; the next program resumes.
  void EnregistrerEtRevenir() {
    Cliquer(2);
    Faire("clic EnteteRemarque");
    ASSERT_TRUE(EtatDevient("ouvert=0 boutons=1101"));
    Quitter();
    DemarrerProgramme();
    Cliquer(3);
    ASSERT_TRUE(EtatDevient("boutons=11010000011"));
  }
  // Weaves `picks` picks of an option, saves and resumes. A first Resume makes the slot that Save writes
  // over.
  void TisserPuisReprendre(const std::string &option, const std::vector<std::string> &picks) {
    DemarrerMetier({"--entree"});
    DemarrerProgramme();
    Cliquer(3);
    Configurer("Pattern");
    Ouvrir();
    if (option != "Pattern") Configurer(option);
    Cliquer(10);
    SuiteEst(picks);
    ASSERT_NE(Shed(), "");  // one more pick stands on the loom
    EnregistrerEtRevenir();
    Cliquer(10);
  }
  void SuiteEst(const std::vector<std::string> &picks) {
    for (const std::string &pick : picks) {
      ASSERT_EQ(Shed(), pick);
      metier->Dire("");
    }
  }
  void Quitter() {
    Cliquer(0);
    EXPECT_EQ(programme->Attendre(), 0);
    programme.reset();
  }
  void FinirMetier(int etat = 0) { EXPECT_EQ(metier->Tuer(SIGTERM), etat); }
};
}  // namespace

TEST_F(BoutEnBout, APatternIsWovenRoundAndTheNextStartGoesOn) {
  DemarrerMetier();
  DemarrerProgramme();
  Configurer("Pattern");
  Ouvrir();
  Cliquer(10);
  for (int n = 1; n <= 30; ++n) ASSERT_EQ(Shed(), Attendu(n)) << "pick " << n;
  Cliquer(9);
  ASSERT_NE(metier->LigneQuiCommence("release"), "");
  const std::string arrete = Etat();
  Quitter();

  DemarrerProgramme();
  EXPECT_EQ(Etat().substr(0, Etat().find(' ')), arrete.substr(0, arrete.find(' '))) << "the cursor survives";
  Cliquer(14);
  Cliquer(15);
  Quitter();
  FinirMetier();
}

TEST_F(BoutEnBout, TheHandsOfTheWeaverMoveThePick) {
  DemarrerMetier({"--entree"});
  DemarrerProgramme();
  Configurer("Pattern");
  Ouvrir();
  Cliquer(10);
  EXPECT_EQ(Shed(), Attendu(1));
  Cliquer(6);
  EXPECT_EQ(Shed(), Attendu(2));
  Cliquer(7);
  metier->Dire("");
  EXPECT_EQ(Shed(), Attendu(1));
  metier->Dire("");
  EXPECT_EQ(Shed(), Attendu(12));
  Cliquer(8);
  Faire("ecrire TxtDuite 7");
  EXPECT_EQ(Shed(), Attendu(7));
  Cliquer(4);
  EXPECT_EQ(Shed(), Leve({1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23}));
  Cliquer(5);
  EXPECT_EQ(Shed(), Attendu(8));
  Quitter();
  ASSERT_NE(metier->LigneQuiCommence("release"), "");
  FinirMetier();
}

TEST_F(BoutEnBout, AMisbehavingLoomIsFollowedOrWaitedFor) {
  DemarrerMetier({"--fautes", "2:scinder,4:doubler,6:bruit,8:retarder=60,11:perdre"});
  DemarrerProgramme();
  Configurer("Pattern");
  Ouvrir();
  Cliquer(10);
  // The doubled report behind shed 4 advances twice: sheds 1..11 are picks 1..12 with both sent.
  for (int n = 1; n <= 11; ++n) ASSERT_EQ(Shed(), Attendu(n)) << "shed " << n;
  ASSERT_NE(metier->LigneQuiCommence("report lost"), "");
  EXPECT_NE(Etat().find("duite=11 "), std::string::npos) << "a lost report leaves the pick standing";
  Cliquer(6);
  EXPECT_EQ(Shed(), Attendu(12));
  Quitter();
  FinirMetier();
}

TEST_F(BoutEnBout, ALoomThatVanishesIsToldAndWovenOnWhenItIsBack) {
  DemarrerMetier();
  DemarrerProgramme();
  Configurer("Pattern");
  Ouvrir();
  Cliquer(10);
  for (int n = 1; n <= 3; ++n) ASSERT_EQ(Shed(), Attendu(n));
  metier->Dire("raccrocher");
  ASSERT_TRUE(EtatDevient("message=Device I/O error"));
  Cliquer(9);
  const std::string etat = Etat();
  const int duite = std::stoi(etat.substr(6));
  metier->Dire("revenir");
  ASSERT_NE(metier->LigneQuiCommence("back"), "");
  Cliquer(10);
  ASSERT_NE(metier->LigneQuiCommence("release"), "");
  EXPECT_EQ(Shed(), Attendu(duite + 1));
  Quitter();
  FinirMetier();
}

TEST_F(BoutEnBout, NoPortIsToldAndConfigureIsReachable) {
  fs::create_symlink(dossier + "/nowhere", dossier + "/Ports/com1");
  DemarrerProgramme();
  Configurer("Pattern");
  Ouvrir();
  Cliquer(10);
  ASSERT_TRUE(EtatDevient("message=Erreur numéro: 8002; Description: Invalid port number"));
  EXPECT_NE(Etat().find("ouvert=0"), std::string::npos);
  Cliquer(14);
  Cliquer(15);
  Quitter();
}

TEST_F(BoutEnBout, AResumedPatternGoesOnAsIfItHadNeverStopped) {
  TisserPuisReprendre("Pattern", {Attendu(1), Attendu(2), Attendu(3)});
  for (int n = 5; n <= 14; ++n) SuiteEst({Attendu(n)});
  Quitter();
  FinirMetier();
}

TEST_F(BoutEnBout, AResumedTabbyLiftsNothingUntilItIsBuiltAgain) {
  const std::string a = Leve({1, 3, 5, 7, 9, 11, 13, 15}), b = Leve({2, 4, 6, 8, 10, 12, 14, 16});
  TisserPuisReprendre("Tabby", {a, b, a});  // picks 13 to 15; 16 stands at the save
  SuiteEst({Leve({})});
  ASSERT_EQ(Shed(), Leve({}));
  Cliquer(4);
  SuiteEst({b, a, b});
  Quitter();
  FinirMetier();
}

TEST_F(BoutEnBout, AResumedPatternWithTabbyKeepsTheSavedLinesBeforeTheCursor) {
  // Opened on pick 12 the plan has 14 picks: 11, tabby A, 12, tabby B behind the first ten.
  TisserPuisReprendre("Pattern and Tabby", {});
  // The cursor was saved on 13; the new plan ends there, so the wrap comes where tabby B would have come.
  for (int n = 1; n <= 12; ++n) SuiteEst({Attendu(n)});
  SuiteEst({Leve({}), Attendu(1)});
  Quitter();
  FinirMetier();
}

TEST_F(BoutEnBout, ASixteenHarnessProjectSpeaksTheTextProtocol) {
  const std::string chemin = dossier + "/Data/motif.wif";
  auto entier = [](int n) { return std::string{static_cast<char>(n & 255), static_cast<char>(n >> 8)}; };
  std::string entete(8, '\0');
  entete += chemin + std::string(255 - chemin.size(), ' ');
  for (int n : {12, 1, 16, 11, 1, 0, 0, 12, 0}) entete += entier(n);
  std::ofstream(dossier + "/Data/Resume.Trm", std::ios::binary) << entete;
  std::ofstream lignes(dossier + "/Data/Resume2.Trm", std::ios::binary);
  for (int n = 1; n <= 12; ++n) lignes << "1=1,2" << std::string(65, ' ');
  lignes.close();
  auto attendu = [&](int duite) {
    const int a = Octet(lames[static_cast<std::size_t>(duite - 1)], 1);
    std::string liste;
    for (int lame = 1; lame <= 16; ++lame)
      if (a >> (lame - 1) % 8 & 1) liste += (liste.empty() ? "" : ",") + std::to_string(lame);
    return liste.empty() ? "-" : liste;
  };
  auto shed = [&] {
    const std::string s = Shed();
    return s.substr(0, s.find(' '));
  };

  DemarrerMetier({"--lames", "16", "--entree", "--fautes", "2:doubler,3:scinder"});
  DemarrerProgramme();
  Cliquer(3);
  ASSERT_TRUE(EtatDevient("message=  Error 16 Harnesses only"));
  EXPECT_NE(Etat().find("nombre=12 lames=16"), std::string::npos);
  Cliquer(10);
  EXPECT_EQ(shed(), attendu(1));
  metier->Dire("");
  EXPECT_EQ(shed(), attendu(2));
  metier->Dire("");  // the doubled mark advances once
  EXPECT_EQ(shed(), attendu(3));
  metier->Dire("");  // the split mark is lost
  ASSERT_NE(metier->LigneQuiCommence("report split"), "");
  Cliquer(6);
  EXPECT_EQ(shed(), attendu(4));
  Cliquer(9);
  ASSERT_NE(metier->LigneQuiCommence("release"), "");
  ASSERT_NE(metier->LigneQuiCommence("release"), "") << "the word, then the escape that closes";
  Cliquer(18);
  ASSERT_TRUE(EtatDevient("boutons=0000"));  // the panel stands
  Cliquer(20);
  ASSERT_NE(metier->LigneQuiCommence("test"), "");
  Cliquer(21);
  ASSERT_NE(metier->LigneQuiCommence("release"), "");
  Cliquer(19);
  ASSERT_TRUE(EtatDevient("boutons=11"));
  Quitter();
  FinirMetier();
}
