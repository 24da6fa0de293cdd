// Where the program's files lie: its folder, the user's, the installed share, and what the scripts lay there.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include "base/ErreurExecution.h"
#include "platform/qt/machine/DossierProgramme.h"
#include "platform/qt/natifs/LectureBmp.h"
#include "platform/qt/natifs/MagasinImages.h"

namespace fs = std::filesystem;

namespace {
std::string Lire(const fs::path &chemin) {
  std::ifstream f(chemin, std::ios::binary);
  return {std::istreambuf_iterator<char>(f), {}};
}

class EssaiDossiers : public testing::Test {
 protected:
  fs::path base, bin, maison, partage;

  void SetUp() override {
    char modele[] = "/tmp/dossiers-XXXXXX";
    base = mkdtemp(modele);
    fs::permissions(base, fs::perms::others_all, fs::perm_options::add);
    bin = base / "bin";
    maison = base / "home";
    partage = base / "share/brandis";
    fs::create_directories(bin);
    fs::create_directories(maison);
    setenv("HOME", maison.c_str(), 1);
    unsetenv("XDG_DATA_HOME");
  }
  void TearDown() override { fs::remove_all(base); }

  static void Ecrire(const fs::path &chemin, const std::string &contenu) {
    fs::create_directories(chemin.parent_path());
    std::ofstream(chemin, std::ios::binary) << contenu;
  }
  fs::path Data(const std::string &nom = "") const { return maison / ".local/share/brandis/Data" / nom; }
  DossiersProgramme Trouver() const { return TrouverDossiers(bin.string()); }
  // Every file of the user's folder with its contents.
  std::map<std::string, std::string> Contenu() const {
    std::map<std::string, std::string> fichiers;
    for (const auto &e : fs::recursive_directory_iterator(Data()))
      if (e.is_regular_file()) fichiers[e.path().lexically_relative(Data())] = Lire(e.path());
    return fichiers;
  }
  // Output and status of a shell command.
  std::pair<std::string, int> Lancer(const std::string &commande) const {
    FILE *tube = popen(("cd " + base.string() + " && { " + commande + "; } 2>&1").c_str(), "r");
    std::string texte;
    char octets[512];
    while (const std::size_t n = fread(octets, 1, sizeof octets, tube)) texte.append(octets, n);
    const int etat = pclose(tube);
    return {texte, WIFEXITED(etat) ? WEXITSTATUS(etat) : -1};
  }
};
}  // namespace

TEST_F(EssaiDossiers, TheUsersFolderIsFilledFromTheShareAndCompleted) {
  Ecrire(partage / "Data/Serge8.Wif", "serge");
  Ecrire(partage / "Data/mine/Other.Wif", "other");
  Ecrire(partage / "Data/Resume.Trm", "");
  fs::permissions(partage / "Data/Serge8.Wif", fs::perms::owner_read);
  const std::map<std::string, std::string> rempli{
      {"Serge8.Wif", "serge"}, {"mine/Other.Wif", "other"}, {"Resume.Trm", ""}, {"Resume2.Trm", ""}};
  fs::create_directories(Data());  // an empty one was left
  const DossiersProgramme d = Trouver();
  EXPECT_EQ(d.programme, (maison / ".local/share/brandis").string());
  EXPECT_EQ(Contenu(), rempli);
  EXPECT_TRUE((fs::status(Data("Serge8.Wif")).permissions() & fs::perms::owner_write) != fs::perms::none);
  EXPECT_TRUE(fs::is_directory(d.programme + "/Ports"));
  EXPECT_FALSE(fs::exists(d.programme + "/Dessins Boutons"));

  // A half-filled one is completed, and what the weaver has stays.
  fs::remove_all(Data("mine"));
  Ecrire(Data("Serge8.Wif"), "changed");
  Ecrire(Data("Serge8.Wif.partiel"), "se");
  Ecrire(Data("Resume.Trm"), "a project");
  fs::remove(Data("Resume2.Trm"));
  Ecrire(partage / "Data/Resume2.Trm", "not of this project");
  Trouver();
  EXPECT_EQ(Contenu(), (std::map<std::string, std::string>{{"Serge8.Wif", "changed"},
                                                           {"Serge8.Wif.partiel", "se"},
                                                           {"mine/Other.Wif", "other"},
                                                           {"Resume.Trm", "a project"},
                                                           {"Resume2.Trm", ""}}));

  setenv("XDG_DATA_HOME", (base / "data").c_str(), 1);
  EXPECT_EQ(Trouver().programme, (base / "data/brandis").string());
  setenv("XDG_DATA_HOME", "relative", 1);
  EXPECT_EQ(Trouver().programme, d.programme);
}

