// Saves and settings with every file call failing in turn, and with the process killed before each: what
// stands afterwards is the old or the new, whole, and what the weaver was told is true.
#include <sys/wait.h>
#include <unistd.h>

#include "commands/RepriseProjet.h"
#include "saved/FichierConfiguration.h"
#include "tests/Banc.h"
#include "tests/Pannes.h"

using Pannes::Panne;

namespace {
constexpr Panne kPannes[] = {Panne::Erreur,    Panne::DesLors, Panne::Mort,
                             Panne::Partielle, Panne::Coupee,  Panne::Courte};

constexpr int kTue = -1;

class EssaiPannes : public Banc {
 protected:
  struct Fichiers {
    std::string entete, lignes;
  };
  enum Fin { Deux, Ancien, Nouveau, Dechire };
  // What a save told.
  enum Dit { Rien = 0, Confirme = 1, PrecedentDemeure = 2, AucunProjet = 4 };

  Fichiers avant, apres;

  // What runs in a process of its own: its answer, or kTue.
  template <class F>
  static int Processus(F &&travail) {
    const pid_t enfant = fork();
    if (enfant == 0) _exit(travail());
    int etat = 0;
    waitpid(enfant, &etat, 0);
    return WIFEXITED(etat) ? WEXITSTATUS(etat) : kTue;
  }

  // The project that is to be saved stands on the loom; `avant` is what a save of another one left.
  void Preparer(int anciennes, int nouvelles) {
    for (const auto &[n, nom, fichiers] :
         {std::tuple(anciennes, "ancien.wif", &avant), {nouvelles, "neuf.wif", &apres}}) {
      LancerProgramme();
      Configurer({{1, "COM 1"}, {5, "Pattern"}});
      for (const char *f : {"Resume.Trm", "Resume2.Trm"}) EcrireFichier(f, "");
      Ouvrir(Motif(Lignes(n), nom));
      Commander(Commande::Demarrer);
      Rapport();
      if (fichiers == &apres) SemerProjet(apres);
      Processus([] {
        Commander(Commande::Enregistrer);
        return 0;
      });
      *fichiers = {LireFichier("Resume.Trm"), LireFichier("Resume2.Trm")};
    }
    ASSERT_EQ(apres.entete.size(), 281u);
    ASSERT_EQ(apres.lignes.size(), 70u * static_cast<unsigned>(nouvelles));
    pf.messages.clear();
  }
  void SemerProjet(const Fichiers &f) const {
    for (const char *nom : {"Reprise.Avant", "Reprise.Avant.neuf", "Reprise.Ecartee"})
      std::filesystem::remove(Data(nom));
    EcrireFichier("Resume.Trm", f.entete);
    EcrireFichier("Resume2.Trm", f.lignes);
  }
  // Save under this fault, in its own process: what it told, or kTue.
  int Enregistrer(long n, Panne panne) {
    return Processus([&] {
      Pannes::Armer(n, panne);
      Commander(Commande::Enregistrer);
      Pannes::Desarmer();
      int dit = Rien;
      for (const std::string &m : pf.messages)
        if (m.rfind("Enregistrer le projet", 0) == 0) dit |= Confirme;
      const std::string dernier = pf.messages.empty() ? "" : pf.messages.back();
      if (dernier.find("the save before stands") != std::string::npos) dit |= PrecedentDemeure;
      if (dernier.find("no project is saved") != std::string::npos) dit |= AucunProjet;
      return dit;
    });
  }
  // What a fresh process finds and resumes.
  Fin Reprendre() {
    return static_cast<Fin>(Processus([&] {
      Recommencer();
      LireConfiguration();
      RetablirProjet();
      ReprendreProjet();
      const std::string entete = LireFichier("Resume.Trm"), restes = LireFichier("Resume2.Trm");
      const bool charge = fenetre.PatronCharge && session.DuiteCourante == 2;
      if (entete == apres.entete && restes.substr(0, apres.lignes.size()) == apres.lignes)
        return charge ? Nouveau : Dechire;
      return entete == avant.entete && restes == avant.lignes && charge == !avant.entete.empty() ? Ancien
                                                                                                 : Dechire;
    }));
  }
  // The file calls of some work, a letter for each, and where each fault can befall them.
  template <class F>
  static std::string Appels(F &&travail) {
    int tube[2];
    EXPECT_EQ(pipe(tube), 0);
    Processus([&] {
      Pannes::Armer(0);
      travail();
      const std::string vus = Pannes::Desarmer();
      return write(tube[1], vus.data(), vus.size()) < 0 ? 1 : 0;
    });
    close(tube[1]);
    std::string appels(4096, '\0');
    appels.resize(
        static_cast<std::size_t>(std::max<ssize_t>(0, read(tube[0], appels.data(), appels.size()))));
    close(tube[0]);
    return appels;
  }
  template <class F>
  static void PourChaquePanne(const std::string &appels, F &&essayer) {
    ASSERT_GT(appels.size(), 8u);
    for (Panne panne : kPannes)
      for (std::size_t n = 1; n <= appels.size(); ++n) {
        if (panne >= Panne::Partielle && appels[n - 1] != 'w') continue;
        SCOPED_TRACE("kind " + std::to_string(static_cast<int>(panne)) + ", call " + std::to_string(n));
        essayer(static_cast<long>(n), panne);
      }
  }

