// The journal of a session, and what the next start reads back of it.
#include <sys/resource.h>

#include <algorithm>
#include <csignal>

#include "commands/RepriseProjet.h"
#include "kit/FenetreRappel.h"
#include "saved/CopieReprise.h"
#include "session/Journal.h"
#include "tests/Banc.h"

namespace fs = std::filesystem;

namespace {
class Journal : public BancConfigure {
 protected:
  // The lines, without date and time.
  V Faits() const {
    V textes;
    std::istringstream journal(LireFichier("Journal.txt"));
    for (std::string l; std::getline(journal, l);)
      textes.push_back(l.substr(std::min<std::size_t>(21, l.size())));
    return textes;
  }
  V FaitsDepuis(std::size_t premier) const {
    const V tous = Faits();
    return {tous.begin() + static_cast<long>(std::min(premier, tous.size())), tous.end()};
  }
  void Entrer(const std::string &texte) {
    Commander(Commande::ChoisirDuite);
    fenetre.TxtDuite.Text = texte;
    fenetre.TxtDuite.KeyDown(13, 0);
  }
  void Journaliser(const std::string &texte) { EcrireFichier("Journal.txt", texte); }
};
const std::string kHeure = "2026-01-02 03:04:05  ";
}  // namespace

TEST_F(Journal, KnowsWhatWasOnTheLoom) {
  OuvrirLignes({"1=1,9", "2=2,16", "7=3,17"});
  fs::remove(Data("Journal.txt"));
  Commander(Commande::Demarrer);
  Rapport();
  Entrer("3");
  Commander(Commande::Inverser);
  Entrer("0");
  EXPECT_EQ(Faits(),
            (V{"Pick sent: 1 (line 1), harnesses 1, 9, 17", "Loom: cycle complete",
               "Pick sent: 2 (line 2), harnesses 2, 16, 18", "Pick sent: 3 (line 7), harnesses 3, 19",
               "Direction: in reverse", "Pick sent: 0, in reverse (line [LIFTPLAN]), no harness"}));
  EXPECT_EQ(TexteDerniereDuite(), "Last pick sent: 0");
  Entrer("1");
  Commander(Commande::TisserToile);
  Commander(Commande::TisserPatronEtToile);
  EXPECT_EQ(
      FaitsDepuis(6),
      (V{"Pick sent: 1, in reverse (line 1), harnesses 1, 9, 17", "Plan: Tabby, 40 picks, pattern left at 1",
         "Pick sent: 1, in reverse (line TabbyA), harnesses 1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23",
         "Plan: Pattern and Tabby, 6 picks, from 2",
         "Pick sent: 2, in reverse, no way back (line TabbyA), harnesses 1, 3, 5, 7, 9, 11, 13, 15, 17, 19, "
         "21, 23"}));
}

TEST_F(Journal, WhatIsReadBackInBothLanguages) {
  for (const int drapeau : {1, 2}) {
    fs::remove(Data("Journal.txt"));
    LancerProgramme();
    NoterDepart();
    fenetre.Drapeau[drapeau].Click();
    OuvrirLignes(Lignes(20));
    Configurer({{5, drapeau == 1 ? "Patron et Toile" : "Pattern and Tabby"}, {7, "4"}});
    Commander(Commande::Demarrer);
    Commander(Commande::Inverser);
    Entrer("7");
    DerniereSeance s = LireDerniereSeance();
    EXPECT_TRUE(s.inachevee && s.inverse && s.retrouvable);
    EXPECT_EQ(s.motif + " " + s.duite + " " + s.cle, Data("motif.wif") + " 7 5");
    EXPECT_EQ(s.jour.size() + s.heure.size(), 18u);
    EXPECT_EQ(std::tuple(s.plan.option, s.plan.duites, s.plan.depart, s.plan.avantToile),
              std::tuple(3, 38, 4, 0));
    Commander(Commande::TisserToile);
    s = LireDerniereSeance();
    EXPECT_EQ(std::tuple(s.plan.option, s.plan.duites, s.plan.depart, s.plan.avantToile),
              std::tuple(2, 40, 0, 7));
    BoutonProgramme_Click(Commande::Quitter);
    EXPECT_FALSE(LireDerniereSeance().inachevee) << Faits().back();
    // A resumed project tells its pattern too.
    LancerProgramme();
    OuvrirLignes(Lignes(20));
    Commander(Commande::Demarrer);
    EcrireFichier("Resume.Trm", "");
    Commander(Commande::Enregistrer);
    fs::remove(Data("Journal.txt"));
    LancerProgramme();
    NoterDepart();
    Commander(Commande::Reprendre);
    EXPECT_EQ(LireDerniereSeance().motif, Data("motif.wif"));
    EXPECT_EQ(LireDerniereSeance().duite, "");
    Commander(Commande::Demarrer);
    EXPECT_EQ(LireDerniereSeance().motif + LireDerniereSeance().duite,
              Data("motif.wif") + std::to_string(session.DuiteCourante));
  }
}

