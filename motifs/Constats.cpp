#include "motifs/Constats.h"

#include <algorithm>
#include <array>

namespace {
std::string N(int n) { return std::to_string(n); }

// "pick 3", "picks 3 to 9".
Phrase Etendue(const char *fr, const char *frs, const char *en, const char *ens, int premier, int dernier) {
  if (premier == dernier) return {fr + (" " + N(premier)), en + (" " + N(premier))};
  return {frs + (" " + N(premier)) + " à " + N(dernier), ens + (" " + N(premier)) + " to " + N(dernier)};
}
Phrase Duites(int a, int b) { return Etendue("duite", "duites", "pick", "picks", a, b); }
Phrase Fils(int a, int b) { return Etendue("fil", "fils", "end", "ends", a, b); }

class Examen {
 public:
  Examen(const Motif &motif, int flotte) : m_(motif), flotte_(flotte), constats_(motif.constats) {
    for (Lames l : m_.foules) levees_ |= l;
    for (Lames l : m_.enfilage) enfilees_ |= l;
  }

  std::vector<Constat> Faire() {
    VoirMetiers();
    VoirDuites();
    VoirFils();
    VoirLames();
    FlottesChaine();
    FlottesTrame();
    DireAutres();
    return std::move(constats_);
  }

 private:
  void Ajouter(Constat c) {
    if (++nombres_[static_cast<std::size_t>(c.genre)] <= static_cast<int>(kConstatsMax))
      constats_.push_back(std::move(c));
  }

  void VoirMetiers() {
    const int haute = PlusHaute(levees_ | enfilees_);
    if (haute > kLamesMetier)
      Ajouter({Constat::LamesAuDela24,
               true,
               {"lame " + N(haute) + " : le plus grand métier en a 24.",
                "harness " + N(haute) + ": the larger loom has 24."},
               0,
               0,
               0,
               PremiereDuite(LamesJusqua(kLamesMetier)),
               0,
               haute});
    else if (haute > kLamesPetitMetier)
      Ajouter({Constat::LamesAuDela16,
               false,
               {"lame " + N(haute) + " : pour le métier de 24 lames seulement.",
                "harness " + N(haute) + ": for the loom of 24 harnesses only."},
               0,
               0,
               0,
               PremiereDuite(LamesJusqua(kLamesPetitMetier)),
               0,
               haute});
    if (m_.Duites() > kDuitesMetier)
      Ajouter({Constat::TropDeDuites,
               true,
               {N(m_.Duites()) + " duites : Brandis en prend 2500.",
                N(m_.Duites()) + " picks: Brandis takes 2500."},
               0,
               0,
               0,
               kDuitesMetier + 1,
               m_.Duites()});
  }

  // The first pick that lifts a harness outside the set, 0 for none.
  int PremiereDuite(Lames permises) const {
    const auto d =
        std::find_if(m_.foules.begin(), m_.foules.end(), [&](Lames l) { return (l & ~permises) != 0; });
    return d == m_.foules.end() ? 0 : static_cast<int>(d - m_.foules.begin()) + 1;
  }

  // Calls faire(first, last) for each stretch of equal successive values, counted from 1.
  template <class T, class F>
  static void Etendues(const std::vector<T> &valeurs, F &&faire) {
    for (std::size_t debut = 0, i = 1; debut < valeurs.size(); ++i)
      if (i == valeurs.size() || valeurs[i] != valeurs[debut]) {
        faire(static_cast<int>(debut) + 1, static_cast<int>(i));
        debut = i;
      }
  }

  void VoirDuites() {
    Etendues(m_.foules, [&](int a, int b) {
      const Phrase ou = Duites(a, b);
      const bool vide = m_.foules[static_cast<std::size_t>(a - 1)] == 0;
      if (vide)
        Ajouter({Constat::DuiteVide,
                 true,
                 {ou.fr + " : aucune lame levée.", ou.en + ": no harness is lifted."},
                 0,
                 0,
                 0,
                 a,
                 b});
      else if (b > a)
        Ajouter({Constat::DuiteRepetee,
                 false,
                 {ou.fr + " : la même foule se répète.", ou.en + ": the same shed repeats."},
                 0,
                 0,
                 0,
                 a,
                 b});
    });
  }

  void VoirFils() {
    if (m_.enfilage.empty())
      return Ajouter({Constat::SansEnfilage, false, {"l'enfilage manque.", "the threading is missing."}});
    Etendues(m_.enfilage, [&](int a, int b) {
      const Phrase ou = Fils(a, b);
      if (m_.enfilage[static_cast<std::size_t>(a - 1)] == 0)
        Ajouter({Constat::FilSansLame,
                 true,
                 {ou.fr + " : sur aucune lame.", ou.en + ": on no harness."},
                 0,
                 a,
                 b});
    });
  }

