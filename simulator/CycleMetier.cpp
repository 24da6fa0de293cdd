#include "simulator/CycleMetier.h"

#include <iterator>
#include <string_view>
#include <utility>

namespace {
constexpr Delai kEcartScission{150};

// Nothing in here reads as a report, however the pieces are cut.
using namespace std::string_view_literals;
constexpr std::string_view kBruit24 =
    "\x00\xFF\x1B"
    "c[\r\n\x80~"sv;
constexpr std::string_view kBruit16 =
    "\x00\xFF\x1B"
    "[cc]CC\r\n[C \x80"sv;
}  // namespace

CycleMetier::CycleMetier(int nombreLames, Delai cadence, bool surDemande, Scenario scenario)
    : nombreLames_(nombreLames), cadence_(cadence), surDemande_(surDemande), scenario_(std::move(scenario)) {}

void CycleMetier::Commencer(long duite, Instant maintenant) {
  duite_ = duite;
  ouvert_ = true;
  rapport_.reset();
  if (surDemande_) return;
  rapport_ = maintenant + cadence_ + std::exchange(prochain_.retard, Delai(0));
  const auto ecart = scenario_.find(duite);
  if (ecart != scenario_.end()) *rapport_ += ecart->second.retard;
}

void CycleMetier::Relacher() {
  ouvert_ = false;
  rapport_.reset();
}

void CycleMetier::Completer(Instant maintenant) {
  rapport_ = maintenant;
  if (!surDemande_) return;
  *rapport_ += std::exchange(prochain_.retard, Delai(0));
  const auto ecart = scenario_.find(duite_);
  if (ouvert_ && ecart != scenario_.end()) *rapport_ += ecart->second.retard;
}

void CycleMetier::Couper() {
  Relacher();
  for (auto geste = gestes_.begin(); geste != gestes_.end();)
    geste = geste->second.genre == Geste::Genre::Revenir ? std::next(geste) : gestes_.erase(geste);
}

void CycleMetier::Retarder(Delai retard) {
  if (rapport_)
    *rapport_ += retard;
  else
    prochain_.retard += retard;
}

std::optional<Instant> CycleMetier::Echeance() const {
  std::optional<Instant> echeance = rapport_;
  if (!gestes_.empty() && (!echeance || gestes_.begin()->first < *echeance))
    echeance = gestes_.begin()->first;
  return echeance;
}

std::vector<Geste> CycleMetier::GestesEchus(Instant maintenant, const LigneSimulee &ligne) {
  if (rapport_ && *rapport_ <= maintenant) Rapporter(*rapport_, ligne);
  std::vector<Geste> dus;
  while (!gestes_.empty() && gestes_.begin()->first <= maintenant) {
    dus.push_back(std::move(gestes_.begin()->second));
    gestes_.erase(gestes_.begin());
  }
  return dus;
}

// A write leaves whole, when its last byte would have come over the line, as a serial adapter hands it on:
// only `scinder` splits a report.
void CycleMetier::Rapporter(Instant quand, const LigneSimulee &ligne) {
  const Ecart ecart = PrendreEcart();
  Relacher();
  if (ecart.raccrocher) {
    gestes_.insert({quand, {Geste::Genre::Raccrocher, {}, {}}});
    if (ecart.retour) gestes_.insert({quand + *ecart.retour, {Geste::Genre::Revenir, {}, {}}});
    return;
  }
  if (ecart.perdre) {
    gestes_.insert({quand, {Geste::Genre::Annoncer, {}, " lost"}});
    return;
  }
  std::string texte = nombreLames_ == 16 ? "[CC]\r\n"
                                         : "\x1B"
                                           "C\r";
  // Inside the mark that the program looks for, where there is more than one letter.
  std::size_t coupe = nombreLames_ == 16 ? 2 : 1;
  std::string mention;
  if (ecart.doubler) texte += texte;
  if (ecart.bruit) {
    const std::string_view bruit = nombreLames_ == 16 ? kBruit16 : kBruit24;
    texte.insert(0, bruit);
    coupe += bruit.size();
    mention += " noise";
  }
  if (ecart.doubler) mention += " twice";
  if (ecart.scinder) {
    Ecrire(quand + ligne.Duree(coupe), texte.substr(0, coupe));
    texte.erase(0, coupe);
    quand += ligne.Duree(coupe) + kEcartScission;
    mention += " split";
  }
  const Instant fin = quand + ligne.Duree(texte.size());
  Ecrire(fin, std::move(texte));
  gestes_.insert({fin, {Geste::Genre::Annoncer, {}, std::move(mention)}});
}

Ecart CycleMetier::PrendreEcart() {
  Ecart ecart = std::exchange(prochain_, {});
  const auto prevu = scenario_.find(duite_);
  if (!ouvert_ || prevu == scenario_.end()) return ecart;
  ecart.scinder |= prevu->second.scinder;
  ecart.doubler |= prevu->second.doubler;
  ecart.perdre |= prevu->second.perdre;
  ecart.bruit |= prevu->second.bruit;
  ecart.raccrocher |= prevu->second.raccrocher;
  ecart.retour = prevu->second.retour;
  return ecart;
}

void CycleMetier::Ecrire(Instant quand, std::string octets) {
  gestes_.insert({quand, {Geste::Genre::Ecrire, std::move(octets), {}}});
}
