// Files of other makers, made weavable by brandis-motifs and opened by the loom's program: every shed as the
// file says.
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cstdlib>
#include <random>

#include "motifs/Constats.h"
#include "motifs/FormeTissable.h"
#include "motifs/LectureMotif.h"
#include "motifs/Levees.h"
#include "motifs/Projet16.h"
#include "tests/Banc.h"

namespace fs = std::filesystem;

namespace {
using Foules = std::vector<std::set<int>>;

class Conversion : public BancConfigure {
 protected:
  // The program's answer; its words go into `dit`.
  int Lancer(const std::string &mots, const std::string &langue = "C") {
    const std::string journal = pf.dossier + "/dit";
    const int etat =
        std::system(("LC_ALL=" + langue + " LSAN_OPTIONS=" BRANDIS_FUITES " " BRANDIS_MOTIFS " " + mots +
                     " >" + journal + " 2>&1")
                        .c_str());
    dit = Lire(journal);
    return WIFEXITED(etat) ? WEXITSTATUS(etat) : -1;
  }
  // The plan in force has these sheds.
  static void ExpectBits(const Foules &foules) {
    ASSERT_EQ(session.NombreDuites, static_cast<int>(foules.size()));
    const auto lames = static_cast<std::size_t>(int{session.NombreLames});
    for (int d = 1; d <= session.NombreDuites; ++d) {
      std::string bits(lames, '0');
      for (int l : foules[static_cast<std::size_t>(d - 1)]) bits[lames - static_cast<std::size_t>(l)] = '1';
      EXPECT_EQ(fenetre.BitsDuite[d], bits) << "pick " << d;
    }
  }
  void ExpectFoules(const std::string &chemin, const Foules &foules) {
    SCOPED_TRACE(chemin);
    Ouvrir(chemin);
    ASSERT_TRUE(Messages().empty());
    ExpectBits(foules);
    EXPECT_FALSE(fenetre.DansLiftplan);  // the next file is read from its own plan on
  }
  // The sheds that a file is known to hold, a line each.
  Foules FoulesDe(const std::string &nom) const {
    std::stringstream texte(Lire(fichiers + "/../foules/" + nom + ".txt"));
    Foules foules;
    for (std::string l; std::getline(texte, l);) foules.push_back(LamesDe(l));
    return foules;
  }

  // The harnesses that the last pick frame on the line raises, from the wire format alone.
  Lames Levees() {
    for (; !port.ecrits.empty(); port.ecrits.pop_back()) {
      const std::string &t = port.ecrits.back();
      const auto octet = [&](std::size_t i) { return Lames{static_cast<unsigned char>(t[i])}; };
      if (t.size() == 16 && t.rfind("\033R\r\n\033I", 0) == 0)
        return octet(6) | octet(7) << 8 | octet(8) << 16 | octet(9) << 24;
      const auto motif = t.find("SET PATTERN 0x");
      if (motif != std::string::npos) return std::strtoull(t.c_str() + motif + 14, nullptr, 16);
    }
    ADD_FAILURE() << "no frame";
    return 0;
  }
  // Opens and starts a file on a loom, and gives what each of its picks raises.
  std::vector<Lames> Tisser(const std::string &chemin, int lames) {
    if (lames == 16) {  // only a project holds 16 for longer than a plan
      const ::Motif motif = LireMotif(chemin);
      InstallerProjet16(ComposerProjet16(motif, chemin, 45983, ""), pf.dossier + "/Data");
      LancerProgramme();
      Commander(Commande::Reprendre);
    } else {
      LancerProgramme();
      Configurer({{1, "COM 1"}, {5, "Pattern"}});
      Ouvrir(chemin);
    }
    EXPECT_EQ(session.NombreLames, lames);
    std::vector<Lames> levees;
    Commander(Commande::Demarrer);
    for (int d = 1; d <= session.NombreDuites; ++d) {
      EXPECT_EQ(session.DuiteCourante, d);
      levees.push_back(Levees());
      Rapport(lames == 16 ? "[CC]" : kRapport);
    }
    Commander(Commande::Arreter);
    return levees;
  }

