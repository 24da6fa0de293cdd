#include "app-motifs/Verbes.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <ostream>
#include <set>

#include "app-motifs/Dessinateur.h"
#include "app-motifs/Poste.h"
#include "motifs/Assemblage.h"
#include "motifs/Constats.h"
#include "motifs/CouleursTrame.h"
#include "motifs/DossierBrandis.h"
#include "motifs/Encodage.h"
#include "motifs/Fichier.h"
#include "motifs/Flottes.h"
#include "motifs/FormeTissable.h"
#include "motifs/LectureMotif.h"
#include "motifs/Ramener.h"

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
      case Verbe::Ramener:
        return PourChaqueFichier([this](const std::string &f) { return Ramener(f); });
      case Verbe::Couleurs:
        return PourChaqueFichier([this](const std::string &f) {
          sortie_ << FeuilleCouleurs(LirePartie(f), langue_);
          return 0;
        });
      case Verbe::Projet16:
        return PourChaqueFichier([this](const std::string &f) { return Projet16(f); });
      case Verbe::Fenetre:
        break;
    }
    return 0;
  }

 private:
  static constexpr int kFaute = 1, kRefus = 2;

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

  // The picks that the word or the option names, as a pattern of their own. What is read is not written over.
  Motif LirePartie(const std::string &mot) const {
    const auto [chemin, partie] = SeparerEtendue(mot);
    ExigerAutreFichier(chemin, d_.sortie);
    return Extraire(LireMotif(chemin), partie.Toute() ? d_.duites : partie);
  }

  // Says what will not come off the loom as drawn; the exit status that belongs to it.
  int DireFautes(const std::string &fichier, const std::vector<Constat> &fautes) {
    for (const Constat &c : fautes) erreurs_ << Rangee(fichier, c);
    return fautes.empty() ? 0 : kFaute;
  }

  // A path is printed as it is for other programs, but no terminal gets its control characters.
  void DireChemin(const std::string &chemin) {
    sortie_ << (isatty(STDOUT_FILENO) ? EnUtf8(chemin) : chemin) << "\n";
  }

  int Convertir(const std::string &fichier) {
    const Motif motif = LirePartie(fichier);
    // Of two files of one name the second would replace the first.
    const bool remplacer = d_.remplacer && noms_.insert(fs::path(motif.chemin).stem()).second;
    const int etat = DireFautes(fichier, Fautes(motif, d_.lames));
    DireChemin(::Convertir(motif, DossierVers(), remplacer));
    return etat;
  }

  int Dessiner(const std::string &fichier) {
    const auto [chemin, partie] = SeparerEtendue(fichier);
    const Motif motif = LireMotif(chemin);
    ExigerAutreFichier(chemin, d_.sortie);
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
    int etat = PourChaqueFichier([&](const std::string &f) {
      pieces.push_back({LirePartie(f), d_.fois[pieces.size()]});
      return DireFautes(f, FautesDeLecture(pieces.back().motif));
    });
    if (etat == kRefus) return etat;
    try {
      for (const Constat &c : ComparerChaines(pieces)) erreurs_ << c.texte.En(langue_) << "\n";
      etat = std::max(etat, Ecrire(::Assembler(pieces, d_.separer)));
    } catch (const Refus &r) {
      erreurs_ << r.En(langue_) << "\n";
      return kRefus;
    }
    return etat;
  }

  // What the new form will not show any more: there an absent pick is an empty one.
  static std::vector<Constat> FautesDeLecture(const Motif &motif) {
    std::vector<Constat> fautes = Fautes(motif);
    std::erase_if(fautes, [](const Constat &c) {
      return c.genre != Constat::DuiteAbsente && c.genre != Constat::FormesDifferentes;
    });
    return fautes;
  }

  // What a new form raises otherwise is said before it is written.
  int Ecrire(const std::string &forme) {
    const int etat = DireFautes(d_.sortie, Fautes(ComprendreMotif(forme, d_.sortie), d_.lames));
    EcrireFichier(d_.sortie, forme, d_.remplacer);
    return etat;
  }

  int Enfilage(const std::string &fichier) {
    return Ecrire(EnfilageTissable(LirePartie(fichier), d_.groupe, langue_));
  }

  int Ramener(const std::string &fichier) {
    const Motif motif = LirePartie(fichier);
    const Ramene ramene = ::Ramener(motif, d_.lames);
    const int etat = Ecrire(FormeSurEnfilage(motif, ramene.enfilage, ramene.foules, ramene.lames));
    for (const Phrase &p : ramene.pas) sortie_ << p.En(langue_) << "\n";
    if (!ramene.change)
      sortie_ << Selon("Toutes les foules sortent déjà comme dessinées.",
                       "Every shed goes out as drawn already.")
              << "\n";
    return etat;
  }

  int Projet16(const std::string &fichier) {
    const Motif lu = LirePartie(fichier);
    std::vector<Constat> fautes = Fautes(lu, kLamesPetitMetier);
    if (d_.projet.option != 1)
      fautes.push_back(
          {Constat::ToileAReprendre,
           true,
           {"à la reprise les duites de toile sont vides ; « Toile + » (ou « Toile ») les remplit.",
            "after Resume the tabby picks are empty; Tabby + (or Tabby) fills them."}});
    const int etat = DireFautes(fichier, fautes);
    const auto [motif, ancien] = FaireProjet16(lu, DossierVers(), d_.projet, d_.remplacer);
    DireChemin(motif);
    if (!ancien.empty())
      sortie_ << Selon("l'ancien projet est gardé : ", "the earlier project is kept: ") << EnUtf8(ancien)
              << "\n";
    return etat;
  }

  int Verifier() {
    ordered_json liste = ordered_json::array();
    const int etat = PourChaqueFichier([&](const std::string &f) {
      try {
        const std::vector<Constat> constats = ::Verifier(LirePartie(f), d_.flotte, d_.lames);
        if (d_.json)
          liste.push_back(EnJson(f, constats));
        else
          Dire(f, constats);
        return ContientFaute(constats) ? kFaute : 0;
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

  std::string Rangee(const std::string &fichier, const Constat &c) const {
    return EnUtf8(fichier) + (c.ligne > 0 ? ":" + std::to_string(c.ligne) : "") +
           (c.faute ? Selon(": faute : ", ": fault: ") : Selon(": remarque : ", ": remark: ")) +
           c.texte.En(langue_) + "\n";
  }

  void Dire(const std::string &fichier, const std::vector<Constat> &constats) {
    for (const Constat &c : constats) {
      sortie_ << Rangee(fichier, c);
      if (!d_.lieux || c.lieux.size() < 2) continue;
      for (const Lieu &l : c.lieux) sortie_ << "    " << TexteLieu(l).En(langue_) << "\n";
    }
    if (constats.empty())
      sortie_ << EnUtf8(fichier) << Selon(" : rien à redire.", ": nothing to say.") << "\n";
  }

  static void LieuEnJson(ordered_json &un, const Lieu &l) {
    const auto etendue = [&](const char *nom, int premier, int dernier) {
      if (premier > 0) un[nom] = {premier, std::max(premier, dernier)};
    };
    if (l.ligne > 0) un["ligne"] = l.ligne;
    etendue("fils", l.fil, l.dernierFil);
    etendue("duites", l.duite, l.derniereDuite);
    if (l.suite > 0) un["suite"] = l.suite;
    if (l.lame > 0) un["lame"] = l.lame;
    if (l.pedale > 0) un["pedale"] = l.pedale;
    if (l.cote != 0) un["cote"] = l.cote > 0 ? "dessus" : "dessous";
  }

  ordered_json EnJson(const std::string &fichier, const std::vector<Constat> &constats) const {
    ordered_json liste = ordered_json::array();
    for (const Constat &c : constats) {
      ordered_json un{{"genre", NomGenre(c.genre)}, {"faute", c.faute}};
      LieuEnJson(un, c);
      if (c.longueur > 0) un["longueur"] = c.longueur;
      un["nombre"] = c.nombre;
      un["texte"] = c.texte.En(langue_);
      if (c.lieux.size() > 1)
        for (const Lieu &l : c.lieux) {
          ordered_json lieu = ordered_json::object();
          LieuEnJson(lieu, l);
          un["lieux"].push_back(std::move(lieu));
        }
      liste.push_back(std::move(un));
    }
    return {{"fichier", EnUtf8(fichier)}, {"faute", ContientFaute(constats)}, {"constats", std::move(liste)}};
  }

  int Info() {
    return PourChaqueFichier([&](const std::string &f) {
      const Motif m = LireMotif(f);
      std::set<Couleur> couleurs(m.chaine.begin(), m.chaine.end());
      couleurs.insert(m.trame.begin(), m.trame.end());
      const Toile toile = ToileDe(m);
      if (d_.json) {
        const ordered_json j{{"fichier", EnUtf8(f)},     {"titre", m.titre},
                             {"auteur", m.auteur},       {"programme", m.programme},
                             {"version", m.version},     {"fils", m.Fils()},
                             {"duites", m.Duites()},     {"lames", m.lames},
                             {"pedales", m.pedales},     {"plan", m.liftplan ? "liftplan" : "pedalage"},
                             {"baissante", m.baissante}, {"couleurs", couleurs.size()},
                             {"voisins", toile.voisins}, {"voisins-reunis", toile.nombre}};
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
      if (toile.voisins > 0) sortie_ << Majuscule(TexteToile(toile).En(langue_)) << "\n";
      sortie_ << Majuscule(TexteReprise(m).En(langue_)) << "\n";
      return 0;
    });
  }

  static std::string Majuscule(std::string texte) {
    if (!texte.empty() && texte[0] >= 'a' && texte[0] <= 'z')
      texte[0] = static_cast<char>(texte[0] - 'a' + 'A');
    return texte;
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