TEST_F(Journal, MovesOnWhenItIsFullAndNothingInItsPlaceStopsAPick) {
  Journaliser(std::string(kTailleJournal, 'x') + "\n2026-\n" + kHeure +
              "Duite envoyée : 37 (ligne 37), lames 1\n");
  Noter("full");
  EXPECT_FALSE(fs::exists(Data("Journal.txt")));
  const DerniereSeance ancienne = LireDerniereSeance();
  EXPECT_EQ(ancienne.duite + " " + ancienne.jour + " " + ancienne.heure, "37 2026-01-02 03:04:05");
  OuvrirLignes(Lignes(3));
  fs::remove(Data("Journal.txt"));
  fs::create_symlink(EcrireFichier("cible", ""), Data("Journal.txt"));
  Noter("not here");
  EXPECT_EQ(LireFichier("cible"), "");
  fs::remove(Data("Journal.txt"));
  fs::create_directory(Data("Journal.txt"));
  Commander(Commande::Demarrer);
  EXPECT_EQ(Ecrits(), V{Duite(1)});
}

TEST_F(Journal, ALineWithoutItsEndDoesNotCount) {
  const std::string avant = kHeure + "Pick sent: 14 (line 14), harnesses 1\n";
  const std::string ligne = kHeure + "Pick sent: 15 (line 15), harnesses 1, 12";
  for (std::size_t n = 1; n <= ligne.size(); ++n) {
    Journaliser(avant + ligne.substr(0, n));
    ASSERT_EQ(LireDerniereSeance().duite, "14") << n;
    NoterDepart();
    ASSERT_EQ(LireDerniereSeance().duite, "14") << n;
    ASSERT_EQ(Faits().back(), "Brandis : programme démarré / program started");
  }
  Journaliser(avant + kHeure + "Program left by Quit");
  EXPECT_TRUE(LireDerniereSeance().inachevee);
  Journaliser(avant + kHeure + "Pick sent: 12026-01-02 03:04:05  Brandis\n");  // glued on, of before
  EXPECT_EQ(LireDerniereSeance().duite, "14");

  // A write that takes less than its line, as on a full disk.
  Journaliser(avant);
  struct rlimit limite {};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limite), 0);
  const struct rlimit serree { fs::file_size(Data("Journal.txt")) + 33, limite.rlim_max };
  std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &serree);
  Noter("Pick sent: 15 (line 15), harnesses 1");
  Noter("Pick sent: 16 (line 16), harnesses 1");
  setrlimit(RLIMIT_FSIZE, &limite);
  EXPECT_EQ(LireFichier("Journal.txt").size(), avant.size() + 33);
  Noter("Pick sent: 17 (line 17), harnesses 1");
  EXPECT_EQ(Faits(), (V{"Pick sent: 14 (line 14), harnesses 1", "Pick sent: 1 [coupé / cut off]",
                        "Pick sent: 17 (line 17), harnesses 1"}));
}

// The shed is on the line before the disk is asked, and both lines are one write.
TEST_F(Journal, TheReportIsWrittenBehindTheFrame) {
  OuvrirLignes(Lignes(3));
  Commander(Commande::Demarrer);
  Ecrits();
  pf.poussees.clear();
  const std::size_t avant = Faits().size();
  NoterRapport();
  EXPECT_EQ(Faits().size(), avant);
  Noter("another line");
  EXPECT_EQ(FaitsDepuis(avant), (V{"Loom: cycle complete", "another line"}));
  Rapport();
  EXPECT_EQ(pf.poussees, (std::vector<std::size_t>{0, 1}));
  port.ecritureEnPanne = true;  // the advance fails
  const std::size_t panne = Faits().size();
  Rapport();
  EXPECT_EQ(FaitsDepuis(panne), (V{"Loom: cycle complete", "Message : Error : Device I/O error"}));
  fenetre.TissageEnCours = false;  // an advance that sends nothing
  Rapport();
  EXPECT_EQ(Faits().back(), "Loom: cycle complete");
}