  const std::string fichiers = BRANDIS_FICHIERS;
  std::string dit;
};
}  // namespace

// Also of files drawn by lot and written as wildly as the format allows, whose sheds were known before them.
TEST_F(Conversion, EveryFileShedForShed) {
  fs::create_directory(pf.dossier + "/encore");
  int vus = 0;
  for (const auto &entree : fs::directory_iterator(fichiers)) {
    const std::string chemin = entree.path(), sorti = Data(entree.path().filename());
    const int etat = Fautes(LireMotif(chemin)).empty() ? 0 : 1;
    ASSERT_EQ(Lancer("convertir '" + chemin + "' --vers " + pf.dossier + "/Data"), etat) << dit;
    const Foules foules = FoulesDe(entree.path().stem());
    ASSERT_FALSE(foules.empty()) << chemin;
    ExpectFoules(sorti, foules);
    // The form is its own form.
    ASSERT_EQ(Lancer("convertir '" + sorti + "' --vers " + pf.dossier + "/encore"),
              Fautes(LireMotif(sorti)).empty() ? 0 : 1)
        << dit;
    EXPECT_EQ(Lire(sorti), Lire(pf.dossier + "/encore/" + entree.path().filename().string()));
    ++vus;
  }
  EXPECT_EQ(vus, 30);
}

// What is said before writing is what the frames on the line raise, on either loom: for files of all kinds,
// and for sheds drawn by lot on up to 24 harnesses.
TEST_F(Conversion, FramesRaiseWhatIsReckoned) {
  std::vector<std::string> tous;
  for (const auto &entree : fs::directory_iterator(fichiers)) tous.push_back(entree.path());
  for (const auto &entree : fs::directory_iterator(fichiers + "/../../Data")) tous.push_back(entree.path());
  std::mt19937 h(3);
  for (int i = 0; i < 24; ++i) {
    const unsigned lames = 1 + static_cast<unsigned>(i) % 24;
    std::string texte = "[WIF]\n[THREADING]\n1=1\n2=" + std::to_string(lames) + "\n[LIFTPLAN]\n";
    for (int d = 1; d <= 12; ++d) {
      texte += std::to_string(d) + "=";
      for (unsigned l = 1; l <= lames; ++l)
        if (h() % 2) texte += std::to_string(l) + ",";
      texte += "0\n";
    }
    tous.push_back(EcrireFichier("hasard" + std::to_string(i) + ".wif", texte));
  }
  int autrement = 0;
  for (const std::string &chemin : tous) {
    const ::Motif motif = LireMotif(chemin);
    const std::string sorti = Data("tisse.wif");
    std::ofstream(sorti, std::ios::binary) << FormeTissable(motif);
    for (int lames : {16, 24}) {
      const Lames usage = LamesEnUsage(motif);
      if (PlusHaute(usage) > lames) continue;
      SCOPED_TRACE(chemin + " on " + std::to_string(lames));
      const std::vector<Lames> vues = Tisser(sorti, lames);
      ASSERT_EQ(vues.size(), motif.foules.size());
      int differentes = 0, premiere = 0;
      for (std::size_t d = 0; d < vues.size(); ++d) {
        EXPECT_EQ(vues[d], LeveesParLeMetier(motif.foules[d], lames)) << "pick " << d + 1;
        if ((vues[d] & usage) != motif.foules[d] && ++differentes == 1) premiere = static_cast<int>(d) + 1;
      }
      const LeveesAutrement dites = ComparerLevees(motif, lames);
      EXPECT_EQ(dites.nombre, differentes);
      EXPECT_EQ(dites.duites.empty() ? 0 : dites.duites.front(), premiere);
      autrement += differentes > 0;
    }
  }
  EXPECT_GT(autrement, 20);
}

