#include "motifs/Constats.h"

#include <algorithm>

#include "motifs/Flottes.h"
#include "motifs/Levees.h"
#include "motifs/Ramener.h"

namespace {
std::string N(int n) { return std::to_string(n); }

class Examen {
 public:
  Examen(const Motif &motif, int lames) : m_(motif), lames_(lames), constats_(motif.constats) {
    for (Lames l : m_.foules) levees_ |= l;
    for (Lames l : m_.enfilage) enfilees_ |= l;
  }

  std::vector<Constat> Faire() {
    VoirMetiers();
    VoirTelQuel();
    VoirDuites();
    VoirFils();
    VoirLames();
    VoirToile();
    return std::move(constats_);
  }

 private:
  void Dire(Constat::Genre genre, bool faute, Phrase texte, const Lieu &ou = {}) {
    constats_.push_back({genre, faute, std::move(texte), ou});
  }
  void Dire(const Recolte &recolte, const Phrase &plusieurs = {}) {
    if (!recolte.Vide()) constats_.push_back(recolte.Faire(plusieurs));
  }

  void VoirMetiers() {
    VoirLevees(lames_, true);
    const int haute = PlusHaute(levees_ | enfilees_);
    if (lames_ != kLamesPetitMetier && haute <= kLamesPetitMetier) VoirLevees(kLamesPetitMetier, false);
    const auto lieu = [&](int permises) {
      const auto d = std::find_if(m_.foules.begin(), m_.foules.end(),
                                  [&](Lames l) { return (l & ~LamesJusqua(permises)) != 0; });
      const int n = d == m_.foules.end() ? 0 : static_cast<int>(d - m_.foules.begin()) + 1;
      Lieu ou = Lieu::Duites(n, n);
      ou.lame = haute;
      return ou;
    };
    if (haute > kLamesMetier)
      Dire(Constat::LamesAuDela24, true,
           {"lame " + N(haute) + " : le plus grand métier en a 24.",
            "harness " + N(haute) + ": the larger loom has 24."},
           lieu(kLamesMetier));
    else if (haute > kLamesPetitMetier)
      Dire(Constat::LamesAuDela16, lames_ == kLamesPetitMetier,
           {"lame " + N(haute) + " : pour le métier de 24 lames seulement.",
            "harness " + N(haute) + ": for the loom of 24 harnesses only."},
           lieu(kLamesPetitMetier));
    if (m_.Duites() > kDuitesMetier)
      Dire(Constat::TropDeDuites, true,
           {N(m_.Duites()) + " duites : Brandis en prend 2500.",
            N(m_.Duites()) + " picks: Brandis takes 2500."},
           Lieu::Duites(kDuitesMetier + 1, m_.Duites()));
    else if (m_.Duites() >= kDuitesPourLiaison)
      Dire(Constat::TropPourLiaison, false,
           {N(m_.Duites()) + " duites : Patron et Toile arrête Brandis à partir de 1250.",
            N(m_.Duites()) + " picks: Pattern and Tabby ends Brandis from 1250 on."});
  }

  void VoirLevees(int lames, bool faute) {
    const LeveesAutrement a = ComparerLevees(m_, lames);
    if (a.nombre == 0) return;
    const auto liste = [](Lames l, const char *rien) { return l ? ListeCourte(l) : std::string(rien); };
    const Phrase non = faute ? EmpechementARamener(m_, lames) : Phrase();
    const bool petit = lames == kLamesPetitMetier;
    Phrase voie{petit ? " « ramener --lames 16 » y remédie." : " « ramener » y remédie.",
                petit ? " \"fit --harnesses 16\" mends it." : " \"fit\" mends it."};
    if (!faute)
      voie = {};
    else if (!non.en.empty())
      voie = {" Sans remède : " + non.fr, " No way out: " + non.en};
    const std::string combien = N(a.nombre), de = N(m_.Duites()), premiere = N(a.duites.front());
    Constat c(lames == kLamesMetier ? Constat::LeveAutrement24 : Constat::LeveAutrement16, faute,
              {"sur " + N(lames) + " lames " + combien + " des " + de +
                   " duites sont levées autrement, d'abord la duite " + premiere + " : " +
                   liste(a.levees, "rien") + " au lieu de " + liste(a.dessinees, "rien") + "." + voie.fr,
               "on " + N(lames) + " harnesses " + combien + " of " + de +
                   " picks are raised otherwise, first pick " + premiere + ": " + liste(a.levees, "nothing") +
                   " instead of " + liste(a.dessinees, "nothing") + "." + voie.en},
              Lieu::Duites(a.duites.front(), a.duites.front()));
    c.nombre = a.nombre;
    c.lieux.clear();
    for (int d : a.duites) c.lieux.push_back(Lieu::Duites(d, d));
    constats_.push_back(std::move(c));
  }

