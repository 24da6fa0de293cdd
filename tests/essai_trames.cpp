// The line to the loom: port, frames, listener, solenoid tests, diagnostics.
#include "loom/DiagnosticPort.h"
#include "loom/EssaisSolenoides.h"
#include "loom/PortMetier.h"
#include "loom/TramesDuite.h"
#include "tests/Banc.h"

namespace {
class Trames : public Banc {
 protected:
  void SetUp() override {
    Banc::SetUp();
    Demarrer();
    Configurer({{1, "COM 3"}, {5, "Pattern"}});
    Ouvrir(Motif({"1=1,3,16", "2=9,10", "3=5", "4=8,7,6,5,4,3,2,1,24,17", "5="}));
  }
  // As after a resumed project of the small loom: the plan is built for 16 harnesses.
  void Passer16() {
    Configurer({{2, "16"}});
    session.NombreLames = 16;
  }
  // What went out since the last look, one hexadecimal text for each write.
  std::vector<std::string> Ecrits() {
    std::vector<std::string> s;
    for (const std::string &e : port.ecrits) s.push_back(Hexa(e));
    port.ecrits.clear();
    return s;
  }
  using V = std::vector<std::string>;
};
const char *const kFerme =
    "Error|Erreur numéro: 8018; Description: Operation valid only when the port is open";
const char *const kInutilisable = "Error|Erreur numéro: 8002; Description: Invalid port number";
const char *const kPanne = "Error|Erreur numéro: 57; Description: Device I/O error";
}  // namespace

TEST_F(Trames, EscapeFramesByteForByte) {
  Commande(10);
  EXPECT_EQ(port.numero, 3);
  EXPECT_EQ(port.reglages, "1200,N,8,1");
  EXPECT_EQ(
      fenetre.Text1.Text,
      "Taille Tampon Transmission% =  0\r\nTaille Caractere dans Tampon% =  0\r\nErreurEvenement% =  0\r\n"
      "CaractereMinimumDansTampon% =  0\r\n");
  for (int i = 0; i < 5; ++i) Rapport();
  EXPECT_EQ(Ecrits(), (V{"1B520D0A1B49058005000D0A1B450D0A", "1B520D0A1B49000300000D0A1B450D0A",
                         "1B520D0A1B49000000000D0A1B450D0A", "1B520D0A1B49FF00FF000D0A1B450D0A",
                         "1B520D0A1B49000000000D0A1B450D0A", "1B520D0A1B49058005000D0A1B450D0A"}));
  Commande(9);
  EXPECT_EQ(Ecrits(), V{"1B520D0A"});
}

TEST_F(Trames, TextFramesByteForByte) {
  Passer16();
  Commande(10);
  EXPECT_EQ(port.reglages, "9600,N,8,1");
  EXPECT_EQ(port.vidages, 1);
  Rapport("noise[CC][CC]");  // once, however often the mark stands
  EXPECT_EQ(session.DuiteCourante, 2);
  for (const char *r : {"[cc]", "C", "[C", "C]"}) Rapport(r);  // a split mark is lost
  EXPECT_EQ(session.DuiteCourante, 2);
  Rapport("[CC]");
  EXPECT_EQ(port.ecrits,
            (V{"RELEASE\nSET PATTERN 0x0505\nPUSH PATTERN\n", "RELEASE\nSET PATTERN 0x0000\nPUSH PATTERN\n",
               "RELEASE\nSET PATTERN 0x\nPUSH PATTERN\n"}));
  port.ecrits.clear();
  port.ouvert = false;  // gone and back: the next frame opens it
  Rapport("x");
  Commande(6);
  EXPECT_EQ(port.Tout(), "RELEASE\nSET PATTERN 0xFFFF\nPUSH PATTERN\n");
  port.ecrits.clear();
  port.ouvert = false;
  Commande(9);
  EXPECT_EQ(port.ecrits, (V{"RELEASE\r", "\x1BR\r\n"}));
  EXPECT_FALSE(port.ouvert || fenetre.PortOuvert);
}

