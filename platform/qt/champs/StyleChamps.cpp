#include "platform/qt/champs/StyleChamps.h"

#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>

#include "controls/Palette.h"

namespace {
QColor Encre(Couleur c) { return QColor::fromRgb(c | 0xff000000u); }

// Every role of every group, so that nothing of a dark desktop shows through.
QPalette PaletteMetier() {
  const struct {
    QPalette::ColorRole role;
    Couleur couleur, eteinte;
  } roles[] = {{QPalette::Window, Palette::Lin, Palette::Lin},
               {QPalette::WindowText, Palette::Encre, Palette::EtainBord},
               {QPalette::Base, Palette::Papier, Palette::Papier},
               {QPalette::AlternateBase, Palette::Lin, Palette::Lin},
               {QPalette::Text, Palette::Noir, Palette::EtainBord},
               {QPalette::PlaceholderText, Palette::Noir, Palette::EtainBord},
               {QPalette::BrightText, Palette::EtainReflet, Palette::EtainReflet},
               {QPalette::Button, Palette::EtainPente, Palette::EtainPente},
               {QPalette::ButtonText, Palette::EncreNoire, Palette::EtainBord},
               {QPalette::Light, Palette::EtainReflet, Palette::EtainReflet},
               {QPalette::Midlight, Palette::EtainLueur, Palette::EtainLueur},
               {QPalette::Mid, Palette::EtainOmbre, Palette::EtainOmbre},
               {QPalette::Dark, Palette::EtainSombre, Palette::EtainSombre},
               {QPalette::Shadow, Palette::EtainBord, Palette::EtainBord},
               {QPalette::Highlight, Palette::Vert, Palette::EtainSombre},
               {QPalette::HighlightedText, Palette::EtainReflet, Palette::EtainReflet},
               {QPalette::Link, Palette::BleuEtiquette, Palette::BleuEtiquette},
               {QPalette::LinkVisited, Palette::BleuEtiquette, Palette::BleuEtiquette},
               {QPalette::ToolTipBase, Palette::Papier, Palette::Papier},
               {QPalette::ToolTipText, Palette::Encre, Palette::Encre}};
  QPalette p;
  for (const auto &r : roles) {
    p.setColor(QPalette::Active, r.role, Encre(r.couleur));
    p.setColor(QPalette::Inactive, r.role, Encre(r.couleur));
    p.setColor(QPalette::Disabled, r.role, Encre(r.eteinte));
  }
  return p;
}

// Paper in a line of wood: what is written on.
void PeindreChamp(QPainter &p, const QRect &place, bool vise) {
  p.save();
  p.setRenderHint(QPainter::Antialiasing, false);
  p.fillRect(place, Encre(vise ? Palette::Orange : Palette::BoisBrun));
  p.fillRect(place.adjusted(1, 1, -1, -1), Encre(vise ? Palette::Orange : Palette::PapierLigne));
  p.fillRect(place.adjusted(2, 2, -2, -2), Encre(Palette::Papier));
  p.restore();
}

void PeindreFleche(QPainter &p, const QRectF &place, bool haut, bool active) {
  constexpr double kDemi = 4;  // pixels
  const QPointF m = place.center();
  const double pointe = haut ? -kDemi / 2 : kDemi / 2;
  p.save();
  p.setRenderHint(QPainter::Antialiasing);
  p.setPen(Qt::NoPen);
  p.setBrush(Encre(active ? Palette::BoisSombre : Palette::EtainOmbre));
  const double large = std::min(kDemi, place.height() / 2);
  p.drawPolygon(
      QPolygonF({{m.x() - large, m.y() - pointe}, {m.x() + large, m.y() - pointe}, {m.x(), m.y() + pointe}}));
  p.restore();
}

class StyleChamps : public QProxyStyle {
 public:
  StyleChamps() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}
  QPalette standardPalette() const override { return PaletteMetier(); }

  int styleHint(StyleHint indice, const QStyleOption *option, const QWidget *widget,
                QStyleHintReturn *retour) const override {
    // A list of thousands of picks scrolls below its field instead of covering the screen.
    if (indice == SH_ComboBox_Popup) return 0;
    return QProxyStyle::styleHint(indice, option, widget, retour);
  }

  void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *p,
                     const QWidget *widget) const override {
    const bool vise = option->state & State_HasFocus;
    switch (element) {
      case PE_PanelLineEdit: {
        const auto *cadre = qstyleoption_cast<const QStyleOptionFrame *>(option);
        if (cadre && cadre->lineWidth <= 0) return;  // stands in a field that is painted already
        return PeindreChamp(*p, option->rect, vise);
      }
      case PE_FrameLineEdit:
        return PeindreChamp(*p, option->rect, vise);
      case PE_FrameFocusRect:
        p->save();
        p->setRenderHint(QPainter::Antialiasing, false);
        p->setPen(Encre(Palette::Orange));
        p->setBrush(Qt::NoBrush);
        p->drawRect(option->rect.adjusted(0, 0, -1, -1));
        return p->restore();
      default:
        return QProxyStyle::drawPrimitive(element, option, p, widget);
    }
  }

  void drawComplexControl(ComplexControl element, const QStyleOptionComplex *option, QPainter *p,
                          const QWidget *widget) const override {
    const bool active = option->state & State_Enabled, vise = option->state & State_HasFocus;
    const auto partie = [&](SubControl s) { return QRectF(subControlRect(element, option, s, widget)); };
    switch (element) {
      case CC_ComboBox:
        PeindreChamp(*p, option->rect, vise);
        return PeindreFleche(*p, partie(SC_ComboBoxArrow), false, active);
      case CC_SpinBox: {
        const auto *compteur = qstyleoption_cast<const QStyleOptionSpinBox *>(option);
        const auto permis = compteur ? compteur->stepEnabled : QAbstractSpinBox::StepEnabled();
        PeindreChamp(*p, option->rect, vise);
        PeindreFleche(*p, partie(SC_SpinBoxUp), true, active && permis & QAbstractSpinBox::StepUpEnabled);
        return PeindreFleche(*p, partie(SC_SpinBoxDown), false,
                             active && permis & QAbstractSpinBox::StepDownEnabled);
      }
      default:
        return QProxyStyle::drawComplexControl(element, option, p, widget);
    }
  }
};
}  // namespace

void InstallerChamps() {
  QApplication::setStyle(new StyleChamps);
  const QPalette palette = PaletteMetier();
  QApplication::setPalette(palette);
  // A desktop may colour kinds of widgets by themselves; such a palette goes before that of the application.
  for (const char *genre :
       {"QAbstractButton", "QAbstractItemView", "QCheckBox", "QComboBox", "QGroupBox", "QHeaderView",
        "QLabel", "QLineEdit", "QMenu", "QMenuBar", "QMessageBoxLabel", "QPushButton", "QRadioButton",
        "QTabBar", "QTextControl", "QTextEdit", "QTipLabel", "QToolButton"})
    QApplication::setPalette(palette, genre);
}
