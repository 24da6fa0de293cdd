// Every text of every view is painted, and stands out from what lies around its letters, measured on the
// pixels that the weaver sees.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLoggingCategory>
#include <algorithm>
#include <array>
#include <cmath>
#include <iostream>
#include <map>

#include "app/vues/Vues.h"
#include "controls/Palette.h"
#include "kit/FeuilleAPropos.h"
#include "platform/qt/natifs/StyleNatif.h"
#include "platform/qt/natifs/TexteNatif.h"

namespace {
constexpr double kContraste = 4.5;

double Luminance(QRgb c) {
  static const auto canaux = [] {
    std::array<double, 256> t{};
    for (std::size_t v = 0; v < t.size(); ++v) {
      const double x = static_cast<double>(v) / 255;
      t[v] = x <= 0.04045 ? x / 12.92 : std::pow((x + 0.055) / 1.055, 2.4);
    }
    return t;
  }();
  const auto canal = [](int v) { return canaux[static_cast<std::size_t>(v)]; };
  return 0.2126 * canal(qRed(c)) + 0.7152 * canal(qGreen(c)) + 0.0722 * canal(qBlue(c));
}

double Contraste(QRgb a, QRgb b) {
  const auto [bas, haut] = std::minmax({Luminance(a), Luminance(b)});
  return (haut + 0.05) / (bas + 0.05);
}

int Ecart(QRgb a, QRgb b) {
  return std::max(
      {std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
}

double Centile(std::vector<double> v, double part) {
  const auto place = v.begin() + static_cast<std::ptrdiff_t>(part * static_cast<double>(v.size() - 1));
  std::nth_element(v.begin(), place, v.end());
  return *place;
}

// The contrast of a text of this colour: for the pixels of its strokes, that with the outer part of what lies
// within `portee` pixels, more than half a stroke. Where nothing of it is seen: negative if something covers
// its place, else 0.
double Mesurer(const QImage &image, const QRect &place, QRgb couleur, const std::function<bool(QPoint)> &vu,
               int portee = 3) {
  const QRect zone = place.intersected(image.rect());
  int proche = 255;
  std::vector<std::pair<QPoint, int>> points;
  for (int y = zone.top(); y <= zone.bottom(); ++y)
    for (int x = zone.left(); x <= zone.right(); ++x)
      if (vu({x, y})) {
        points.emplace_back(QPoint(x, y), Ecart(image.pixel(x, y), couleur));
        proche = std::min(proche, points.back().second);
      }
  const bool couvert = static_cast<int>(points.size()) < zone.width() * zone.height();
  if (proche > 140) return couvert ? -1 : 0;
  std::vector<double> lettres;
  for (const auto &[p, ecart] : points) {
    if (ecart > proche + 30) continue;
    std::vector<double> autour;
    for (int dy = -portee; dy <= portee; ++dy)
      for (int dx = -portee; dx <= portee; ++dx)
        if (image.valid(p.x() + dx, p.y() + dy))
          autour.push_back(Contraste(couleur, image.pixel(p.x() + dx, p.y() + dy)));
    lettres.push_back(Centile(autour, 0.85));
  }
  return Centile(lettres, 0.1);
}

// A dark desktop, which colours kinds of widgets by themselves as well.
void Assombrir() {
  QPalette sombre(QColor(49, 54, 59), QColor(42, 46, 50));
  sombre.setColor(QPalette::Base, QColor(27, 30, 32));
  for (const auto role :
       {QPalette::Text, QPalette::WindowText, QPalette::ButtonText, QPalette::HighlightedText})
    sombre.setColor(role, QColor(252, 252, 252));
  QApplication::setPalette(sombre);
  for (const char *genre : {"QComboBox", "QLineEdit", "QTextControl", "QPushButton", "QLabel",
                            "QMessageBoxLabel", "QAbstractItemView", "QCheckBox", "QAbstractButton"})
    QApplication::setPalette(sombre, genre);
}

class EssaiContraste : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    Assombrir();
    InstallerStyle();
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
  }
  // All texts of a window that can be seen.
  struct Releveur : Visiteur {
    Releveur(EssaiContraste &essai, const std::string &vue, Fenetre &f)
        : e(essai), nom_(vue), cadre(e.vues->Natif(f)) {
      image = cadre->grab().toImage();
      Ecrits(f.Dessin, *cadre, "");
    }
    void Voir(const std::string &nom, Controle &c, Controle &) override {
      QWidget *w = e.vues->Natif(c);
      if (!w || !w->isVisible()) return;
      switch (c.genre()) {
        case Genre::Etiquette: {
          const auto &etiquette = static_cast<Etiquette &>(c);
          return Noter(nom, *w, w->rect(), etiquette.Caption, etiquette.ForeColor);
        }
        case Genre::Texte: {
          const auto &zone = static_cast<ZoneTexte &>(c);
          if (zone.SelLength <= 0) return Noter(nom, *w, w->rect(), zone.Text, Palette::Noir);
          // White on green: the paper around it would pass for letters.
          QRect choisi(QPoint(), QFontMetrics(w->font()).size(0, Texte(zone.Text)));
          choisi.moveCenter({choisi.center().x() + 4, w->rect().center().y()});
          return Noter(nom, *w, choisi.adjusted(0, 2, -2, -2), zone.Text, Palette::EtainReflet);
        }
        case Genre::Liste:
          return Noter(nom, *w, w->rect().adjusted(2, 2, -20, -2), static_cast<ListeChoix &>(c).Text,
                       Palette::Noir);
        case Genre::Boite:
          return Ecrits(static_cast<BoitePicture &>(c).Dessin, *w, nom);
        default:
          return;
      }
    }
    void Voir(const std::string &, Minuterie &) override {}

    // A text printed twice is a shadow and a face; only the face is read.
    void Ecrits(const Surface &s, QWidget &w, const std::string &nom) {
      for (std::size_t i = 0; i < s.Textes().size(); ++i) {
        const TexteImprime &t = s.Textes()[i];
        if (i + 1 < s.Textes().size() && s.Textes()[i + 1].texte == t.texte) continue;
        const QRect place(QPoint(t.x / kTwipsParPixel, t.y / kTwipsParPixel),
                          QFontMetrics(Fonte(t.police)).size(0, Texte(t.texte)));
        Noter(nom, w, place, t.texte, t.couleur);
      }
    }

    void Noter(const std::string &nom, QWidget &w, const QRect &dans, const std::string &texte,
               Couleur couleur) {
      if (Texte(texte).trimmed().isEmpty()) return;
      const QRect place(w.mapTo(cadre, dans.topLeft()), dans.size());
      // This one takes the click and shows nothing.
      const QWidget *voile = e.vues->Natif(feuilleAPropos.Image2),
                    *dessous = e.vues->Natif(feuilleAPropos.Picture1);
      const double c = Mesurer(
          image, place, 0xff000000u | couleur,
          [&](QPoint p) {
            QWidget *dessus = cadre->childAt(p);
            return dessus == &w || (dessus && w.isAncestorOf(dessus)) || (!dessus && &w == cadre) ||
                   (voile && dessus == voile && &w == dessous);
          },
          std::max(3, w.font().pixelSize() / 6));
      if (c < 0) return;  // covered by a panel
      ++e.mesures;
      double &bas = e.plusBas.try_emplace(nom_ + " " + nom + " \"" + texte + "\"", c).first->second;
      bas = std::min(bas, c);
    }
    EssaiContraste &e;
    std::string nom_;
    QWidget *cadre;
    QImage image;
  };

  std::unique_ptr<Vues> vues;
  std::map<std::string, double> plusBas;
  int mesures = 0;
};

TEST_F(EssaiContraste, EveryTextOfEveryViewIsReadable) {
  vues = std::make_unique<Vues>(BRANDIS_PROGRAMME, [&](const std::string &nom, Fenetre &f) {
    Releveur releveur(*this, nom, f);
    f.Visiter(releveur);
  });
  for (const bool francais : {true, false}) vues->Parcourir(francais);
  EXPECT_GT(mesures, 1500);
  const auto bas =
      std::min_element(plusBas.begin(), plusBas.end(), [](auto &a, auto &b) { return a.second < b.second; });
  std::cout << "lowest of " << mesures << " texts: " << bas->second << " : " << bas->first << "\n";
  for (const auto &[texte, c] : plusBas) EXPECT_GE(c, kContraste) << texte;
}

TEST_F(EssaiContraste, EveryPictureWithWordsIsReadable) {
  const QRect partout(0, 0, 1000, 1000);
  const struct {
    const char *nom;
    Couleur encre;
    QRect place;  // of the words
  } images[] = {{"UnInstant", Palette::Encre, {130, 10, 130, 20}},
                {"UnInstant", Palette::BoisBrun, {222, 32, 130, 18}},
                {"ImageMessageFrancais", Palette::Encre, partout},
                {"ImageMessageAnglais", Palette::Encre, partout},
                {"BITMAP119", Palette::EncreNoire, partout},
                {"BoutonAnnuler", Palette::EncreNoire, partout},
                {"BoutonModifierIngredientDirectement", Palette::EncreNoire, partout}};
  for (const auto &[nom, encre, place] : images) {
    QString chemin = QStringLiteral(BRANDIS_PROGRAMME "/Images/") + nom;
    QImage image(chemin + ".png");
    if (image.isNull()) image.load(chemin + ".bmp");
    ASSERT_FALSE(image.isNull()) << nom;
    const double c = Mesurer(image, place, 0xff000000u | encre, [](QPoint) { return true; });
    EXPECT_GE(c, kContraste) << nom;
  }
}
}  // namespace
