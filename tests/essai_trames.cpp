// The line to the loom: port, frames, listener, solenoid tests, diagnostics.
#include "base/TexteNumerique.h"
#include "diagnostics/DiagnosticPort.h"
#include "loom/PortMetier.h"
#include "loom/TramesDuite.h"
#include "tests/Banc.h"
#include "weaving/SequenceurDuites.h"

namespace {
class Trames : public BancConfigure {
 protected:
  void SetUp() override {
    BancConfigure::SetUp();
    OuvrirLignes({"1=1,3,16", "2=9,10", "3=5", "4=8,7,6,5,4,3,2,1,24,17", "5="});
  }
  V EcritsHexa() {
    V s = Ecrits();
    for (std::string &e : s) e = Hexa(e);
    return s;
  }
};
}  // namespace

TEST_F(Trames, EscapeFramesByteForByte) {
  Commander(Commande::Demarrer);
  EXPECT_EQ(port.reglages, "1200,N,8,1");
  EXPECT_EQ(
      fenetre.Text1.Text,
      "Taille Tampon Transmission% =  0\r\nTaille Caractere dans Tampon% =  0\r\nErreurEvenement% =  0\r\n"
      "CaractereMinimumDansTampon% =  0\r\n");
  Rapports(5);
  EXPECT_EQ(EcritsHexa(), (V{"1B520D0A1B49058005000D0A1B450D0A", "1B520D0A1B49000300000D0A1B450D0A",
                             "1B520D0A1B49000000000D0A1B450D0A", "1B520D0A1B49FF00FF000D0A1B450D0A",
                             "1B520D0A1B49000000000D0A1B450D0A", "1B520D0A1B49058005000D0A1B450D0A"}));
  Commander(Commande::Arreter);
  EXPECT_EQ(EcritsHexa(), V{"1B520D0A"});
}

TEST_F(Trames, TextFramesByteForByte) {
  Configurer({{2, "16"}});
  session.NombreLames = 16;  // as after a resumed project of the small loom
  Commander(Commande::Demarrer);
  EXPECT_EQ(port.reglages, "9600,N,8,1");
  EXPECT_EQ(port.vidages, 1);
  EXPECT_FALSE(port.rts || port.poignee);
  Rapport("noise[CC][CC]");                                    // once, however often the mark stands
  for (const char *r : {"[cc]", "C", "[C", "C]"}) Rapport(r);  // a split mark is lost
  EXPECT_EQ(session.DuiteCourante, 2);
  Rapport("[CC]");
  EXPECT_EQ(Ecrits(),
            (V{"RELEASE\nSET PATTERN 0x0505\nPUSH PATTERN\n", "RELEASE\nSET PATTERN 0x0000\nPUSH PATTERN\n",
               "RELEASE\nSET PATTERN 0x\nPUSH PATTERN\n"}));
  port.ouvert = false;  // gone and back: the next frame opens it
  Rapport("x");
  Commander(Commande::Avancer);
  EXPECT_EQ(Ecrits(), V{"RELEASE\nSET PATTERN 0xFFFF\nPUSH PATTERN\n"});
  port.ouvert = false;
  Commander(Commande::Arreter);
  EXPECT_EQ(Ecrits(), (V{"RELEASE\r", kLiberer}));
  EXPECT_FALSE(port.ouvert || fenetre.PortOuvert);
}

TEST_F(Trames, ListenerOnTheEscapeProtocol) {
  Commander(Commande::Demarrer);
  std::string tout;
  for (int o = 0; o < 256; ++o) tout += static_cast<char>(o);
  const struct {
    std::string recu;
    int duite, etat;
  } cas[] = {{kRapport, 2, 0},  // the CR behind the letter is the last word
             {"\033C\r\033C", 4, 6}, {"\033", 4, 0}, {"c[", 4, 0}, {"C\r", 5, 0}, {tout, 1, 0}};
  for (const auto &[recu, duite, etat] : cas) {
    Rapport(recu);
    EXPECT_EQ(std::pair(int{session.DuiteCourante}, int{session.Etat}), std::pair(duite, etat)) << Hexa(recu);
  }
  // A Stop that comes in while events run ends the sending, and the letter behind still moves the cursor.
  Ecrits();
  pf.pendant = [] { Commander(Commande::Arreter); };
  Rapport("xC");
  EXPECT_EQ(session.DuiteCourante, 2);
  EXPECT_EQ(Ecrits(), V{kLiberer});
}

