#include "motifs/CouleursTrame.h"

#include <algorithm>
#include <cstdio>
#include <map>

namespace {
struct Nom {
  Couleur couleur;
  const char *fr, *en;
};
constexpr Nom kNoms[] = {{0x101010, "noir", "black"},
                         {0xFFFFFF, "blanc", "white"},
                         {0x808080, "gris", "grey"},
                         {0xC4C4C4, "gris clair", "light grey"},
                         {0x484848, "gris foncé", "dark grey"},
                         {0xD01C1C, "rouge", "red"},
                         {0x801018, "rouge foncé", "dark red"},
                         {0xF5A0B4, "rose", "pink"},
                         {0xF08010, "orange", "orange"},
                         {0x7A4A20, "brun", "brown"},
                         {0xC8A070, "beige", "tan"},
                         {0xF5ECD2, "crème", "cream"},
                         {0xF8E020, "jaune", "yellow"},
                         {0xC09010, "ocre", "ochre"},
                         {0x1E8A30, "vert", "green"},
                         {0x90D090, "vert clair", "light green"},
                         {0x124A20, "vert foncé", "dark green"},
                         {0x707A20, "olive", "olive"},
                         {0x20B0A8, "turquoise", "turquoise"},
                         {0x1C50C8, "bleu", "blue"},
                         {0x90C0F0, "bleu clair", "light blue"},
                         {0x14225A, "bleu foncé", "dark blue"},
                         {0x7A2A9A, "violet", "purple"},
                         {0xC0A0DC, "lilas", "lilac"},
                         {0xD828B0, "magenta", "magenta"}};

// How unlike two colours look: green weighs more than blue, and red by how red they are.
long Ecart(Couleur a, Couleur b) {
  const auto canal = [](Couleur c, int d) { return static_cast<long>(c >> d & 255); };
  const long rouge = (canal(a, 16) + canal(b, 16)) / 2, r = canal(a, 16) - canal(b, 16),
             v = canal(a, 8) - canal(b, 8), bl = canal(a, 0) - canal(b, 0);
  return (512 + rouge) * r * r + 1024 * v * v + (767 - rouge) * bl * bl;
}

struct Bande {
  Couleur couleur;
  int premiere, nombre;
  bool Pareille(const Bande &b) const { return couleur == b.couleur && nombre == b.nombre; }
};

std::vector<Bande> Bandes(const std::vector<Couleur> &trame) {
  std::vector<Bande> bandes;
  for (std::size_t i = 0; i < trame.size(); ++i) {
    if (bandes.empty() || bandes.back().couleur != trame[i])
      bandes.push_back({trame[i], static_cast<int>(i) + 1, 0});
    ++bandes.back().nombre;
  }
  return bandes;
}

struct Suite {
  std::size_t longueur = 1;  // bands that repeat
  int fois = 1;
};

// The repeat from a band on that takes in most bands, of at most twelve; three times at least.
Suite Reprise(const std::vector<Bande> &bandes, std::size_t debut) {
  Suite meilleure;
  for (std::size_t longueur = 2; longueur <= 12; ++longueur) {
    std::size_t fin = debut + longueur;
    while (fin < bandes.size() && bandes[fin].Pareille(bandes[fin - longueur])) ++fin;
    const auto fois = (fin - debut) / longueur;
    if (fois >= 3 && fois * longueur > meilleure.longueur * static_cast<std::size_t>(meilleure.fois))
      meilleure = {longueur, static_cast<int>(fois)};
  }
  return meilleure;
}

// As many characters as are seen, not bytes.
std::string Jusqua(std::string texte, std::size_t largeur) {
  const auto vus = static_cast<std::size_t>(
      std::count_if(texte.begin(), texte.end(), [](char c) { return (c & 0xC0) != 0x80; }));
  return texte + std::string(vus < largeur ? largeur - vus : 1, ' ');
}

class Redaction {
 public:
  Redaction(const Motif &motif, Langue langue)
      : m_(motif), fr_(langue == Langue::Francais), bandes_(Bandes(motif.trame)) {
    for (const Bande &b : bandes_) {
      Part &p = parts_[b.couleur];
      if (p.nombre == 0) {
        p.premiere = b.premiere;
        ordre_.push_back(b.couleur);
      }
      p.nombre += b.nombre;
      p.derniere = b.premiere + b.nombre - 1;
    }
    Nommer(langue);
  }

