// A weaver's session, command by command: what stands on the window and what goes over the line.
#include "tests/Banc.h"

namespace {
using V = std::vector<std::string>;
using Boutons = std::set<int>;

const Boutons kSansPatron{0, 1, 3, 11, 12, 14, 16, 18}, kCharge{0, 1, 3, 9, 10, 11, 12, 14, 16, 18},
    kTissage{0, 2, 4, 5, 6, 7, 8, 9, 10, 11, 12, 17}, kArrete{0, 2, 9, 10, 11, 12, 14, 16, 18},
    kConfiguration{11, 12, 13, 15}, kDiagnostic{11, 12, 19, 20, 21};
const char *const kLiberer = "\x1BR\r\n";
const std::string kA = "TabbyA=1,3,5,7,9,11,13,15,17,19,21,23", kB = "TabbyB=2,4,6,8,10,12,14,16,18,20,22,24";

class SessionEntiere : public Banc {
 protected:
  void SetUp() override {
    Banc::SetUp();
    lignes = Lignes(20);
    chemin = Motif(lignes);
  }
  // A session that is weaving pick 1.
  void Lancer() {
    Demarrer();
    Configurer({{1, "COM 1"}, {5, "Pattern"}});
    Ouvrir(chemin);
    Commande(10);
    ASSERT_EQ(port.Tout(), Duite(1));
    port.ecrits.clear();
  }
  static Boutons Visibles() {
    Boutons s;
    for (int i = 0; i <= 21; ++i) {
      const bool face =
          i == 13 || i == 15 ? fenetre.FenetreConfiguration.Visible : i < 19 || fenetre.PicNor.Visible;
      if (face && fenetre.BoutonProgramme[i].Visible) s.insert(i);
    }
    return s;
  }
  std::string Duite(int i) const { return Cadre24(lignes.at(static_cast<std::size_t>(i - 1))); }
  // What went over the line since the last look.
  V Ligne() { return std::exchange(port.ecrits, {}); }
  void Entrer(const std::string &texte) {
    Commande(8);
    fenetre.TxtDuite.Text = texte;
    fenetre.TxtDuite.KeyDown(13, 0);
  }
  V lignes;
  std::string chemin;
};
}  // namespace

