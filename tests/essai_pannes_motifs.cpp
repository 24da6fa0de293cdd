// What the companion writes with every file call failing in turn, and the process killed before each: the old
// or the new, whole.
#include "tests/Banc.h"

#include <sys/wait.h>
#include <unistd.h>

#include <sstream>

#include "app-motifs/Poste.h"
#include "app-motifs/Verbes.h"
#include "motifs/Fichier.h"
#include "motifs/LectureMotif.h"
#include "saved/CopieReprise.h"
#include "tests/Pannes.h"

using Pannes::Panne;

namespace {
class PannesProjet : public Banc {
 protected:
  // What a start finds: 'o' the old project, 'n' the new one, 'x' anything else.
  char Trouve(const std::string &entete, const std::string &lignes) {
    RemettreProjet();
    const std::string e = LireFichier("Resume.Trm"), l = LireFichier("Resume2.Trm");
    if (e == kEntete && l == kLignes) return 'o';
    // Only the date may differ.
    return e.substr(8) == entete.substr(8) && l == lignes ? 'n' : 'x';
  }
  void Semer() const {
    for (const auto &e : std::filesystem::directory_iterator(pf.dossier + "/Data"))
      std::filesystem::remove(e.path());
    EcrireFichier("Resume.Trm", kEntete);
    EcrireFichier("Resume2.Trm", kLignes);
  }
  const std::string kEntete = std::string(281, 'a'), kLignes = std::string(280, 'b');
};
}  // namespace

TEST_F(PannesProjet, TheOldOneOrTheNewOne) {
  const ::Motif motif = ComprendreMotif(
      "[WIF]\n[THREADING]\n1=1\n2=2\n[LIFTPLAN]\n1=1\n2=2\n3=1,2\n[WEAVING]\n", "/m/neuf.wif");
  const std::string data = pf.dossier + "/Data";
  Semer();
  FaireProjet16(motif, data, {}, true);
  const std::string entete = LireFichier("Resume.Trm"), lignes = LireFichier("Resume2.Trm");
  ASSERT_EQ(lignes.size(), 210u);
  int vieux = 0, neufs = 0;
  for (const Panne panne :
       {Panne::Erreur, Panne::DesLors, Panne::Mort, Panne::Partielle, Panne::Coupee, Panne::Courte})
    for (long n = 1;; ++n) {
      SCOPED_TRACE(static_cast<int>(panne) * 1000 + n);
      Semer();
      const pid_t enfant = fork();
      if (enfant == 0) {
        Pannes::Armer(n, panne);
        int dit = 0;
        try {
          FaireProjet16(motif, data, {}, true);
        } catch (const std::exception &) {
          dit = 1;
        }
        _exit(Pannes::Desarmer().size() < static_cast<std::size_t>(n) ? 2 : dit);
      }
      int etat = 0;
      waitpid(enfant, &etat, 0);
      const int dit = WIFEXITED(etat) ? WEXITSTATUS(etat) : -1;
      const char trouve = Trouve(entete, lignes);
      ASSERT_NE(trouve, 'x');
      const char attendu = dit == 0 || dit == 2 ? 'n'
                           : dit == 1           ? 'o'
                                                : trouve;  // what was told; the dead tell nothing
      ASSERT_EQ(trouve, attendu);
      (trouve == 'n' ? neufs : vieux) += 1;
      if (dit == 2) break;
    }
  EXPECT_GT(vieux, 60);
  EXPECT_GT(neufs, 5);
}

// Every other file: in place of one that is there, and where none is. What the verb said is what is there.
TEST_F(PannesProjet, EveryFileOldOrNew) {
  const std::string source = EcrireFichier("neuf.wif",
                                           "[WIF]\n[THREADING]\n1=1\n2=20\n[LIFTPLAN]\n1=1\n2=20\n3=1,20\n"),
                    dossier = pf.dossier + "/sortie", ancien(5000, 'a');
  std::filesystem::create_directory(dossier);
  const std::string cible = dossier + "/neuf.wif";
  const std::vector<std::vector<std::string>> verbes{{"convertir", source, "--vers", dossier},
                                                     {"assembler", source, "x3", "-o", cible},
                                                     {"enfilage", source, "-o", cible},
                                                     {"ramener", source, "-o", cible}};
  const auto executer = [&](std::vector<std::string> mots, bool remplacer) {
    if (remplacer) mots.push_back("--remplacer");
    std::ostringstream sortie, erreurs;
    return Executer(ComprendreDemande(mots), Langue::Anglais, dossier, sortie, erreurs);
  };
  int vieux = 0, neufs = 0;
  for (const auto &mots : verbes)
    for (const bool remplacer : {false, true}) {
      const auto semer = [&] {
        for (const auto &e : std::filesystem::directory_iterator(dossier)) std::filesystem::remove(e.path());
        if (remplacer) std::ofstream(cible, std::ios::binary) << ancien;
      };
      semer();
      ASSERT_LT(executer(mots, remplacer), 2);
      const std::string neuf = Lire(cible), avant = remplacer ? ancien : "";
      ASSERT_GT(neuf.size(), 50u);
      for (const Panne panne :
           {Panne::Erreur, Panne::DesLors, Panne::Mort, Panne::Partielle, Panne::Coupee, Panne::Courte})
        for (long n = 1;; ++n) {
          SCOPED_TRACE(mots[0] + " " + std::to_string(static_cast<int>(panne) * 1000 + n));
          semer();
          const pid_t enfant = fork();
          if (enfant == 0) {
            Pannes::Armer(n, panne);
            const int dit = executer(mots, remplacer);
            _exit(Pannes::Desarmer().size() < static_cast<std::size_t>(n) ? 9 : dit);
          }
          int etat = 0;
          waitpid(enfant, &etat, 0);
          const int dit = WIFEXITED(etat) ? WEXITSTATUS(etat) : -1;
          const std::string la = std::filesystem::exists(cible) ? Lire(cible) : "";
          ASSERT_TRUE(la == avant || la == neuf) << la.size();
          if (dit >= 0) {
            ASSERT_EQ(la, dit == 2 ? avant : neuf);
          }
          (la == neuf ? neufs : vieux) += 1;
          if (dit == 9) break;
        }
    }
  EXPECT_GT(vieux, 100);
  EXPECT_GT(neufs, 40);
}
