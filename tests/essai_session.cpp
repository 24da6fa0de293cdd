// A weaver's session, command by command: what stands on the window and what goes over the line.
#include "mainwindow/PanneauConfiguration.h"
#include "tests/Banc.h"

namespace fs = std::filesystem;

namespace {
using Boutons = std::set<int>;

using enum Commande::Index;
const Boutons kSansPatron{Quitter,   OuvrirMotif, Reprendre,  BasculerBulles,
                          Minimiser, Configurer,  Rafraichir, Diagnostiquer},
    kCharge{Quitter,        OuvrirMotif, Reprendre,  Arreter,    Demarrer,
            BasculerBulles, Minimiser,   Configurer, Rafraichir, Diagnostiquer},
    kTissage{Quitter,      Enregistrer, TisserToile, TisserPatron,   Avancer,   Inverser,
             ChoisirDuite, Arreter,     Demarrer,    BasculerBulles, Minimiser, TisserPatronEtToile},
    kArrete{Quitter,   Enregistrer, Arreter,    Demarrer,     BasculerBulles,
            Minimiser, Configurer,  Rafraichir, Diagnostiquer},
    kConfiguration{BasculerBulles, Minimiser, SortirConfiguration, AnnulerConfiguration},
    kDiagnostic{BasculerBulles, Minimiser, QuitterDiagnostic, DebuterTest, FinirTest};

class SessionEntiere : public BancConfigure {
 protected:
  // A session that is weaving pick 1.
  void Lancer() {
    OuvrirLignes(Lignes(20));
    Commander(Commande::Demarrer);
    ASSERT_EQ(Ecrits(), V{Duite(1)});
  }
  static Boutons Visibles() {
    Boutons s;
    for (int i = 0; i < Commande::Nombre; ++i) {
      const bool face = i == SortirConfiguration || i == AnnulerConfiguration
                            ? fenetre.FenetreConfiguration.Visible
                            : i < QuitterDiagnostic || fenetre.PicNor.Visible;
      if (face && fenetre.BoutonProgramme[i].Visible) s.insert(i);
    }
    return s;
  }
  // A command, what then stands on the window, and what went over the line.
  void Pas(Commande::Index commande, const Boutons &boutons, const V &ecrits = {}) {
    Commander(commande);
    EXPECT_EQ(Visibles(), boutons) << commande;
    EXPECT_EQ(Ecrits(), ecrits) << commande;
  }
  void Entrer(const std::string &texte) {
    Commander(Commande::ChoisirDuite);
    fenetre.TxtDuite.Text = texte;
    fenetre.TxtDuite.KeyDown(13, 0);
  }
};
}  // namespace