TEST_F(SessionEntiere, FromTheFirstStartToTheNext) {
  Demarrer();
  EXPECT_EQ(Visibles(), kSansPatron);
  EXPECT_EQ(fenetre.ComConfiguration[1].Text, "");
  Commande(14);
  EXPECT_EQ(Visibles(), kConfiguration);
  EXPECT_TRUE(fenetre.Voyants[14]);
  EXPECT_FALSE(fenetre.Drapeau[1].Visible || fenetre.ShDrapeau.Visible);
  fenetre.ComConfiguration[1].Text = "COM 2";
  fenetre.ComConfiguration[5].Text = "Pattern";
  Commande(13);
  EXPECT_EQ(Visibles(), kSansPatron);
  EXPECT_FALSE(fenetre.Voyants[14]);
  Ouvrir(chemin);
  EXPECT_EQ(Visibles(), kCharge);
  EXPECT_EQ(session.DuiteCourante, 20);
  EXPECT_FALSE(port.ouvert);
  Commande(10);
  EXPECT_EQ(Visibles(), kTissage);
  EXPECT_TRUE(fenetre.Voyants[10] && port.ouvert && fenetre.PortOuvert);
  EXPECT_EQ(port.numero, 2);
  EXPECT_EQ(fenetre.Timer3.Interval(), 100);
  Rapport();
  Rapport();
  EXPECT_EQ(Ligne(), (V{Duite(1), Duite(2), Duite(3)}));
  Commande(6);
  Commande(7);
  EXPECT_TRUE(Ligne() == V{Duite(4)});
  Rapport();
  Commande(6);
  EXPECT_EQ(Ligne(), (V{Duite(3), Duite(2)}));
  Rapport();
  Rapport();  // round at both ends
  Commande(7);
  Rapport();
  EXPECT_EQ(Ligne(), (V{Duite(1), Duite(20), Duite(1)}));
  Commande(4);
  Rapport();
  Commande(17);
  Rapport();
  Commande(5);
  EXPECT_EQ(Ligne(), (V{Cadre24(kA), Cadre24(kB), Cadre24(kA), Duite(2), Duite(2)}));
  Commande(9);
  EXPECT_EQ(Visibles(), kArrete);
  EXPECT_EQ(Ligne(), V{kLiberer});
  EXPECT_EQ(fenetre.Timer3.Interval(), 0);
  EXPECT_TRUE(fenetre.Voyants[9] && !fenetre.Voyants[10]);
  Commande(10);
  EXPECT_EQ(Ligne(), V{Duite(3)});  // the next pick, not the same again
  EXPECT_EQ(Visibles(), kTissage);
  EcrireFichier("Resume.Trm", "");
  Commande(2);
  EXPECT_EQ(Visibles(), kCharge);
  EXPECT_EQ(Ligne(), V{kLiberer});
  Rapport();
  EXPECT_EQ(session.DuiteCourante, 3);
  Commande(18);
  EXPECT_EQ(Visibles(), kDiagnostic);
  EXPECT_TRUE(fenetre.Text1.Visible);
  Commande(19);
  EXPECT_EQ(Visibles(), kCharge);
  EXPECT_FALSE(fenetre.Text1.Visible);
  Commande(10);
  Rapport();
  port.ecrits.clear();
  Commande(0);
  EXPECT_EQ(Ligne(), V{kLiberer});
  EXPECT_TRUE(pf.termine);
  EXPECT_EQ(LireFichier("Configuration.Con"), Mots({2, 24, 11, 0, 1, 0, 5, 0, 0, 0}));

  Demarrer();
  EXPECT_EQ(Visibles(), kSansPatron);
  EXPECT_EQ(fenetre.ComConfiguration[1].Text + fenetre.ComConfiguration[5].Text, "COM 2Pattern");
  EXPECT_EQ(session.DuiteCourante, 5);
  Ouvrir(chemin);
  Commande(10);
  EXPECT_EQ(Ligne(), V{Duite(1)});
}

TEST_F(SessionEntiere, PickEntry) {
  Lancer();
  for (const char *texte : {"21", "-1", "20.6"}) {
    Entrer(texte);
    EXPECT_TRUE(fenetre.FondEntreDuite.Visible && fenetre.Voyants[8]) << texte;
  }
  EXPECT_TRUE(Ligne().empty());
  Entrer("7.5");
  EXPECT_FALSE(fenetre.FondEntreDuite.Visible || fenetre.Voyants[8]);
  Entrer("6.5x");
  Entrer("20");
  EXPECT_EQ(Ligne(), (V{Duite(8), Duite(6), Duite(20)}));
  Entrer("");  // 0 stands for the unused row, and the next advance goes to 1
  Rapport();
  EXPECT_EQ(Ligne(), (V{Cadre24(std::string()), Duite(1)}));
  EXPECT_EQ(Echec([this] { Entrer("32768"); }), 6);
  std::string passe;
  for (char c : std::string("09\b.,-a /:")) passe += static_cast<char>(fenetre.TxtDuite.KeyPress(c));
  EXPECT_EQ(passe, std::string("09\b..\0\0\0\0\0", 10));
}

TEST_F(SessionEntiere, SkipAndStartOutsideWeaving) {
  Demarrer();
  BoutonProgramme_Click(10);  // no pattern: nothing else happens
  EXPECT_TRUE(fenetre.TissageEnCours);
  EXPECT_FALSE(port.ouvert || session.DuiteCourante != 0);
  Lancer();
  Commande(9);
  BoutonProgramme_Click(6);
  EXPECT_EQ(fenetre.LblIndiqueLigneRendu[11].Caption, "0002");
  EXPECT_EQ(fenetre.Timer3.Interval(), 100);
  EXPECT_EQ(Ligne(), V{kLiberer});
}