// By somebody who cannot write there; the rights of root know no such folder.
TEST_F(EssaiDossiers, AProgramsFolderThatCannotBeWrittenFillsTheUsersOwn) {
  Ecrire(bin / "Data/Serge8.Wif", "serge");
  Ecrire(bin / "Data/Configuration.Con", "settings");
  Ecrire(bin / "Data/Resume.Trm", "header");
  Ecrire(bin / "Data/Resume2.Trm", "lines");
  Ecrire(bin / "Data/Reprise.Avant", "copy");
  Ecrire(bin / "Data/Journal.txt", "of others");
  EXPECT_EQ(Trouver().programme, bin.string());
  for (const fs::path &p : {bin, bin / "Data"})
    fs::permissions(p, fs::perms::owner_write | fs::perms::group_write, fs::perm_options::remove);
  fs::permissions(maison, fs::perms::others_all, fs::perm_options::add);
  const pid_t enfant = fork();
  if (enfant == 0) {
    if (getuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) _exit(2);
    const DossiersProgramme d = Trouver();
    _exit(d.programme == (maison / ".local/share/brandis").string() && d.dessins.at(1) == bin.string() ? 0
                                                                                                       : 1);
  }
  int etat = 0;
  waitpid(enfant, &etat, 0);
  EXPECT_EQ(WEXITSTATUS(etat), 0);
  EXPECT_EQ(Contenu(), (std::map<std::string, std::string>{{"Serge8.Wif", "serge"},
                                                           {"Configuration.Con", "settings"},
                                                           {"Resume.Trm", "header"},
                                                           {"Resume2.Trm", "lines"},
                                                           {"Reprise.Avant", "copy"}}));
  for (const fs::path &p : {bin, bin / "Data"}) fs::permissions(p, fs::perms::owner_all);
}

// 32 bits a pixel, top row first, the pixels at 64 bytes.
std::string UnBitmap(QSize taille, QRgb pixel) {
  const auto mots = [](std::initializer_list<std::uint32_t> m) {
    return std::string(reinterpret_cast<const char *>(m.begin()), 4 * m.size());
  };
  std::string bitmap = "BM" + mots({0, 0, 64, 40, static_cast<std::uint32_t>(taille.width()),
                                    static_cast<std::uint32_t>(-taille.height()), 32u << 16 | 1});
  bitmap.resize(64);
  for (int i = 0; i < taille.width() * taille.height(); ++i) bitmap += mots({pixel});
  return bitmap;
}

TEST_F(EssaiDossiers, PicturesAreReadWhereTheyLie) {
  Ecrire(partage / "Dessins Boutons/a.bmp", UnBitmap({1, 1}, 0xff102030));
  Ecrire(partage / "Dessins Boutons/b.bmp", UnBitmap({1, 1}, 0xff102030));
  Ecrire(maison / "Dessins Boutons/b.bmp", UnBitmap({1, 1}, 0xff405060));
  MagasinImages images({maison.string(), bin.string(), partage.string()});
  EXPECT_EQ(images.LoadPicture(maison.string() + "/Dessins Boutons/a.bmp").Point(0, 0),
            Rgb(0x10, 0x20, 0x30));
  EXPECT_EQ(images.LoadPicture(maison.string() + "/Dessins Boutons/b.bmp").Point(0, 0),
            Rgb(0x40, 0x50, 0x60));
  EXPECT_THROW(images.LoadPicture(maison.string() + "/Dessins Boutons/c.bmp"), ErreurExecution);
}

TEST_F(EssaiDossiers, TheProgramsBitmapsAreReadWithoutTheToolkitAndShowTheSame) {
  int lus = 0;
  for (const auto &fichier : fs::recursive_directory_iterator(BRANDIS_PROGRAMME)) {
    const QString chemin = QString::fromStdString(fichier.path());
    if (!chemin.endsWith(QStringLiteral(".bmp"), Qt::CaseInsensitive)) continue;
    const QImage image = LireBmp(fichier.path());
    EXPECT_EQ(image, QImage(chemin).convertToFormat(image.format())) << fichier.path();
    ++lus;
  }
  EXPECT_GT(lus, 30);
}

