#include "app-motifs/fenetre/Boiseries.h"

#include <QApplication>
#include <QBoxLayout>
#include <QFontDatabase>
#include <QPainter>
#include <QPainterPath>

#include "app-motifs/fenetre/Palette.h"
#include "platform/qt/champs/StyleChamps.h"

namespace {
constexpr int kBordCadre = 7, kLargeAvecNavette = 620;

QColor Teinte(Couleur c, int alpha = 255) {
  QColor couleur(c);
  couleur.setAlpha(alpha);
  return couleur;
}

QString Code(Couleur c) { return QColor(c).name(); }

// "@BoisClair" stands for a colour of the palette.
QString Feuille() {
  QString feuille = QStringLiteral(R"(
QMainWindow, QStatusBar { background: @Lin; }
QStatusBar { border-top: 1px solid @BoisMoyen; }
QStatusBar::item { border: none; }
QLabel#etiquette { font-weight: bold; color: @BoisSombre; padding-left: 2px; }
QLabel#titre { font-weight: bold; font-size: 18px; color: @BoisSombre; }
QLabel#tailles, QLabel#depot { color: @BoisSombre; }
QListWidget, QTreeWidget, QPlainTextEdit {
  background: @Papier; color: @Encre; border: 1px solid @BoisBrun; border-radius: 0;
  selection-background-color: @Vert; selection-color: @EtainReflet; }
QListWidget:focus, QTreeWidget:focus, QPlainTextEdit:focus { border: 2px solid @Orange; }
QPushButton { color: @EncreNoire; font-weight: bold; border: 1px solid @EtainBord; border-radius: 4px;
  padding: 5px 11px; min-height: 17px;
  background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 @EtainLueur, stop:0.5 @EtainPente, stop:1 @EtainClair); }
QPushButton:hover { background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 @EtainReflet, stop:1 @EtainPente); }
QPushButton:pressed, QPushButton:checked {
  background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 @EtainOmbre, stop:1 @EtainPente); }
QPushButton:checked { border: 2px solid @Vert; padding: 4px 10px; }
QPushButton:focus { border: 2px solid @OrangeSombre; padding: 4px 10px; }
QPushButton:disabled { color: @EtainBord; border-color: @EtainCreux; background: @EtainLueur; }
QPushButton#brandis { color: white; border-color: @VertNuit;
  background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 @Vert, stop:1 @VertNuit); }
QPushButton#brandis:hover { background: @Vert; }
QPushButton#brandis:focus { border-color: @Orange; }
QPushButton#brandis:disabled { color: @EtainBord; border-color: @EtainCreux; background: @EtainLueur; }
)");
  const std::pair<const char *, Couleur> noms[] = {{"BoisMoyen", Palette::BoisMoyen},
                                                   {"BoisBrun", Palette::BoisBrun},
                                                   {"BoisSombre", Palette::BoisSombre},
                                                   {"EtainReflet", Palette::EtainReflet},
                                                   {"EtainLueur", Palette::EtainLueur},
                                                   {"EtainPente", Palette::EtainPente},
                                                   {"EtainClair", Palette::EtainClair},
                                                   {"EtainOmbre", Palette::EtainOmbre},
                                                   {"EtainCreux", Palette::EtainCreux},
                                                   {"EtainBord", Palette::EtainBord},
                                                   {"EncreNoire", Palette::EncreNoire},
                                                   {"Encre", Palette::Encre},
                                                   {"Papier", Palette::Papier},
                                                   {"OrangeSombre", Palette::OrangeSombre},
                                                   {"Orange", Palette::Orange},
                                                   {"VertNuit", Palette::VertNuit},
                                                   {"Vert", Palette::Vert},
                                                   {"Lin", Palette::Lin}};
  for (const auto &[nom, couleur] : noms)
    feuille.replace(QLatin1Char('@') + QString::fromLatin1(nom), Code(couleur));
  return feuille;
}

// A shuttle with its pirn, as it lies on the castle of the loom.
void PeindreNavette(QPainter &p, QRectF place) {
  QPainterPath coque;
  coque.moveTo(place.left(), place.center().y());
  coque.quadTo(place.left() + place.width() * 0.25, place.top(), place.center().x(), place.top());
  coque.quadTo(place.right() - place.width() * 0.25, place.top(), place.right(), place.center().y());
  coque.quadTo(place.right() - place.width() * 0.25, place.bottom(), place.center().x(), place.bottom());
  coque.quadTo(place.left() + place.width() * 0.25, place.bottom(), place.left(), place.center().y());
  QLinearGradient bois(place.topLeft(), place.bottomLeft());
  bois.setColorAt(0, Teinte(Palette::BoisMoyen));
  bois.setColorAt(1, Teinte(Palette::BoisSombre));
  p.setPen(QPen(Teinte(Palette::BoisSombre), 1));
  p.setBrush(bois);
  p.drawPath(coque);
  const QRectF creux = QRectF(0, 0, place.width() * 0.44, place.height() * 0.52);
  p.setPen(Qt::NoPen);
  p.setBrush(Teinte(Palette::Encre));
  p.drawRoundedRect(creux.translated(place.center() - creux.center()), 4, 4);
  const QRectF canette(0, 0, place.width() * 0.35, place.height() * 0.28);
  p.setBrush(Teinte(Palette::Orange));
  p.drawRoundedRect(canette.translated(place.center() - canette.center()), 3, 3);
}
}  // namespace

