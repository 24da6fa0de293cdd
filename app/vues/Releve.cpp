#include "app/vues/Releve.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QWidget>
#include <map>

#include "platform/qt/natifs/TexteNatif.h"
#include "session/FenetreTissagePrincipale.h"

namespace {
std::string Nombre(double n) { return QString::number(n).toStdString(); }
std::string Couple(int a, const char *signe, int b) { return std::to_string(a) + signe + std::to_string(b); }
std::string Place(QPoint p) { return Couple(p.x(), ",", p.y()); }
std::string Taille(QSize t) { return Couple(t.width(), "x", t.height()); }
std::string Teinte(QRgb c) {
  return "#" + QString::number(c & 0xffffff, 16).rightJustified(6, u'0').toStdString();
}
std::string Citer(const std::string &texte) {
  return Octets(u'"' + Texte(texte).replace(u'\n', u"\\n"_qs) + u'"');
}
std::string Caracteres(const Police &p) {
  return std::string(p.Nom) + " " + Nombre(p.Taille) + (p.Gras ? " bold" : "") +
         (p.Italique ? " italic" : "");
}
std::string Caracteres(const QFont &f) {
  return std::to_string(f.pixelSize()) + " px" + (f.bold() ? " bold" : "") + (f.italic() ? " italic" : "") +
         (f.stretch() > 0 ? ", " + std::to_string(f.stretch()) + " % wide" : "");
}

// A piece of one colour is that colour, six points where nothing is painted; any other six letters that no
// colour has.
std::string Somme(const QImage &image, const QRect &morceau) {
  const QRgb premier = image.pixel(morceau.topLeft());
  bool uni = true;
  std::uint64_t somme = 14695981039346656037u;
  for (int y = morceau.top(); y <= morceau.bottom(); ++y)
    for (int x = morceau.left(); x <= morceau.right(); ++x) {
      const QRgb p = image.pixel(x, y);
      uni &= p == premier;
      somme = (somme ^ p) * 1099511628211u;
      somme ^= somme >> 29;
    }
  if (uni) return qAlpha(premier) == 0 ? "......" : Teinte(premier).substr(1);
  std::string lettres;
  for (int i = 0; i < 6; ++i, somme /= 20) lettres += static_cast<char>('g' + somme % 20);
  return lettres;
}

std::vector<std::string> Pixels(const QImage &image) {
  std::vector<std::string> rangees;
  for (int y = 0; y < image.height(); y += kMorceau) {
    rangees.emplace_back();
    for (int x = 0; x < image.width(); x += kMorceau)
      rangees.back() += (x > 0 ? " " : "") + Somme(image, QRect(x, y, kMorceau, kMorceau) & image.rect());
  }
  return rangees;
}

// The widget without what lies on it, cut by its outline.
QImage Seul(QWidget &w, bool avecEnfants) {
  QImage image(w.size(), QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  w.render(&image, QPoint(), w.mask(), avecEnfants ? QWidget::DrawChildren : QWidget::RenderFlags());
  return image;
}

// What depends on where the program lies.
std::string SansLieu(std::string texte, const std::string &dossier) {
  const std::string nom = "<folder>";
  for (std::size_t p = 0; !dossier.empty() && (p = texte.find(dossier, p)) != std::string::npos;
       p += nom.size())
    texte.replace(p, dossier.size(), nom);
  return texte;
}

class Releveur : public Visiteur {
 public:
  Releveur(const Vues &vues, Fenetre &f) : vues_(vues), cadre_(vues.Natif(f)) {
    noms_[&f] = "the window";
    Element &element = releve.emplace_back(Element{"window", {}, {}, {}, {}});
    element.traits = {"titled " + Citer(Octets(cadre_->windowTitle())), "at " + Place(cadre_->pos()),
                      "size " + Taille(cadre_->size()), "ground " + Teinte(f.BackColor),
                      "state " + std::to_string(f.WindowState)};
    Commun(element, f);
    Imprimer(element, f.Dessin);
    element.pixels = Pixels(Seul(*cadre_, false));
  }

  void Voir(const std::string &nom, Controle &c, Controle &parent) override {
    QWidget *w = vues_.Natif(c);
    noms_[&c] = nom;
    if (!w || !w->isVisible()) return;
    Element element{
        nom, {"in " + noms_[&parent], "at " + Place(w->pos()), "size " + Taille(w->size())}, {}, {}, {}};
    Commun(element, c);
    Propre(element, c, *w);
    widgets_.emplace_back(w, releve.size());
    releve.push_back(std::move(element));
  }
  void Voir(const std::string &nom, Minuterie &m) override {
    if (m.Interval() > 0)
      releve.push_back({nom, {"every " + std::to_string(m.Interval()) + " ms"}, {}, {}, {}});
  }
  // Whose middle lies under something else.
  void Couvrir() {
    for (const auto &[w, rang] : widgets_) {
      if (w->testAttribute(Qt::WA_TransparentForMouseEvents)) continue;  // found by no place
      const QWidget *dessus = cadre_->childAt(w->mapTo(cadre_, w->rect().center()));
      for (const auto &[autre, r] : widgets_)
        if (autre == dessus && autre != w && !w->isAncestorOf(autre) && !autre->isAncestorOf(w))
          releve[rang].traits.push_back("under " + releve[r].nom);
    }
  }

  Releve releve;

 private:
  static void Commun(Element &element, const Controle &c) {
    if (!c.NomAccessible.empty()) element.traits.push_back("called " + Citer(c.NomAccessible));
    if (c.EnMarche) element.traits.push_back(*c.EnMarche ? "on" : "off");
    if (!c.DescriptionAccessible.empty())
      element.traits.push_back("described " + Citer(c.DescriptionAccessible));
    if (c.MousePointer != kPointeurDefaut)
      element.traits.push_back("pointer " +
                               (c.MouseIcon.empty() ? std::to_string(c.MousePointer) : c.MouseIcon));
  }

  static void Imprimer(Element &element, const Surface &s) {
    for (const TexteImprime &e : s.Textes())
      element.imprimes.push_back(Citer(e.texte) + " at " + Couple(e.x, ",", e.y) + " twips, " +
                                 Caracteres(e.police) + ", " + Teinte(e.couleur));
  }

  void Propre(Element &element, Controle &c, QWidget &w) {
    const auto trait = [&](const char *mot, const std::string &valeur) {
      element.traits.push_back(std::string(mot) + " " + valeur);
    };
    const auto fonte = [&] { trait("font", Caracteres(w.font())); };
    const auto encre = [&](QPalette::ColorRole role) {
      trait("colour", Teinte(w.palette().color(role).rgb()));
    };
    // Frames and arrows of fields are the toolkit's, and change with it.
    bool peint = true, avecEnfants = false;
    switch (c.genre()) {
      case Genre::Etiquette: {
        const auto &e = static_cast<Etiquette &>(c);
        const auto &label = static_cast<QLabel &>(w);
        // A path that is too long is shortened where the machine's type asks for it.
        trait("text", Citer(e.Abreger ? e.Caption : Octets(label.text())));
        trait("type", std::string(e.Font.Nom) + (e.Abreger ? ", shortened" : ""));
        fonte();
        encre(QPalette::WindowText);
        trait("aligned", std::string(label.alignment() & Qt::AlignHCenter ? "centre" : "left") +
                             (label.alignment() & Qt::AlignVCenter ? ", middle" : "") +
                             (label.wordWrap() ? ", in lines" : ""));
        if (e.Cerne) trait("rim", "dark");
        break;
      }
      case Genre::Boite: {
        const auto &boite = static_cast<BoitePicture &>(c);
        trait("ground", Teinte(boite.BackColor));
        Imprimer(element, boite.Dessin);
        if (auto *grille = dynamic_cast<PanneauGrille *>(&c)) element.cases = Cases(*grille, Seul(w, false));
        break;
      }
      case Genre::Image:
        trait("picture", static_cast<Image &>(c).Picture);
        break;
      case Genre::Forme:
        trait("border", Teinte(static_cast<Forme &>(c).BorderColor));
        break;
      case Genre::Case:
        trait("mark", static_cast<QAbstractButton &>(w).isChecked() ? "set" : "none");
        break;
      case Genre::Texte:
        peint = avecEnfants = static_cast<ZoneTexte &>(c).Multiligne;
        trait("text", Citer(Octets(peint ? static_cast<QPlainTextEdit &>(w).toPlainText()
                                         : static_cast<QLineEdit &>(w).text())));
        fonte();
        encre(QPalette::Text);
        break;
      case Genre::Liste: {
        peint = false;
        const auto &liste = static_cast<QComboBox &>(w);
        const bool vide = liste.currentIndex() < 0 && !liste.isEditable();
        trait("text", Citer(Octets(vide ? liste.placeholderText() : liste.currentText())));
        trait("items", Choix(liste));
        fonte();
        encre(QPalette::Text);
        break;
      }
      default:
        break;
    }
    if (peint) element.pixels = Pixels(Seul(w, avecEnfants));
  }

  // Of a long list, its beginning, its end and its length.
  static std::string Choix(const QComboBox &liste) {
    std::string choix;
    constexpr int kMontres = 12;
    for (int i = 0; i < liste.count(); ++i)
      if (liste.count() <= kMontres || i < 3 || i == liste.count() - 1)
        choix += (i > 0 ? ", " : "") + Citer(Octets(liste.itemText(i)));
      else if (i == 3)
        choix += ", ...";
    return choix + " (" + std::to_string(liste.count()) + ")";
  }

  // A row of the draft a line: blank, black and red as their pictures are painted, "?" where something else
  // is.
  static std::vector<std::string> Cases(const PanneauGrille &grille, const QImage &image) {
    std::vector<std::string> rangees;
    for (int r = 1; r <= grille.PicPourImage.Dernier(); ++r) {
      rangees.emplace_back();
      for (int j = 1; j <= kLames; ++j) rangees.back() += LaCase(grille.PicPourImage[r][j], image);
    }
    return rangees;
  }
  static char LaCase(const CaseDuite &c, const QImage &image) {
    const QRect place = ::Pixels(c.Left, c.Top, c.Width, c.Height);
    if (!c.Visible || place.isEmpty()) return '.';
    constexpr std::pair<const char *, char> kImages[] = {
        {"PicBlanc", 'o'}, {"PicNoir", 'N'}, {"PicRouge", 'R'}};
    for (const auto &[nom, lettre] : kImages) {
      const Surface &s = plateforme().Picture(nom);
      bool egale = s.Largeur() == place.width() && s.Hauteur() == place.height();
      for (int y = 0; egale && y < s.Hauteur(); ++y)
        for (int x = 0; egale && x < s.Largeur(); ++x)
          egale = (image.pixel(place.topLeft() + QPoint(x, y)) & 0xffffff) == s.Point(x, y);
      if (egale) return lettre;
    }
    return '?';
  }

  const Vues &vues_;
  QWidget *cadre_;
  std::map<const Controle *, std::string> noms_;
  std::vector<std::pair<QWidget *, std::size_t>> widgets_;
};
}  // namespace

Releve Relever(const Vues &vues, Fenetre &f) {
  Releveur releveur(vues, f);
  f.Visiter(releveur);
  releveur.Couvrir();
  for (Element &e : releveur.releve)
    for (std::string &t : e.traits) t = SansLieu(std::move(t), vues.Dossier());
  return std::move(releveur.releve);
}