TEST_F(SessionEntiere, FromTheFirstStartToTheNext) {
  LancerProgramme();
  EXPECT_EQ(Visibles(), kSansPatron);
  Pas(Commande::Configurer, kConfiguration);
  EXPECT_TRUE(fenetre.Voyants[Commande::Configurer] && !fenetre.Drapeau[1].Visible);
  EXPECT_EQ(fenetre.ComConfiguration[1].Text, "COM 1") << "as it stands while no port was chosen";
  fenetre.ComConfiguration[1].Text = "COM 2";
  fenetre.ComConfiguration[5].Text = "Pattern";
  Pas(Commande::SortirConfiguration, kSansPatron);
  OuvrirLignes(Lignes(20));
  EXPECT_EQ(Visibles(), kCharge);
  EXPECT_EQ(session.DuiteCourante, 20);
  EXPECT_FALSE(port.ouvert);
  Pas(Commande::Demarrer, kTissage, {Duite(1)});
  EXPECT_TRUE(fenetre.Voyants[Commande::Demarrer] && port.ouvert && fenetre.PortOuvert);
  EXPECT_EQ(port.numero, 2);
  EXPECT_EQ(fenetre.Timer3.Interval(), 100);
  Rapports(2);
  EXPECT_EQ(Ecrits(), (V{Duite(2), Duite(3)}));
  Pas(Commande::Avancer, kTissage, {Duite(4)});
  Pas(Commande::Inverser, kTissage);
  Rapport();
  Pas(Commande::Avancer, kTissage, {Duite(3), Duite(2)});
  Rapports(2);  // round at both ends
  Commander(Commande::Inverser);
  Rapport();
  EXPECT_EQ(Ecrits(), (V{Duite(1), Duite(20), Duite(1)}));
  Pas(Commande::TisserToile, kTissage, {Cadre24(kA)});
  Rapport();
  Pas(Commande::TisserPatronEtToile, kTissage, {Cadre24(kB), Cadre24(kA)});
  EXPECT_EQ(std::pair(int{session.DuiteCourante}, int{session.NombreDuites}), std::pair(2, 40));
  Rapport();
  Pas(Commande::TisserPatron, kTissage, {Duite(2), Duite(2)});
  for (int i : {TisserToile, TisserPatron, TisserPatronEtToile})
    EXPECT_EQ(fenetre.Voyants[i], i == TisserPatron);
  Pas(Commande::Arreter, kArrete, {kLiberer});
  EXPECT_EQ(fenetre.Timer3.Interval(), 0);
  EXPECT_TRUE(fenetre.Voyants[Commande::Arreter] && !fenetre.Voyants[Commande::Demarrer]);
  Pas(Commande::Demarrer, kTissage, {Duite(3)});  // the next pick, not the same again
  EcrireFichier("Resume.Trm", "");
  Pas(Commande::Enregistrer, kCharge, {kLiberer});
  Rapport();
  EXPECT_EQ(session.DuiteCourante, 3);
  Pas(Commande::Diagnostiquer, kDiagnostic);
  Pas(Commande::QuitterDiagnostic, kCharge);
  Commander(Commande::Demarrer);
  Rapport();
  Ecrits();
  Commander(Commande::Quitter);
  EXPECT_EQ(Ecrits(), V{kLiberer});
  EXPECT_TRUE(pf.termine);
  EXPECT_EQ(LireFichier("Configuration.Con"), Mots({2, 24, 11, 0, 1, 0, 5, 0, 0, 0}));

  LancerProgramme();
  EXPECT_EQ(Visibles(), kSansPatron);
  EXPECT_EQ(fenetre.ComConfiguration[1].Text + fenetre.ComConfiguration[5].Text, "COM 2Pattern");
  EXPECT_EQ(session.DuiteCourante, 5);
  OuvrirLignes(lignes);
  Pas(Commande::Demarrer, kTissage, {Duite(1)});
}

TEST_F(SessionEntiere, PickEntry) {
  Lancer();
  for (const char *texte : {"21", "-1", "20.6"}) {
    Entrer(texte);
    EXPECT_EQ(pf.focus, &fenetre.TxtDuite);
    EXPECT_TRUE(fenetre.FondEntreDuite.Visible && fenetre.Voyants[Commande::ChoisirDuite]) << texte;
  }
  EXPECT_TRUE(Ecrits().empty());
  fenetre.BoutonProgramme[Commande::Enregistrer].Visible = false;
  for (const char *texte : {"7.5", "6.5x", "20"}) Entrer(texte);
  EXPECT_TRUE(fenetre.BoutonProgramme[Commande::Enregistrer].Visible) << "a chosen pick can be saved";
  EXPECT_FALSE(fenetre.FondEntreDuite.Visible || fenetre.Voyants[Commande::ChoisirDuite]);
  Entrer("");  // 0 stands for the unused row, and the next advance goes to 1
  Rapport();
  EXPECT_EQ(Ecrits(), (V{Duite(8), Duite(6), Duite(20), Cadre24(std::string()), Duite(1)}));
  EXPECT_EQ(Echec([this] { Entrer("32768"); }), 6);
  for (const auto &[c, passe] :
       {std::pair{'0', '0'}, {'9', '9'}, {'\b', '\b'}, {',', '.'}, {'-', 0}, {'/', 0}, {':', 0}})
    EXPECT_EQ(fenetre.TxtDuite.KeyPress(c), passe) << c;
}

