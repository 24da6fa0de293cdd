// The three files that outlive the process, against bytes written by hand.
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <bit>
#include <chrono>
#include <random>

#include "commands/RepriseProjet.h"
#include "saved/FichierConfiguration.h"
#include "saved/TailleFenetre.h"
#include "tests/Banc.h"

namespace {
std::string Remplir(std::string texte, std::size_t longueur) {
  texte.resize(longueur, ' ');
  return texte;
}

std::string Hasard(std::mt19937 &hasard, std::size_t longueur) {
  std::string s(hasard() % longueur, '\0');
  for (char &c : s) c = static_cast<char>(hasard());
  return s;
}

class Sauvegarde : public Banc {
 protected:
  void SetUp() override {
    Banc::SetUp();
    EcrireFichier("Configuration.Con", Mots({2, 24, 11, 0, 1, 0, 1, 0, 0, 0}));
    LancerProgramme();
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
  void Reprendre(const std::string &entete, const std::string &restes) {
    EcrireFichier("Resume.Trm", entete);
    EcrireFichier("Resume2.Trm", restes);
    LancerProgramme();
    Commander(Commande::Reprendre);
  }
  V lignes;
  std::string chemin;
};
const char *const kAbsent = "Error|File not found";
}  // namespace

TEST_F(Sauvegarde, ConfigurationByteForByte) {
  Configurer({{1, "COM 4"}, {4, "Up"}, {5, "Tabby"}, {6, "Reverse"}, {7, "17"}, {8, "Tabby A"}});
  EXPECT_EQ(Hexa(LireFichier("Configuration.Con")), Hexa(Mots({4, 24, 11, -1, 2, -1, 17, -1, 0, 0})));
  Commander(Commande::BasculerBulles);
  fenetre.Drapeau[1].Click();
  Commander(Commande::Quitter);
  EXPECT_TRUE(pf.termine);
  EXPECT_EQ(Hexa(LireFichier("Configuration.Con")), Hexa(Mots({4, 24, 11, -1, 2, -1, 17, -1, -1, -1})));
  LancerProgramme();
  EXPECT_TRUE(session.LangueFrancaise && session.BullesActives && session.DirectionDeroulement);

  const std::string plein =
      EcrireFichier("Configuration.Con", Mots({3, 16, 7, -1, 1, -1, 0x0205, -1, -1, 0}) + "tail");
  ASSERT_EQ(chmod(plein.c_str(), 0444), 0);
  Recommencer();
  LireConfiguration();
  EcrireConfiguration();
  EXPECT_EQ(Hexa(LireFichier("Configuration.Con")),
            Hexa(Mots({3, 24, 7, -1, 1, -1, 0x0205, -1, -1, 0}) + "tail"));
}

TEST_F(Sauvegarde, ConfigurationMissingOrUnusable) {
  const auto lancer = [this] {
    Recommencer();
    Form_Load();
    return Messages();
  };
  std::filesystem::remove(Data("Configuration.Con"));
  EXPECT_EQ(lancer(), V(3, kAbsent));
  EXPECT_EQ(std::filesystem::file_size(Data("Configuration.Con")), 0u);
  EXPECT_EQ(session.PortMetier, 0);
  EXPECT_EQ(session.NombreLames, 24);
  EXPECT_EQ(lancer(), V{});

  std::filesystem::remove_all(Data(""));
  V attendu(3, "Error|Path not found");
  attendu.push_back("Error|L'erreur # 76 a été générée par Brandis\rPath not found");
  EXPECT_EQ(lancer(), attendu);
}

TEST_F(Sauvegarde, ConfigurationOfAnyLengthAndContent) {
  const std::string plein = Mots({3, 16, 0x0107, -1, 1, -1, 0x0205, -1, -1, 0});
  for (std::size_t n = 1; n < 20; ++n) {
    EcrireFichier("Configuration.Con", plein.substr(0, n));
    Recommencer();
    LireConfiguration();
    EXPECT_EQ(session.PortMetier, 3);
    EXPECT_EQ(session.DuitesActives, n < 5 ? 0 : n == 5 ? 7 : 0x0107);
    EXPECT_EQ(session.DuiteCourante, n < 13 ? 0 : n == 13 ? 5 : 0x0205) << n;
    EXPECT_EQ(session.BullesActives, n > 16);
  }
  std::mt19937 hasard(7);
  for (int tour = 0; tour < 120; ++tour) {
    std::string octets = Hasard(hasard, 40);
    if (tour % 2 && octets.size() > 13) octets.replace(8, 2, Mots({1 + tour / 2 % 3}));
    EcrireFichier("Configuration.Con", octets);
    ASSERT_EQ(Echec([&] { LancerProgramme(); }), 0) << Hexa(octets);
    EXPECT_EQ(session.NombreLames, 24);
    Ouvrir(chemin);
    EXPECT_EQ(session.DuiteCourante, 30);
  }
}

TEST_F(Sauvegarde, SaveByteForByte) {
  lignes[2] = "  3=" + std::string(70, '0') + "1,2";  // bytes as they are, cut at 70
  chemin = Motif(lignes);
  EcrireFichier("Resume.Trm", "an old one");
  Configurer({{4, "Up"}, {8, "Tabby A"}});
  Ouvrir(chemin);
  Commander(Commande::Demarrer);
  Rapports(4);
  Ecrits();
  session.CheminWif = " " + chemin + " ";  // stored trimmed, kept as it is
  Commander(Commande::Enregistrer);
  EXPECT_EQ(session.CheminWif, " " + chemin + " ");
  EXPECT_EQ(Hexa(LireFichier("Resume.Trm")), Hexa(Entete(chemin, {30, 2, 24, 11, 1, 0, -1, 5, -1})));
  EXPECT_EQ(LireFichier("Resume2.Trm"), Enregistrements(lignes));
  V messages(3, kAbsent);
  messages.push_back("Enregistrer le projet|2025-11-22| " + chemin +
                     " |Sauvegarde dans le fichier: Resume2.Trm|Ligne Rendu:  5| | ");
  EXPECT_EQ(Messages(), messages);
  EXPECT_EQ(Ecrits(), V{kLiberer});
  EXPECT_FALSE(fenetre.TissageEnCours || fenetre.PortOuvert);
  EXPECT_EQ(fenetre.Timer3.Interval(), 100);

  // A shorter project leaves the records behind it.
  V reste = Lignes(12);
  Ouvrir(Motif(reste, "court.wif"));
  Commander(Commande::Demarrer);
  Commander(Commande::Enregistrer);
  reste.insert(reste.end(), lignes.begin() + 12, lignes.end());
  EXPECT_EQ(LireFichier("Resume2.Trm"), Enregistrements(reste));
}

TEST_F(Sauvegarde, SaveThatCannotWrite) {
  Ouvrir(chemin);
  Commander(Commande::Demarrer);
  EcrireFichier("Resume2.Trm", "");
  Commander(Commande::Enregistrer);  // no header to delete: none is written, and the confirmation comes all
                                     // the same
  V messages = Messages();
  ASSERT_EQ(messages.size(), 3u);
  EXPECT_EQ(messages[0], "Error");
  EXPECT_EQ(messages[1].rfind("Enregistrer le projet", 0), 0u);
  EXPECT_EQ(messages[2], "Error|The save failed: no project is saved.");
  EXPECT_FALSE(std::filesystem::exists(Data("Resume.Trm")) ||
               fenetre.BoutonProgramme[Commande::Enregistrer].Visible);
  EXPECT_EQ(LireFichier("Resume2.Trm"), "");

  // Neither a link nor a folder is written to, and nothing else is either.
  const std::string ailleurs = EcrireFichier("elsewhere", "precious"), entete = Entete(chemin, {30, 1});
  for (const std::string nom : {"Resume.Trm", "Resume2.Trm"}) {
    Commander(Commande::Demarrer);
    EcrireFichier("Resume.Trm", entete);
    std::filesystem::remove(Data(nom));
    if (nom == "Resume.Trm") std::filesystem::create_symlink(ailleurs, Data(nom));
    if (nom == "Resume2.Trm") std::filesystem::create_directory(Data(nom));
    Messages();
    Commander(Commande::Enregistrer);
    const std::string erreur = "L'erreur # 75 a été générée par Brandis\rPath/File access error";
    EXPECT_EQ(Messages(), (V{"Error|" + erreur, "Error|The save failed: no project is saved.\r" + erreur}))
        << "what was not read is not said to stand";
    EXPECT_TRUE(std::filesystem::is_symlink(Data(nom)) || LireFichier("Resume.Trm") == entete);
    EXPECT_FALSE(fenetre.TissageEnCours);
    EXPECT_TRUE(fenetre.PortOuvert && fenetre.BoutonProgramme[Commande::Enregistrer].Visible &&
                fenetre.BoutonProgramme[Commande::TisserToile].Visible);
    std::filesystem::remove(Data("Resume.Trm"));
  }
  EXPECT_EQ(LireFichier("elsewhere"), "precious");
}

TEST_F(Sauvegarde, ACopyThatIsFoundCountsWhenItIsWhole) {
  const std::string entete = Entete(chemin, {30, 1, 24, 11, 1, 0, 0, 5, 0}), restes = Enregistrements(lignes);
  EcrireFichier("Resume.Trm", entete);
  EcrireFichier("Resume2.Trm", restes);
  MettreDeCote();
  const std::string copie = LireFichier("Reprise.Avant");
  const auto chercher = [&](const std::string &contenu) {
    EcrireFichier("Resume.Trm", std::string(281, 'x'));
    EcrireFichier("Resume2.Trm", "torn");
    const std::string nom = EcrireFichier("Reprise.Avant", contenu);
    const auto age = std::chrono::hours(contenu.size() % 2 ? 100 : -100);  // whatever its date says
    std::filesystem::last_write_time(nom, std::filesystem::file_time_type::clock::now() + age);
    EXPECT_EQ(chmod(nom.c_str(), 0400), 0);
    LancerProgramme();
    EXPECT_TRUE(RetablirProjet());
    EXPECT_FALSE(std::filesystem::exists(nom));
    return Messages();
  };
  EXPECT_EQ(chercher(copie), V{"Error|The last save was cut off: the save before stands."});
  EXPECT_EQ(LireFichier("Resume.Trm"), entete);
  EXPECT_EQ(LireFichier("Resume2.Trm"), restes);

  std::string change = copie;
  change.back() ^= 1;
  for (const std::string &abimee : {std::string(), copie.substr(0, 20), copie.substr(0, copie.size() - 1),
                                    copie + "x", change, "brandis-reprise-1 99999999999 -7 0\n" + copie}) {
    EXPECT_EQ(chercher(abimee), V{"Error|The copy of the save before is damaged: it is left out."});
    EXPECT_EQ(LireFichier("Resume2.Trm"), "torn");
    EXPECT_EQ(LireFichier("Reprise.Ecartee"), abimee);
  }

  // Resume puts back first; where it cannot, it reads nothing.
  for (bool possible : {true, false}) {
    EcrireFichier("Resume.Trm", "");
    EcrireFichier("Reprise.Avant", copie);
    std::filesystem::remove(Data("Resume2.Trm"));
    if (!possible) std::filesystem::create_directory(Data("Resume2.Trm"));
    LancerProgramme();
    session.CheminWif = "open";
    Commander(Commande::Reprendre);
    EXPECT_EQ(session.CheminWif, possible ? chemin : "open");
    EXPECT_EQ(Messages().back(),
              possible ? "Error|The last save was cut off: the save before stands."
                       : "Error|L'erreur # 75 a été générée par Brandis\rPath/File access error");
    EXPECT_EQ(fenetre.PatronCharge && session.DuiteCourante == 5, possible);
    EXPECT_EQ(std::filesystem::exists(Data("Reprise.Avant")), !possible);
  }
}

TEST_F(Sauvegarde, QuitWaitsUntilItsFailureIsRead) {
  const std::string ailleurs = EcrireFichier("elsewhere", "precious");
  std::filesystem::remove(Data("Configuration.Con"));
  std::filesystem::create_symlink(ailleurs, Data("Configuration.Con"));
  for (bool deuxFois : {false, true}) {
    LancerProgramme();
    pf.termine = false;
    Messages();
    bool lue = false;
    pf.pendantModal = [&](Fenetre &f) {
      lue = true;
      EXPECT_EQ(&f, &fenetreMessageCourt);
      EXPECT_EQ(fenetreMessageCourt.Timer1.Interval(), 0);
      EXPECT_FALSE(pf.termine);
      if (deuxFois) Commander(Commande::Quitter);  // asked from outside meanwhile
      EXPECT_EQ(pf.termine, deuxFois);
    };
    Commander(Commande::Quitter);
    EXPECT_TRUE(lue && pf.termine);
    EXPECT_EQ(Messages().at(0), "Error|L'erreur # 75 a été générée par Brandis\rPath/File access error");
  }
  EXPECT_EQ(LireFichier("elsewhere"), "precious");
}

TEST_F(Sauvegarde, ResumeWithoutARecordIsSilent) {
  for (std::size_t octets : {0u, 280u}) {
    std::filesystem::remove(Data("Resume.Trm"));
    if (octets > 0) EcrireFichier("Resume.Trm", std::string(octets, 'x'));
    Commander(Commande::Reprendre);
    EXPECT_TRUE(pf.messages.empty());
    EXPECT_EQ(session.CheminWif, "");
    EXPECT_FALSE(fenetre.UnInstant.Visible || fenetre.PatronCharge || fenetre.Voyants[Commande::Reprendre]);
    EXPECT_EQ(LireFichier("Resume.Trm").size(), octets);
  }
}

TEST_F(Sauvegarde, ResumeTakesTheFieldsFromTheirPlaces) {
  Reprendre(Entete(chemin, {30, 3, 24, 5, 1, -1, -1, 7, -1}, 40000) + "behind",
            Enregistrements({"  1=5,6 ", "2=7,8"}) + "half a record");
  EXPECT_TRUE(pf.messages.empty());
  EXPECT_EQ(session.DateProjet, 40000);
  EXPECT_EQ(session.DuitesActives, 11);
  EXPECT_TRUE(session.DirectionTissage && session.DirectionDeroulement && session.ToileDepart);
  EXPECT_EQ(session.DuiteCourante, 7);
  EXPECT_EQ(session.LignesTravail[1], lignes[0]);  // option 1 keeps nothing of the saved lines
  EXPECT_TRUE(fenetre.PatronCharge && fenetre.Voyants[Commande::Arreter]);
  EXPECT_EQ(fenetre.LblIndiqueLigneRendu[11].Caption, "0007");
  Commander(Commande::Demarrer);
  EXPECT_EQ(port.numero, 3);
  EXPECT_EQ(Ecrits(), V{Cadre24(lignes[5])});  // in reverse
}

TEST_F(Sauvegarde, ResumeOfAPatternThatChanged) {
  const std::string entete = Entete(chemin, {30, 1, 24, 11, 1, 0, 0, 25, 0}),
                    restes = Enregistrements(lignes);
  Motif(Lignes(20));  // shorter: the cursor waits for the next wrap
  Reprendre(entete, restes);
  EXPECT_EQ(session.DuiteCourante, 25);
  Commander(Commande::Demarrer);
  EXPECT_EQ(Ecrits(), V{Cadre24(lignes[0])});
  EXPECT_TRUE(pf.messages.empty());
  for (bool present : {true, false}) {  // without a plan, or gone: told, and the lines decide the rest
    if (present) EcrireFichier("motif.wif", "[WIF]\n");
    if (!present) std::filesystem::remove(chemin);
    Reprendre(entete, restes);
    EXPECT_EQ(Messages(), V{kSansPlan});
    EXPECT_LT(session.NombreDuites, 1);
    EXPECT_EQ(fenetre.PatronCharge, !present);
    EXPECT_EQ(fenetre.UnInstant.Visible, present);  // a failed resume leaves it
  }
}

TEST_F(Sauvegarde, DamagedProjectsEndInAReportAtMost) {
  std::mt19937 hasard(11);
  const int valeurs[] = {0, 1, -1, 2, 3, 8, 16, 24, 32, 33, 40, 300, 2501, 7001, 32767, -32768};
  std::map<int, int> fins;
  for (int tour = 0; tour < 150; ++tour) {
    std::string entete = Entete(tour % 5 ? chemin : "/nowhere", {30, 1, 24, 11, 1, 0, 0, 3, 0});
    for (int k = 0; k < 3; ++k)
      entete.replace(263 + hasard() % 9 * 2, 2, Mots({valeurs[hasard() % std::size(valeurs)]}));
    if (tour % 7 == 0) entete = Hasard(hasard, 400);
    ++fins[Echec([&] { Reprendre(entete, Hasard(hasard, 900)); })];
  }
  for (const auto &[numero, fois] : fins)
    EXPECT_TRUE(numero == 0 || numero == 5 || numero == 6 || numero == 9) << numero << ": " << fois;
  EXPECT_GT(fins[0], 40);
}

TEST_F(Sauvegarde, TheSizeOfTheWindowIsKeptAndADamagedFileIsNoSize) {
  const std::string ici = pf.dossier;
  EXPECT_EQ(LireTailleFenetre(ici), 100) << "nothing kept yet";
  for (const int taille : kTaillesFenetre) {
    GarderTailleFenetre(ici, taille);
    EXPECT_EQ(LireTailleFenetre(ici), taille);
  }
  for (const char *abime :
       {"", "150", "150\n150\n", "175\n", "-200\n", "99999999999999999999\n", "1.5\n", "\xff\n"}) {
    EcrireFichier("Taille.txt", abime);
    EXPECT_EQ(LireTailleFenetre(ici), 100) << abime;
  }
  std::filesystem::remove(ici + "/Data/Taille.txt");
  std::filesystem::create_directory(ici + "/Data/Taille.txt");
  EXPECT_EQ(LireTailleFenetre(ici), 100) << "a folder of that name";
  EXPECT_THROW(GarderTailleFenetre(ici, 125), ErreurExecution);
}

TEST(TailleFenetre, NeverMoreThanTheScreenHolds) {
  const auto tenue = [](int l, int h) { return TailleTenue(200, l, h); };
  EXPECT_EQ(tenue(640, 480), 100) << "a screen lower than the window itself";
  EXPECT_EQ(tenue(1366, 768), 100);
  EXPECT_EQ(tenue(1920, 798), 125);
  EXPECT_EQ(tenue(1920, 797), 100) << "one row is missing";
  EXPECT_EQ(tenue(1920, 1080), 150);
  EXPECT_EQ(tenue(1615, 2000), 150) << "a screen that stands";
  EXPECT_EQ(tenue(3840, 2160), 200);
  EXPECT_EQ(TailleTenue(125, 3840, 2160), 125) << "nor more than is wanted";
  EXPECT_EQ(TailleVoisine(100, -1), 100);
  EXPECT_EQ(TailleVoisine(TailleVoisine(100, 1), 1), 150);
  EXPECT_EQ(TailleVoisine(200, 1), 200);
  EXPECT_EQ(TailleVoisine(200, -1), 150);
}