  void VoirLames() {
    for (int l = 1; l <= m_.lames; ++l) {
      if (levees_ & Lame(l)) continue;
      const bool enfilee = (enfilees_ & Lame(l)) != 0;
      Constat c{Constat::LameJamaisLevee,
                enfilee,
                {"lame " + N(l) + " : jamais levée" + (enfilee ? ", et des fils y passent." : "."),
                 "harness " + N(l) + ": never lifted" + (enfilee ? ", and ends are on it." : ".")}};
      c.lame = l;
      Ajouter(std::move(c));
    }
  }

  // Ends that lie on the same harnesses float alike; neighbours are told together.
  void FlottesChaine() {
    Etendues(m_.enfilage, [&](int a, int b) {
      const Lames lames = m_.enfilage[static_cast<std::size_t>(a - 1)];
      if (lames == 0) return;
      std::vector<char> leve(m_.foules.size());
      std::transform(m_.foules.begin(), m_.foules.end(), leve.begin(),
                     [lames](Lames f) { return (f & lames) != 0; });
      Etendues(leve, [&](int c, int d) {
        if (d - c + 1 <= flotte_) return;
        const Phrase fils = Fils(a, b), duites = Duites(c, d);
        const bool dessus = leve[static_cast<std::size_t>(c - 1)];
        Ajouter({Constat::FlotteChaine,
                 true,
                 {fils.fr + ", " + duites.fr + " : flotté de chaîne de " + N(d - c + 1) +
                      (dessus ? " dessus." : " dessous."),
                  fils.en + ", " + duites.en + ": warp float of " + N(d - c + 1) +
                      (dessus ? " above." : " below.")},
                 0,
                 a,
                 b,
                 c,
                 d,
                 0,
                 d - c + 1});
      });
    });
  }

  void FlottesTrame() {
    if (m_.enfilage.empty()) return;
    std::vector<char> leve(m_.enfilage.size());
    Etendues(m_.foules, [&](int a, int b) {
      const Lames foule = m_.foules[static_cast<std::size_t>(a - 1)];
      if (foule == 0) return;
      std::transform(m_.enfilage.begin(), m_.enfilage.end(), leve.begin(),
                     [foule](Lames l) { return (l & foule) != 0; });
      Etendues(leve, [&](int c, int d) {
        if (d - c + 1 <= flotte_) return;
        const Phrase fils = Fils(c, d), duites = Duites(a, b);
        const bool dessous = leve[static_cast<std::size_t>(c - 1)];
        Ajouter({Constat::FlotteTrame,
                 true,
                 {duites.fr + ", " + fils.fr + " : flotté de trame de " + N(d - c + 1) +
                      (dessous ? " dessous." : " dessus."),
                  duites.en + ", " + fils.en + ": weft float of " + N(d - c + 1) +
                      (dessous ? " below." : " above.")},
                 0,
                 c,
                 d,
                 a,
                 b,
                 0,
                 d - c + 1});
      });
    });
  }

  void DireAutres() {
    for (std::size_t g = 0; g < nombres_.size(); ++g) {
      const int autres = nombres_[g] - static_cast<int>(kConstatsMax);
      if (autres <= 0) continue;
      const std::string nom = NomGenre(static_cast<Constat::Genre>(g));
      constats_.push_back(
          {Constat::Autres,
           false,
           {"et " + N(autres) + " autres (" + nom + ").", "and " + N(autres) + " more (" + nom + ")."}});
    }
  }

  const Motif &m_;
  int flotte_;
  std::vector<Constat> constats_;
  std::array<int, Constat::Autres + 1> nombres_{};
  Lames levees_ = 0, enfilees_ = 0;
};
}  // namespace

std::vector<Constat> Verifier(const Motif &motif, int flotte) { return Examen(motif, flotte).Faire(); }

bool ContientFaute(const std::vector<Constat> &constats) {
  return std::any_of(constats.begin(), constats.end(), [](const Constat &c) { return c.faute; });
}

const char *NomGenre(Constat::Genre genre) {
  constexpr const char *noms[] = {
      "sans-entete",   "cle-double",    "formes-differentes",   "comptes-differents",
      "lames-16",      "lames-24",      "trop-de-duites",       "duite-vide",
      "duite-repetee", "fil-sans-lame", "lame-jamais-levee",    "flotte-chaine",
      "flotte-trame",  "sans-enfilage", "enfilages-differents", "autres"};
  return noms[genre];
}
