// The way back that the reminder advises: after a power cut it is followed by the word, and the loom must get
// the last shed again, and with the next report the one behind it.
#include <regex>

#include "kit/FenetreRappel.h"
#include "session/Journal.h"
#include "tests/Banc.h"

namespace {
constexpr int kDuites = 20;
using Champs = std::map<int, std::string>;

class ApresLaPanne : public BancConfigure {
 protected:
  void Entrer(const std::string &duite) {
    Commander(Commande::ChoisirDuite);
    fenetre.TxtDuite.Text = duite;
    fenetre.TxtDuite.KeyDown(Touche::Entree, 0);
  }
  // A pattern of as many picks whose keys are not their places.
  void OuvrirMotif(int duites = kDuites) {
    V l = Lignes(duites);
    for (int i = 0; i < duites; ++i) l[i] = std::to_string(101 + 3 * i) + l[i].substr(l[i].find('='));
    OuvrirLignes(l);
  }
  void Tourner(bool inverse) {
    if (session.DirectionTissage != inverse) Commander(Commande::Inverser);
  }
  // The power goes, and a new process comes up over what the disk holds.
  void Couper() {
    const DerniereSeance seance = LireDerniereSeance();
    Recommencer();
    NoterDepart();
    Form_Load();
    fenetre.Visible = true;
    AfficherRappel(seance);
  }
  static std::string Dit(int ligne) { return fenetreRappel.Ligne[ligne].Caption; }

  // Does what the reminder says, from Open to the pick entry.
  void Suivre(const std::string &motif) {
    static const std::regex anglais(
        "Open the pattern; Configure: ([^,]*)(, Starting Bar (\\d+))?, Exit; Strart; "
        "Starting Bar (\\d+)(; Forward/Reverse)?\\."),
        francais(
            "Ouvrir le motif ; Configuration : ([^,]*)(, Départ Patron (\\d+))?, Sortie ; Départ ; "
            "Duite Départ (\\d+)( ; Suivant/Précédent)?\\.");
    std::smatch m;
    const std::string dit = Dit(5);
    ASSERT_TRUE(std::regex_match(dit, m, session.LangueFrancaise ? francais : anglais)) << dit;
    Ouvrir(motif);
    Champs champs{{5, m[1]}};
    if (m[3].matched) champs[7] = m[3];
    Configurer(champs);
    Commander(Commande::Demarrer);
    Entrer(m[4]);
    if (m[5].matched) Commander(Commande::Inverser);
  }

  // What the loom gets from the next report, unless the power goes before.
  std::string Suivante() {
    Ecrits();
    Rapport();
    return Ecrits().back();
  }
  // Cuts the power behind the last frame, and holds what the reminder leads to against what was and would
  // have been on the loom. Without a way nothing is advised.
  void Eprouver(bool chemin = true) {
    const std::string derniere = port.ecrits.back(), journal = LireFichier("Journal.txt"),
                      motif = session.CheminWif, duite = std::to_string(session.DuiteCourante);
    const std::string suivante = Suivante();
    EcrireFichier("Journal.txt", journal);
    Couper();
    EXPECT_EQ(Dit(2).substr(Dit(2).find('/')), motif);
    EXPECT_NE(Dit(3).find(" : " + duite + ", le "), Dit(3).find(": " + duite + ", on ")) << Dit(3);
    EXPECT_EQ(!Dit(5).empty(), chemin) << Dit(5);
    if (!chemin || Dit(5).empty()) return;
    Suivre(motif);
    if (HasFatalFailure()) return;
    EXPECT_EQ(Hexa(port.ecrits.back()), Hexa(derniere)) << Dit(5);
    EXPECT_EQ(Hexa(Suivante()), Hexa(suivante)) << Dit(5);
  }
  // A session up to its last pick, in a folder that knows the pattern option.
  void Tisser(const Champs &champs, bool inverse, const std::string &duite, bool francais) {
    LancerProgramme();
    fenetre.Drapeau[francais ? 1 : 2].Click();
    OuvrirMotif();
    Configurer({{5, francais ? "Patron" : "Pattern"}});
    Configurer(champs);
    Commander(Commande::Demarrer);
    Tourner(inverse);
    Entrer(duite);
  }
};
}  // namespace

TEST_F(ApresLaPanne, EveryWayOfWeavingBothWaysInBothLanguages) {
  for (const bool francais : {false, true}) {
    for (const bool inverse : {false, true}) {
      const auto eprouver = [&](const Champs &champs, const std::set<int> &duites) {
        for (const int n : duites) {
          SCOPED_TRACE(champs.at(5) + (champs.count(7) ? " " + champs.at(7) : "") + ", pick " +
                       std::to_string(n) + (inverse ? ", in reverse" : ""));
          Tisser(champs, inverse, std::to_string(n), francais);
          Eprouver();
        }
      };
      eprouver({{5, francais ? "Patron" : "Pattern"}}, {0, 1, 2, 17, kDuites});
      eprouver({{5, francais ? "Toile" : "Tabby"}}, {1, 2, 39, 40});
      const std::string melange = francais ? "Patron et Toile" : "Pattern and Tabby";
      // Pattern picks, A and B; the row before the cursor; the last.
      eprouver({{5, melange}, {7, "1"}}, {0, 1, 2, 3, 4, 22, 2 * kDuites + 1});
      eprouver({{5, melange}, {7, "2"}}, {1, 2, 3, 4, 5, 2 * kDuites});
      eprouver({{5, melange}, {7, "17"}}, {16, 17, 18, 19, 22, 2 * kDuites - 15});
    }
  }
}

