// The three files that outlive the process, against bytes written by hand.
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <bit>
#include <random>

#include "saved/FichierConfiguration.h"
#include "saved/RepriseProjet.h"
#include "tests/Banc.h"

namespace {
using V = std::vector<std::string>;

std::string Remplir(std::string texte, std::size_t longueur) {
  texte.resize(longueur, ' ');
  return texte;
}

class Sauvegarde : public Banc {
 protected:
  void SetUp() override {
    Banc::SetUp();
    EcrireFichier("Configuration.Con", Mots({2, 24, 11, 0, 1, 0, 1, 0, 0, 0}));
    Demarrer();
    lignes = Lignes(30);
    chemin = Motif(lignes);
  }
  // The header of a saved project; fields from the line count on, in their order in the file.
  static std::string Entete(const std::string &motif, std::initializer_list<int> champs,
                            double date = 45983) {
    const auto octets = std::bit_cast<std::array<char, 8>>(date);
    return std::string(octets.begin(), octets.end()) + Remplir(motif, 255) + Mots(champs);
  }
  static std::string Enregistrements(const V &l) {
    std::string s;
    for (const std::string &t : l) s += Remplir(t, 70);
    return s;
  }
  void EcrireProjet(const std::string &entete, const V &l) {
    EcrireFichier("Resume.Trm", entete);
    EcrireFichier("Resume2.Trm", Enregistrements(l));
  }
  const std::string &Wif(int i) const { return lignes.at(static_cast<std::size_t>(i - 1)); }
  V lignes;
  std::string chemin;
};
const char *const kAbsent = "Error|File not found";
}  // namespace

TEST_F(Sauvegarde, ConfigurationByteForByte) {
  Configurer({{1, "COM 4"}, {4, "Up"}, {5, "Tabby"}, {6, "Reverse"}, {7, "17"}, {8, "Tabby A"}});
  EXPECT_EQ(Hexa(LireFichier("Configuration.Con")), Hexa(Mots({4, 24, 11, -1, 2, -1, 17, -1, 0, 0})));
  Commande(11);
  fenetre.Drapeau[1].Click();
  Commande(0);
  EXPECT_TRUE(pf.termine);
  EXPECT_EQ(Hexa(LireFichier("Configuration.Con")), Hexa(Mots({4, 24, 11, -1, 2, -1, 17, -1, -1, -1})));
  Demarrer();
  EXPECT_TRUE(session.LangueFrancaise && session.BullesActives && session.DirectionDeroulement &&
              session.ToileDepart);
  EXPECT_FALSE(session.DirectionTissage);  // the French list knows no word for reverse
  EXPECT_EQ(session.PortMetier, 4);
  EXPECT_EQ(session.DuiteCourante, 17);

  const std::string plein =
      EcrireFichier("Configuration.Con", Mots({3, 16, 7, -1, 1, -1, 0x0205, -1, -1, 0}) + "tail");
  ASSERT_EQ(chmod(plein.c_str(), 0444), 0);
  Recommencer();
  LireConfiguration();
  EXPECT_EQ(session.NombreLames, 24);
  EXPECT_EQ(session.DuitesActives, 7);
  EXPECT_TRUE(pf.messages.empty());
  struct stat infos {};
  ASSERT_EQ(stat(plein.c_str(), &infos), 0);
  EXPECT_TRUE(infos.st_mode & S_IWUSR);
  EcrireConfiguration();
  EXPECT_EQ(Hexa(LireFichier("Configuration.Con")),
            Hexa(Mots({3, 24, 7, -1, 1, -1, 0x0205, -1, -1, 0}) + "tail"));
}

