#include "motifs/LectureMotif.h"

#include <algorithm>
#include <filesystem>
#include <map>

#include "motifs/Couleurs.h"
#include "motifs/Encodage.h"
#include "motifs/Fichier.h"
#include "motifs/Valeurs.h"

namespace {
constexpr int kPedalesDessinees = kLamesMax;

class Lecteur {
 public:
  explicit Lecteur(Motif &motif) : m_(motif), valeurs_(motif.chemin) {}

  void Lire() {
    m_.sections = CouperSections(*m_.octets, m_.chemin);
    LireEntetes();
    LirePlan();
    LireEnfilage();
    Completer();
    LireCouleurs(m_, valeurs_);
    LireSeparations();
    for (auto &[genre, recolte] : recoltes_) m_.constats.push_back(recolte.Faire(plusieurs_[genre]));
  }

 private:
  const Section *Trouver(std::string_view nom) const {
    for (const Section &s : m_.sections)
      if (MemeMot(s.nom, nom)) return &s;
    return nullptr;
  }

  void LireEntetes() {
    if (m_.sections.empty() || !MemeMot(m_.sections[0].nom, "WIF"))
      m_.constats.push_back({Constat::SansEntete,
                             false,
                             {"l'en-tête [WIF] manque.", "the header [WIF] is missing."},
                             Lieu::Ligne(1)});
    const auto texte = [](std::string &cible) {
      return [&cible](const LigneCle &c) {
        if (cible.empty()) cible = Abreger(EnUtf8(c.brut), kCaracteresMax);
      };
    };
    std::string programme, versionProgramme;
    m_.PourChaqueCle("WIF", [&](const LigneCle &c) {
      if (MemeMot(c.cle, "Version")) texte(m_.version)(c);
      if (MemeMot(c.cle, "Source Program")) texte(programme)(c);
      if (MemeMot(c.cle, "Source Version")) texte(versionProgramme)(c);
    });
    m_.programme = programme + (programme.empty() || versionProgramme.empty() ? "" : " ") + versionProgramme;
    m_.PourChaqueCle("TEXT", [&](const LigneCle &c) {
      if (MemeMot(c.cle, "Title")) texte(m_.titre)(c);
      if (MemeMot(c.cle, "Author")) texte(m_.auteur)(c);
    });
    m_.PourChaqueCle("WEAVING", [&](const LigneCle &c) {
      if (MemeMot(c.cle, "Rising Shed") && !c.valeur.empty())
        m_.baissante = !valeurs_.OuiNon(c.valeur, c.ligne);
    });
    m_.PourChaqueCle("WEAVING", [&](const LigneCle &c) {
      const bool lames = MemeMot(c.cle, "Shafts"), pedales = MemeMot(c.cle, "Treadles");
      if (!lames && !pedales && !MemeMot(c.cle, "Rising Shed")) return;
      if (Omise(c, lames || pedales)) return;
      if (lames) m_.lames = valeurs_.Nombre(c.valeur, c.ligne, kLamesMax, kMotsLame);
      if (pedales) m_.pedales = valeurs_.Nombre(c.valeur, c.ligne, kFilsMax, kMotsPedale);
      if (lames || pedales) (lames ? lamesDeclarees_ : pedalesDeclarees_) = Lieu::Ligne(c.ligne);
    });
    const auto compte = [&](int &cible, int &ligne) {
      return [&](const LigneCle &c) {
        if (!MemeMot(c.cle, "Threads") || c.valeur.empty()) return;
        cible = valeurs_.Nombre(c.valeur, c.ligne, kFilsMax, kMotsFil);
        ligne = c.ligne;
      };
    };
    m_.PourChaqueCle("WARP", compte(filsDeclares_, ligneFils_));
    m_.PourChaqueCle("WEFT", compte(duitesDeclarees_, ligneDuites_));
  }

  // A setting that says nothing is told and passed over. Which harnesses a sinking shed leaves up hangs on
  // their count; of a rising one the plan says it all.
  bool Omise(const LigneCle &c, bool compte) {
    long long nombre = 0;
    const bool illisible = compte && !m_.baissante && !EnNombre(c.valeur, nombre);
    if (!c.valeur.empty() && !illisible) return false;
    Noter(Constat::ValeurOmise, Lieu::Ligne(c.ligne),
          {"aucune valeur lisible, laissée", "no value that can be read, passed over"});
    return true;
  }

