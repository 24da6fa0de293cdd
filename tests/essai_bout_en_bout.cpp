// End to end: the real windows, offscreen, against the simulated loom on a pseudo-terminal.
#include <signal.h>

#include "tests/BoutEnBout.h"

TEST_F(BoutEnBout, AMisbehavingLoomIsFollowedOrWaitedFor) {
  DemarrerMetier({"--fautes", "2:scinder,4:doubler,6:bruit,8:retarder=60,11:perdre"});
  Tisser();
  // The doubled report behind shed 4 advances twice: sheds 1..11 are picks 1..12 with both sent.
  for (int n = 1; n <= 11; ++n) ASSERT_EQ(Shed(), Attendu(n)) << "shed " << n;
  ASSERT_NE(metier->LigneQuiCommence("report lost"), "");
  EXPECT_NE(Etat().find("duite=11 "), std::string::npos) << "a lost report leaves the pick standing";
  Cliquer(Commande::Avancer);
  EXPECT_EQ(Shed(), Attendu(12));
}

TEST_F(BoutEnBout, TheCableComesOutAndWeavingGoesOn) {
  const std::string perdue = "ligne=The line to the loom is gone. ",
                    coupee = perdue + "Plug the cable in: weaving goes on. message=";
  DemarrerMetier({"--entree"});
  Tisser();
  EXPECT_EQ(Shed(), Attendu(1));
  metier->Dire("raccrocher");
  ASSERT_TRUE(EtatDevient(coupee));
  EXPECT_EQ(Etat().find("Device I/O error"), std::string::npos) << "the note alone tells it";
  metier->Dire("revenir");
  EXPECT_EQ(Shed(), Attendu(1)) << "whatever the loom had heard of it";
  ASSERT_TRUE(EtatDevient("ligne= "));
  // Noticed late, and back before it was noticed: the system stood still meanwhile.
  const auto arreter = [&](int signal) { kill(static_cast<pid_t>(programme->processId()), signal); };
  arreter(SIGSTOP);
  metier->Dire("raccrocher");
  metier->Dire("revenir");
  ASSERT_NE(metier->LigneQuiCommence("back"), "");
  arreter(SIGCONT);
  EXPECT_EQ(Shed(), Attendu(1));
  metier->Dire("raccrocher");
  ASSERT_TRUE(EtatDevient(coupee));
  // Everything that sends goes on in silence, and the screen with it.
  Cliquer(Commande::Avancer);
  Cliquer(Commande::TisserToile);
  Cliquer(Commande::TisserPatronEtToile);
  Cliquer(Commande::TisserPatron);
  ASSERT_TRUE(EtatDevient("duite=3 "));
  Faire("clic Drapeau(1)");
  ASSERT_TRUE(EtatDevient("ligne=La ligne du métier est coupée. Rebranchez le câble : le tissage continue."));
  Faire("clic Drapeau(2)");
  Cliquer(Commande::ChoisirDuite);
  Faire("ecrire TxtDuite 7");
  ASSERT_TRUE(EtatDevient("duite=7 "));
  ASSERT_TRUE(EtatDevient(coupee));
  metier->Dire("revenir");
  EXPECT_EQ(Shed(), Attendu(7)) << "the pick on the screen alone";
  ASSERT_TRUE(EtatDevient("ligne= "));
  metier->Dire("");
  EXPECT_EQ(Shed(), Attendu(8));

  // The note goes with Stop and comes with a Start that waits; so does the solenoid test.
  metier->Dire("raccrocher");
  ASSERT_TRUE(EtatDevient(coupee));
  Cliquer(Commande::Arreter);
  ASSERT_TRUE(EtatDevient("ouvert=0"));
  ASSERT_TRUE(EtatDevient("ligne= "));
  Cliquer(Commande::Demarrer);
  ASSERT_TRUE(EtatDevient("ouvert=1"));
  ASSERT_TRUE(EtatDevient(coupee));
  Cliquer(Commande::Arreter);
  ASSERT_TRUE(EtatDevient("ouvert=0"));
  Cliquer(Commande::Diagnostiquer);
  ASSERT_TRUE(EtatDevient("boutons=0000"));  // the panel stands
  Cliquer(Commande::DebuterTest);
  ASSERT_TRUE(EtatDevient(perdue));
  Faire("clic CheckSelenoide(3)");
  ASSERT_TRUE(EtatDevient(perdue + "Plug the cable in. ")) << "nothing is woven";
  Cliquer(Commande::FinirTest);
  metier->Dire("revenir");
  ASSERT_NE(metier->LigneQuiCommence("release"), "") << "the test's end, and no shed";
  Cliquer(Commande::QuitterDiagnostic);
  ASSERT_NE(metier->LigneQuiCommence("release"), "");
  Cliquer(Commande::Demarrer);
  EXPECT_EQ(Shed(), Attendu(10));
  Cliquer(Commande::Inverser);
  metier->Dire("");
  EXPECT_EQ(Shed(), Attendu(9)) << "the other way";
}

TEST_F(BoutEnBout, AFailureThatEndsTheProcessReleasesTheLoom) {
  DemarrerMetier({"--entree"});
  Tisser();
  EXPECT_EQ(Shed(), Attendu(1));
  Cliquer(Commande::ChoisirDuite);
  Faire("ecrire TxtDuite 32768");
  EXPECT_EQ(metier->LigneQuiCommence("release").substr(0, 7), "release");
  EXPECT_TRUE(programme->waitForFinished() && programme->exitCode() == 1);
  programme.reset();
  std::stringstream journal;
  journal << std::ifstream(dossier + "/Data/Journal.txt").rdbuf();
  EXPECT_EQ(journal.str().find("left by Quit"), std::string::npos);
}

