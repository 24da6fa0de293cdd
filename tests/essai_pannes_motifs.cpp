// The project of a 16-harness loom with every file call failing in turn, and the process killed before each:
// what the next start finds is the old project or the new one, whole.
#include <sys/wait.h>
#include <unistd.h>

#include "app-motifs/Poste.h"
#include "motifs/LectureMotif.h"
#include "saved/CopieReprise.h"
#include "tests/Banc.h"
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