// The same for files that are opened as they stand.
TEST_F(Conversion, ReadAsTheyStand) {
  const std::string cas[] = {"1=1,2\n2=2\n3=3,3\n", "1=1,2\n\n   \n2=4,4\n",       "2=1,2\n1=3,4\n",
                             "1=1,2,\n2=2.5,1\n",   "1=1,2\n2=x,3\n3= 4 , 1 2 \n", "1=1,2\n5=1,2\n",
                             "1=1,2\n1=3,4\n"};
  for (const std::string &plan : cas) {
    SCOPED_TRACE(plan);
    const std::string chemin = EcrireFichier("tel.wif", "[WIF]\n[LIFTPLAN]\n" + plan + "[WEAVING]\n");
    ::Motif motif;
    try {
      motif = LireMotif(chemin);
    } catch (const Refus &) {  // drawn nowhere: any plan will do to compare with
      motif = ComprendreMotif("[WIF]\n[LIFTPLAN]\n1=1,2\n2=9\n", chemin);
      motif.octets = std::make_shared<const std::string>(Lire(chemin));
    }
    LancerProgramme();
    Configurer({{1, "COM 1"}, {5, "Pattern"}});
    Ouvrir(chemin);
    int autrement = std::max(0, motif.Duites() - int{session.NombreDuites});
    for (int d = 1; d <= session.NombreDuites; ++d) {
      const Lames bits = std::strtoull(fenetre.BitsDuite[d].c_str(), nullptr, 2);
      autrement += d > motif.Duites() || bits != motif.foules[static_cast<std::size_t>(d - 1)];
    }
    const TelQuel t = LireTelQuel(motif);
    EXPECT_TRUE(t.plan);
    EXPECT_EQ(t.autrement, autrement);
  }
}

// What stands in the file beside the plan stays for other programs, byte for byte.
TEST_F(Conversion, KeepsWhatIsNotThePlan) {
  ASSERT_EQ(Lancer("convertir " + fichiers + "/latin1-sans-comptes.wif " + fichiers +
                   "/tables-derriere.wif --vers " + pf.dossier + "/Data"),
            1);
  const std::string a = LireFichier("latin1-sans-comptes.wif"), b = LireFichier("tables-derriere.wif");
  for (const char *reste :
       {"Title=Fa\xE7onn\xE9 d'\xE9t\xE9\r\n", "2=[attention] voir aussi = la planche\r\n",
        "[PRIVATE METIER A FACON SOURCE]\r\n\xC9"
        "cran=3\r\n",
        "\r\n[THREADING]\r\n1=1\r\n", "TEXT=true\r\n", "[WEFT]\r\nThreads=7\r\nColor=2\r\n",
        "\r\n5=5,5\r\n6=0,0\r\n"})
    EXPECT_NE(a.find(reste), std::string::npos) << reste << "\n" << a;
  EXPECT_NE(b.find("[COLOR TABLE]\r\n1=65535,65535,65535\r\n"), std::string::npos);
  EXPECT_LT(b.find("[PRIVATE DOBBY STUDIO]\r\nzoom=4"), b.find("[LIFTPLAN]"));
}