TEST_F(ApresLaPanne, ADirectionThatTheSettingsKeepOrThatWasTurnedSince) {
  for (const bool inverse : {false, true}) {
    Tisser({{5, "Pattern and Tabby"}, {6, "Reverse"}, {7, "2"}}, inverse, "7", false);
    EXPECT_EQ(Dit(4), "");
    Eprouver();
    EXPECT_EQ(Dit(4), inverse ? "Pattern and Tabby, row 0110, in reverse." : "Pattern and Tabby, row 0110.");
    Tisser({{5, "Pattern"}}, !inverse, "7", false);
    Commander(Commande::Inverser);
    Eprouver();
  }
}

TEST_F(ApresLaPanne, AfterTabbyAndTabbyPlus) {
  const auto enToile = [this](const std::string &option) {
    Tisser({{5, option}}, false, "16", false);
    Commander(Commande::TisserToile);
    Rapports(2);
  };
  enToile("Pattern");
  Eprouver();
  EXPECT_EQ(Dit(4), "Tabby, row TabbyB. Pattern left at pick 16.");
  for (const std::string option : {"Pattern", "Tabby"}) {  // which the settings keep
    SCOPED_TRACE(option);
    for (const int n : {17, 18, 21, 24}) {
      enToile(option);
      Commander(Commande::TisserPatronEtToile);
      if (n > 17) Entrer(std::to_string(n));
      Eprouver();
      EXPECT_TRUE(n != 21 || Dit(4) == "Pattern and Tabby, row TabbyA.") << Dit(4);
    }
    // What tabby left before the cursor, in the row before it beside the pattern's own, is in no new plan:
    // neither as the last shed nor as the one behind it.
    for (const auto &[n, inverse] : {std::pair{15, false}, {16, true}, {17, true}, {25, false}}) {
      enToile(option);
      Commander(Commande::TisserPatronEtToile);
      Tourner(inverse);
      Entrer(std::to_string(n));
      Eprouver(false);
    }
    enToile(option);
    Commander(Commande::TisserPatronEtToile);
    Commander(Commande::Inverser);  // at the edge, turned round behind the pick
    Eprouver(false);
  }
  // Pattern goes on behind the pick that was left.
  enToile("Pattern");
  Commander(Commande::TisserPatron);
  Eprouver();
  EXPECT_EQ(Dit(4), "Pattern, row 0149.");
}

TEST_F(ApresLaPanne, NoWayWhereNoneIsRight) {
  // Tabby at a cursor above 40.
  LancerProgramme();
  OuvrirMotif(50);
  Commander(Commande::Demarrer);
  Entrer("45");
  Commander(Commande::TisserToile);
  Eprouver(false);
  EXPECT_TRUE(Dit(4).starts_with("Tabby. Pattern left at pick 45.")) << Dit(4);
  // A plan that Open itself has mixed at the last pick: its last rows, and those before the cursor.
  Tisser({{5, "Pattern and Tabby"}, {7, "21"}}, true, "20", false);
  Eprouver(false);
  Tisser({{5, "Pattern and Tabby"}, {7, "17"}}, false, "15", false);
  Eprouver(false);
  // Settings that keep tabby: Open fills the row before the cursor with it, and a new plan leaves it there.
  Tisser({{5, "Tabby"}}, false, "16", false);
  for (const auto c :
       {Commande::TisserToile, Commande::TisserPatron, Commande::TisserPatronEtToile, Commande::Inverser})
    Commander(c);
  Entrer("16");
  Eprouver(false);
  // A journal of before, which has no plan.
  EcrireFichier(
      "Journal.txt",
      "2026-01-02 03:04:05  Pattern: /m.wif\n2026-01-02 03:04:05  Pick sent: 22 (line 16), harnesses 1\n");
  Couper();
  EXPECT_EQ(Dit(2) + Dit(3), "Pattern: /m.wifLast pick sent: 22, on 2026-01-02 at 03:04:05");
  EXPECT_EQ(Dit(4) + Dit(5), "");
  // A resumed plan has empty tabby lines, a new one has not.
  Tisser({{5, "Pattern and Tabby"}, {7, "1"}}, false, "6", false);
  EcrireFichier("Resume.Trm", "");
  Commander(Commande::Enregistrer);
  for (const auto &[n, chemin] : {std::pair{"8", false}, {"7", true}}) {
    LancerProgramme();
    Commander(Commande::Reprendre);
    Commander(Commande::Demarrer);
    Entrer(n);
    const std::string derniere = port.ecrits.back(), motif = session.CheminWif;
    Couper();
    ASSERT_EQ(!Dit(5).empty(), chemin) << n;
    if (!chemin) continue;
    Suivre(motif);
    EXPECT_EQ(Hexa(port.ecrits.back()), Hexa(derniere));
  }
  // A file that ends in its lift plan shifts the next one, in this process only.
  LancerProgramme();
  Ouvrir(EcrireFichier("ouvert.wif", "[LIFTPLAN]\r\n1=1,2\r\n"));
  OuvrirMotif();
  Configurer({{5, "Pattern"}});
  Commander(Commande::Demarrer);
  Eprouver(false);
  // The pattern of the pick, not the one that was opened behind it.
  Tisser({{5, "Pattern"}}, false, "5", false);
  const std::string tisse = session.CheminWif;
  Commander(Commande::Arreter);
  Commander(Commande::Rafraichir);
  Ouvrir(Motif(Lignes(3), "autre.wif"));
  Couper();
  EXPECT_EQ(Dit(2), "Pattern: " + tisse);
}
