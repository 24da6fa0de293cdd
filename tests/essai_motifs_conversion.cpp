// Files of other makers, made weavable by brandis-motifs and opened by the loom's program: every shed as the
// file says.
#include <algorithm>
#include <cctype>
#include <cstdlib>

#include "tests/Banc.h"
#include "tests/MotifHasard.h"

namespace fs = std::filesystem;

namespace {
using Foules = std::vector<std::set<int>>;

// Reads a file in the plainest way, everything in memory as text, and with none of the converter's code.
class Temoin {
 public:
  explicit Temoin(const std::string &chemin) {
    std::ifstream f(chemin, std::ios::binary);
    std::string tout{std::istreambuf_iterator<char>(f), {}}, section;
    std::transform(tout.begin(), tout.end(), tout.begin(),
                   [](unsigned char c) { return c == '\r' ? '\n' : static_cast<char>(std::tolower(c)); });
    std::stringstream lignes(tout.substr(tout.find("[wif]")));
    for (std::string l; std::getline(lignes, l);) {
      l = l.substr(0, l.find(';'));
      l.erase(std::remove_if(l.begin(), l.end(), [](unsigned char c) { return std::isspace(c); }), l.end());
      const auto egal = l.find('=');
      if (l.size() > 2 && l.front() == '[' && l.back() == ']')
        section = l;
      else if (egal != std::string::npos)
        sections_[section][l.substr(0, egal)] = l.substr(egal + 1);
    }
  }

  Foules Sheds() {
    auto plan = sections_["[liftplan]"], pedalage = sections_["[treadling]"];
    const bool parPedales = plan.empty();
    int duites = std::atoi(sections_["[weft]"]["threads"].c_str());
    for (const auto &[cle, _] : parPedales ? pedalage : plan)
      duites = std::max(duites, std::atoi(cle.c_str()));
    const std::string montante = sections_["[weaving]"]["risingshed"];
    const int lames = std::atoi(sections_["[weaving]"]["shafts"].c_str());
    Foules foules;
    for (int d = 1; d <= duites; ++d) {
      std::set<int> foule;
      if (parPedales)
        for (int p : LamesDe("=" + pedalage[std::to_string(d)]))
          foule.merge(LamesDe("=" + sections_["[tieup]"][std::to_string(p)]));
      else
        foule = LamesDe("=" + plan[std::to_string(d)]);
      foule.erase(0);
      if (montante == "false") {
        std::set<int> autres;
        for (int l = 1; l <= lames; ++l)
          if (!foule.count(l)) autres.insert(l);
        foule = autres;
      }
      foules.push_back(foule);
    }
    return foules;
  }

 private:
  std::map<std::string, std::map<std::string, std::string>> sections_;
};

class Conversion : public BancConfigure {
 protected:
  // The program's answer; its words go into `dit`.
  int Lancer(const std::string &mots) {
    const std::string journal = pf.dossier + "/dit";
    const int etat = std::system(("LC_ALL=C " BRANDIS_MOTIFS " " + mots + " >" + journal + " 2>&1").c_str());
    std::ifstream f(journal);
    dit = {std::istreambuf_iterator<char>(f), {}};
    return WIFEXITED(etat) ? WEXITSTATUS(etat) : -1;
  }
  // Opens a file and compares the matrix cells and the bit strings with the sheds.
  void ExpectFoules(const std::string &chemin, const Foules &attendues) {
    Ouvrir(chemin);
    ASSERT_TRUE(Messages().empty()) << chemin;
    ASSERT_EQ(session.NombreDuites, static_cast<int>(attendues.size())) << chemin;
    for (int d = 1; d <= session.NombreDuites; ++d) {
      const std::set<int> &foule = attendues[static_cast<std::size_t>(d - 1)];
      std::string bits(24, '0');
      for (int l : foule) bits[static_cast<std::size_t>(24 - l)] = '1';
      EXPECT_EQ(fenetre.BitsDuite[d], bits) << chemin << " pick " << d;
      std::set<int> cellules;
      for (int l = 1; l <= 32; ++l)
        if (session.MatriceLames(d, l) == 1) cellules.insert(l);
      EXPECT_EQ(cellules, foule) << chemin << " pick " << d;
    }
    EXPECT_FALSE(fenetre.DansLiftplan) << chemin;  // the next file is read from its own plan on
  }
  std::string Lu(const std::string &chemin) {
    std::ifstream f(chemin, std::ios::binary);
    return {std::istreambuf_iterator<char>(f), {}};
  }

  const std::string fichiers = BRANDIS_FICHIERS;
  std::string dit;
};
}  // namespace

TEST_F(Conversion, EveryFileShedForShed) {
  fs::create_directory(pf.dossier + "/encore");
  int vus = 0;
  for (const auto &entree : fs::directory_iterator(fichiers)) {
    const std::string chemin = entree.path(), sorti = Data(entree.path().filename());
    ASSERT_EQ(Lancer("convertir '" + chemin + "' --vers " + pf.dossier + "/Data"), 0) << dit;
    const Foules foules = Temoin(chemin).Sheds();
    ASSERT_FALSE(foules.empty()) << chemin;
    ExpectFoules(sorti, foules);
    // The form is its own form.
    ASSERT_EQ(Lancer("convertir '" + sorti + "' --vers " + pf.dossier + "/encore"), 0) << dit;
    EXPECT_EQ(Lu(sorti), Lu(pf.dossier + "/encore/" + entree.path().filename().string()));
    ++vus;
  }
  EXPECT_GE(vus, 10);
}

// What stands in the file beside the plan stays for other programs, byte for byte.
TEST_F(Conversion, KeepsWhatIsNotThePlan) {
  ASSERT_EQ(Lancer("convertir " + fichiers + "/latin1-sans-comptes.wif " + fichiers +
                   "/tables-derriere.wif --vers " + pf.dossier + "/Data"),
            0);
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

// Patterns of which the test knows every shed, written as wildly as the format allows.
TEST_F(Conversion, WildlyWrittenPatterns) {
  std::mt19937 hasard(20261123);
  fs::create_directory(pf.dossier + "/tisses");
  std::vector<MotifHasard> motifs;
  std::string mots;
  for (int i = 0; i < 120; ++i) {
    motifs.emplace_back(hasard);
    mots += " " + EcrireFichier("m" + std::to_string(i) + ".txt", motifs.back().Texte(hasard));
  }
  ASSERT_EQ(Lancer("convertir --vers " + pf.dossier + "/tisses" + mots), 0) << dit;
  for (int i = 0; i < 120; ++i) {
    const std::string sorti = pf.dossier + "/tisses/m" + std::to_string(i) + ".wif";
    ExpectFoules(sorti, motifs[static_cast<std::size_t>(i)].foules);
    if (HasFailure()) FAIL() << LireFichier("m" + std::to_string(i) + ".txt");
  }
}