TEST_F(SessionEntiere, RefreshKeepsWhatRuns) {
  Lancer();
  Commande(9);
  Configurer({{7, "9"}});
  Ouvrir(chemin);
  Commande(11);
  Commande(16);  // the stored configuration is read again
  EXPECT_EQ(Visibles(), kSansPatron);
  EXPECT_FALSE(session.BullesActives);
  EXPECT_EQ(session.DuiteCourante, 9);
  EXPECT_EQ(session.NombreDuites, 0);
  EXPECT_EQ(fenetre.LblCheminWif.Caption + fenetre.LblNombreLigne.Caption + session.CheminWif, "");
  EXPECT_EQ(fenetre.LblIndiqueLigneRendu[11].Caption, "");
  EXPECT_TRUE(fenetre.Visible && fenetre.PatronCharge);
  Commande(14);
  Commande(15);
  EXPECT_EQ(Visibles(), kCharge);  // the pattern that was once there counts
  Configurer({{5, "x"}});
  InitialiserPatron();
  port.ecrits.clear();
  Commande(10);
  EXPECT_TRUE(port.ouvert && Ligne().empty());
  EXPECT_EQ(session.DuiteCourante, 1);
}

TEST_F(SessionEntiere, PanelTakesWhatItKnowsAndCancelDropsTheRest) {
  Lancer();
  Commande(9);
  const auto etat = [] {
    return V{std::to_string(session.PortMetier),
             std::to_string(session.NombreLames),
             std::to_string(session.OptionTissage),
             std::to_string(session.DuiteCourante),
             session.DirectionDeroulement ? "up" : "down",
             session.DirectionTissage ? "reverse" : "forward",
             session.ToileDepart ? "A" : "B"};
  };
  const V avant = etat();
  const std::map<int, std::string> tout{{1, "COM 4"},   {2, "16"}, {4, "Up"},     {5, "Tabby"},
                                        {6, "Reverse"}, {7, "12"}, {8, "Tabby A"}};
  Commande(14);
  for (const auto &[i, texte] : tout) fenetre.ComConfiguration[i].Text = texte;
  Commande(15);
  EXPECT_EQ(etat(), avant);
  Configurer({});
  EXPECT_EQ(etat(), avant);
  Configurer(tout);
  EXPECT_EQ(etat(), (V{"4", "24", "2", "12", "up", "reverse", "A"}));  // 16 lasted for the plan and the draft
  EXPECT_EQ(session.NombreLamesGrille, 16);
  EXPECT_EQ(fenetre.BitsDuite[1].size(), 16u);
  Configurer({{1, " COM 3 "},
              {4, " Haut"},
              {5, " Patron et Toile "},
              {6, "Inverse"},
              {7, " 7.5 "},
              {8, "Liaison B"}});
  EXPECT_EQ(etat(), (V{"3", "24", "3", "8", "up", "reverse", "B"}));
  Configurer({{1, "COM 5"}, {3, "x"}, {4, "up"}, {5, "Liaison"}, {6, "Précédent"}, {8, "A"}, {7, "1"}});
  EXPECT_EQ(etat(), (V{"3", "24", "3", "1", "down", "forward", "B"}));
  EXPECT_EQ(session.DuitesActives, 0);
  Configurer({});
  EXPECT_EQ(session.DuitesActives, 11);
  Configurer({{5, "Pattern"}, {7, ""}});
  EXPECT_EQ(session.DuiteCourante, 0);
  EXPECT_EQ(Echec([] { Configurer({{5, "Pattern and Tabby"}}); }), 9);
}