  // What spoils a file that is opened as it stands; the weavable form mends all of it.
  void VoirTelQuel() {
    if (m_.extrait) return;
    const TelQuel t = LireTelQuel(m_);
    const Phrase voie{" ; la forme que ce programme écrit se tisse comme dessinée.",
                      "; the form that this program writes weaves as drawn."};
    const auto dire = [&](const std::string &fr, const std::string &en, int duite) {
      Dire(Constat::TelQuelAutrement, false,
           {"ouvert tel quel, " + fr + voie.fr, "opened as it stands, " + en + voie.en},
           Lieu::Duites(duite, duite));
    };
    if (t.echec > 0)
      dire("ce fichier arrête Brandis à la duite " + N(t.echec),
           "this file ends Brandis at pick " + N(t.echec), t.echec);
    else if (t.plan && t.autrement > 0)
      dire("ce fichier se lit autrement : " + N(t.autrement) + (t.autrement > 1 ? " duites" : " duite") +
               ", d'abord la duite " + N(t.premiere),
           "this file is read otherwise: " + N(t.autrement) + (t.autrement > 1 ? " picks" : " pick") +
               ", first pick " + N(t.premiere),
           t.premiere);
    else if (!t.ferme)
      dire("ce fichier gâte le suivant, qui se lit dans son plan",
           "this file spoils the next, which is read into its plan", 0);
  }

  void VoirDuites() {
    Recolte absentes(Constat::DuiteAbsente, true,
                     {"aucune ligne du plan ne la donne ; rien n'est levé",
                      "no line of the plan gives it; nothing is lifted"}),
        vides(Constat::DuiteVide, true, {"aucune lame levée", "no harness is lifted"}),
        nos(Constat::DuiteVide, false, {"séparation, aucune lame levée", "separation, no harness is lifted"}),
        repetees(Constat::DuiteRepetee, false, {"la même foule se répète", "the same shed repeats"});
    auto absente = m_.absentes.begin();
    Etendues(m_.foules, [&](int a, int b) {
      const auto d = static_cast<std::size_t>(a - 1);
      if (m_.foules[d] != 0) {
        if (b > a) repetees.Ajouter(Lieu::Duites(a, b));
        return;
      }
      for (int i = a; i <= b;) {
        while (absente != m_.absentes.end() && absente->derniereDuite < i) ++absente;
        const bool manque = absente != m_.absentes.end() && absente->duite <= i;
        if (manque) {
          i = absente->derniereDuite + 1;
          continue;
        }
        const int fin = absente == m_.absentes.end() ? b : std::min(b, absente->duite - 1);
        const bool la = std::binary_search(m_.separations.begin(), m_.separations.end(), i);
        if (la) {
          nos.Ajouter(Lieu::Duites(i, i));
          ++i;
        } else {
          int j = i;
          while (j < fin && !std::binary_search(m_.separations.begin(), m_.separations.end(), j + 1)) ++j;
          vides.Ajouter(Lieu::Duites(i, j), j - i + 1);
          i = j + 1;
        }
      }
    });
    for (const Lieu &l : m_.absentes) absentes.Ajouter(l, l.derniereDuite - l.duite + 1);
    if (m_.Duites() > 1 && m_.foules.front() == m_.foules.back() && m_.foules.front() != 0 &&
        std::any_of(m_.foules.begin(), m_.foules.end(), [&](Lames l) { return l != m_.foules.front(); })) {
      Lieu ou = Lieu::Duites(m_.Duites(), m_.Duites());
      ou.suite = 1;
      repetees.Ajouter(ou);
    }
    Dire(absentes, {"duites qu'aucune ligne du plan ne donne", "picks that no line of the plan gives"});
    Dire(vides, {"duites sans lame levée", "picks that lift no harness"});
    Dire(nos, {"séparations", "separations"});
    Dire(repetees, {"foules répétées", "repeated sheds"});
  }

