#include "app-motifs/Verbes.h"

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <ostream>
#include <set>

#include "app-motifs/Dessinateur.h"
#include "app-motifs/Poste.h"
#include "motifs/Assemblage.h"
#include "motifs/Constats.h"
#include "motifs/DossierBrandis.h"
#include "motifs/Encodage.h"
#include "motifs/Fichier.h"
#include "motifs/FormeTissable.h"
#include "motifs/LectureMotif.h"

namespace fs = std::filesystem;
using nlohmann::ordered_json;

namespace {
class Travail {
 public:
  Travail(const Demande &demande, Langue langue, const std::string &dossier, std::ostream &sortie,
          std::ostream &erreurs)
      : d_(demande), langue_(langue), dossier_(dossier), sortie_(sortie), erreurs_(erreurs) {}

  int Faire() {
    switch (d_.verbe) {
      case Verbe::Aide:
        sortie_ << TexteAide(langue_, d_.aide);
        break;
      case Verbe::Version:
        sortie_ << "brandis-motifs " BRANDIS_VERSION "\n";
        break;
      case Verbe::Convertir:
        return PourChaqueFichier([this](const std::string &f) { return Convertir(f); });
      case Verbe::Verifier:
        return Verifier();
      case Verbe::Info:
        return Info();
      case Verbe::Dessiner:
        return PourChaqueFichier([this](const std::string &f) { return Dessiner(f); });
      case Verbe::Assembler:
        return Assembler();
      case Verbe::Enfilage:
        return PourChaqueFichier([this](const std::string &f) { return Enfilage(f); });
      case Verbe::Projet16:
        return PourChaqueFichier([this](const std::string &f) { return Projet16(f); });
      case Verbe::Fenetre:
        break;
    }
    return 0;
  }

 private:
  static constexpr int kRefus = 2;

  const std::string &Selon(const std::string &fr, const std::string &en) const {
    return langue_ == Langue::Francais ? fr : en;
  }

  // One file that is refused does not keep the others from being done.
  template <class F>
  int PourChaqueFichier(F &&faire) {
    int etat = 0;
    for (const std::string &f : d_.fichiers) {
      try {
        etat = std::max(etat, faire(f));
      } catch (const Refus &r) {
        erreurs_ << r.En(langue_) << "\n";
        etat = kRefus;
      }
    }
    return etat;
  }

  std::string DossierVers() const { return d_.vers.empty() ? DossierData(dossier_) : d_.vers; }

  // The picks that the word or the option names, as a pattern of their own.
  Motif LirePartie(const std::string &mot) const {
    const auto [chemin, partie] = SeparerEtendue(mot);
    return Extraire(LireMotif(chemin), partie.Toute() ? d_.duites : partie);
  }

  int Convertir(const std::string &fichier) {
    const Motif motif = LirePartie(fichier);
    // Of two files of one name the second would replace the first.
    const bool remplacer = d_.remplacer && noms_.insert(fs::path(motif.chemin).stem()).second;
    sortie_ << ::Convertir(motif, DossierVers(), remplacer) << "\n";
    return 0;
  }

  int Dessiner(const std::string &fichier) {
    const auto [chemin, partie] = SeparerEtendue(fichier);
    const Motif motif = LireMotif(chemin);
    VerifierCible(d_.sortie, d_.remplacer);
    ReglagesDessin reglages = d_.dessin;
    reglages.planche.structure = d_.structure.value_or(CouleursMuettes(motif));
    if (!partie.Toute()) reglages.planche.duites = partie;
    EcrireFichier(d_.sortie, DessinerAvecLaPartie(dossier_, motif, d_.sortie, reglages, langue_),
                  d_.remplacer);
    return 0;
  }

  int Assembler() {
    std::vector<Piece> pieces;
    const int etat = PourChaqueFichier([&](const std::string &f) {
      pieces.push_back({LirePartie(f), d_.fois[pieces.size()]});
      return 0;
    });
    if (etat != 0) return etat;
    try {
      for (const Constat &c : ComparerChaines(pieces)) erreurs_ << c.texte.En(langue_) << "\n";
      EcrireFichier(d_.sortie, ::Assembler(pieces, d_.separer), d_.remplacer);
    } catch (const Refus &r) {
      erreurs_ << r.En(langue_) << "\n";
      return kRefus;
    }
    return 0;
  }

  int Enfilage(const std::string &fichier) {
    EcrireFichier(d_.sortie, EnfilageTissable(LireMotif(fichier), d_.groupe, langue_), d_.remplacer);
    return 0;
  }

  int Projet16(const std::string &fichier) {
    const auto [motif, ancien] = FaireProjet16(LireMotif(fichier), DossierVers(), d_.port, d_.remplacer);
    sortie_ << motif << "\n";
    if (!ancien.empty())
      sortie_ << Selon("l'ancien projet est gardé : ", "the earlier project is kept: ") << ancien << "\n";
    return 0;
  }