// A 16-harness loom begins with a project that the program cannot make by itself.
TEST_F(Conversion, ProjectOfSixteenHarnesses) {
  const std::string serge = fichiers + "/serge-1.0.wif", dossier = " --vers " + pf.dossier + "/Data";
  EcrireFichier("Configuration.Con", Mots({3, 24, 11, 0, 3, -1, 9, 0, -1, 0}));
  EcrireFichier("Resume.Trm", "ancien");
  EcrireFichier("Resume2.Trm", "anciennes lignes");
  EcrireFichier("Reprise.Avant", "brandis-reprise-1 -1 -1 14695981039346656037\n");  // would empty the slot
  ASSERT_EQ(Lancer("projet16 " + serge + dossier), 0) << dit;
  EXPECT_EQ(LireFichier("Resume.Trm").size(), 281u);
  EXPECT_EQ(LireFichier("Resume2.Trm").size(), 8 * 70u);
  int gardes = 0;
  for (const auto &e : fs::directory_iterator(pf.dossier + "/Data")) {
    const std::string nom = e.path().filename();
    if (nom.find(" 20") == std::string::npos) continue;
    if (nom[2] == 's') {
      EXPECT_EQ(LireFichier(nom), nom.find("Resume2") == 0 ? "anciennes lignes" : "ancien") << nom;
    }
    ++gardes;
  }
  EXPECT_EQ(gardes, 3);

  LancerProgramme();
  Commander(Commande::Reprendre);
  EXPECT_EQ(Messages(), V{"Error|  Error 16 Harnesses only"});  // told to every project of 16, which goes on
  EXPECT_EQ(session.NombreLames, 16);
  EXPECT_EQ(session.PortMetier, 3);
  EXPECT_EQ(session.OptionTissage, 1);
  EXPECT_FALSE(session.DirectionTissage);
  ExpectBits(FoulesDe("serge-1.0"));
  Commander(Commande::Demarrer);
  EXPECT_EQ(session.DuiteCourante, 1);
  EXPECT_EQ(Ecrits().back(), "RELEASE\nSET PATTERN 0x0303\nPUSH PATTERN\n");

  // Begun at another pick, and with tabby: as Brandis then does it.
  fs::remove(Data("Configuration.Con"));
  ASSERT_EQ(Lancer("project16 --pick 5 --port 2 --replace " + serge + dossier), 0) << dit;
  EXPECT_EQ(LireFichier("Resume.Trm").substr(265), Mots({2, 16, 11, 1, 0, 0, 4, -1}));
  LancerProgramme();
  Commander(Commande::Reprendre);
  Commander(Commande::Demarrer);
  EXPECT_EQ(session.DuiteCourante, 5);
  ASSERT_EQ(Lancer("project16 --option 3 --pick 3 " + serge + dossier), 1) << dit;
  EXPECT_NE(dit.find("after Resume the tabby picks are empty"), std::string::npos) << dit;
  LancerProgramme();
  Commander(Commande::Reprendre);
  Commander(Commande::Demarrer);
  EXPECT_EQ(session.LignesTravail[session.DuiteCourante], session.LignesWif[3]);
  EXPECT_EQ(session.LignesTravail[3], "");  // the tabby beside it, which Resume leaves empty
  EXPECT_EQ(Lancer("project16 --pick 9 " + serge + dossier), 2);
  EXPECT_NE(dit.find("pick 9 is not there: 8 picks in all"), std::string::npos) << dit;

  // Brandis is at work in the folder.
  const std::string avant = LireFichier("Resume.Trm");
  const int verrou = open(Data("Brandis.verrou").c_str(), O_RDWR);
  ASSERT_EQ(flock(verrou, LOCK_EX | LOCK_NB), 0);
  EXPECT_EQ(Lancer("projet16 " + serge + dossier), 2);
  EXPECT_NE(dit.find("Data: Brandis is open there; quit it first."), std::string::npos) << dit;
  EXPECT_EQ(LireFichier("Resume.Trm"), avant);
  close(verrou);

  EXPECT_EQ(Lancer("projet16 " + fichiers + "/tables-derriere.wif" + dossier), 2);
  EXPECT_NE(dit.find("harness 24 is raised, and this loom has 16"), std::string::npos) << dit;
  EXPECT_FALSE(fs::exists(Data("tables-derriere.wif")));
}