TEST_F(SessionEntiere, PickEntryGoesWithTheCommandsOfWeaving) {
  Lancer();
  Pas(Commande::ChoisirDuite, kTissage);
  Pas(Commande::Arreter, kArrete, {kLiberer});
  EXPECT_FALSE(fenetre.FondEntreDuite.Visible || fenetre.Voyants[Commande::ChoisirDuite])
      << "it would lie over the diagnostics";
  EXPECT_EQ(session.DuiteCourante, 1);
}

TEST_F(SessionEntiere, PickEntryByKeyboard) {
  Lancer();
  Commander(Commande::ChoisirDuite);
  EXPECT_EQ(fenetre.TxtDuite.Text, "1");
  EXPECT_EQ(std::pair(fenetre.TxtDuite.SelStart, fenetre.TxtDuite.SelLength), std::pair(0, 1));
  fenetre.TxtDuite.Text = "15";
  fenetre.KeyDown(Touche::Echappement, 0);
  EXPECT_FALSE(fenetre.FondEntreDuite.Visible || fenetre.Voyants[Commande::ChoisirDuite]);
  EXPECT_EQ(session.DuiteCourante, 1);
  EXPECT_TRUE(Ecrits().empty());
}

TEST_F(SessionEntiere, NoShedWaitsForTheDisk) {
  OuvrirLignes({"1=1,9", "2=2,16"});
  Commander(Commande::Demarrer);
  pf.poussees.clear();
  port.ecrits.clear();
  Rapport();
  Rapport();
  EXPECT_EQ(pf.poussees, (std::vector<std::size_t>{1, 2}));
}

TEST_F(SessionEntiere, SkipAndStartOutsideWeaving) {
  BoutonProgramme_Click(Commande::Demarrer);  // no pattern: nothing else happens
  EXPECT_TRUE(fenetre.TissageEnCours);
  EXPECT_FALSE(port.ouvert || session.DuiteCourante != 0);
  Lancer();
  Commander(Commande::Arreter);
  BoutonProgramme_Click(Commande::Avancer);
  EXPECT_EQ(fenetre.LblIndiqueLigneRendu[11].Caption, "0002");
  EXPECT_EQ(fenetre.Timer3.Interval(), 100);
  for (int mode : {TisserToile, TisserPatron, TisserPatronEtToile}) BoutonProgramme_Click(mode);
  EXPECT_EQ(Ecrits(), V{kLiberer});
}

TEST_F(SessionEntiere, RefreshKeepsWhatRuns) {
  Lancer();
  Commander(Commande::Arreter);
  Configurer({{7, "9"}});
  OuvrirLignes(lignes);
  fenetre.BoutonProgramme[Commande::Rafraichir].MouseMove(0, 30, 30);
  EXPECT_NE(fenetre.Remarque.Caption, "");
  fenetre.BoutonProgramme[Commande::Rafraichir].Click();  // the stored configuration is read again
  EXPECT_EQ(fenetre.Remarque.Caption, "") << "though the pointer is still there";
  EXPECT_EQ(Visibles(), kSansPatron);
  EXPECT_TRUE(fenetre.Visible);
  EXPECT_EQ(session.DuiteCourante, 9);
  EXPECT_EQ(session.NombreDuites, 0);
  EXPECT_EQ(fenetre.LblCheminWif.Caption + fenetre.LblIndiqueLigneRendu[11].Caption + session.CheminWif, "");
  Commander(Commande::Configurer);
  Pas(Commande::AnnulerConfiguration, kCharge, {kLiberer});  // the pattern that was once there counts
  // Out of the diagnostics by way of the about window, and out of a Start whose port did not open.
  Commander(Commande::Diagnostiquer);
  fenetre.BoutonAide.Click();
  Commander(Commande::Rafraichir);
  EXPECT_FALSE(fenetre.PicNor.Visible || fenetre.Text1.Visible);
  port.utilisable = false;
  BoutonProgramme_Click(Commande::Demarrer);
  Pas(Commande::Rafraichir, kSansPatron);
}

