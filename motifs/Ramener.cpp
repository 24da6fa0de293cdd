#include "motifs/Ramener.h"

#include <algorithm>
#include <array>
#include <bit>
#include <map>
#include <set>
#include <stdexcept>

#include "motifs/Arret.h"
#include "motifs/Levees.h"

namespace {
constexpr std::size_t kBesoinMax = 64;
using Rangee = std::vector<bool>;  // of a harness or an end: whether it is up, pick by pick

class Plan {
 public:
  Plan(const Motif &motif, int lames) : m_(motif), metier_(lames), sortent_(lames - 8) {
    for (Lames l : m_.enfilage) usage_ |= l;
    for (Lames u = usage_; u; u &= u - 1) {
      const int l = std::countr_zero(u) + 1;
      rangees_[static_cast<std::size_t>(l)] = Levee(Lame(l));
    }
  }

  // The new harness of each old one. False where this way does not do.
  bool ParLames() { return PeuDeFils() || LamesSerrees(); }

  // The new harness of each end, which may have hung on several: one for each way of moving.
  bool ParFils() {
    std::map<Rangee, int> places;
    std::map<Lames, int> parLames;
    for (Lames l : m_.enfilage) {
      if (l == 0 || parLames.count(l)) continue;
      const auto [place, neuve] = places.try_emplace(Levee(l), static_cast<int>(places.size()) + 1);
      if (place->second > sortent_) return false;
      parLames[l] = place->second;
    }
    r_.enfilage.clear();
    for (Lames l : m_.enfilage) r_.enfilage.push_back(l ? Lame(parLames[l]) : 0);
    r_.foules.assign(m_.foules.size(), 0);
    for (const auto &[rangee, place] : places)
      for (std::size_t d = 0; d < rangee.size(); ++d)
        if (rangee[d]) r_.foules[d] |= Lame(place);
    r_.pas.push_back({"Chaque fil passe sur une seule lame : enfiler selon la nouvelle section [THREADING].",
                      "Every end goes on one harness: thread by the new section [THREADING]."});
    return true;
  }

  // Distinct ways in which ends move, counted as far as that is of any use.
  std::size_t Besoin() const {
    std::set<Lames> lames(m_.enfilage.begin(), m_.enfilage.end());
    lames.erase(0);
    std::set<Rangee> rangees;
    for (auto l = lames.begin(); l != lames.end() && rangees.size() <= kBesoinMax; ++l)
      rangees.insert(Levee(*l));
    return rangees.size();
  }

  Ramene Prendre() {
    Lames toutes = 0;
    for (Lames l : r_.enfilage) toutes |= l;
    for (Lames l : r_.foules) toutes |= l;
    r_.lames = PlusHaute(toutes);
    r_.change = true;
    ExigerMemeTissu();
    return std::move(r_);
  }

 private:
  Rangee Levee(Lames lames) const {
    Souffler();
    Rangee rangee(m_.foules.size());
    std::transform(m_.foules.begin(), m_.foules.end(), rangee.begin(),
                   [lames](Lames f) { return (f & lames) != 0; });
    return rangee;
  }
  const Rangee &De(int lame) const { return rangees_[static_cast<std::size_t>(lame)]; }
  bool Sert(int lame) const { return (usage_ & Lame(lame)) != 0; }

  bool PeuDeFils() {
    vers_.fill(0);
    std::array<bool, kLamesMax + 1> prise{};
    for (int l = 1; l <= sortent_; ++l)
      if (Sert(l)) {
        vers_[static_cast<std::size_t>(l)] = l;
        prise[static_cast<std::size_t>(l)] = true;
      }
    for (int l = sortent_ + 1; l <= kLamesMax; ++l) {
      if (!Sert(l)) continue;
      const int jumelle = l - sortent_;
      int place = l <= metier_ && Sert(jumelle) && De(jumelle) == De(l) ? l : 0;
      for (int v = 1; v < l && place == 0; ++v)
        if (Sert(v) && De(v) == De(l)) place = vers_[static_cast<std::size_t>(v)];
      for (int v = sortent_; v >= 1 && place == 0; --v)
        if (!prise[static_cast<std::size_t>(v)]) place = v;
      if (place == 0) return false;
      vers_[static_cast<std::size_t>(l)] = place;
      if (place <= sortent_) prise[static_cast<std::size_t>(place)] = true;
    }
    Poser();
    return true;
  }