TEST_F(Conversion, CommandLine) {
  const std::string rosace = fichiers + "/casse-et-blancs-1.2.wif", serge = fichiers + "/serge-1.0.wif",
                    ici = " --vers " + pf.dossier + "/Data ", sortie = pf.dossier + "/Data/s";
  const std::string chevron = fichiers + "/../../Data/Chevron16.Wif",
                    figure = fichiers + "/../../Data/Figure24.Wif";
  const std::string vingt = EcrireFichier(
      "vingt.wif", "[WIF]\n[THREADING]\n1=1\n2=2\n3=20\n4=3\n[LIFTPLAN]\n1=1,20\n2=2,3\n3=1,2\n[WEAVING]\n");
  const std::string ancien = EcrireFichier("serge-1.0.wif", "le mien"), tube = pf.dossier + "/tube";
  ASSERT_EQ(std::system(("mkfifo " + tube).c_str()), 0);
  const std::tuple<std::string, int, std::string> cas[] = {
      {"--help", 0, "project16 FILE"},
      {"verifier --help", 0, "check FILE… [--float N]"},
      {"-x", 2, "\"-x\": no option here"},
      {"convertr " + serge, 2, "neither a file that is there nor a verb; --help names them. convert?"},
      {"/absent", 2, "neither a file that is there nor a verb; --help names them.\n"},
      {"info --vers x " + serge, 2, "\"--vers\": no option here"},
      {"check --float 0 " + serge, 2, "--float: a number from 1"},
      {"convert --to " + tube + " " + serge, 2, "cannot be written"},
      {"verifier " + serge, 0, serge + ": nothing to say."},
      {"verifier --flotte 1 " + serge, 0,
       serge + ": remark: warp floats of 2: 48, first at picks 2 to 3, end 1, below."},
      {"check --float 1 --places " + serge, 0, "\n    picks 8 to 1, over the seam, end 1, above\n"},
      {"verifier --json --flotte 1 " + serge, 0, "\"suite\": 1"},
      {"check --harnesses 17 " + serge, 2, "--harnesses: 16 or 24"},
      {"check " + chevron, 0,
       chevron + ": remark: on 16 harnesses 64 of 64 picks are raised otherwise, first pick 1"},
      {"convert --to " + pf.dossier + " " + fichiers + "/../../Data/Sapins24.Wif", 0, "/Sapins24.wif"},
      {"check --harnesses 16 " + chevron, 1,
       chevron + ": fault: on 16 harnesses 64 of 64 picks are raised otherwise"},
      {"convert" + ici + figure, 1,
       "fault: on 24 harnesses 115 of 200 picks are raised otherwise, first pick 13: "},
      {"convert" + ici + figure, 2, "is there already"},
      {"convert --to " + fichiers + "/../../Data --replace " + figure, 2, "this is the file that is read"},
      {"fit " + figure + " -o " + sortie + ".r", 2, "the ends move in 24 ways, and 16 harnesses go out"},
      {"fit " + vingt + " -o " + sortie + ".r", 0, "harness 20 → 16: 1 end, 3."},
      {"check " + sortie + ".r", 0, ""},
      {"join " + sortie + ".r x2 -o " + sortie + ".r --replace", 2, "this is the file that is read"},
      {"verifier " + serge + " " + rosace, 1, rosace + ": fault: picks 4 to 5: no harness is lifted."},
      {"verifier " + rosace + " " + tube, 2, tube + ": this is not an ordinary file."},
      {"verifier --json /dev/zero", 2, "\"ligne\": 0"},
      {"info " + serge, 0, "Author:             Jeanne Arel"},
      {"info --json " + fichiers + "/latin1-sans-comptes.wif", 0, "\"auteur\": \"Élise Bérubé\""},
      {"convertir" + ici + serge, 2, "Data/serge-1.0.wif: this file is there already"},
      {"convertir" + ici + "--remplacer " + serge + " " + serge, 2, "is there already"},
      {"convertir --vers " + tube + " " + serge, 2, "cannot be written"},
      {"convertir" + ici + "/dev/zero " + rosace, 2, "Data/casse-et-blancs-1.2.wif\n"},
      {"assembler " + serge + " x2 " + rosace + " x3 --separer -o " + sortie, 1, "its threading differs"},
      {"info " + sortie, 0, "Picks:              47"},
      {"assembler " + serge + " x0 -o " + sortie, 2, "x0: a number from 1 to 2500"},
      {"enfilage " + serge + " --groupe 9 -o " + sortie, 2, "--groupe: a number from 1 to 8"},
      {"enfilage " + serge + " -o " + sortie, 2, "is there already"},
      {"enfilage " + serge + " --remplacer -o " + sortie, 0, ""},
      {"info " + sortie, 0, "Picks:              12"},
      {"dessiner " + serge + " -o " + sortie + ".gif", 2, "a picture ends in .png, .svg or .pdf"},
      {"dessiner " + serge, 2, "-o FILE is missing"},
      {"info " + serge + " " + serge, 2, "one file only"},
      {"info --separer " + serge, 2, "\"--separer\": no option here"},
      {"verifier", 2, "the file is missing"}};
  for (const auto &[mots, etat, texte] : cas) {
    EXPECT_EQ(Lancer(mots), etat) << mots << "\n" << dit;
    EXPECT_NE(dit.find(texte), std::string::npos) << mots << "\n" << dit;
  }
  EXPECT_NE(Lire(ancien), "le mien");
  // One name, whatever its case.
  ASSERT_EQ(Lancer("convert" + ici + chevron), 0) << dit;
  fs::rename(Data("Chevron16.wif"), Data("CHEVRON16.WIF"));
  EXPECT_EQ(Lancer("convert" + ici + chevron), 2);
  EXPECT_NE(dit.find("CHEVRON16.WIF: this file is there already"), std::string::npos) << dit;
  EXPECT_EQ(Lancer("convert --replace" + ici + chevron), 0);
  EXPECT_FALSE(fs::exists(Data("Chevron16.wif")));
  EXPECT_FALSE(fs::exists(sortie + ".gif"));
  EXPECT_EQ(Lancer("info /absent", "fr_CA.UTF-8"), 2);
  EXPECT_NE(dit.find("/absent: ce fichier ne peut être lu"), std::string::npos) << dit;
  EXPECT_EQ(Lancer("convertir --help", "fr_CA.UTF-8"), 0);
  EXPECT_EQ(dit.find("projet16"), std::string::npos) << dit;
  EXPECT_NE(dit.find("--vers DOSSIER"), std::string::npos) << dit;
  const char *ecrans[] = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
  for (const char *nom : ecrans) unsetenv(nom);
  EXPECT_EQ(Lancer(serge), 2);
  EXPECT_NE(dit.find("no display for the window"), std::string::npos) << dit;
}