TEST_F(Sauvegarde, ConfigurationMissingOrUnusable) {
  std::filesystem::remove(Data("Configuration.Con"));
  Recommencer();
  Form_Load();
  EXPECT_EQ(pf.messages, V(3, kAbsent));
  EXPECT_EQ(std::filesystem::file_size(Data("Configuration.Con")), 0u);
  for (int v : {int{session.PortMetier}, int{session.OptionTissage}, int{session.DuiteCourante}})
    EXPECT_EQ(v, 0);
  EXPECT_FALSE(session.LangueFrancaise || session.DirectionDeroulement || session.ToileDepart ||
               session.BullesActives);
  EXPECT_EQ(session.NombreLames, 24);
  Demarrer();
  EXPECT_TRUE(pf.messages.empty());

  std::filesystem::remove(Data("Configuration.Con"));
  std::filesystem::create_directory(Data("Configuration.Con"));
  Recommencer();
  Form_Load();
  EXPECT_EQ(pf.messages, V{"Error|L'erreur # 75 a été générée par Brandis\rPath/File access error"});
  std::filesystem::remove_all(Data(""));
  Recommencer();
  Form_Load();
  V attendu(3, "Error|Path not found");
  attendu.push_back("Error|L'erreur # 76 a été générée par Brandis\rPath not found");
  EXPECT_EQ(pf.messages, attendu);
  fenetre.Drapeau[1].Click();
  Commande(0);
  EXPECT_EQ(pf.messages.back(), "Erreur|L'erreur # 76 a été générée par Brandis\rPath not found");
  EXPECT_TRUE(pf.termine);
}

TEST_F(Sauvegarde, ConfigurationOfAnyLengthAndContent) {
  const std::string plein = Mots({3, 16, 0x0107, -1, 1, -1, 0x0205, -1, -1, 0});
  for (std::size_t n = 1; n < 20; ++n) {
    EcrireFichier("Configuration.Con", plein.substr(0, n));
    Recommencer();
    LireConfiguration();
    EXPECT_EQ(session.Etat, 1);
    EXPECT_EQ(session.PortMetier, 3);
    EXPECT_EQ(session.DuitesActives, n < 5 ? 0 : n == 5 ? 7 : 0x0107);
    EXPECT_EQ(session.DuiteCourante, n < 13 ? 0 : n == 13 ? 5 : 0x0205) << n;
    EXPECT_EQ(session.BullesActives, n > 16);
  }
  std::mt19937 hasard(7);
  for (int tour = 0; tour < 120; ++tour) {
    std::string octets(hasard() % 40, '\0');
    for (char &c : octets) c = static_cast<char>(hasard());
    if (tour % 2 && octets.size() > 13) octets.replace(8, 2, Mots({1 + tour / 2 % 3}));
    EcrireFichier("Configuration.Con", octets);
    ASSERT_EQ(Echec([&] { Demarrer(); }), 0) << Hexa(octets);
    EXPECT_EQ(session.NombreLames, 24);
    EXPECT_FALSE(attente.Visible);
    Ouvrir(chemin);
    EXPECT_EQ(session.DuiteCourante, 30);
  }
}

TEST_F(Sauvegarde, StartingOverWithAPlanThatDoesNotFit) {
  Configurer({{5, "Pattern and Tabby"}, {7, "1"}});  // what the file keeps
  Ouvrir(Motif(Lignes(1300)));                       // fits from its last pick on
  Commande(16);
  EXPECT_EQ(pf.messages, V{"Error|Erreur numéro: 9; Description: Subscript out of range"});
  EXPECT_EQ(session.NombreDuites, 0);
  EXPECT_TRUE(fenetre.Visible);
  EXPECT_FALSE(attente.Visible);
}

