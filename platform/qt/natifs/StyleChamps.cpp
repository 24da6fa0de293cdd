#include "platform/qt/natifs/StyleChamps.h"

#include <QApplication>
#include <QProxyStyle>
#include <QStyleFactory>

#include "platform/qt/natifs/Acces.h"
#include "platform/qt/natifs/TexteNatif.h"

namespace {
class StyleChamps : public QProxyStyle {
 public:
  StyleChamps() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}
  int styleHint(StyleHint indice, const QStyleOption *option, const QWidget *widget,
                QStyleHintReturn *retour) const override {
    // A list of thousands of picks scrolls below its field instead of covering the screen.
    if (indice == SH_ComboBox_Popup) return 0;
    return QProxyStyle::styleHint(indice, option, widget, retour);
  }
};
}  // namespace

void InstallerStyle() {
  auto *style = new StyleChamps;
  QApplication::setStyle(style);
  QApplication::setPalette(style->standardPalette());
  ChoisirFamille();
  QApplication::setFont(Fonte(Police{}));
  InstallerAcces();
}