  void ToutEssayer() {
    SemerProjet(avant);
    ASSERT_EQ(Enregistrer(0, Panne::Erreur), Confirme);
    ASSERT_EQ(Reprendre(), Nouveau);
    SemerProjet(avant);
    std::map<int, int> fins;
    PourChaquePanne(Appels([] { Commander(Commande::Enregistrer); }), [&](long n, Panne panne) {
      SemerProjet(avant);
      const int dit = Enregistrer(n, panne);
      const Fin fin = Reprendre();
      ++fins[fin];
      if (dit == kTue) {
        EXPECT_TRUE(fin == Ancien || fin == Nouveau);
        return;
      }
      EXPECT_TRUE(dit == Confirme || panne != Panne::Courte) << "a write in two halves is none that failed";
      if (dit == Confirme) {
        EXPECT_EQ(fin, Nouveau);
        return;
      }
      EXPECT_EQ(fin, Ancien);  // also behind a confirmation: the last word counts
      // Where every call fails nobody knows that there was none.
      EXPECT_TRUE(dit & (avant.entete.empty() ? AucunProjet : PrecedentDemeure) || panne == Panne::DesLors)
          << dit;
      EXPECT_TRUE(dit & (AucunProjet | PrecedentDemeure));
    });
    EXPECT_GT(fins[Ancien], 60);
    EXPECT_GT(fins[Nouveau], 5);
  }
};
}  // namespace

TEST_F(EssaiPannes, ASaveOverALongerOrAShorterProject) {
  for (const auto &[anciennes, nouvelles] : {std::pair{3, 2}, {2, 3}}) {
    Preparer(anciennes, nouvelles);
    ToutEssayer();
  }
}

TEST_F(EssaiPannes, TheFirstSave) {
  Preparer(2, 2);
  avant = {};
  ToutEssayer();
}

TEST_F(EssaiPannes, APuttingBackThatIsCutOffItself) {
  Preparer(3, 2);
  SemerProjet(avant);
  const std::string appels = Appels([] { Commander(Commande::Enregistrer); });
  SemerProjet(avant);
  ASSERT_EQ(Enregistrer(static_cast<long>(appels.rfind('w') + 1), Panne::Coupee), kTue);
  const std::string copie = LireFichier("Reprise.Avant");
  const Fichiers dechires{LireFichier("Resume.Trm"), LireFichier("Resume2.Trm")};
  const auto semer = [&] {
    SemerProjet(dechires);
    EcrireFichier("Reprise.Avant", copie);
  };
  semer();
  PourChaquePanne(Appels(RetablirProjet), [&](long n, Panne panne) {
    semer();
    Processus([&] {
      Pannes::Armer(n, panne);
      return RetablirProjet() ? 0 : 1;
    });
    EXPECT_EQ(Reprendre(), Ancien);
  });
}

TEST_F(EssaiPannes, SettingsAreOldOrNew) {
  const std::string anciens = Mots({1, 24, 11, 0, 1, 0, 1, 0, 0, 0}),
                    neufs = Mots({4, 24, 11, 0, 1, 0, 77, 0, 0, 0});
  EcrireFichier("Configuration.Con", anciens);
  LancerProgramme();
  session.PortMetier = 4;
  session.DuiteCourante = 77;
  PourChaquePanne(Appels(EcrireConfiguration), [&](long n, Panne panne) {
    EcrireFichier("Configuration.Con", anciens);
    const int etat = Processus([&] {
      Pannes::Armer(n, panne);
      EcrireConfiguration();
      return int{session.Etat};
    });
    const std::string lus = LireFichier("Configuration.Con");
    const bool peutEchouer = panne != Panne::Courte;
    EXPECT_TRUE(lus == neufs || (peutEchouer && etat != EtatEtape::Reussi && lus == anciens)) << Hexa(lus);
  });
}
