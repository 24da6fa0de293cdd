#include "motifs/Levees.h"

#include <algorithm>
#include <cmath>

#include "base/TexteNumerique.h"

namespace {
constexpr Lames kBasses = LamesJusqua(8);
constexpr std::size_t kDuitesNommees = 100;
constexpr int kVirgulesMax = 49, kLamesTable = 32;

// The harnesses of a line behind its "="; false where reading it fails. A lone number raises nothing.
bool LireLigne(std::string_view texte, Lames &lames) {
  lames = 0;
  if (std::count(texte.begin(), texte.end(), ',') > kVirgulesMax) return false;
  const bool seule = texte.find(',') == std::string_view::npos;
  for (std::size_t debut = 0; debut <= texte.size();) {
    const auto virgule = std::min(texte.find(',', debut), texte.size());
    const double lame = ArrondirAuPair(Val(texte.substr(debut, virgule - debut)));
    if (!(lame >= 0 && lame <= kLamesTable)) return false;
    if (lame > 0 && !seule) lames |= Lame(static_cast<int>(lame));
    debut = virgule + 1;
  }
  lames &= LamesJusqua(kLamesMetier);
  return true;
}
}  // namespace

Lames LeveesParLeMetier(Lames foule, int lames) {
  const int sortent = lames - 8;  // a loom of 16 or 24
  return (foule & LamesJusqua(sortent)) | (foule & kBasses) << sortent;
}

Lames LamesEnUsage(const Motif &motif) {
  Lames usage = 0;
  for (Lames l : motif.enfilage) usage |= l;
  for (Lames l : motif.foules) usage |= l;
  return usage;
}

LeveesAutrement ComparerLevees(const Motif &motif, int lames) {
  const Lames usage = LamesEnUsage(motif);
  LeveesAutrement resultat;
  for (int d = 1; d <= motif.Duites(); ++d) {
    const Lames foule = motif.foules[static_cast<std::size_t>(d - 1)],
                levees = LeveesParLeMetier(foule, lames);
    if ((levees & usage) == foule) continue;
    if (resultat.nombre++ == 0) {
      resultat.levees = levees & usage;
      resultat.dessinees = foule;
    }
    if (resultat.duites.size() < kDuitesNommees) resultat.duites.push_back(d);
  }
  return resultat;
}

TelQuel LireTelQuel(const Motif &motif) {
  TelQuel lu;
  bool dans = false;
  int duite = -1;
  const auto comparer = [&](Lames foule) {
    const bool la = duite <= motif.Duites();
    if (la && motif.foules[static_cast<std::size_t>(duite - 1)] == foule) return;
    if (lu.autrement++ == 0) lu.premiere = duite;
  };
  Lignes lignes(*motif.octets);
  for (std::string_view ligne; lignes.Suivante(ligne) && lu.echec == 0;) {
    if (ligne == "[WEAVING]" || ligne == "[TREADLING]") dans = false;
    if (ligne == "[LIFTPLAN]") dans = lu.plan = true;
    if (!dans || LTrim(ligne).empty()) continue;
    if (++duite == 0) continue;  // the section's own line
    const auto egal = ligne.find('=');
    Lames foule = 0;
    if (duite > kDuitesMetier || egal == std::string_view::npos || !LireLigne(ligne.substr(egal + 1), foule))
      lu.echec = duite;
    else
      comparer(foule);
  }
  lu.ferme = !dans;
  if (!lu.plan || lu.echec > 0) return lu;
  for (++duite; duite <= motif.Duites(); ++duite)
    if (lu.autrement++ == 0) lu.premiere = duite;
  return lu;
}