  void VoirFils() {
    if (m_.enfilage.empty())
      return Dire(Constat::SansEnfilage, false, {"l'enfilage manque.", "the threading is missing."});
    Recolte sans(Constat::FilSansLame, true, {"sur aucune lame", "on no harness"});
    Etendues(m_.enfilage, [&](int a, int b) {
      if (m_.enfilage[static_cast<std::size_t>(a - 1)] == 0) sans.Ajouter(Lieu::Fils(a, b), b - a + 1);
    });
    Dire(sans, {"fils sur aucune lame", "ends on no harness"});
  }

  void VoirLames() {
    Lames libres = 0, tenues = 0;
    Recolte jamais(Constat::LameJamaisLevee, false, {"jamais levée", "never lifted"}),
        fils(Constat::LameJamaisLevee, false,
             {"jamais levée, et des fils y passent", "never lifted, and ends are on it"});
    for (int l = 1; l <= m_.lames; ++l) {
      if (levees_ & Lame(l)) continue;
      const bool tenue = (enfilees_ & Lame(l)) != 0;
      (tenue ? tenues : libres) |= Lame(l);
      (tenue ? fils : jamais).Ajouter(Lieu::UneLame(l));
    }
    Dire(fils, {"jamais levées, et des fils y passent (" + ListeCourte(tenues) + ")",
                "never lifted, and ends are on them (" + ListeCourte(tenues) + ")"});
    Dire(jamais, {"lames jamais levées (" + ListeCourte(libres) + ")",
                  "harnesses never lifted (" + ListeCourte(libres) + ")"});
  }

  void VoirToile() {
    const Toile t = ToileDe(m_);
    if (t.reunis.empty()) return;
    Constat c(Constat::ToileReunie, false, TexteToile(t), t.reunis.front());
    c.nombre = t.nombre;
    c.lieux = t.reunis;
    constats_.push_back(std::move(c));
  }

  const Motif &m_;
  const int lames_;
  std::vector<Constat> constats_;
  Lames levees_ = 0, enfilees_ = 0;
};
}  // namespace

std::vector<Constat> Verifier(const Motif &motif, int flotte, int lames) {
  std::vector<Constat> constats = Examen(motif, lames).Faire();
  for (Constat &c : Flottes(motif, flotte)) constats.push_back(std::move(c));
  std::stable_partition(constats.begin(), constats.end(), [](const Constat &c) { return c.faute; });
  return constats;
}

std::vector<Constat> Fautes(const Motif &motif, int lames) {
  std::vector<Constat> constats = Examen(motif, lames).Faire();
  std::erase_if(constats, [](const Constat &c) { return !c.faute; });
  return constats;
}

bool ContientFaute(const std::vector<Constat> &constats) {
  return std::any_of(constats.begin(), constats.end(), [](const Constat &c) { return c.faute; });
}

const char *NomGenre(Constat::Genre genre) {
  constexpr const char *noms[] = {"sans-entete",       "cle-double",          "sans-egal",
                                  "valeur-omise",      "formes-differentes",  "comptes-differents",
                                  "au-dela-du-compte", "pedale-sans-attache", "tel-quel-autrement",
                                  "leve-autrement-16", "leve-autrement-24",   "lames-16",
                                  "lames-24",          "trop-de-duites",      "trop-pour-liaison",
                                  "duite-absente",     "duite-vide",          "duite-repetee",
                                  "fil-sans-lame",     "lame-jamais-levee",   "flotte-sans-fin",
                                  "flotte-chaine",     "flotte-trame",        "sans-enfilage",
                                  "toile-reunie",      "toile-a-reprendre",   "enfilages-differents",
                                  "non-juge"};
  static_assert(std::size(noms) == Constat::NonJuge + 1);
  return noms[genre];
}