TEST_F(Trames, ListenerOnTheEscapeProtocol) {
  Commande(10);
  Rapport();
  EXPECT_EQ(session.DuiteCourante, 2);
  EXPECT_EQ(session.Etat, 0);  // the CR behind the letter
  Rapport(
      "\x1B"
      "C\r\x1B"
      "C");
  EXPECT_EQ(session.DuiteCourante, 4);
  EXPECT_EQ(session.Etat, 6);
  for (const std::string r : {"\x1B", "c", "[", ""}) Rapport(r);
  EXPECT_EQ(session.DuiteCourante, 4);
  Rapport("C\r");
  EXPECT_EQ(session.DuiteCourante, 5);
  std::string tout;
  for (int o = 0; o < 256; ++o) tout += static_cast<char>(o);
  Rapport(tout);
  EXPECT_EQ(session.DuiteCourante, 1);

  // A Stop that comes in while events run ends the sending, and the letter behind still moves the cursor.
  port.ecrits.clear();
  pf.pendant = [] { Commande(9); };
  Rapport("xC");
  EXPECT_EQ(session.DuiteCourante, 2);
  EXPECT_EQ(port.ecrits, V{"\x1BR\r\n"});
  Rapport();
  EXPECT_EQ(session.DuiteCourante, 2);
}

TEST_F(Trames, OtherCountsListenAndSendNothing) {
  Commande(10);
  session.NombreLames = 12;
  port.ecrits.clear();
  Rapport("[CC]");  // two letters
  EXPECT_EQ(session.DuiteCourante, 3);
  Commande(9);
  port.reglages = "300,E,7,1";
  Commande(10);
  EXPECT_EQ(port.reglages, "300,E,7,1");
  EXPECT_EQ(port.ecrits, V{"\x1BR\r\n"});
}

TEST_F(Trames, FailuresOfThePortInThePollAreToldAndPassedOver) {
  Commande(10);
  port.ecritureEnPanne = true;
  Rapport("CC");
  EXPECT_EQ(session.DuiteCourante, 3);
  EXPECT_EQ(pf.messages, (V{"Error|Device I/O error", "Error|Device I/O error"}));
  EXPECT_EQ(fenetre.Timer3.Interval(), 100);
  pf.messages.clear();
  Commande(9);  // closing fails: stopped all the same, and the weaving buttons stay
  EXPECT_EQ(pf.messages, V{kPanne});
  EXPECT_TRUE(fenetre.PortOuvert && fenetre.Voyants[9] && !fenetre.Voyants[10] && !fenetre.TissageEnCours);
  EXPECT_TRUE(fenetre.BoutonProgramme[4].Visible && fenetre.BoutonProgramme[14].Visible);
}

TEST_F(Trames, OpeningAndClosing) {
  FermerPort();
  EXPECT_EQ(session.Etat, 1);
  OuvrirPort();
  fenetre.PortOuvert = false;
  OuvrirPort();  // open already: passed over
  EXPECT_TRUE(session.Etat == 1 && fenetre.PortOuvert && port.ecrits.empty());
  EcrirePort("abc");
  EXPECT_TRUE(session.Etat == 1 && fenetre.PortOuvert && !port.ouvert);
  EcrirePort("abc");
  EXPECT_EQ(session.Etat, 0);
  EXPECT_EQ(port.Tout(), "abc");
  port.utilisable = false;
  session.LangueFrancaise = true;
  fenetre.BoutonProgramme[14].Visible = false;
  OuvrirPort();
  EXPECT_TRUE(session.Etat == 0 && fenetre.PortOuvert && fenetre.BoutonProgramme[14].Visible);
  EXPECT_EQ(pf.messages, V{"Erreur|Erreur numéro: 8002; Description: Invalid port number"});
}

