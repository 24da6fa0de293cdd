#include "motifs/Couleurs.h"

#include <algorithm>
#include <array>

namespace {
class Palette {
 public:
  Palette(const Motif &motif, const Valeurs &valeurs) : m_(motif), v_(valeurs) {
    m_.PourChaqueCle("COLOR PALETTE", [&](const LigneCle &c) {
      if (MemeMot(c.cle, "Entries") && !c.valeur.empty())
        (void)v_.Nombre(c.valeur, c.ligne, kFilsMax, kMotsCouleur);
      if (!MemeMot(c.cle, "Range") || c.valeur.empty()) return;
      const std::vector<double> bornes = Nombres(c);
      if (bornes.size() == 2 && bornes[1] > bornes[0]) {
        bas_ = bornes[0];
        haut_ = bornes[1];
      }
    });
    m_.PourChaqueCle("COLOR TABLE", [&](const LigneCle &c) {
      if (!c.egal) return;
      const int place = v_.Cle(c, kFilsMax, kMotsCouleur);
      if (c.valeur.empty()) return;
      const std::vector<double> n = Nombres(c);
      if (n.size() < 3) return;
      if (table_.size() < static_cast<std::size_t>(place)) table_.resize(static_cast<std::size_t>(place));
      table_[static_cast<std::size_t>(place - 1)] = {n[0], n[1], n[2]};
      plusGrand_ = std::max({plusGrand_, n[0], n[1], n[2]});
    });
    if (haut_ == 0) haut_ = plusGrand_ <= 255 ? 255 : plusGrand_ <= 999 ? 999 : 65535;
  }

  std::vector<Couleur> Fils(const char *section, const char *couleurs, std::size_t nombre, Couleur sans) {
    Couleur commune = sans;
    m_.PourChaqueCle(section, [&](const LigneCle &c) {
      if (MemeMot(c.cle, "Color") && !c.valeur.empty()) commune = Rendre(c, sans);
    });
    std::vector<Couleur> fils(nombre, commune);
    m_.PourChaqueCle(couleurs, [&](const LigneCle &c) {
      if (!c.egal) return;
      const auto place = static_cast<std::size_t>(v_.Cle(c, kFilsMax, kMotsFil));
      if (place <= nombre && !c.valeur.empty()) fils[place - 1] = Rendre(c, commune);
    });
    return fils;
  }

 private:
  // At most four numbers, of any kind: ranges are the file's own.
  std::vector<double> Nombres(const LigneCle &c) const {
    std::vector<double> nombres;
    for (std::size_t debut = 0; debut <= c.valeur.size() && nombres.size() < 4;) {
      const auto virgule = std::min(c.valeur.find(',', debut), c.valeur.size());
      nombres.push_back(v_.Decimal(Rogner(c.valeur.substr(debut, virgule - debut)), c.ligne));
      debut = virgule + 1;
    }
    return nombres;
  }

  // "place", "red,green,blue" or "place,red,green,blue"; a place beyond the table leaves `sans`.
  Couleur Rendre(const LigneCle &c, Couleur sans) const {
    const std::vector<double> n = Nombres(c);
    if (n.size() >= 3) return Echelle({n[n.size() - 3], n[n.size() - 2], n[n.size() - 1]});
    return n[0] >= 1 && n[0] <= static_cast<double>(table_.size())
               ? Echelle(table_[static_cast<std::size_t>(n[0]) - 1])
               : sans;
  }

  Couleur Echelle(const std::array<double, 3> &triple) const {
    Couleur couleur = 0;
    for (double t : triple)
      couleur = couleur << 8 |
                static_cast<Couleur>(255 * (std::clamp(t, bas_, haut_) - bas_) / (haut_ - bas_) + 0.5);
    return couleur;
  }

  const Motif &m_;
  const Valeurs &v_;
  double bas_ = 0, haut_ = 0, plusGrand_ = 0;
  std::vector<std::array<double, 3>> table_;
};
}  // namespace

void LireCouleurs(Motif &motif, const Valeurs &valeurs) {
  Palette palette(motif, valeurs);
  motif.chaine = palette.Fils("WARP", "WARP COLORS", motif.enfilage.size(), kChaineSansCouleur);
  motif.trame = palette.Fils("WEFT", "WEFT COLORS", motif.foules.size(), kTrameSansCouleur);
}
