#include "motifs/Assemblage.h"

#include <algorithm>
#include <filesystem>

#include "motifs/Encodage.h"
#include "motifs/FormeTissable.h"

namespace {
// The folders that a file happens to lie in are nobody's business.
std::string Nom(const Motif &motif) {
  return motif.titre.empty() ? EnUtf8(std::filesystem::path(motif.chemin).stem().string()) : motif.titre;
}

std::string Titre(const std::vector<Piece> &pieces) {
  std::string titre;
  for (const Piece &p : pieces)
    titre += (titre.empty() ? "" : " + ") + Nom(p.motif) + (p.fois > 1 ? " x" + std::to_string(p.fois) : "");
  return Abreger(titre, 300);
}

void ExigerPlace(const std::vector<Piece> &pieces, bool separer) {
  long long duites = 0;
  for (const Piece &p : pieces)
    duites += static_cast<long long>(p.motif.Duites() + (separer ? 1 : 0)) * p.fois;
  if (separer) --duites;
  if (duites <= kDuitesMetier) return;
  const std::string n = std::to_string(duites);
  throw Refus(pieces.back().motif.chemin, 0,
              {"jusqu'ici " + n + " duites, et Brandis en prend 2500.",
               n + " picks up to here, and Brandis takes 2500."});
}
}  // namespace

std::string Assembler(const std::vector<Piece> &pieces, bool separer) {
  ExigerPlace(pieces, separer);
  std::vector<Lames> foules;
  std::vector<Couleur> trame;
  std::vector<int> separations;
  Motif chaine = pieces.front().motif;
  for (const Piece &p : pieces) {
    ExigerTissable(p.motif, p.motif.foules);
    chaine.lames = std::max(chaine.lames, p.motif.lames);
    for (int i = 0; i < p.fois; ++i) {
      if (separer && !foules.empty()) {
        foules.push_back(0);
        trame.push_back(trame.back());
        separations.push_back(static_cast<int>(foules.size()));
      }
      for (int d : p.motif.separations) separations.push_back(static_cast<int>(foules.size()) + d);
      foules.insert(foules.end(), p.motif.foules.begin(), p.motif.foules.end());
      trame.insert(trame.end(), p.motif.trame.begin(), p.motif.trame.end());
    }
  }
  return FormeTissable(chaine, Titre(pieces), foules, trame, separations);
}

std::vector<Constat> ComparerChaines(const std::vector<Piece> &pieces) {
  std::vector<Constat> constats;
  const Motif &premier = pieces.front().motif;
  for (const Piece &p : pieces)
    if (!p.motif.enfilage.empty() && p.motif.enfilage != premier.enfilage)
      constats.push_back({Constat::EnfilagesDifferents,
                          false,
                          {EnUtf8(p.motif.chemin) + " : l'enfilage diffère de celui de " +
                               EnUtf8(premier.chemin) + ", qui compte.",
                           EnUtf8(p.motif.chemin) + ": its threading differs from that of " +
                               EnUtf8(premier.chemin) + ", which counts."}});
  return constats;
}

std::string EnfilageTissable(const Motif &motif, int groupe, Langue langue) {
  if (motif.enfilage.empty())
    throw Refus(motif.chemin, 0, {"l'enfilage [THREADING] manque.", "the threading [THREADING] is missing."});
  std::vector<Lames> foules;
  std::vector<Couleur> trame;
  for (int fil = 0; fil < motif.Fils(); ++fil) {
    if (fil % groupe == 0) {
      foules.push_back(0);
      trame.push_back(motif.chaine[static_cast<std::size_t>(fil)]);
    }
    foules.back() |= motif.enfilage[static_cast<std::size_t>(fil)];
  }
  if (foules.size() > static_cast<std::size_t>(kDuitesMetier))
    throw Refus(motif.chemin, 0,
                {std::to_string(motif.Fils()) + " fils : plus de 2500 pas ; --groupe les réunit.",
                 std::to_string(motif.Fils()) + " ends: more than 2500 steps; --group joins them."});
  const Phrase titre{"Enfilage : " + Nom(motif), "Threading: " + Nom(motif)};
  return FormeTissable(motif, titre.En(langue), foules, trame);
}