TEST_F(Sauvegarde, SaveByteForByte) {
  lignes[2] = "  3=" + std::string(70, '0') + "1,2";  // bytes as they are, cut at 70
  chemin = Motif(lignes);
  EcrireFichier("Resume.Trm", "an old one");
  Configurer({{4, "Up"}, {8, "Tabby A"}});
  Ouvrir(chemin);
  Commande(10);
  for (int i = 1; i < 5; ++i) Rapport();
  port.ecrits.clear();
  Commande(2);
  EXPECT_EQ(Hexa(LireFichier("Resume.Trm")), Hexa(Entete(chemin, {30, 2, 24, 11, 1, 0, -1, 5, -1})));
  EXPECT_EQ(LireFichier("Resume2.Trm"), Enregistrements(lignes));
  V messages(3, kAbsent);
  messages.push_back("Enregistrer le projet|2025-11-22|" + chemin +
                     "|Sauvegarde dans le fichier: Resume2.Trm|Ligne Rendu:  5| | ");
  EXPECT_EQ(pf.messages, messages);
  EXPECT_EQ(port.ecrits, V{"\x1BR\r\n"});
  EXPECT_FALSE(fenetre.TissageEnCours || fenetre.PortOuvert);
  EXPECT_EQ(fenetre.Timer3.Interval(), 100);
  EXPECT_TRUE(fenetre.Voyants[2] && fenetre.Voyants[9] && !fenetre.Voyants[10]);

  // A shorter project leaves the records behind it.
  Ouvrir(Motif(Lignes(12), "court.wif"));
  Commande(10);
  Commande(2);
  V reste = Lignes(12);
  reste.insert(reste.end(), lignes.begin() + 12, lignes.end());
  EXPECT_EQ(LireFichier("Resume2.Trm"), Enregistrements(reste));
}

TEST_F(Sauvegarde, SaveThatCannotWrite) {
  Ouvrir(chemin);
  Commande(10);
  EcrireFichier("Resume2.Trm", "");
  Commande(2);  // no header to delete: none is written, and the confirmation comes all the same
  ASSERT_EQ(pf.messages.size(), 2u);
  EXPECT_EQ(pf.messages[0], "Error");
  EXPECT_EQ(pf.messages[1].rfind("Enregistrer le projet|", 0), 0u);
  EXPECT_FALSE(std::filesystem::exists(Data("Resume.Trm")));
  EXPECT_FALSE(fenetre.BoutonProgramme[2].Visible);

  Commande(10);
  std::filesystem::remove(Data("Resume2.Trm"));
  std::filesystem::create_symlink("/dev/full", Data("Resume2.Trm"));
  EcrireFichier("Resume.Trm", "");
  pf.messages.clear();
  Commande(2);
  EXPECT_EQ(pf.messages, V(30, "Error|L'erreur # 61 a été générée par Brandis\rDisk full"));
  EXPECT_EQ(std::filesystem::file_size(Data("Resume.Trm")), 281u);
  EXPECT_FALSE(fenetre.TissageEnCours);
  EXPECT_TRUE(fenetre.PortOuvert && fenetre.BoutonProgramme[2].Visible && fenetre.BoutonProgramme[4].Visible);
  pf.messages.clear();
  EcrireRepriseLigne(7001);
  LireRepriseLigne(0);
  EXPECT_EQ(pf.messages, V{"Error|L'erreur # 9 a été générée par Brandis\rSubscript out of range"});
}

TEST_F(Sauvegarde, SaveIntoAReadOnlyFolder) {
  if (geteuid() == 0) GTEST_SKIP() << "permission bits do not bite here";
  EcrireProjet("old", {"1=1,2"});
  Ouvrir(chemin);
  Commande(10);
  ASSERT_EQ(chmod(Data("").c_str(), 0555), 0);
  Commande(2);
  ASSERT_EQ(chmod(Data("").c_str(), 0755), 0);
  EXPECT_EQ(pf.messages.at(0), "Error");
  EXPECT_EQ(LireFichier("Resume.Trm"), "old");
  EXPECT_EQ(LireFichier("Resume2.Trm"), Enregistrements(lignes));
}

TEST_F(Sauvegarde, ResumeWithoutARecordIsSilent) {
  for (int octets : {-1, 0, 280}) {
    std::filesystem::remove(Data("Resume.Trm"));
    if (octets >= 0) EcrireFichier("Resume.Trm", std::string(static_cast<std::size_t>(octets), 'x'));
    session.Etat = 6;
    Commande(3);
    EXPECT_TRUE(pf.messages.empty());
    EXPECT_EQ(session.Etat, 6);
    EXPECT_EQ(session.CheminWif, "");
    EXPECT_FALSE(fenetre.UnInstant.Visible || fenetre.PatronCharge || fenetre.Voyants[3]);
    EXPECT_EQ(LireFichier("Resume.Trm").size(), octets < 0 ? 0u : static_cast<unsigned>(octets));
  }
  // The empty file that Resume made lets the next Save write its header.
  Ouvrir(chemin);
  Commande(10);
  Commande(2);
  EXPECT_EQ(LireFichier("Resume.Trm").size(), 281u);
}

