// The counter on the upper beam: what it tells, and that it tells no pick before its shed has left.
#include "display/TenueCompteur.h"
#include "tests/Banc.h"

namespace {
class Compteur : public BancConfigure {
 protected:
  static std::string Dit() {
    TenirCompteur();
    return fenetre.Compteur.NomAccessible;
  }
  // Number, total, pixels of tape, signs.
  static V Montre() {
    TenirCompteur();
    const PanneauCompteur &c = fenetre.Compteur;
    V montre;
    for (const Etiquette *e : {&c.LblNumero, &c.LblTotal, &c.LblInvite})
      if (e->Visible) montre.push_back(e->Caption);
    if (c.Ruban.Visible) montre.push_back(std::to_string(static_cast<int>(c.Ruban.Width) / kTwipsParPixel));
    for (const Image *i : {&c.SigneArmure, &c.SigneSens, &c.SigneEtat})
      if (i->Visible) montre.push_back(i->Picture);
    return montre;
  }
};
}  // namespace

TEST_F(Compteur, TellsTheRedRowAndHowTheLoomStands) {
  EXPECT_EQ(Montre(), V{"Configure, then Open"});
  EXPECT_EQ(Dit(), "Configure, then Open");
  OuvrirLignes(Lignes(48));
  EXPECT_EQ(Montre(), (V{"0048", "of 48", "192", "SignePatron", "SigneAvant", "SigneArret"}));
  EXPECT_EQ(fenetre.Compteur.DescriptionAccessible, "Stopped, Pattern");
  Commander(Commande::Demarrer);
  Rapports(11);
  EXPECT_EQ(Montre(), (V{"0012", "of 48", "48", "SignePatron", "SigneAvant", "SigneTissage"}));
  std::string lames;
  for (int l : LamesDe(Wif(12))) lames += (lames.empty() ? "" : ", ") + std::to_string(l);
  EXPECT_EQ(Dit(), "Pick 12 of 48, harnesses " + lames);
  Commander(Commande::Inverser);
  EXPECT_EQ(Dit(), "Pick 12 of 48, harnesses " + lames + ", reverse");
  fenetre.Drapeau[1].Click();
  EXPECT_EQ(Dit(), "Duite 12 sur 48, lames " + lames + ", inverse");
  EXPECT_EQ(Montre()[4], "SigneInverse");
  EXPECT_EQ(fenetre.Compteur.DescriptionAccessible, "Tissage en cours, Patron");
  fenetre.PortOuvert = false;
  EXPECT_EQ(Montre()[5], "SigneArret");
  fenetre.PicPourTissage.Visible = false;
  TenirCompteur();
  EXPECT_FALSE(fenetre.Compteur.Visible);
}

TEST_F(Compteur, ATabbyRowBearsItsNameAlone) {
  OuvrirLignes({"1=1,3", "2=2,4", "3="});
  Configurer({{5, "Pattern and Tabby"}, {7, "1"}});
  Configurer({{7, "2"}});
  EXPECT_EQ(Montre()[0], "TabbyA");
  EXPECT_EQ(Montre()[1], "") << "a tabby is none of the picks of the pattern";
  EXPECT_EQ(Montre()[3], "SignePatronToile");
  EXPECT_EQ(Dit(), "TabbyA, harnesses 1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23");
  EXPECT_EQ(fenetre.Compteur.LblNumero.Width, kLargeurToile);
  Configurer({{5, "Pattern"}, {7, "3"}});
  EXPECT_EQ(Dit(), "Pick 3 of 3, no harness");
}

TEST_F(Compteur, TellsNoPickBeforeItsShedHasLeft) {
  OuvrirLignes(Lignes(20));
  Commander(Commande::Demarrer);
  const std::string premiere = Dit();
  V pendant;
  pf.port.enEcrivant = [&] { pendant.push_back(Dit()); };  // as if the screen were painted at this moment
  Rapport();
  EXPECT_EQ(pendant, V{premiere});
  EXPECT_NE(Dit(), premiere);
  // While a plan is made the draft and the plan are of two minds.
  const std::string deuxieme = Dit();
  attente.Visible = true;
  session.DuiteCourante = 7;
  EXPECT_EQ(Dit(), deuxieme);
  attente.Visible = false;
  EXPECT_EQ(Dit(), deuxieme) << "the draft does not show it yet";
  fenetre.Drapeau[2].Click();
  EXPECT_NE(Dit(), deuxieme);
  session.LignesTravail[7] = "40000=1,2";
  EXPECT_NO_THROW(TenirCompteur());
}