TEST_F(BoutEnBout, AnEndFromOutsideIsAQuit) {
  const auto finir = [&](int signal) {
    kill(static_cast<pid_t>(programme->processId()), signal);
    EXPECT_TRUE(programme->FinitBien()) << signal;
  };
  DemarrerMetier({"--entree"});
  Tisser();
  EXPECT_EQ(Shed(), Attendu(1));
  metier->Dire("");
  EXPECT_EQ(Shed(), Attendu(2));
  finir(SIGTERM);
  ASSERT_NE(metier->LigneQuiCommence("release"), "");

  DemarrerProgramme();
  EXPECT_EQ(Etat().substr(0, 8), "duite=2 ") << "the settings are kept";
  Faire("clic Drapeau(1)");
  Cliquer(Commande::OuvrirMotif);  // the dialog stands open
  finir(SIGINT);

  DemarrerProgramme();
  std::ofstream(dossier + "/Data/motif.wif") << "[WIF]\r\n";
  Cliquer(Commande::OuvrirMotif);
  Faire("fichier " + dossier + "/Data/motif.wif");
  ASSERT_TRUE(Parait("Information"));  // the message about the missing lift plan, a modal window
  finir(SIGHUP);
  programme.reset();
  DemarrerProgramme();
  Cliquer(Commande::Configurer);
  Faire("choisir ComConfiguration(5) Patron");  // a French list: the language was kept
  fs::remove(dossier + "/Data/Configuration.Con");
  fs::create_directory(dossier + "/Data/Configuration.Con");
  finir(SIGTERM);  // the settings cannot be written, and nobody sits there to read it
  programme.reset();
}

TEST_F(BoutEnBout, AStartLooksForASaveThatWasCutOff) {
  std::ofstream(dossier + "/Data/Reprise.Avant") << "half a copy";
  DemarrerProgramme();
  EXPECT_NE(Etat().find("message=The copy of the save before is damaged"), std::string::npos);
}

TEST_F(BoutEnBout, AResumedPatternGoesOnAsIfItHadNeverStopped) {
  TisserPuisReprendre("Pattern", {Attendu(1), Attendu(2), Attendu(3)});
  for (int n = 5; n <= 14; ++n) SuiteEst({Attendu(n)});
}

TEST_F(BoutEnBout, AResumedTabbyLiftsNothingUntilItIsBuiltAgain) {
  const std::string a = Leve({1, 3, 5, 7, 9, 11, 13, 15}), b = Leve({2, 4, 6, 8, 10, 12, 14, 16});
  TisserPuisReprendre("Tabby", {a, b, a});  // picks 13 to 15; 16 stands at the save
  SuiteEst({Leve({})});
  ASSERT_EQ(Shed(), Leve({}));
  Cliquer(Commande::TisserToile);
  SuiteEst({b, a, b});
}

TEST_F(BoutEnBout, AResumedPatternWithTabbyKeepsTheSavedLinesBeforeTheCursor) {
  // Opened on pick 12 the plan has 14 picks: 11, tabby A, 12, tabby B behind the first ten.
  TisserPuisReprendre("Pattern and Tabby", {});
  // The cursor was saved on 13; the new plan ends there, so the wrap comes where tabby B would have come.
  for (int n = 1; n <= 12; ++n) SuiteEst({Attendu(n)});
  SuiteEst({Leve({}), Attendu(1)});
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
  auto attendu = [&](int duite) { return Leve(lames[static_cast<std::size_t>(duite - 1)], 16); };

  DemarrerMetier({"--lames", "16", "--entree", "--fautes", "2:doubler,3:scinder"});
  DemarrerProgramme();
  Cliquer(Commande::Reprendre);
  ASSERT_TRUE(EtatDevient("message=  Error 16 Harnesses only"));
  EXPECT_NE(Etat().find("nombre=12 lames=16"), std::string::npos);
  Cliquer(Commande::Demarrer);
  EXPECT_EQ(Shed(), attendu(1));
  metier->Dire("");
  EXPECT_EQ(Shed(), attendu(2));
  metier->Dire("");  // the doubled mark advances once
  EXPECT_EQ(Shed(), attendu(3));
  metier->Dire("");  // the split mark is lost
  ASSERT_NE(metier->LigneQuiCommence("report split"), "");
  Cliquer(Commande::Avancer);
  EXPECT_EQ(Shed(), attendu(4));
  Cliquer(Commande::Arreter);
  ASSERT_NE(metier->LigneQuiCommence("release"), "");
  ASSERT_NE(metier->LigneQuiCommence("release"), "") << "the word, then the escape that closes";
  Cliquer(Commande::Diagnostiquer);
  ASSERT_TRUE(EtatDevient("boutons=0000"));  // the panel stands
  Cliquer(Commande::DebuterTest);
  ASSERT_NE(metier->LigneQuiCommence("test"), "");
  Cliquer(Commande::FinirTest);
  ASSERT_NE(metier->LigneQuiCommence("release"), "");
  Cliquer(Commande::QuitterDiagnostic);
  ASSERT_TRUE(EtatDevient("boutons=11"));
}