TEST_F(SessionEntiere, LanguageBothWays) {
  Lancer();
  Commande(7);
  fenetre.Drapeau[1].Click();
  EXPECT_EQ(Ligne(), V{Duite(1)});  // the redraw sends
  const auto textes = [] {
    std::string s = fenetre.LblNombreLigne.Caption + "|" + fenetre.LblNomTest.Caption + "|";
    for (int i = 1; i <= 8; ++i)
      s += fenetre.LblConfiguration[i].Caption + fenetre.ComConfiguration[i].Text + "|";
    return s + std::to_string(static_cast<int>(fenetre.ShDrapeau.Left));
  };
  EXPECT_EQ(
      textes(),
      "Nombre de duites / patron:  20|Auto-Test|Métier Port:COM 1|Nombre Lames:24|Duites Active (Rouge):11|"
      "Début Déroulement:Bas|Option Toile Patron:Patron|Direction Patron:Précédent|Départ Patron:1|"
      "Départ Toile:Liaison B|285");
  EXPECT_EQ(fenetre.ComConfiguration[5].Liste, (V{"Patron", "Toile", "Patron et Toile"}));
  EXPECT_EQ(fenetre.ComConfiguration[7].Liste.size(), 20u);
  EXPECT_TRUE(session.DirectionTissage);
  Commande(5);  // in French every way through the panel goes forward
  EXPECT_FALSE(session.DirectionTissage);
  fenetre.Drapeau[2].Click();
  EXPECT_EQ(textes(),
            "Number of picks / pattern:  20|Loom Selt test|Loom Port:COM 1|Number of Harnesses:24|Lookahead "
            "Picks:11|"
            "Scrolling Direction:Down|Weave Option:Pattern|Weave Direction:Forward|Starting Bar:1|"
            "Starting Tabby:Tabby B|945");
  Commande(9);
  Configurer({});
  Ouvrir("");
  fenetre.LblIndiqueLigneRendu[11].Caption = "as it was";
  fenetre.Drapeau[1].Click();  // without a plan the draft is left alone
  EXPECT_EQ(fenetre.LblIndiqueLigneRendu[11].Caption, "as it was");
}

TEST_F(SessionEntiere, StartOnAPortThatCannotBeUsed) {
  Demarrer();
  Configurer({{1, "COM 4"}, {5, "Pattern"}});
  Ouvrir(chemin);
  port.utilisable = false;
  Commande(10);
  EXPECT_EQ(pf.messages, V{"Error|Erreur numéro: 8002; Description: Invalid port number"});
  EXPECT_EQ(Visibles(), (Boutons{0, 2, 9, 10, 11, 12, 14, 16}));
  EXPECT_FALSE(fenetre.Voyants[10] || fenetre.PortOuvert);
  EXPECT_EQ(session.DuiteCourante, 1);  // the cursor moves, nothing goes out
  EXPECT_TRUE(fenetre.TissageEnCours && Ligne().empty());
  Configurer({{1, "COM 1"}});
  port.utilisable = true;
  Commande(9);
  Commande(10);
  EXPECT_EQ(Visibles(), kTissage);
  EXPECT_EQ(Ligne(), V{Duite(2)});
}

TEST_F(SessionEntiere, PortThatVanishesAndComesBack) {
  Lancer();
  port.enPanne = true;
  Rapport();
  EXPECT_EQ(pf.messages, V{"Error|Device I/O error"});
  port.enPanne = port.ouvert = port.utilisable = false;  // the serial layer has let it go
  port.recus.clear();
  fenetre.Timer3.Timer();
  EXPECT_EQ(pf.messages.size(), 1u);
  EXPECT_EQ(session.DuiteCourante, 1);
  Commande(9);
  EXPECT_EQ(Visibles(), kArrete);
  EXPECT_TRUE(fenetre.PortOuvert);  // closing a closed port leaves it
  port.utilisable = true;
  Commande(10);
  EXPECT_EQ(Ligne(), V{Duite(2)});
  Rapport();
  EXPECT_EQ(Ligne(), V{Duite(3)});
  // Still gone at the next Start, a frame is written to the closed port and nobody catches that.
  port.ouvert = port.utilisable = false;
  Commande(9);
  EXPECT_EQ(Echec([] { Commande(10); }), 8018);
  EXPECT_TRUE(fenetre.BoutonProgramme[14].Visible);
}

TEST_F(SessionEntiere, EventsThatRunInsideACommand) {
  Lancer();
  pf.pendant = [this] { Rapport(); };  // a tick inside the closing: still weaving is over, the cursor moves
  Commande(9);
  EXPECT_EQ(session.DuiteCourante, 2);
  EXPECT_EQ(Ligne(), V{kLiberer});
  EXPECT_EQ(fenetre.Timer3.Interval(), 0);
  Commande(10);
  port.recus = {
      "\x1B"
      "C\r"};  // a report that waited is taken by the poll of Start itself
  Commande(6);
  EXPECT_EQ(Ligne(), (V{Duite(3), Duite(4), Duite(5)}));
}