TEST_F(EssaiDossiers, ABitmapOfAnotherKindOrCutShortIsLeftToTheToolkit) {
  const fs::path chemin = base / "a.bmp";
  const std::string bon = UnBitmap({200, 100}, 0xff102030);
  const auto autre = [&](std::size_t place, char octet) {
    return std::string(bon).replace(place, 1, 1, octet);
  };
  // The letters, the place of the pixels, the width, the height, the bits, the compression.
  for (const std::string &mauvais :
       {bon.substr(0, bon.size() - 1), bon.substr(0, 30), std::string(), autre(0, 'b'), autre(10, 65),
        autre(10, 8), autre(13, 127), autre(18, 0), autre(21, -128), autre(25, -128), autre(25, 127),
        autre(28, 16), autre(30, 1), autre(30, 3)}) {
    Ecrire(chemin, mauvais);
    EXPECT_TRUE(LireBmp(chemin).isNull()) << "size " << mauvais.size() << ", case " << mauvais.substr(0, 34);
  }
  EXPECT_TRUE(LireBmp(base).isNull());
  Ecrire(chemin, autre(67, 0));  // others leave the fourth byte of a pixel empty
  EXPECT_EQ(LireBmp(chemin).pixel(0, 0), 0xff102030);
}

TEST_F(EssaiDossiers, TheFinePictureIsShownForTheDeliveredOneAlone) {
  const fs::path livrees = BRANDIS_PROGRAMME "/Images";
  for (const fs::path nom : {"LogoNor.bmp", "Habillage.bmp", "SigneTissage.png"})
    Ecrire(partage / "Images" / nom, Lire(livrees / nom));
  fs::create_directories(partage / "Images/fines");
  for (const fs::path nom : {"LogoNor.png", "Habillage.png", "SigneTissage.png"})
    fs::copy_file(livrees / "fines" / nom, partage / "Images/fines" / nom);
  const auto neuf = [&] { return MagasinImages({maison.string(), partage.string()}); };
  {
    MagasinImages images = neuf();
    EXPECT_TRUE(images.Fine("LogoNor", 1).isNull()) << "a screen of our own pixels asks for nothing more";
    const QImage fine = images.Fine("LogoNor", 1.25);
    EXPECT_EQ(fine.deviceIndependentSize().toSize(), images.Nommee("LogoNor").size());
    Surface peau = images.Picture("Habillage");
    EXPECT_EQ(images.FinePour(peau, 2).size(), QSize(1616, 1276));
    peau.PSet(0, 0, 0);
    EXPECT_TRUE(images.FinePour(peau, 2).isNull()) << "drawn upon";
    const Surface signe = images.Picture("SigneTissage");
    EXPECT_FALSE(images.FinePour(signe, 2).hasAlphaChannel()) << "a surface has none either";
  }
  Ecrire(partage / "Dessins Boutons/IMG571.BMP",
         Lire(fs::path(BRANDIS_PROGRAMME) / "Dessins Boutons/IMG571.BMP"));
  fs::copy_file(livrees / "fines/IMG571.png", partage / "Images/fines/IMG571.png");
  EXPECT_EQ(neuf().FineDessin("IMG571", 2).size(), QSize(40, 40));
  EXPECT_TRUE(neuf().FineDessin("IMG571", 1).isNull() && neuf().FineDessin("", 2).isNull());
  Ecrire(maison / "Images/LogoNor.bmp", UnBitmap({51, 32}, 0xff102030));
  EXPECT_TRUE(neuf().Fine("LogoNor", 2).isNull()) << "the weaver's own picture";
  EXPECT_FALSE(neuf().Fine("Habillage", 2).isNull());
  fs::remove_all(partage / "Images/fines");
  EXPECT_TRUE(neuf().Fine("Habillage", 2).isNull()) << "none was delivered";
}

TEST_F(EssaiDossiers, APictureOutlivesItsFile) {
  const fs::path chemin = base / "a.bmp";
  Ecrire(chemin, UnBitmap({800, 600}, 0xff102030));
  MagasinImages images({base.string()});
  Surface copie = images.LoadPicture(chemin);
  Ecrire(chemin, "");  // written over in its place, under a program that is weaving
  copie.PSet(3, 4, Gris(255));
  EXPECT_EQ(images.LoadPicture(chemin).Point(3, 4), Rgb(0x10, 0x20, 0x30));
  EXPECT_EQ(copie.Point(799, 599), Rgb(0x10, 0x20, 0x30));
}