TEST_F(Conversion, Pictures) {
  const std::string sortie = pf.dossier + "/dessin";
  const std::pair<const char *, const char *> genres[] = {
      {".png", "\x89PNG"}, {".SVG", "<?xml"}, {".pdf", "%PDF-"}};
  for (const auto &[fin, tete] : genres) {
    ASSERT_EQ(Lancer("dessiner " + fichiers + "/pedales-ensemble.wif -o " + sortie + fin), 0) << dit;
    EXPECT_EQ(Lire(sortie + fin).rfind(tete, 0), 0u) << fin;
  }
  // A long piece takes several pages.
  ASSERT_EQ(Lancer("assembler " + fichiers + "/serge-1.0.wif x100 -o " + sortie + ".wif"), 0) << dit;
  ASSERT_EQ(Lancer("dessiner " + sortie + ".wif --remplacer -o " + sortie + ".pdf"), 0) << dit;
  const std::string pdf = Lire(sortie + ".pdf");
  const auto compte = pdf.find("/Count ");
  ASSERT_NE(compte, std::string::npos);
  EXPECT_GT(std::atoi(pdf.c_str() + compte + 7), 13);

  // A stretch of picks, in brackets behind the file or as an option.
  const std::string ici = " --remplacer --vers " + pf.dossier + "/Data ";
  ASSERT_EQ(Lancer("convertir '" + sortie + ".wif[7-300]'" + ici), 0) << dit;
  Ouvrir(Data("dessin-7-300.wif"));
  EXPECT_EQ(session.NombreDuites, 294);
  EXPECT_EQ(Lancer("assembler " + sortie + ".wif x3 --duites 1-900 -o " + sortie + "3.wif"), 0) << dit;
  EXPECT_EQ(Lancer("dessiner '" + sortie + ".wif[801-]' -o " + sortie + "4.png"), 2);
  EXPECT_NE(dit.find("pick 801 is not there: 800 picks in all"), std::string::npos) << dit;
  EXPECT_EQ(Lancer("dessiner " + sortie + ".wif --duites 9-3 -o " + sortie + "4.png"), 2);
  EXPECT_EQ(
      Lancer("dessiner " + sortie + ".wif --fils 2-5 --vue structure --reprises 2 --en-haut --cote 2,5 -o " +
             sortie + "4.svg"),
      0)
      << dit;
}