TEST_F(SessionEntiere, PanelTakesWhatItKnowsAndCancelDropsTheRest) {
  Lancer();
  Commander(Commande::Arreter);
  const auto etat = [] {
    std::string s;
    for (int v : {int{session.PortMetier}, int{session.NombreLames}, int{session.OptionTissage},
                  int{session.DuiteCourante}, int{session.DuitesActives}})
      s += std::to_string(v) + " ";
    return s + (session.DirectionDeroulement ? "up " : "down ") +
           (session.DirectionTissage ? "reverse " : "forward ") + (session.ToileDepart ? "A" : "B");
  };
  const std::map<int, std::string> tout{{1, "COM 4"},   {2, "16"}, {4, "Up"},     {5, "Tabby"},
                                        {6, "Reverse"}, {7, "12"}, {8, "Tabby A"}};
  const std::string avant = etat();
  Commander(Commande::Configurer);
  for (const auto &[i, texte] : tout) fenetre.ComConfiguration[i].Text = texte;
  Commander(Commande::AnnulerConfiguration);
  EXPECT_EQ(etat(), avant);
  Configurer(tout);
  EXPECT_EQ(etat(), "4 24 2 12 11 up reverse A");  // 16 lasted for the plan and the draft
  EXPECT_EQ(session.NombreLamesGrille, 16);
  EXPECT_TRUE(fenetre.CheckSelenoide[16].Visible && !fenetre.CheckSelenoide[17].Visible);
  EXPECT_EQ(fenetre.BitsDuite[1].size(), 16u);
  Configurer({{1, " COM 3 "},
              {4, " Haut"},
              {5, " Patron et Toile "},
              {6, "Inverse"},
              {7, " 7.5 "},
              {8, "Liaison B"}});
  EXPECT_EQ(etat(), "3 24 3 8 11 up reverse B");
  Configurer({{1, "COM 5"}, {3, "x"}, {4, "up"}, {5, "Liaison"}, {6, "Précédent"}, {8, "A"}, {7, "1"}});
  EXPECT_EQ(etat(), "3 24 3 1 0 down forward B");
  EXPECT_EQ(Echec([] { Configurer({{7, ""}}); }), 9);
}

TEST_F(SessionEntiere, EscapeLeavesThePanelThatStandsAndNothingElse) {
  const auto echapper = [] { fenetre.KeyDown(Touche::Echappement, 0); };
  Commander(Commande::Configurer);
  fenetre.ComConfiguration[1].Text = "COM 4";
  echapper();
  EXPECT_EQ(Visibles(), kSansPatron);
  EXPECT_EQ(session.PortMetier, 1);
  Commander(Commande::Diagnostiquer);
  fenetre.KeyDown(Touche::Entree, 0);
  EXPECT_EQ(Visibles(), kDiagnostic);
  echapper();
  EXPECT_EQ(Visibles(), kSansPatron);
  Lancer();
  echapper();
  EXPECT_EQ(Visibles(), kTissage);
  EXPECT_TRUE(fenetre.TissageEnCours && Ecrits().empty());
}