TEST_F(EssaiDossiers, WithoutAFolderTheProgramSaysWhatIsMissingAndEnds) {
  fs::copy_file(BRANDIS_PROGRAMME "/brandis", bin / "brandis");
  for (const auto &[langue, mots] :
       {std::pair("fr_FR.UTF-8", "n'a pas de dossier"), {"en_US.UTF-8", "has no folder"}}) {
    const auto [texte, etat] = Lancer("env -u HOME -u XDG_DATA_HOME LC_ALL=" + std::string(langue) +
                                      " QT_QPA_PLATFORM=offscreen bin/brandis");
    EXPECT_EQ(etat, 1);
    EXPECT_NE(texte.find(mots), std::string::npos) << texte;
    EXPECT_NE(texte.find("HOME"), std::string::npos) << texte;
  }
  EXPECT_FALSE(fs::exists("/tmp/.local/share/brandis"));
}

TEST_F(EssaiDossiers, AnUpgradeLeavesASavedProjectAsItIs) {
  const std::string installer = "cmake --install " BRANDIS_BUILD " --prefix " + base.string() + "/usr";
  const fs::path data = base / "usr/share/brandis/Data";
  ASSERT_EQ(Lancer(installer).second, 0);
  EXPECT_TRUE(fs::exists(data / "Resume.Trm") && Lire(data / "Resume.Trm").empty());
  EXPECT_TRUE(fs::exists(data / "Resume2.Trm") && fs::exists(data / "Serge8.Wif"));
  Ecrire(data / "Resume.Trm", "a project");
  fs::remove(data / "Resume2.Trm");
  ASSERT_EQ(Lancer(installer).second, 0);
  EXPECT_EQ(Lire(data / "Resume.Trm"), "a project");
  EXPECT_TRUE(fs::exists(data / "Resume2.Trm"));

  // What the build runs over its own folder.
  fs::remove(data / "Resume2.Trm");
  fs::create_symlink("/nowhere", data / "Resume2.Trm");
  ASSERT_EQ(Lancer("cmake -DDOSSIER=" + data.string() + " -P " BRANDIS_SOURCES "/outils/poser_reprise.cmake")
                .second,
            0);
  EXPECT_EQ(Lire(data / "Resume.Trm"), "a project");
  EXPECT_TRUE(fs::is_symlink(data / "Resume2.Trm"));
}

TEST_F(EssaiDossiers, ASimulatedLoomMakesItsWayOnANewAccountAndFillsNothing) {
  fs::copy_file(BRANDIS_PROGRAMME "/metier-simule", bin / "metier-simule");
  const auto [texte, etat] = Lancer("echo quitter | bin/metier-simule");
  EXPECT_EQ(etat, 0) << texte;
  EXPECT_TRUE(fs::is_directory(Data().parent_path().parent_path() / "Ports"));
  EXPECT_FALSE(fs::exists(Data()));
}

TEST_F(EssaiDossiers, ASimulatedLoomTakesOnlyWhatASimulatedLoomHasLeft) {
  fs::create_directory(base / "Ports");
  const fs::path com1 = base / "Ports/com1";
  const auto libre = [&] {
    return Lancer("bash -c '. " BRANDIS_SOURCES "/outils/commun.sh && prise_libre " + com1.string() + "'")
        .second;
  };
  EXPECT_EQ(libre(), 0);
  for (const auto &[cible, attendu] : {std::pair("/dev/pts/99999", 0),
                                       {"/dev/serial/by-id/usb-unplugged", 1},
                                       {"/dev/null", 1},
                                       {"/dev/ptsd", 1}}) {
    fs::create_symlink(cible, com1);
    EXPECT_EQ(libre(), attendu) << cible;
    const std::string texte = Lancer("echo quitter | " BRANDIS_PROGRAMME "/metier-simule --dossier .").first;
    EXPECT_EQ(texte.find("in use") != std::string::npos, attendu == 1) << cible << ": " << texte;
    EXPECT_EQ(fs::remove(com1), attendu == 1) << "a loom that ends takes its own link away";
  }
}