TEST_F(Trames, ManualFrameAndReserveReaders) {
  fenetre.Text1.Text = "0x05";
  fenetre.Text1.KeyDown(13, 0);  // opening writes its four lines into the box first
  EXPECT_EQ(port.ecrits.at(0), "SET PATTERN" + fenetre.Text1.Text + "\r");
  fenetre.Text1.Text = "  0x05 ";
  port.ecrits.clear();
  fenetre.Text1.KeyDown(13, 0);
  EXPECT_EQ(port.ecrits, (V{"SET PATTERN0x05\r", "PUSH PATTERN\r"}));
  for (const auto &[recu, etat] : {std::pair{"xx\x1B"
                                             "C\r",
                                             6},
                                   {"C\r", 0},
                                   {"\x1B"
                                    "C",
                                    0}}) {
    port.recus = {recu};
    LireReponseMetier();
    EXPECT_EQ(session.Etat, etat) << recu;
  }
  port.ouvert = false;
  pf.pendant = [this] { port.recus = {"xO", "K\r\n", "later"}; };
  fenetre.Timer1.Timer();
  EXPECT_TRUE(port.ouvert && session.Etat == 1);
  EXPECT_EQ(fenetre.Text1.Text, "xOK\r\n");
}

TEST_F(Trames, SolenoidsByHand) {
  fenetre.CheckSelenoide[7].Value = true;
  Commande(18);
  EXPECT_FALSE(fenetre.CheckSelenoide[7].Value);
  EXPECT_TRUE(port.ecrits.empty());
  for (int i : {1, 3, 16}) fenetre.CheckSelenoide[i].Value = true;
  fenetre.CheckSelenoide[16].Click();
  EXPECT_EQ(Ecrits(), (V{"1B520D0A", "1B49058000000D0A", "1B450D0A"}));
  for (int i : {1, 3, 16}) fenetre.CheckSelenoide[i].Value = i == 3;
  fenetre.CheckSelenoide[3].Value = false;
  fenetre.CheckSelenoide[24].Value = true;
  fenetre.CheckSelenoide[24].Click();
  EXPECT_EQ(Ecrits()[1], "1B49000080000D0A");
  session.NombreLames = 12;
  fenetre.CheckSelenoide[24].Click();
  EXPECT_TRUE(Ecrits().empty());
  session.NombreLames = 16;
  for (int i : {1, 3, 16}) fenetre.CheckSelenoide[i].Value = i != 3;
  fenetre.CheckSelenoide[1].Click();
  EXPECT_EQ(port.ecrits, (V{"RELEASE\n", "SET PATTERN 0x8001\nPUSH PATTERN\n"}));
  Commande(19);
  EXPECT_FALSE(port.ouvert || fenetre.Voyants[18] || fenetre.PicNor.Visible);
  port.utilisable = false;
  fenetre.CheckSelenoide[1].Click();
  EXPECT_EQ(pf.messages, (V{kInutilisable, kFerme}));
}

TEST_F(Trames, WalkingTestAndTheLoomsOwn) {
  Commande(18);
  Commande(20);
  EXPECT_EQ(fenetre.Timer2.Interval(), 1000);
  EXPECT_TRUE(fenetre.Voyants[20] && !fenetre.Voyants[21]);
  for (int i = 0; i < 24; ++i) fenetre.Timer2.Timer();
  ASSERT_EQ(port.ecrits.size(), 75u);
  for (int i = 0; i < 25; ++i) {
    const int x = i % 24;
    std::string charge = "\x1BI" + std::string(4, '\0') + "\r\n";
    charge[static_cast<std::size_t>(2 + x / 8)] = static_cast<char>(1 << x % 8);
    EXPECT_EQ(port.ecrits[static_cast<std::size_t>(3 * i + 1)], charge) << i;
  }
  EXPECT_EQ(session.DuiteCourante, 5);
  port.ecrits.clear();
  Commande(21);
  EXPECT_EQ(fenetre.Timer2.Interval(), 0);
  EXPECT_TRUE(fenetre.Voyants[21] && fenetre.LameTest == 0);
  fenetre.Timer2.Timer();  // a tick that was under way
  EXPECT_EQ(port.ecrits, V{"\x1BR\r\n"});
  session.NombreLames = 16;
  port.ecrits.clear();
  port.ouvert = false;
  Commande(20);
  EXPECT_EQ(fenetre.Timer2.Interval(), 0);
  Commande(21);
  EXPECT_EQ(port.ecrits, (V{"TEST\r", "RELEASE\r"}));
  session.NombreLames = 24;
  Commande(20);
  Commande(19);
  EXPECT_EQ(fenetre.Timer2.Interval(), 0);
  port.utilisable = false;  // the walking test catches nothing
  EXPECT_EQ(Echec([] { BoutonProgramme_Click(20); }), 8018);
}