TEST_F(Sauvegarde, ResumeTakesTheFieldsFromTheirPlaces) {
  EcrireProjet(Entete(chemin, {30, 3, 24, 5, 1, -1, -1, 7, -1}, 40000) + "behind", {});
  EcrireFichier("Resume2.Trm", Enregistrements({"  1=5,6 ", "2=7,8"}) + "half a record");
  Commande(3);
  EXPECT_TRUE(pf.messages.empty());
  EXPECT_EQ(session.DateProjet, 40000);
  EXPECT_EQ(session.PortMetier, 3);
  EXPECT_EQ(session.DuitesActives, 11);
  EXPECT_TRUE(session.DirectionTissage && session.DirectionDeroulement && session.ToileDepart);
  EXPECT_EQ(session.DuiteCourante, 7);
  EXPECT_EQ(session.NombreDuites, 30);
  EXPECT_EQ(session.LignesTravail[1], Wif(1));  // option 1 keeps nothing of the saved lines
  EXPECT_TRUE(fenetre.PatronCharge && fenetre.Voyants[9]);
  EXPECT_FALSE(fenetre.Voyants[3] || fenetre.Voyants[10] || fenetre.UnInstant.Visible);
  EXPECT_EQ(fenetre.LblIndiqueLigneRendu[11].Caption, "0007");
  Commande(10);
  EXPECT_EQ(port.numero, 3);
  EXPECT_EQ(port.Tout(), Cadre24(Wif(6)));  // in reverse
}

TEST_F(Sauvegarde, WeavingOnAfterAResumeInEachOption) {
  // Weaves `avant` picks of the option; then on, or saved and resumed in a new process. Gives what came
  // after.
  const auto tisser = [this](const char *option, int avant, bool arret, auto &&encore) {
    Demarrer();
    EcrireFichier("Resume.Trm", "");
    Configurer({{5, option}, {7, "1"}});
    Ouvrir(chemin);
    Configurer({{5, option}, {7, "1"}});
    Commande(10);
    for (int i = 1; i < avant; ++i) Rapport();
    if (arret) {
      Commande(2);
      Demarrer();
      Commande(3);
      Commande(10);
    } else {
      port.ecrits.clear();
      Rapport();
    }
    encore();
    for (int i = 0; i < 70; ++i) Rapport();
    return port.ecrits;
  };
  const auto rien = [] {};
  EXPECT_EQ(tisser("Pattern", 8, true, rien), tisser("Pattern", 8, false, rien));

  // The tabby lines are not known yet when the plan of a new process is built: those picks lift nothing.
  const auto toile = tisser("Tabby", 8, true, rien);
  for (const std::string &t : toile) ASSERT_EQ(t, Cadre24(std::string()));
  const auto retoile = [this] {
    Commande(4);
    port.ecrits.clear();
  };
  EXPECT_EQ(tisser("Tabby", 8, true, retoile), tisser("Tabby", 8, false, retoile));

  const auto melange = tisser("Pattern and Tabby", 9, true, rien);
  constexpr int c = 10,
                dernier = 2 * 30 - c + 2;  // pick 1 was the one at which weaving began: the cursor is at 10
  EXPECT_EQ(session.NombreDuites, dernier);
  const auto toileA = std::string("TabbyA=1,3,5,7,9,11,13,15,17,19,21,23"),
             toileB = std::string("TabbyB=2,4,6,8,10,12,14,16,18,20,22,24");
  for (std::size_t i = 0; i < melange.size(); ++i) {
    const int n = (c + static_cast<int>(i)) % dernier + 1;
    std::string ligne;  // the plan of the first process, then the one built at the cursor
    if (n <= c - 2)
      ligne = n % 2 == 0 ? Wif(n / 2) : n % 4 == 1 ? toileA : toileB;
    else if ((n - c) % 2 != 0)
      ligne = Wif(c + (n - c - 1) / 2);
    EXPECT_EQ(melange[i], Cadre24(ligne)) << n;
  }
}