  int Verifier() {
    ordered_json liste = ordered_json::array();
    const int etat = PourChaqueFichier([&](const std::string &f) {
      try {
        const std::vector<Constat> constats = ::Verifier(LireMotif(f), d_.flotte);
        if (d_.json)
          liste.push_back(EnJson(f, constats));
        else
          Dire(f, constats);
        return ContientFaute(constats) ? 1 : 0;
      } catch (const Refus &r) {
        if (d_.json)
          liste.push_back(
              {{"fichier", EnUtf8(f)}, {"refus", {{"ligne", r.Ligne()}, {"texte", r.Texte().En(langue_)}}}});
        throw;
      }
    });
    if (d_.json) sortie_ << liste.dump(2) << "\n";
    return etat;
  }

  void Dire(const std::string &fichier, const std::vector<Constat> &constats) {
    for (const Constat &c : constats) {
      sortie_ << fichier;
      if (c.ligne > 0) sortie_ << ":" << c.ligne;
      sortie_ << (c.faute ? Selon(": faute : ", ": fault: ") : Selon(": remarque : ", ": remark: "))
              << c.texte.En(langue_) << "\n";
    }
    if (constats.empty()) sortie_ << fichier << Selon(" : rien à redire.", ": nothing to say.") << "\n";
  }

  ordered_json EnJson(const std::string &fichier, const std::vector<Constat> &constats) const {
    ordered_json liste = ordered_json::array();
    for (const Constat &c : constats) {
      ordered_json un{{"genre", NomGenre(c.genre)}, {"faute", c.faute}};
      const auto etendue = [&](const char *nom, int premier, int dernier) {
        if (premier > 0)
          un[nom] = dernier > premier ? ordered_json{premier, dernier} : ordered_json{premier, premier};
      };
      if (c.ligne > 0) un["ligne"] = c.ligne;
      etendue("fils", c.fil, c.dernierFil);
      etendue("duites", c.duite, c.derniereDuite);
      if (c.lame > 0) un["lame"] = c.lame;
      if (c.longueur > 0) un["longueur"] = c.longueur;
      un["texte"] = c.texte.En(langue_);
      liste.push_back(std::move(un));
    }
    return {{"fichier", EnUtf8(fichier)}, {"faute", ContientFaute(constats)}, {"constats", std::move(liste)}};
  }

  int Info() {
    return PourChaqueFichier([&](const std::string &f) {
      const Motif m = LireMotif(f);
      std::set<Couleur> couleurs(m.chaine.begin(), m.chaine.end());
      couleurs.insert(m.trame.begin(), m.trame.end());
      if (d_.json) {
        const ordered_json j{{"fichier", EnUtf8(f)},     {"titre", m.titre},
                             {"auteur", m.auteur},       {"programme", m.programme},
                             {"version", m.version},     {"fils", m.Fils()},
                             {"duites", m.Duites()},     {"lames", m.lames},
                             {"pedales", m.pedales},     {"plan", m.liftplan ? "liftplan" : "pedalage"},
                             {"baissante", m.baissante}, {"couleurs", couleurs.size()}};
        sortie_ << j.dump(2) << "\n";
        return 0;
      }
      const auto dire = [&](const char *fr, const char *en, const std::string &quoi) {
        if (!quoi.empty()) sortie_ << Selon(fr, en) << quoi << "\n";
      };
      dire("Titre :               ", "Title:              ", m.titre);
      dire("Auteur :              ", "Author:             ", m.auteur);
      dire("Programme d'origine : ", "Source program:     ", m.programme);
      dire("Version :             ", "Version:            ", m.version);
      dire("Fils de chaîne :      ", "Warp ends:          ", std::to_string(m.Fils()));
      dire("Duites :              ", "Picks:              ", std::to_string(m.Duites()));
      dire("Lames :               ", "Harnesses:          ", std::to_string(m.lames));
      dire("Pédales :             ", "Treadles:           ", std::to_string(m.pedales));
      dire("Plan :                ", "Plan:               ",
           m.liftplan ? Selon("plan de levée", "lift plan")
                      : Selon("attachage et pédalage", "tie-up and treadling"));
      dire("Foule :               ", "Shed:               ",
           m.baissante ? Selon("baissante", "sinking") : Selon("montante", "rising"));
      dire("Couleurs :            ", "Colours:            ", std::to_string(couleurs.size()));
      return 0;
    });
  }

  const Demande &d_;
  const Langue langue_;
  const std::string &dossier_;
  std::ostream &sortie_, &erreurs_;
  std::set<fs::path> noms_;
};
}  // namespace

int Executer(const Demande &demande, Langue langue, const std::string &dossierExecutable,
             std::ostream &sortie, std::ostream &erreurs) {
  return Travail(demande, langue, dossierExecutable, sortie, erreurs).Faire();
}