TEST_F(Trames, OtherCountsListenAndSendNothing) {
  session.NombreLames = 12;
  port.reglages = "300,E,7,1";
  Commander(Commande::Demarrer);
  EXPECT_EQ(port.reglages, "300,E,7,1");
  Rapport("[CC]");  // two letters
  EXPECT_EQ(session.DuiteCourante, 3);
  EXPECT_TRUE(Ecrits().empty());
}

TEST_F(Trames, FailuresOfThePortInThePollAreToldAndPassedOver) {
  Commander(Commande::Demarrer);
  port.ecritureEnPanne = true;
  Rapport("CC");
  EXPECT_EQ(session.DuiteCourante, 3);
  EXPECT_EQ(Messages(), V(2, "Error|Device I/O error"));
  Commander(Commande::Arreter);  // closing fails: stopped all the same, and the weaving buttons stay
  EXPECT_EQ(Messages(), V{"Error|Erreur numéro: 57; Description: Device I/O error"});
  EXPECT_TRUE(fenetre.PortOuvert && fenetre.Voyants[Commande::Arreter] &&
              !fenetre.Voyants[Commande::Demarrer] && !fenetre.TissageEnCours);
}

TEST_F(Trames, OnlyTheTextProtocolOpensAPortThatItFindsClosed) {
  Commander(Commande::Demarrer);
  Ecrits();
  port.ouvert = false;
  EXPECT_EQ(Echec([] { DuiteSuivante(); }), Erreur::PortFerme);
  BoutonProgramme_Click(Commande::FinirTest);
  EXPECT_TRUE(!port.ouvert && Ecrits().empty());
  session.NombreLames = 16;
  BoutonProgramme_Click(Commande::FinirTest);
  EXPECT_EQ(Ecrits(), V{"RELEASE\r"});
}

TEST_F(Trames, ManualFrame) {
  OuvrirPort();
  fenetre.Text1.Text = "  0x05 ";
  fenetre.Text1.KeyDown(13, 0);
  EXPECT_EQ(Ecrits(), (V{"SET PATTERN0x05\r", "PUSH PATTERN\r"}));
  port.ouvert = false;
  port.etatEnPanne = true;  // a port that cannot tell its state leaves what was typed
  fenetre.Text1.KeyDown(13, 0);
  EXPECT_EQ(Ecrits()[0], "SET PATTERN0x05\r");
}

TEST_F(Trames, SolenoidsByHand) {
  const auto cocher = [](std::set<int> lames) {
    for (int i = 1; i <= 24; ++i) fenetre.CheckSelenoide[i].Value = lames.count(i) > 0;
    fenetre.CheckSelenoide[*lames.begin()].Click();
  };
  fenetre.CheckSelenoide[7].Value = true;
  Commander(Commande::Diagnostiquer);
  EXPECT_FALSE(fenetre.CheckSelenoide[7].Value);
  cocher({1, 3, 16});
  EXPECT_EQ(EcritsHexa(), (V{"1B520D0A", "1B49058000000D0A", "1B450D0A"}));
  cocher({24});
  EXPECT_EQ(EcritsHexa()[1], "1B49000080000D0A");
  session.NombreLames = 16;
  cocher({1, 16});
  EXPECT_EQ(Ecrits(), (V{"RELEASE\n", "SET PATTERN 0x8001\nPUSH PATTERN\n"}));
  Commander(Commande::QuitterDiagnostic);
  EXPECT_FALSE(port.ouvert || fenetre.Voyants[Commande::Diagnostiquer] || fenetre.PicNor.Visible);
  port.utilisable = false;
  cocher({1});
  EXPECT_EQ(Messages(), (V{kInutilisable,
                           "Error|Erreur numéro: 8018; Description: Operation valid only when "
                           "the port is open"}));
}