  // The number at the head of a line, 0 for a line that says nothing.
  std::size_t Place(const LigneCle &c, const MotsNombre &motsCle) {
    if (!c.egal) {
      Noter(Constat::SansEgal, Lieu::Ligne(c.ligne),
            {"sans signe =, prise pour une ligne vide", "without the sign =, taken for an empty line"});
      long long nombre = 0;
      if (!EnNombre(c.cle, nombre) || nombre < 1 || nombre > kFilsMax) return 0;
      return static_cast<std::size_t>(nombre);
    }
    return static_cast<std::size_t>(valeurs_.Cle(c, kFilsMax, motsCle));
  }

  void NoterDouble(int ligne, const MotsNombre &mots, std::size_t place) {
    const std::string n = " " + std::to_string(place);
    Noter(Constat::CleDouble, Lieu::Ligne(ligne),
          {mots.fr + n + " est là deux fois ; la première compte",
           mots.en + n + " is there twice; the first counts"},
          {"lignes en double, dont la première compte", "lines there twice, the first of which counts"});
  }

  // One set of numbers for each key of a section. A key that stands twice counts as it stood first.
  std::vector<Lames> LireTable(std::string_view nom, const MotsNombre &mots, const MotsNombre &motsCle,
                               std::vector<bool> &vues) {
    std::vector<Lames> table;
    m_.PourChaqueCle(nom, [&](const LigneCle &c) {
      const std::size_t place = Place(c, motsCle);
      if (place == 0) return;
      const Lames lames = valeurs_.Liste(c.valeur, c.ligne, mots);
      Agrandir(table, place, Lames{0});
      Agrandir(vues, place, false);
      if (!vues[place - 1])
        table[place - 1] = lames;
      else if (table[place - 1] != lames)
        NoterDouble(c.ligne, motsCle, place);
      vues[place - 1] = true;
    });
    return table;
  }

  template <class T>
  static void Agrandir(std::vector<T> &table, std::size_t taille, T vide) {
    if (table.size() < taille) table.resize(taille, vide);
  }

  void LirePlan() {
    const Section *attaches = Trouver("TIEUP"), *pedalage = Trouver("TREADLING");
    std::vector<Lames> leve;
    std::vector<bool> vues, autres;
    if (Trouver("LIFTPLAN")) leve = LireTable("LIFTPLAN", kMotsLame, kMotsDuite, vues);
    m_.liftplan = !leve.empty();
    if (attaches) m_.attaches = LireTable("TIEUP", kMotsLame, kMotsPedale, autres);
    std::vector<Lames> foulees;
    std::vector<bool> &vuesFoulees = m_.liftplan ? autres : vues;
    vuesFoulees.clear();
    if (attaches && pedalage) foulees = LirePedalage(vuesFoulees);
    if (m_.liftplan)
      ComparerFormes(leve, std::move(foulees));
    else if (foulees.empty())
      RefuserSansPlan(attaches, pedalage);
    else
      leve = std::move(foulees);
    m_.foules = std::move(leve);
    for (std::size_t i = 0; i < vues.size(); ++i) {
      if (vues[i]) continue;
      const int d = static_cast<int>(i) + 1;
      if (m_.absentes.empty() || m_.absentes.back().derniereDuite != d - 1)
        m_.absentes.push_back(Lieu::Duites(d, d));
      else
        m_.absentes.back().derniereDuite = d;
    }
    if (m_.liftplan) {
      m_.attaches.clear();
      m_.pedalage.clear();
    }
  }