void Habiller(QApplication &application) {
  InstallerChamps();
  if (QFontDatabase::families().contains(QStringLiteral("Liberation Sans"))) {
    QFont lettre(QStringLiteral("Liberation Sans"));
    lettre.setPixelSize(13);
    QApplication::setFont(lettre);
  }
  application.setStyleSheet(Feuille());
}

void Bois::paintEvent(QPaintEvent *) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  QLinearGradient bois(0, 0, 0, height());
  bois.setColorAt(0, Teinte(Palette::BoisClair));
  bois.setColorAt(0.55, Teinte(Palette::BoisBlond));
  bois.setColorAt(1, Teinte(Palette::BoisMiel));
  p.fillRect(rect(), bois);
  // The grain: long, pale, and the same at every painting.
  for (int i = 0; i * 5 < height(); ++i) {
    p.setPen(QPen(Teinte(Palette::BoisBrun, 10 + i * 7 % 9), 1));
    const double y = i * 5 + 2.5 + i * i % 3;
    p.drawLine(QPointF(i * 137 % 90, y), QPointF(width() - i * 61 % 120, y + (i % 2 ? 0.8 : -0.8)));
  }
  p.setRenderHint(QPainter::Antialiasing, false);
  const int h = height();
  if (piece_ == Poutre) {
    p.fillRect(0, 0, width(), 1, Teinte(Palette::BoisBrun));
    p.fillRect(0, 1, width(), 2, Teinte(Palette::Papier, 140));
    return;
  }
  p.fillRect(0, h - 9, width(), 1, Teinte(Palette::Papier, 150));
  p.fillRect(0, h - 8, width(), 6, Teinte(Palette::BoisMoyen, 150));
  p.fillRect(0, h - 2, width(), 2, Teinte(Palette::BoisBrun));
  p.setRenderHint(QPainter::Antialiasing);
  if (width() >= kLargeAvecNavette) PeindreNavette(p, QRectF(18, (h - 9) / 2.0 - 12, 150, 24));
}

void Lin::paintEvent(QPaintEvent *) {
  QPainter p(this);
  p.fillRect(rect(), Teinte(Palette::Lin));
  p.fillRect(rect(), QBrush(Teinte(Palette::LinTrame), Qt::Dense6Pattern));
  QLinearGradient ombre(0, 0, 0, 10);
  ombre.setColorAt(0, Teinte(Palette::BoisSombre, 70));
  ombre.setColorAt(1, Teinte(Palette::BoisSombre, 0));
  p.fillRect(0, 0, width(), 10, ombre);
}

Cadre::Cadre(QWidget *dedans) {
  auto *boite = new QVBoxLayout(this);
  boite->setContentsMargins(kBordCadre, kBordCadre, kBordCadre, kBordCadre);
  boite->addWidget(dedans);
}

void Cadre::paintEvent(QPaintEvent *) {
  QPainter p(this);
  QLinearGradient bois(0, 0, 0, height());
  bois.setColorAt(0, Teinte(Palette::BoisMiel));
  bois.setColorAt(1, Teinte(Palette::BoisMoyen));
  p.fillRect(rect(), bois);
  p.setPen(Teinte(Palette::BoisBrun));
  p.drawRect(rect().adjusted(0, 0, -1, -1));
  p.drawRect(rect().adjusted(kBordCadre - 1, kBordCadre - 1, -kBordCadre, -kBordCadre));
  p.setPen(Teinte(Palette::BoisClair));
  p.drawLine(1, 1, width() - 2, 1);
  p.drawLine(1, 1, 1, height() - 2);
  p.setPen(Teinte(Palette::BoisBrun, 120));
  for (const auto &[x, y] :
       {std::pair(0, 0), {width() - 1, 0}, {0, height() - 1}, {width() - 1, height() - 1}})
    p.drawLine(x, y, x == 0 ? kBordCadre : x - kBordCadre, y == 0 ? kBordCadre : y - kBordCadre);
}

void PeindreSigne(QPainter &p, const QRectF &place, Signe signe) {
  p.save();
  p.setRenderHint(QPainter::Antialiasing);
  p.setPen(Qt::NoPen);
  const double c = place.width();
  const QPointF m = place.center();
  p.setBrush(Teinte(signe == Signe::Faute ? Palette::Brique : Palette::Vert));
  if (signe == Signe::Faute)
    p.drawPolygon(
        QPolygonF({{m.x(), place.top()}, {place.right(), place.bottom()}, {place.left(), place.bottom()}}));
  else
    p.drawEllipse(place);
  p.setBrush(Qt::white);
  if (signe == Signe::Bien) {
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(Qt::white, c * 0.13, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPolyline(QPolygonF({{m.x() - c * 0.22, m.y()},
                              {m.x() - c * 0.05, m.y() + c * 0.18},
                              {m.x() + c * 0.24, m.y() - c * 0.2}}));
  } else {
    const bool faute = signe == Signe::Faute;
    const double haut = faute ? place.top() + c * 0.36 : place.top() + c * 0.42, trait = c * 0.14;
    p.drawRoundedRect(QRectF(m.x() - trait / 2, haut, trait, c * 0.34), trait / 3, trait / 3);
    p.drawEllipse(QPointF(m.x(), faute ? place.bottom() - c * 0.13 : place.top() + c * 0.27), trait * 0.6,
                  trait * 0.6);
  }
  p.restore();
}