TEST_F(Trames, WalkingTestAndTheLoomsOwn) {
  Commander(Commande::Diagnostiquer);
  Commander(Commande::DebuterTest);
  EXPECT_TRUE(fenetre.Voyants[Commande::DebuterTest] && !fenetre.Voyants[Commande::FinirTest]);
  EXPECT_EQ(fenetre.Timer2.Interval(), 1000);
  for (int i = 0; i < 24; ++i) fenetre.Timer2.Timer();
  ASSERT_EQ(port.ecrits.size(), 75u);
  for (int i = 0; i < 25; ++i) {
    const int x = i % 24;
    std::string charge = "\033I" + std::string(4, '\0') + "\r\n";
    charge[static_cast<std::size_t>(2 + x / 8)] = static_cast<char>(1 << x % 8);
    EXPECT_EQ(port.ecrits[static_cast<std::size_t>(3 * i + 1)], charge) << i;
  }
  Ecrits();
  Commander(Commande::FinirTest);
  EXPECT_TRUE(fenetre.Voyants[Commande::FinirTest] && !fenetre.Voyants[Commande::DebuterTest]);
  EXPECT_EQ(fenetre.Timer2.Interval(), 0);
  fenetre.Timer2.Timer();  // a tick that was under way
  EXPECT_EQ(Ecrits(), V{kLiberer});
  session.NombreLames = 16;
  port.ouvert = false;
  Commander(Commande::DebuterTest);
  EXPECT_EQ(fenetre.Timer2.Interval(), 0);
  Commander(Commande::FinirTest);
  EXPECT_EQ(Ecrits(), (V{"TEST\r", "RELEASE\r"}));
  session.NombreLames = 24;
  Commander(Commande::QuitterDiagnostic);
  port.utilisable = false;  // the walking test catches nothing
  EXPECT_EQ(Echec([] { BoutonProgramme_Click(Commande::DebuterTest); }), 8018);
}

TEST_F(Trames, PortEventsAsText) {
  // The names of the handshaking modes stand before the events and take 1 to 3 from them.
  OuvrirPort();
  for (const auto &[code, texte] : {std::pair{1001, "Pause reçue"}, {1004, "Erreur de cadrage"}}) {
    port.evenement = code;  // errors show until the first event
    AfficherEtatPort();
    EXPECT_EQ(Messages(), V{std::string("Error|") + texte});
  }
  EXPECT_TRUE(port.ouvert) << "nobody answered that it should close";
  port.recus = {kRapport + "x"};
  LireReponseMetier();
  EXPECT_EQ(session.Etat, 6) << "whatever comes behind the report";
  port.recus = {"data"};
  for (const auto &[code, texte] :
       {std::pair{0, "Pas de protocole de communication"},
        {2, "Protocole de communication RTS/CTS ( Demande pour émettre/Prêt à émettre)"},
        {4, "Changement de Modem prêt (DSR) détecté"}}) {
    port.evenement = code;
    AfficherEtatPort();
    EXPECT_EQ(fenetre.Remarque.Caption, "État: " + std::string(texte));
  }
  EXPECT_EQ(port.recus.size(), 1u);  // event 2 takes no data in
}

TEST_F(Trames, TerminalBoxAndItsCaptureFile) {
  static int refus;
  static std::string contenu;
  refus = 2;
  cookie_io_functions_t acces{};
  acces.write = [](void *, const char *octets, std::size_t n) -> ssize_t {
    if (refus-- > 0) return 0;
    contenu.assign(octets, n);
    return static_cast<ssize_t>(n);
  };
  pf.reprises = 5;
  fenetre.FichierJournal = fopencookie(nullptr, "w", acces);
  for (auto [avant, texte, apres] : {std::array<std::string, 3>{"", "a\nb\rc\r\nd\r", "ab\r\nc\r\nd\r\n"},
                                     {"ab", "xy\b\bz", "abz"},
                                     {"aé", "xé\b", "aéx"},
                                     {"abz", "\bw\b", "ab"}}) {
    fenetre.txtTerm.Text = avant;
    AjouterTerminal(fenetre.txtTerm, texte);
    EXPECT_EQ(fenetre.txtTerm.Text, apres);
    if (fenetre.FichierJournal) std::fclose(std::exchange(fenetre.FichierJournal, nullptr));
  }
  fenetre.txtTerm.Text.clear();
  for (int i = 0; i <= 16000; ++i) fenetre.txtTerm.Text += "é";
  std::string suite = "\bx";
  AjouterTerminal(fenetre.txtTerm, suite);
  EXPECT_EQ(NombreCaracteres(fenetre.txtTerm.Text), 11905);
  EXPECT_EQ(std::pair(fenetre.txtTerm.SelStart, fenetre.txtTerm.SelLength), std::pair(11905, 0));
  EXPECT_EQ(std::pair(pf.reprises, contenu), std::pair(3, std::string("ab\r\nc\r\nd\r\n")));
}