  // Sheds by treadles; the treadles of each pick go into the pattern as long as they can be drawn.
  std::vector<Lames> LirePedalage(std::vector<bool> &vues) {
    std::vector<Lames> foulees;
    bool dessinable = true;
    m_.PourChaqueCle("TREADLING", [&](const LigneCle &c) {
      const std::size_t place = Place(c, kMotsDuite);
      if (place == 0) return;
      const auto attache = [&](int p) {
        return p <= static_cast<int>(m_.attaches.size()) ? m_.attaches[static_cast<std::size_t>(p - 1)]
                                                         : Lames{0};
      };
      Lames foule = 0, pedales = 0;
      valeurs_.PourChaqueNombre(c.valeur, c.ligne, kFilsMax, kMotsPedale, [&](int p) {
        pedaleMax_ = std::max(pedaleMax_, p);
        foule |= attache(p);
        if (attache(p) == 0 && !m_.liftplan) {
          Lieu ou = Lieu::Duites(static_cast<int>(place), static_cast<int>(place));
          ou.ligne = c.ligne;
          ou.pedale = p;
          Noter(Constat::PedaleSansAttache, ou,
                {"foulée, et rien n'y est attaché", "pressed, and nothing is tied to it"},
                {"pédales foulées où rien n'est attaché", "treadles pressed that nothing is tied to"});
        }
        if (p <= kPedalesDessinees)
          pedales |= Lame(p);
        else
          dessinable = false;
      });
      Agrandir(foulees, place, Lames{0});
      Agrandir(m_.pedalage, place, Lames{0});
      Agrandir(vues, place, false);
      if (vues[place - 1]) {
        if (foulees[place - 1] != foule) NoterDouble(c.ligne, kMotsDuite, place);
        return;
      }
      vues[place - 1] = true;
      foulees[place - 1] = foule;
      m_.pedalage[place - 1] = pedales;
    });
    if (!dessinable) m_.pedalage.clear();
    return foulees;
  }

  void ComparerFormes(const std::vector<Lames> &leve, const std::vector<Lames> &foulees) {
    if (foulees.empty() || leve == foulees) return;
    const auto pareilles = std::min(leve.size(), foulees.size());
    const auto a =
        std::mismatch(leve.begin(), leve.begin() + static_cast<std::ptrdiff_t>(pareilles), foulees.begin())
            .first;
    const int duite = static_cast<int>(a - leve.begin()) + 1;
    // Picks that lift nothing are no difference at the end.
    const auto &plus = leve.size() > foulees.size() ? leve : foulees;
    if (static_cast<std::size_t>(duite) > pareilles &&
        std::all_of(plus.begin() + static_cast<std::ptrdiff_t>(pareilles), plus.end(),
                    [](Lames l) { return l == 0; }))
      return;
    const std::string n = std::to_string(duite);
    Lieu ou = Lieu::Duites(duite, duite);
    ou.ligne = Trouver("LIFTPLAN")->ligne;
    m_.constats.push_back(
        {Constat::FormesDifferentes,
         true,
         {"le plan de levée et le pédalage diffèrent dès la duite " + n + " ; le plan de levée compte.",
          "lift plan and treadling differ from pick " + n + " on; the lift plan counts."},
         ou});
  }

  [[noreturn]] void RefuserSansPlan(const Section *attaches, const Section *pedalage) {
    if (pedalage && !attaches)
      throw Refus(m_.chemin, pedalage->ligne,
                  {"le pédalage est là, mais l'attachage [TIEUP] manque.",
                   "the treadling is there, but the tie-up [TIEUP] is missing."});
    if (attaches && !pedalage)
      throw Refus(m_.chemin, attaches->ligne,
                  {"l'attachage est là, mais le pédalage [TREADLING] manque.",
                   "the tie-up is there, but the treadling [TREADLING] is missing."});
    if (const Section *vide = pedalage ? pedalage : Trouver("LIFTPLAN"))
      throw Refus(m_.chemin, vide->ligne, {"le plan n'a aucune duite.", "the plan has no pick."});
    const auto fins = std::count(m_.octets->begin(), m_.octets->end(), '\n');
    throw Refus(m_.chemin, static_cast<int>(fins) + 1,
                {"jusqu'à la fin ni plan de levée [LIFTPLAN], ni attachage et pédalage [TIEUP] [TREADLING].",
                 "to the end neither a lift plan [LIFTPLAN] nor tie-up and treadling [TIEUP] [TREADLING]."});
  }

  void LireEnfilage() {
    std::vector<bool> vues;
    m_.enfilage = LireTable("THREADING", kMotsLame, kMotsFil, vues);
  }