  std::string Faire() {
    const std::string titre = m_.titre.empty() ? m_.chemin.substr(m_.chemin.rfind('/') + 1) : m_.titre;
    const auto compte = [&](int n, const char *fr, const char *en) {
      return N(n) + " " + (fr_ ? fr : en) + (n > 1 || (!fr_ && n == 0) ? "s" : "");
    };
    texte_ = titre + (fr_ ? " : couleurs de trame\n" : ": weft colours\n") +
             compte(m_.Duites(), "duite", "pick") + ", " +
             compte(static_cast<int>(ordre_.size()), "couleur", "colour") + ", " +
             compte(static_cast<int>(bandes_.size()) - 1, "changement", "change") + "\n\n";
    for (std::size_t i = 0; i < bandes_.size();) {
      const Suite s = Reprise(bandes_, i);
      DireBandes(i, s);
      i += s.longueur * static_cast<std::size_t>(s.fois);
    }
    texte_ += '\n';
    for (Couleur c : ordre_) DirePart(c);
    return texte_;
  }

 private:
  struct Part {
    std::string nom;
    int nombre = 0, premiere = 0, derniere = 0;
  };
  static std::string N(int n) { return std::to_string(n); }

  // Two colours of one name are told apart by a number.
  void Nommer(Langue langue) {
    std::map<std::string, std::vector<Couleur>> memes;
    for (Couleur c : ordre_) memes[NomCouleur(c, langue)].push_back(c);
    for (const auto &[nom, couleurs] : memes)
      for (std::size_t i = 0; i < couleurs.size(); ++i)
        parts_[couleurs[i]].nom = nom + (couleurs.size() > 1 ? " " + std::to_string(i + 1) : "");
  }

  void DireBandes(std::size_t i, Suite s) {
    const Bande &a = bandes_[i], &z = bandes_[i + s.longueur * static_cast<std::size_t>(s.fois) - 1];
    const int derniere = z.premiere + z.nombre - 1;
    texte_ += Jusqua(a.premiere == derniere ? (fr_ ? "duite " : "pick ") + N(derniere)
                                            : (fr_ ? "duites " : "picks ") + N(a.premiere) +
                                                  (fr_ ? " à " : " to ") + N(derniere),
                     20);
    if (s.fois == 1) {
      texte_ += parts_[a.couleur].nom + "\n";
      return;
    }
    texte_ += N(s.fois) + (fr_ ? " fois : " : " times: ");
    for (std::size_t k = 0; k < s.longueur; ++k)
      texte_ += (k > 0 ? ", " : "") + N(bandes_[i + k].nombre) + " " + parts_[bandes_[i + k].couleur].nom;
    texte_ += '\n';
  }

  void DirePart(Couleur c) {
    const Part &p = parts_[c];
    char code[16];
    std::snprintf(code, sizeof code, "#%06X", static_cast<unsigned>(c));
    const int pourcent = (200 * p.nombre + m_.Duites()) / (2 * m_.Duites());
    texte_ += Jusqua(p.nom, 20) + code + "  " + N(p.nombre) +
              (p.nombre > 1 ? (fr_ ? " duites, " : " picks, ") : (fr_ ? " duite, " : " pick, "));
    texte_ += pourcent == 0 ? (fr_ ? "moins de 1" : "less than 1") : N(pourcent);
    texte_ += (fr_ ? " %, première " : " %, first ") + N(p.premiere) + (fr_ ? ", dernière " : ", last ") +
              N(p.derniere) + "\n";
  }

  const Motif &m_;
  const bool fr_;
  const std::vector<Bande> bandes_;
  std::map<Couleur, Part> parts_;
  std::vector<Couleur> ordre_;  // as they come first
  std::string texte_;
};
}  // namespace

std::string NomCouleur(Couleur couleur, Langue langue) {
  const Nom &nom =
      *std::min_element(std::begin(kNoms), std::end(kNoms), [couleur](const Nom &a, const Nom &b) {
        return Ecart(a.couleur, couleur) < Ecart(b.couleur, couleur);
      });
  return langue == Langue::Francais ? nom.fr : nom.en;
}

std::string FeuilleCouleurs(const Motif &motif, Langue langue) { return Redaction(motif, langue).Faire(); }