  bool LamesSerrees() {
    vers_.fill(0);
    std::map<Rangee, int> places;
    for (int l = 1; l <= kLamesMax; ++l)
      if (Sert(l))
        vers_[static_cast<std::size_t>(l)] =
            places.try_emplace(De(l), static_cast<int>(places.size()) + 1).first->second;
    if (static_cast<int>(places.size()) > sortent_) return false;
    Poser();
    return true;
  }

  // Threading, sheds and words from `vers_`.
  void Poser() {
    const auto poser = [&](Lames avant) {
      Lames apres = 0;
      for (Lames a = avant & usage_; a; a &= a - 1)
        apres |= Lame(vers_[static_cast<std::size_t>(std::countr_zero(a) + 1)]);
      return apres;
    };
    r_ = {};
    std::transform(m_.enfilage.begin(), m_.enfilage.end(), std::back_inserter(r_.enfilage), poser);
    std::transform(m_.foules.begin(), m_.foules.end(), std::back_inserter(r_.foules), poser);
    Lames levees = 0;
    for (Lames l : m_.foules) levees |= l;
    for (int l = 1; l <= kLamesMax; ++l) {
      const int v = vers_[static_cast<std::size_t>(l)];
      const std::string n = std::to_string(l);
      if (!Sert(l) && (levees & Lame(l)))
        r_.pas.push_back({"lame " + n + " : levée, sans un fil ; laissée.",
                          "harness " + n + ": lifted, without an end; left out."});
      if (!Sert(l) || v == l) continue;
      int fils = 0, premier = 0;
      for (int f = 1; f <= m_.Fils(); ++f)
        if (m_.enfilage[static_cast<std::size_t>(f - 1)] & Lame(l)) {
          ++fils;
          if (premier == 0) premier = f;
        }
      const std::string ou = std::to_string(v), combien = std::to_string(fils),
                        tete = std::to_string(premier);
      r_.pas.push_back({"lame " + n + " → " + ou + " : " + combien +
                            (fils > 1 ? " fils, le premier " : " fil, ") + tete + ".",
                        "harness " + n + " → " + ou + ": " + combien +
                            (fils > 1 ? " ends, the first " : " end, ") + tete + "."});
    }
  }

  // The reckoning above is not believed: the new cloth, as the loom raises it, beside the drawn one.
  void ExigerMemeTissu() const {
    for (std::size_t d = 0; d < m_.foules.size(); ++d) {
      Souffler();
      const Lames levees = LeveesParLeMetier(r_.foules[d], metier_);
      for (std::size_t f = 0; f < m_.enfilage.size(); ++f)
        if (((m_.enfilage[f] & m_.foules[d]) != 0) != ((r_.enfilage[f] & levees) != 0))
          throw std::logic_error("the cloth would change at pick " + std::to_string(d + 1) + ", end " +
                                 std::to_string(f + 1));
    }
  }

  const Motif &m_;
  const int metier_, sortent_;
  Lames usage_ = 0;  // harnesses that hold an end
  std::array<Rangee, kLamesMax + 1> rangees_;
  std::array<int, kLamesMax + 1> vers_{};
  Ramene r_;
};
}  // namespace

Phrase EmpechementARamener(const Motif &motif, int lames) {
  if (motif.enfilage.empty())
    return {"sans enfilage, personne ne sait quels fils changeraient de lame.",
            "without a threading nobody knows which ends would change their harness."};
  if (motif.Duites() > kDuitesMetier)
    return {std::to_string(motif.Duites()) + " duites, et Brandis en prend 2500.",
            std::to_string(motif.Duites()) + " picks, and Brandis takes 2500."};
  if (Plan plan(motif, lames); plan.ParLames() || plan.ParFils()) return {};
  const std::size_t besoin = Plan(motif, lames).Besoin();
  const bool trop = besoin > kBesoinMax;
  const std::string n = std::to_string(trop ? kBesoinMax : besoin), sortent = std::to_string(lames - 8);
  return {(trop ? "les fils bougent de plus de " : "les fils bougent de ") + n + " façons, et " + sortent +
              " lames sortent sur le métier de " + std::to_string(lames) + ".",
          (trop ? "the ends move in more than " : "the ends move in ") + n + " ways, and " + sortent +
              " harnesses go out on the loom of " + std::to_string(lames) + "."};
}

Ramene Ramener(const Motif &motif, int lames) {
  if (ComparerLevees(motif, lames).nombre == 0) return {false, motif.enfilage, motif.foules, motif.lames, {}};
  if (const Phrase non = EmpechementARamener(motif, lames); !non.en.empty())
    throw Refus(motif.chemin, 0, non);
  Plan plan(motif, lames);
  if (!plan.ParLames()) plan.ParFils();
  return plan.Prendre();
}