  // What is declared beside what is given, harnesses that only the plan names, the sinking shed turned over.
  // Threads that no line names are no threads: a plan of six picks does not weave 1194 empty ones.
  void Completer() {
    if (!m_.enfilage.empty())
      ComparerCompte(filsDeclares_, ligneFils_, m_.enfilage.size(), {"fils de chaîne", "warp ends"}, "s");
    ComparerCompte(duitesDeclarees_, ligneDuites_, m_.foules.size(), {"duites", "picks"}, "es");
    if (!m_.pedalage.empty()) m_.pedalage.resize(m_.foules.size());
    int haute = 0;
    for (const auto *table : {&m_.enfilage, &m_.foules, &m_.attaches})
      for (Lames l : *table) haute = std::max(haute, PlusHaute(l));
    DirePlusQueDeclare(lamesDeclarees_, m_.lames, haute,
                       {"lames annoncées, et la lame ", "harnesses declared, and harness "});
    DirePlusQueDeclare(pedalesDeclarees_, m_.pedales, pedaleMax_,
                       {"pédales annoncées, et la pédale ", "treadles declared, and treadle "});
    if (!m_.baissante) return;
    for (auto *table : {&m_.foules, &m_.attaches})
      for (Lames &l : *table) l = ~l & LamesJusqua(m_.lames);
  }

  void ComparerCompte(int declares, int ligne, std::size_t donnes, const Phrase &quoi,
                      const std::string &accord) {
    if (ligne == 0 || declares == static_cast<int>(donnes)) return;
    const std::string d = std::to_string(declares) + " ", g = std::to_string(donnes);
    const bool moins = donnes < static_cast<std::size_t>(declares);
    m_.constats.push_back(
        {Constat::ComptesDifferents,
         false,
         {d + quoi.fr + " annoncé" + accord + ", " + g + " donné" + accord +
              (moins ? " ; le reste est laissé." : "."),
          d + quoi.en + " declared, " + g + " given" + (moins ? "; the rest is left out." : ".")},
         Lieu::Ligne(ligne)});
  }

  void DirePlusQueDeclare(const Lieu &ou, int &compte, int haute, const Phrase &quoi) {
    if (ou.ligne > 0 && haute > compte)
      m_.constats.push_back({Constat::AuDelaDuCompte,
                             false,
                             {std::to_string(compte) + " " + quoi.fr + std::to_string(haute) + " sert.",
                              std::to_string(compte) + " " + quoi.en + std::to_string(haute) + " is used."},
                             ou});
    compte = std::max(compte, haute);
  }

  // The empty picks that this program put between repeats.
  void LireSeparations() {
    m_.PourChaqueCle(kSectionSeparations, [&](const LigneCle &c) {
      if (!MemeMot(c.cle, kCleSeparations)) return;
      for (std::size_t debut = 0; debut <= c.valeur.size();) {
        const auto virgule = std::min(c.valeur.find(',', debut), c.valeur.size());
        long long d = 0;
        if (EnNombre(Rogner(c.valeur.substr(debut, virgule - debut)), d) && d >= 1 && d <= m_.Duites() &&
            (m_.separations.empty() || d > m_.separations.back()))
          m_.separations.push_back(static_cast<int>(d));
        debut = virgule + 1;
      }
    });
  }

  void Noter(Constat::Genre genre, const Lieu &ou, const Phrase &phrase, const Phrase &plusieurs = {}) {
    recoltes_.try_emplace(genre, genre, false, phrase).first->second.Ajouter(ou);
    plusieurs_[genre] = plusieurs;
  }

  static constexpr int kCaracteresMax = 300;  // of a title; some put a whole book there
  Motif &m_;
  Valeurs valeurs_;
  std::map<Constat::Genre, Recolte> recoltes_;  // what is told in one row however often it is there
  std::map<Constat::Genre, Phrase> plusieurs_;
  Lieu lamesDeclarees_, pedalesDeclarees_;
  int pedaleMax_ = 0;
  int filsDeclares_ = 0, ligneFils_ = 0, duitesDeclarees_ = 0, ligneDuites_ = 0;
};
}  // namespace

Motif ComprendreMotif(std::string octets, const std::string &chemin) {
  Motif motif;
  motif.chemin = chemin;
  motif.octets = std::make_shared<const std::string>(std::move(octets));
  Lecteur(motif).Lire();
  return motif;
}

Motif LireMotif(const std::string &chemin) {
  const std::string fin = std::filesystem::path(chemin).extension();
  for (const char *autre : {".dtx", ".wpo", ".dbw"})
    if (MemeMot(fin, autre))
      throw Refus(chemin, 0,
                  {"c'est la forme d'un autre programme ; là-bas : Enregistrer sous, WIF.",
                   "this is another program's own form; there: Save as WIF."});
  return ComprendreMotif(LireFichier(chemin), chemin);
}