TEST_F(Sauvegarde, ResumeOfAPatternThatChanged) {
  const auto reprendre = [&](const V &restes) {
    EcrireProjet(Entete(chemin, {30, 1, 24, 11, 1, 0, 0, 25, 0}), restes);
    Demarrer();
    Commande(3);
  };
  Motif(Lignes(50));
  reprendre(lignes);
  EXPECT_EQ(session.NombreDuites, 50);
  Motif(Lignes(20));  // shorter: the cursor waits for the next wrap
  reprendre(lignes);
  EXPECT_EQ(session.DuiteCourante, 25);
  Commande(10);
  EXPECT_EQ(port.Tout(), Cadre24(Wif(1)));
  EXPECT_TRUE(pf.messages.empty());
  for (bool present : {true, false}) {  // without a plan, or gone: told, and the lines decide the rest
    if (present) EcrireFichier("motif.wif", "[WIF]\n");
    if (!present) std::filesystem::remove(chemin);
    reprendre(lignes);
    EXPECT_EQ(pf.messages, V{"\r\n This file : \r\n does not have a lift plan."});
    EXPECT_LT(session.NombreDuites, 1);
    EXPECT_EQ(fenetre.PatronCharge, !present);
    EXPECT_EQ(fenetre.UnInstant.Visible, present);  // a failed resume leaves it
  }
}

TEST_F(Sauvegarde, ResumeOfTheSmallLoom) {
  EcrireProjet(Entete(chemin, {30, 1, 16, 11, 1, 0, 0, 3, 0}), lignes);
  Commande(3);
  EXPECT_EQ(pf.messages, V{"Error|  Error 16 Harnesses only"});
  EXPECT_EQ(session.NombreLames, 16);
  EXPECT_EQ(fenetre.BitsDuite[4].size(), 16u);
  EXPECT_FALSE(fenetre.CheckSelenoide[17].Visible);
  Commande(10);
  EXPECT_EQ(port.reglages, "9600,N,8,1");
  Rapport("[CC] [CC]");
  Commande(9);
  // Picks 4=5,12 and 5=6,14: harnesses 9 to 16 do not go out, the byte of 1 to 8 stands twice.
  EXPECT_EQ(port.ecrits, (V{"RELEASE\nSET PATTERN 0x1010\nPUSH PATTERN\n",
                            "RELEASE\nSET PATTERN 0x2020\nPUSH PATTERN\n", "RELEASE\r", "\x1BR\r\n"}));
  Commande(18);
  Commande(20);
  EXPECT_EQ(port.ecrits.back(), "TEST\r");
}

TEST_F(Sauvegarde, DamagedProjectsEndInAReportAtMost) {
  std::mt19937 hasard(11);
  const int valeurs[] = {0, 1, -1, 2, 3, 8, 16, 24, 32, 33, 40, 300, 2501, 7001, 32767, -32768};
  std::map<int, int> fins;
  for (int tour = 0; tour < 150; ++tour) {
    std::string entete = Entete(tour % 5 ? chemin : "/nowhere", {30, 1, 24, 11, 1, 0, 0, 3, 0});
    for (int k = 0; k < 3; ++k)
      entete.replace(263 + hasard() % 9 * 2, 2, Mots({valeurs[hasard() % std::size(valeurs)]}));
    std::string restes(hasard() % 900, '\0');
    for (char &c : restes) c = static_cast<char>(hasard());
    if (tour % 7 == 0)
      for (char &c : entete) c = static_cast<char>(hasard());
    Demarrer();
    EcrireFichier("Resume.Trm", entete);
    EcrireFichier("Resume2.Trm", restes);
    ++fins[Echec([] { Commande(3); })];
  }
  for (const auto &[numero, fois] : fins)
    EXPECT_TRUE(numero == 0 || numero == 5 || numero == 6 || numero == 9) << numero << ": " << fois;
  EXPECT_GT(fins[0], 40);
}