TEST_F(Journal, AKeptPickIsNoneThatWasSent) {
  OuvrirLignes(Lignes(9));
  Commander(Commande::Demarrer);
  Rapport();
  port.retenu = true;
  for (int i = 0; i < 3; ++i) Commander(Commande::Avancer);
  EXPECT_EQ(Faits().back().substr(0, 34), "Pick kept for the line: 5 (line 5)");
  EXPECT_EQ(LireDerniereSeance().duite, "2");
  EXPECT_EQ(TexteDerniereDuite(), "Last pick sent: 2");
  port.partie();  // a line that hung has taken it
  EXPECT_EQ(LireDerniereSeance().duite + TexteDerniereDuite(), "5Last pick sent: 5");
}

TEST_F(Journal, ARefusedPortWithItsReason) {
  OuvrirLignes(Lignes(3));
  port.utilisable = false;
  Commander(Commande::Demarrer);
  const V faits = Faits();
  const auto message =
      std::ranges::find(faits, "Message : Error : Erreur numéro: 8002; Description: Invalid port number");
  ASSERT_NE(message, faits.end());
  EXPECT_EQ(*(message + 1), "COM: why");
}

// A folder as the release before leaves it: settings, a project in work, the copy that a save laid aside, and
// a journal that a power cut ended.
TEST_F(Journal, TheFolderOfTheReleaseBefore) {
  const V l = Lignes(6);
  const std::string motif = Motif(l, "Chemise d'été.wif");
  auto champ = [](const std::string &texte, std::size_t longueur) {
    return texte + std::string(longueur - texte.size(), ' ');
  };
  const std::string date("\0\0\0\0\xe0\x73\xe6\x40", 8);  // 45983
  std::string entete = date + champ(motif, 255) + Mots({6, 3, 24, 11, 1, 0, 0, 4, -1}), lignes70;
  ASSERT_EQ(entete.size(), kLongueurReprise);
  for (const std::string &ligne : l) lignes70 += champ(ligne, kLongueurRepriseLigne);
  EcrireFichier("Resume.Trm", entete);
  EcrireFichier("Resume2.Trm", lignes70);
  EcrireFichier("Configuration.Con", Mots({3, 24, 11, 0, 1, 0, 4, -1, 0, 0}));
  MettreDeCote();
  EcrireFichier("Resume.Trm", "");  // the save was cut off here
  EcrireFichier("Resume2.Trm", lignes70.substr(0, 100));
  Journaliser(kHeure + "Brandis : programme démarré / program started\n" + kHeure + "COM 3 : line opened\n" +
              kHeure + "Opened: 6 picks\n" + kHeure + "Pattern: " + motif + "\n" + kHeure +
              "Pick sent: 4 (line 4), harnesses 5, 14, 21\n" + kHeure + "Loom: cycle complete\n" + kHeure +
              "Pick se");

  const DerniereSeance seance = LireDerniereSeance();
  Recommencer();
  NoterDepart();
  Form_Load();
  EXPECT_TRUE(RetablirProjet());
  fenetre.Visible = true;
  AfficherRappel(seance);
  EXPECT_EQ(fenetreRappel.Ligne[2].Caption + "|" + fenetreRappel.Ligne[3].Caption + "|" +
                fenetreRappel.Ligne[4].Caption + fenetreRappel.Ligne[5].Caption,
            "Pattern: " + motif + "|Last pick sent: 4, on 2026-01-02 at 03:04:05|");
  EXPECT_TRUE(Messages()[0].find("The last save was cut off: the save before stands.") != std::string::npos);
  EXPECT_EQ(LireFichier("Resume.Trm"), entete);
  EXPECT_EQ(LireFichier("Resume2.Trm"), lignes70);
  EXPECT_EQ(std::pair(int{session.PortMetier}, int{session.OptionTissage}), std::pair(3, 1));
  Commander(Commande::Reprendre);
  EXPECT_EQ(session.CheminWif, motif);
  EXPECT_EQ(session.DuiteCourante, 4);
  Commander(Commande::Demarrer);
  EXPECT_EQ(Ecrits(), V{Cadre24(l[4])});
  const V faits = Faits();
  EXPECT_NE(std::ranges::find(faits, "Pick se [coupé / cut off]"), faits.end());
  EXPECT_EQ(LireDerniereSeance().duite, "5");
}