TEST_F(SessionEntiere, LanguageBothWays) {
  OuvrirLignes(Lignes(3));
  Commander(Commande::Demarrer);
  Commander(Commande::Inverser);
  Ecrits();
  fenetre.Drapeau[1].Click();
  EXPECT_EQ(Ecrits(), V{Duite(1)});  // the redraw sends
  const auto choisis = [] {
    std::string s;
    for (int i : {4, 5, 6, 8}) s += fenetre.ComConfiguration[i].Text + "|";
    return s;
  };
  EXPECT_EQ(choisis(), "Bas|Patron|Précédent|Liaison B|");
  Commander(Commande::TisserPatron);  // in French every way through the panel goes forward
  EXPECT_FALSE(session.DirectionTissage);
  fenetre.Drapeau[2].Click();
  EXPECT_EQ(choisis(), "Down|Pattern|Forward|Tabby B|");
}

TEST_F(SessionEntiere, TheValuesOfThePanelWithTheFileReadAgain) {
  OuvrirLignes(Lignes(2));
  fenetre.Drapeau[1].Click();
  session.OptionTissage = Option::Toile;
  session.DateProjet = 45000;
  session.CheminWif = EcrireFichier(
      "relu.wif", "1=9,9\n[LIFTPLAN]\n1=1,2\n2=3,4\n[TREADLING]\n3=5,6\n[LIFTPLAN]\n4=7,8\n \n5=1,2\n");
  AfficherConfiguration();
  EXPECT_EQ(fenetre.ComConfiguration[5].Text + fenetre.LblDate.Caption, "Liaison2023-03-15");
  ASSERT_EQ(session.NombreDuites, 4);
  EXPECT_EQ(session.LignesTravail[2] + session.LignesWif[3] + session.LignesTravail[4],
            "2=3,4[LIFTPLAN]4=7,8");
  EXPECT_EQ(fenetre.BitsDuite[4], "000000000000000011000000");
  session.CheminWif += "x";
  AfficherConfiguration();  // no file: the values alone
  EXPECT_EQ(session.NombreDuites, 4);
}

TEST_F(SessionEntiere, PortThatIsNotThereOrVanishes) {
  OuvrirLignes(Lignes(20));
  port.utilisable = false;
  Pas(Commande::Demarrer,
      {Commande::Quitter, Commande::Enregistrer, Commande::Arreter, Commande::Demarrer,
       Commande::BasculerBulles, Commande::Minimiser, Commande::Configurer, Commande::Rafraichir});
  EXPECT_EQ(Messages(), V{kInutilisable});
  EXPECT_EQ(fenetreMessageCourt.Ligne[3].Caption, "COM: why");
  EXPECT_FALSE(fenetre.Voyants[Commande::Demarrer] || fenetre.PortOuvert);
  EXPECT_EQ(session.DuiteCourante, 1);  // the cursor moves, nothing goes out
  port.utilisable = true;
  Commander(Commande::Arreter);
  Pas(Commande::Demarrer, kTissage, {Duite(2)});
  port.ouvert = port.utilisable = false;  // the serial layer has let it go
  Rapport();
  EXPECT_TRUE(pf.messages.empty());
  Pas(Commande::Arreter, kArrete);
  EXPECT_TRUE(fenetre.PortOuvert);  // closing a closed port leaves it
  // Still gone at the next Start, a frame is written to the closed port and nobody catches that.
  EXPECT_EQ(Echec([] { Commander(Commande::Demarrer); }), 8018);
  EXPECT_TRUE(fenetre.BoutonProgramme[Commande::Configurer].Visible);
}

TEST_F(SessionEntiere, EventsThatRunInsideACommand) {
  Lancer();
  pf.pendant = [this] { Rapport(); };  // a tick inside the closing: still weaving is over, the cursor moves
  Pas(Commande::Arreter, kArrete, {kLiberer});
  EXPECT_EQ(session.DuiteCourante, 2);
  EXPECT_EQ(fenetre.Timer3.Interval(), 0);
  Commander(Commande::Demarrer);
  port.recus = {kRapport};  // a report that waited is taken by the poll of Start itself
  Pas(Commande::Avancer, kTissage, {Duite(3), Duite(4), Duite(5)});
}