TEST_F(Trames, PortEventsAsText) {
  // The names of the handshaking modes stand before the events and take 1 to 3 from them.
  const std::pair<int, const char *> textes[] = {
      {1001, "Pause reçue"},
      {1011, "Erreur d'extraction de Bloc de contrôle de périphérique (DCB)"},
      {1005, "Erreur ou événement inconnus"},
      {8, "Erreur ou événement inconnus"},
      {0, "Pas de protocole de communication"},
      {1, "Protocole de communication XOn/Off"},
      {2, "Protocole de communication RTS/CTS ( Demande pour émettre/Prêt à émettre)"},
      {3, "Protocoles de communication Demande pour émettre et XON/XOFF."},
      {4, "Changement de Modem prêt (DSR) détecté"}};
  OuvrirPort();
  port.recus = {"data"};
  for (const auto &[code, texte] : textes) {
    port.evenement = code;
    AfficherEtatPort();
    const bool erreur = code > 7;
    EXPECT_EQ(erreur ? pf.messages.back() : fenetre.Remarque.Caption,
              (erreur ? "Error|" : "État: ") + std::string(texte));
    EXPECT_EQ(fenetre.Text1.Text == texte, !erreur);
  }
  EXPECT_EQ(port.recus.size(), 1u);  // event 2 takes no data in
  port.evenement = 1004;
  fenetre.ReponsePort = 2;
  AfficherEtatPort();  // once an event was told, no error is
  EXPECT_TRUE(pf.bips == 4 && port.ouvert);
  fenetre.EvenementPort.clear();
  AfficherEtatPort();
  EXPECT_TRUE(pf.bips == 5 && !port.ouvert);
}

TEST_F(Trames, TerminalBox) {
  ZoneTexte &boite = fenetre.txtTerm;
  const auto ajouter = [&boite](std::string texte) {
    AjouterTerminal(boite, texte);
    EXPECT_EQ(boite.SelStart, static_cast<int>(boite.Text.size()));
    return boite.Text;
  };
  EXPECT_EQ(ajouter("a\nb\rc\r\nd\r"), "ab\r\nc\r\nd\r\n");
  boite.Text = "abc";
  EXPECT_EQ(ajouter("\b"), "ab");
  EXPECT_EQ(ajouter("xy\b\bz"), "abz");
  EXPECT_EQ(ajouter("\bw\b"), "ab");
  boite.Text.clear();
  EXPECT_TRUE(pf.messages.empty());
  EXPECT_EQ(ajouter("\bq"), "q");
  EXPECT_EQ(pf.messages.size(), 1u);
  boite.Text = std::string(16000, 'a');
  EXPECT_EQ(ajouter("z").size(), 16001u);
  EXPECT_EQ(ajouter("z"), std::string(11904, 'a') + "zz");
}

TEST_F(Trames, CaptureFileIsRetriedUntilItTakesTheText) {
  struct Fichier {
    int refus;
    std::string contenu;
  } fichier{2, ""};
  cookie_io_functions_t acces{};
  acces.write = [](void *c, const char *octets, std::size_t n) -> ssize_t {
    auto *f = static_cast<Fichier *>(c);
    if (f->refus-- > 0) return 0;
    f->contenu.append(octets, n);
    return static_cast<ssize_t>(n);
  };
  fenetre.FichierJournal = fopencookie(&fichier, "w", acces);
  std::string texte = "abc\r";
  pf.reprises = 5;
  AjouterTerminal(fenetre.txtTerm, texte);
  EXPECT_EQ(pf.reprises, 3);
  EXPECT_EQ(fichier.contenu, "abc\r\n");
  std::fclose(fenetre.FichierJournal);
  fenetre.FichierJournal = nullptr;
}
