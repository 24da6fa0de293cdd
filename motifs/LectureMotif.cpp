#include "motifs/LectureMotif.h"

#include <algorithm>

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
  }

 private:
  const Section *Trouver(std::string_view nom) const {
    for (const Section &s : m_.sections)
      if (MemeMot(s.nom, nom)) return &s;
    return nullptr;
  }

  void LireEntetes() {
    if (m_.sections.empty() || !MemeMot(m_.sections[0].nom, "WIF"))
      Noter(Constat::SansEntete, 1, {"l'en-tête [WIF] manque.", "the header [WIF] is missing."});
    const auto texte = [](std::string &cible) {
      return [&cible](const LigneCle &c) {
        if (cible.empty()) cible = EnUtf8(c.brut);
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
      if (MemeMot(c.cle, "Shafts")) m_.lames = valeurs_.Nombre(c.valeur, c.ligne, kLamesMax, kMotsLame);
      if (MemeMot(c.cle, "Treadles")) m_.pedales = valeurs_.Nombre(c.valeur, c.ligne, kFilsMax, kMotsPedale);
      if (MemeMot(c.cle, "Rising Shed")) m_.baissante = !valeurs_.OuiNon(c.valeur, c.ligne);
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

  // One set of numbers for each key of a section. A key that stands twice counts as it stood first.
  std::vector<Lames> LireTable(std::string_view nom, const MotsNombre &mots, const MotsNombre &motsCle) {
    std::vector<Lames> table;
    std::vector<bool> vues;
    m_.PourChaqueCle(nom, [&](const LigneCle &c) {
      const auto place = static_cast<std::size_t>(valeurs_.Cle(c, kFilsMax, motsCle));
      const Lames lames = valeurs_.Liste(c.valeur, c.ligne, mots);
      Agrandir(table, place, Lames{0});
      Agrandir(vues, place, false);
      if (!vues[place - 1])
        table[place - 1] = lames;
      else if (table[place - 1] != lames)
        Noter(Constat::CleDouble, c.ligne,
              {"la clé " + std::to_string(place) + " est là deux fois ; la première compte.",
               "the key " + std::to_string(place) + " is there twice; the first counts."});
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
    if (Trouver("LIFTPLAN")) leve = LireTable("LIFTPLAN", kMotsLame, kMotsDuite);
    m_.liftplan = !leve.empty();
    if (attaches) m_.attaches = LireTable("TIEUP", kMotsLame, kMotsPedale);
    std::vector<Lames> foulees;
    if (attaches && pedalage) foulees = LirePedalage();
    if (m_.liftplan)
      ComparerFormes(leve, std::move(foulees));
    else if (foulees.empty())
      RefuserSansPlan(attaches, pedalage);
    else
      leve = std::move(foulees);
    m_.foules = std::move(leve);
    if (m_.liftplan) {
      m_.attaches.clear();
      m_.pedalage.clear();
    }
  }

  // Sheds by treadles; the treadles of each pick go into the pattern as long as they can be drawn.
  std::vector<Lames> LirePedalage() {
    std::vector<Lames> foulees;
    std::vector<bool> vues;
    bool dessinable = true;
    m_.PourChaqueCle("TREADLING", [&](const LigneCle &c) {
      const auto place = static_cast<std::size_t>(valeurs_.Cle(c, kFilsMax, kMotsDuite));
      Lames foule = 0, pedales = 0;
      valeurs_.PourChaqueNombre(c.valeur, c.ligne, kFilsMax, kMotsPedale, [&](int p) {
        m_.pedales = std::max(m_.pedales, p);
        if (p <= static_cast<int>(m_.attaches.size())) foule |= m_.attaches[static_cast<std::size_t>(p - 1)];
        if (p <= kPedalesDessinees)
          pedales |= Lame(p);
        else
          dessinable = false;
      });
      Agrandir(foulees, place, Lames{0});
      Agrandir(m_.pedalage, place, Lames{0});
      Agrandir(vues, place, false);
      if (vues[place - 1]) {
        if (foulees[place - 1] != foule)
          Noter(Constat::CleDouble, c.ligne,
                {"la duite " + std::to_string(place) + " est là deux fois ; la première compte.",
                 "pick " + std::to_string(place) + " is there twice; the first counts."});
        return;
      }
      vues[place - 1] = true;
      foulees[place - 1] = foule;
      m_.pedalage[place - 1] = pedales;
    });
    if (!dessinable) m_.pedalage.clear();
    return foulees;
  }

  void ComparerFormes(std::vector<Lames> leve, std::vector<Lames> foulees) {
    if (foulees.empty()) return;
    Agrandir(leve, foulees.size(), Lames{0});
    Agrandir(foulees, leve.size(), Lames{0});
    const auto a = std::mismatch(leve.begin(), leve.end(), foulees.begin()).first;
    if (a == leve.end()) return;
    const int duite = static_cast<int>(a - leve.begin()) + 1;
    const std::string n = std::to_string(duite);
    Constat c{Constat::FormesDifferentes,
              true,
              {"le plan de levée et le pédalage diffèrent dès la duite " + n + " ; le plan de levée compte.",
               "lift plan and treadling differ from pick " + n + " on; the lift plan counts."},
              Trouver("LIFTPLAN")->ligne};
    c.duite = c.derniereDuite = duite;
    m_.constats.push_back(std::move(c));
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

  void LireEnfilage() { m_.enfilage = LireTable("THREADING", kMotsLame, kMotsFil); }

  // Threads that are declared and not given, harnesses that only the plan names, the sinking shed turned
  // over.
  void Completer() {
    if (!m_.enfilage.empty()) {
      ComparerCompte(filsDeclares_, ligneFils_, m_.enfilage.size(), {"fils de chaîne", "warp ends"});
      Agrandir(m_.enfilage, static_cast<std::size_t>(filsDeclares_), Lames{0});
    }
    ComparerCompte(duitesDeclarees_, ligneDuites_, m_.foules.size(), {"duites", "picks"});
    Agrandir(m_.foules, static_cast<std::size_t>(duitesDeclarees_), Lames{0});
    if (!m_.pedalage.empty()) m_.pedalage.resize(m_.foules.size());
    for (const auto *table : {&m_.enfilage, &m_.foules, &m_.attaches})
      for (Lames l : *table) m_.lames = std::max(m_.lames, PlusHaute(l));
    if (!m_.baissante) return;
    for (auto *table : {&m_.foules, &m_.attaches})
      for (Lames &l : *table) l = ~l & LamesJusqua(m_.lames);
  }

  void ComparerCompte(int declares, int ligne, std::size_t donnes, const Phrase &quoi) {
    if (ligne == 0 || declares == static_cast<int>(donnes)) return;
    const std::string d = std::to_string(declares), g = std::to_string(donnes);
    Noter(Constat::ComptesDifferents, ligne,
          {d + " " + quoi.fr + " annoncés, " + g + " donnés.",
           d + " " + quoi.en + " declared, " + g + " given."});
    m_.constats.back().faute = true;
  }

  void Noter(Constat::Genre genre, int ligne, Phrase texte) {
    if (m_.constats.size() < kConstatsLecture) m_.constats.push_back({genre, false, std::move(texte), ligne});
  }

  static constexpr std::size_t kConstatsLecture = 1000;
  Motif &m_;
  Valeurs valeurs_;
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

Motif LireMotif(const std::string &chemin) { return ComprendreMotif(LireFichier(chemin), chemin); }
