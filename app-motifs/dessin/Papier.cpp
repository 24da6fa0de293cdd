#include "app-motifs/dessin/Papier.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>

#include <algorithm>
#include <cmath>

#include "app-motifs/dessin/Dessin.h"
#include "app-motifs/dessin/Feuille.h"

namespace {
// All lengths are points.
constexpr double kPageLargeur = 595.28, kPageHauteur = 841.89, kMarge = 30, kEntete = 30;
constexpr double kTexte = 9, kNumero = 7.5, kCaseSvg = 10, kPoint = 72 / 25.4;
constexpr double kLargeur = kPageLargeur - 2 * kMarge, kHauteur = kPageHauteur - 2 * kMarge;
constexpr int kRecouvrement = 2;                // threads that two sheets share
constexpr int kMoins = 8, kFeuillesMax = 1000;  // ends beside a lift plan, else it has a sheet of its own

cairo_status_t Ajouter(void *texte, const unsigned char *octets, unsigned int nombre) {
  static_cast<std::string *>(texte)->append(reinterpret_cast<const char *>(octets), nombre);
  return CAIRO_STATUS_SUCCESS;
}

std::string N(int n) { return std::to_string(n); }

// Stretches of `nombre` threads, `premiere` on the first sheet and `autres` on each that follows.
std::vector<Etendue> Decouper(int nombre, int premiere, int autres) {
  std::vector<Etendue> parts;
  for (int debut = 1; debut <= nombre;) {
    const int place = parts.empty() ? premiere : autres;
    const int fin = std::min(nombre, debut + place - 1);
    parts.push_back({debut, fin});
    if (fin == nombre) break;
    debut = fin + 1 - (fin >= debut ? kRecouvrement : 0);
  }
  return parts;
}

class Cahier {
 public:
  Cahier(const Planche &planche, double cote, Langue langue)
      : p_(planche),
        cote_(cote * kPoint),
        langue_(langue),
        surface_(cairo_pdf_surface_create_for_stream(Ajouter, &octets_, kPageLargeur, kPageHauteur)),
        contexte_(cairo_create(surface_.get())),
        c_(contexte_.get()) {
    cairo_select_font_face(c_, "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  }

  std::string Faire() {
    Partager();
    const int colonnes = static_cast<int>(colonnes_.size()), rangees = static_cast<int>(rangees_.size());
    // From the first pick on, from the tie-up on, and all of a stretch of picks together.
    for (int r = 0; r < rangees; ++r)
      for (int k = 0; k < colonnes; ++k) Dessiner(r, k);
    Lister();
    cairo_surface_finish(surface_.get());
    ExigerCairo(c_, surface_.get());
    return std::move(octets_);
  }

 private:
  const char *Selon(const char *fr, const char *en) const { return langue_ == Langue::Francais ? fr : en; }

  // How many threads each sheet bears.
  void Partager() {
    const Marges m = MargesNumeros(kNumero);
    const auto cases = [this](double place) { return static_cast<int>(place / cote_ + 1e-6); };
    const int largeur = cases(kLargeur - m.gauche - m.droite), hauteur = cases(kHauteur - kEntete - m.dehors);
    const int tete = p_.Hauteur() - p_.DuitesTracees() - 2,
              pas = p_.Largeur() - 1 - (p_.tissu.x + p_.tissu.largeur), picks = hauteur - tete;
    if (pas > largeur || picks < std::min(kMoins, p_.DuitesTracees()) || picks <= kRecouvrement)
      return Refuser(std::min((kLargeur - m.gauche - m.droite) / pas,
                              (kHauteur - kEntete - m.dehors) / (tete + kMoins)));
    int premiers = largeur - pas;
    if (premiers < kMoins && premiers < p_.FilsTraces()) premiers = 0;
    colonnes_ = Decouper(p_.FilsTraces(), premiers, largeur);
    if (colonnes_.empty()) colonnes_.push_back({1, 0});
    rangees_ = Decouper(p_.DuitesTracees(), picks, picks);
    if (colonnes_.size() * rangees_.size() > static_cast<std::size_t>(kFeuillesMax)) {
      const std::string n = std::to_string(colonnes_.size() * rangees_.size());
      throw Refus(
          p_.Dessine().chemin, 0,
          {n + " feuilles : 1000 au plus ; --cote les réduit, --duites et --fils en dessinent une partie.",
           n + " sheets: 1000 at most; --size makes them fewer, --picks and --ends draw a part."});
    }
  }

  [[noreturn]] void Refuser(double coteJuste) const {
    const int dixiemes = static_cast<int>(coteJuste / kPoint * 10);
    const std::string mm = N(dixiemes / 10), reste = N(dixiemes % 10);
    throw Refus(p_.Dessine().chemin, 0,
                {"des fils trop larges pour une feuille : " + mm + "," + reste + " mm au plus.",
                 "threads too wide for a sheet: " + mm + "." + reste + " mm at most."});
  }

  std::string Titre() const {
    const Motif &m = p_.Dessine();
    return m.titre.empty() ? m.chemin.substr(m.chemin.rfind('/') + 1) : m.titre;
  }

  void Ecrire(double x, double y, const std::string &texte, double largeur, bool gras = false) {
    cairo_select_font_face(c_, "sans-serif", CAIRO_FONT_SLANT_NORMAL,
                           gras ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_save(c_);  // a long title ends where the next word begins
    cairo_rectangle(c_, x, y - 2 * kTexte, largeur, 3 * kTexte);
    cairo_clip(c_);
    cairo_move_to(c_, x, y);
    cairo_show_text(c_, texte.c_str());
    cairo_restore(c_);
    cairo_select_font_face(c_, "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  }

  void Entete(const std::string &droite, const std::string &dessous) {
    cairo_set_font_size(c_, kTexte);
    cairo_set_source_rgb(c_, 0, 0, 0);
    cairo_text_extents_t mesure;
    cairo_text_extents(c_, droite.c_str(), &mesure);
    const double place = kLargeur - mesure.x_advance;
    Ecrire(kMarge, kMarge + kTexte, Titre(), place - 2 * kTexte, true);
    Ecrire(kMarge + place, kMarge + kTexte, droite, mesure.x_advance + 1);
    cairo_set_font_size(c_, kNumero);
    Ecrire(kMarge, kMarge + kTexte + kNumero * 1.4, dessous, kLargeur);
  }

  std::string Tailles() const {
    const Motif &m = p_.Dessine();
    const auto [fils, duites] = Rapport(m);
    std::string texte = N(m.Fils()) + Selon(" fils, ", " ends, ") + N(m.Duites()) +
                        Selon(" duites, ", " picks, ") + N(m.lames) + Selon(" lames ; ", " harnesses; ");
    texte += Selon("rapport de ", "repeat of ") + N(fils) + Selon(" fils et ", " ends and ") + N(duites) +
             Selon(" duites ; ", " picks; ");
    char mm[32];
    std::snprintf(mm, sizeof mm, "%g", std::round(cote_ / kPoint * 100) / 100);
    std::string cote = mm;
    if (langue_ == Langue::Francais) std::replace(cote.begin(), cote.end(), '.', ',');
    return texte + cote + Selon(" mm par fil", " mm a thread");
  }

  // "picks 12 – 60", in the numbers of the pattern.
  std::string Ou(const char *mot, Etendue rangs, bool fils) const {
    const auto nom = [&](int rang) { return N(fils ? p_.Fil(rang) : p_.Duite(rang)); };
    return mot + nom(rangs.premier) + " – " + nom(rangs.dernier);
  }

  void Dessiner(int r, int k) {
    const Etendue duites = rangees_[static_cast<std::size_t>(r)],
                  fils = colonnes_[static_cast<std::size_t>(k)];
    const int colonnes = static_cast<int>(colonnes_.size()), rangees = static_cast<int>(rangees_.size());
    std::string droite = Ou(Selon("duites ", "picks "), duites, false);
    if (fils.dernier >= fils.premier) droite += Ou(Selon(", fils ", ", ends "), fils, true);
    if (colonnes * rangees > 1)
      droite += Selon(" · feuille ", " · sheet ") + N(r * colonnes + k + 1) + " / " + N(colonnes * rangees);
    std::string dessous = Tailles();
    if (colonnes * rangees > 1)
      dessous += Selon(" ; rangée ", "; row ") + N(r + 1) + " / " + N(rangees) +
                 Selon(", colonne ", ", column ") + N(k + 1) + " / " + N(colonnes) +
                 Selon(" (du pied, de la droite)", " (from below, from the right)");
    Entete(droite, dessous);

    const int gauche = fils.dernier >= fils.premier ? p_.XFil(fils.dernier) : p_.tissu.x + p_.tissu.largeur;
    const int fin = k == 0 ? p_.Largeur() - 1 : p_.XFil(fils.premier) + 1;
    const Marges m = MargesNumeros(kNumero);
    const double y = kMarge + kEntete + (p_.Reglages().enHaut ? m.dehors : 0);
    Feuille feuille(c_, p_, {gauche, fin - gauche, fils, duites}, kMarge + m.gauche, y, cote_, kNumero);
    feuille.Cases();
    feuille.Numeros();
    // Where the next sheet is laid on: in the middle of the threads that both have.
    const bool enHaut = p_.Reglages().enHaut;
    const double haut = y, bas = y + feuille.Hauteur(), cote0 = kMarge + m.gauche,
                 droite0 = cote0 + feuille.Largeur();
    const auto repereDuite = [&](int rang) {
      const double la = feuille.YDuite(rang) + (p_.Reglages().enHaut ? 0 : cote_);
      Repere(cote0 - 5, la, false);
      Repere(droite0 + m.droite, la, false);
    };
    const auto repereFil = [&](int rang) {
      const double la = feuille.XFil(rang) + cote_;
      Repere(la, haut - (enHaut ? m.dehors + 3 : 5), true);
      Repere(la, bas + (enHaut ? 5 : m.dehors + 3), true);
    };
    if (r > 0) repereDuite(duites.premier + 1);
    if (r + 1 < rangees) repereDuite(duites.dernier);
    if (k > 0 && fils.premier > 1) repereFil(fils.premier + 1);
    if (k + 1 < colonnes && fils.dernier >= fils.premier) repereFil(fils.dernier);
    cairo_show_page(c_);
  }

  // A triangle that points at the cloth, and a hair line through its point.
  void Repere(double x, double y, bool debout) {
    cairo_set_source_rgb(c_, 0.75, 0.1, 0.1);
    cairo_set_line_width(c_, 0.4);
    const double dx = debout ? 0 : 5, dy = debout ? 5 : 0;
    cairo_move_to(c_, x - dx, y - dy);
    cairo_line_to(c_, x + dx, y + dy);
    cairo_stroke(c_);
    cairo_arc(c_, x, y, 1.8, 0, 2 * M_PI);
    cairo_stroke(c_);
  }

  std::string LigneListe(int d) const {
    const Motif &m = p_.Dessine();
    const auto i = static_cast<std::size_t>(d - 1);
    std::string texte;
    if (!m.pedalage.empty()) texte = ListeLames(m.pedalage[i]) + (m.pedalage[i] ? " : " : "– : ");
    const std::string lames = ListeLames(m.foules[i]);
    return texte + (lames.empty() ? "–" : lames);
  }

  // The picks with their treadles and harnesses, in as many columns as have room.
  void Lister() {
    const Motif &m = p_.Dessine();
    const Etendue duites = p_.Duites();
    constexpr double kPas = kTexte * 1.35, kNombre = 30, kTrame = 12;
    cairo_set_font_size(c_, kTexte);
    double large = 40;
    for (int d = duites.premier; d <= duites.dernier; ++d) {
      cairo_text_extents_t mesure;
      cairo_text_extents(c_, LigneListe(d).c_str(), &mesure);
      large = std::max(large, mesure.x_advance);
    }
    const double colonne = std::min(kLargeur, large + kNombre + kTrame + 14);
    const int colonnes = static_cast<int>(kLargeur / colonne),
              lignes = static_cast<int>((kHauteur - kEntete) / kPas), parPage = colonnes * lignes;
    for (int debut = duites.premier; debut <= duites.dernier; debut += parPage) {
      const int fin = std::min(duites.dernier, debut + parPage - 1);
      Entete(Ou(Selon("liste des duites ", "list of picks "),
                {debut - duites.premier + 1, fin - duites.premier + 1}, false),
             m.pedalage.empty() ? Selon("duite, couleur, lames levées", "pick, colour, harnesses raised")
                                : Selon("duite, couleur, pédales : lames levées",
                                        "pick, colour, treadles: harnesses raised"));
      cairo_set_font_size(c_, kTexte);
      for (int d = debut; d <= fin; ++d) {
        const double x = kMarge + (d - debut) / lignes * colonne,
                     y = kMarge + kEntete + ((d - debut) % lignes + 1) * kPas;
        LigneDeListe(d, x, y, colonne, kNombre, kTrame);
      }
      cairo_show_page(c_);
    }
  }

  void LigneDeListe(int d, double x, double y, double colonne, double nombre, double trame) {
    const Couleur t = p_.Dessine().trame[static_cast<std::size_t>(d - 1)];
    cairo_text_extents_t mesure;
    cairo_text_extents(c_, N(d).c_str(), &mesure);
    cairo_set_source_rgb(c_, 0, 0, 0);
    Ecrire(x + nombre - 6 - mesure.x_advance, y, N(d), nombre, d % 5 == 0);
    cairo_rectangle(c_, x + nombre, y - kTexte * 0.75, trame - 4, kTexte * 0.8);
    cairo_set_source_rgb(c_, (t >> 16 & 255) / 255.0, (t >> 8 & 255) / 255.0, (t & 255) / 255.0);
    cairo_fill_preserve(c_);
    cairo_set_source_rgb(c_, 0.4, 0.4, 0.4);
    cairo_set_line_width(c_, 0.3);
    cairo_stroke(c_);
    cairo_set_source_rgb(c_, 0, 0, 0);
    Ecrire(x + nombre + trame, y, LigneListe(d), colonne - nombre - trame - 4);
  }

  const Planche &p_;
  const double cote_;
  const Langue langue_;
  std::string octets_;
  std::vector<Etendue> colonnes_, rangees_;
  const Surface surface_;
  const Contexte contexte_;
  cairo_t *const c_;
};
}  // namespace

std::string EnPdf(const Planche &planche, double cote, Langue langue) {
  return Cahier(planche, cote, langue).Faire();
}

std::string EnSvg(const Planche &planche, Langue langue) {
  ExigerPixels(planche.Dessine(), planche.Largeur(), planche.Hauteur());
  std::string octets;
  const Marges m = MargesNumeros(kNumero);
  const double largeur = planche.Largeur() * kCaseSvg + m.gauche + m.droite,
               hauteur = planche.Hauteur() * kCaseSvg + m.dehors + kEntete;
  const Surface surface(
      cairo_svg_surface_create_for_stream(Ajouter, &octets, std::max(largeur, 240.0), hauteur));
  const Contexte contexte(cairo_create(surface.get()));
  cairo_t *c = contexte.get();
  cairo_select_font_face(c, "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_BOLD);
  cairo_set_source_rgb(c, 1, 1, 1);
  cairo_paint(c);
  cairo_set_source_rgb(c, 0, 0, 0);
  cairo_set_font_size(c, kTexte);
  cairo_move_to(c, m.gauche, kTexte * 1.6);
  const Motif &motif = planche.Dessine();
  const std::string titre =
      motif.titre.empty() ? motif.chemin.substr(motif.chemin.rfind('/') + 1) : motif.titre;
  const std::string tailles = (langue == Langue::Francais ? " — duites " : " — picks ") +
                              N(planche.Duites().premier) + " – " + N(planche.Duites().dernier);
  cairo_show_text(c, (titre + tailles).c_str());
  cairo_select_font_face(c, "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  Feuille feuille(c, planche, ToutCadrer(planche), m.gauche + kCaseSvg,
                  kEntete + (planche.Reglages().enHaut ? m.dehors : 0), kCaseSvg, kNumero);
  feuille.Cases();
  feuille.Numeros();
  cairo_surface_finish(surface.get());
  ExigerCairo(c, surface.get());
  return octets;
}
