#include "platform/qt/Acces.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "platform/qt/Natif.h"
#include "platform/qt/TexteNatif.h"

namespace {
// Asked for by the tool when it wants to know, so that a start without one does nothing for it.
class AccesPeint : public QAccessibleWidget {
 public:
  AccesPeint(QWidget *widget, Natif &natif) : QAccessibleWidget(widget), natif_(natif) {}

  QAccessible::Role role() const override {
    if (natif_.Bouton()) return QAccessible::Button;
    switch (natif_.Donnee().genre()) {
      case Genre::Etiquette:
        return QAccessible::StaticText;
      case Genre::Boite:
        return QAccessible::Grouping;
      default:
        return QAccessible::Graphic;
    }
  }

  QString text(QAccessible::Text sorte) const override {
    const Controle &c = natif_.Donnee();
    if (sorte == QAccessible::Description) return Texte(c.DescriptionAccessible);
    if (sorte != QAccessible::Name) return QAccessibleWidget::text(sorte);
    if (c.NomAccessible.empty() && c.genre() == Genre::Etiquette)
      return Texte(static_cast<const Etiquette &>(c).Caption);
    return Texte(c.NomAccessible);
  }

  QStringList actionNames() const override {
    return natif_.Bouton() ? QStringList{pressAction()} : QStringList();
  }

  // Behind the tool's own call: a command may raise a window that waits.
  void doAction(const QString &action) override {
    if (action != pressAction() || !natif_.Bouton()) return;
    QMetaObject::invokeMethod(
        widget(), [natif = &natif_] { natif->Presser(); }, Qt::QueuedConnection);
  }

 private:
  Natif &natif_;
};

QAccessibleInterface *Fabriquer(const QString &, QObject *objet) {
  auto *widget = qobject_cast<QWidget *>(objet);
  Natif *natif = widget && !widget->isWindow() ? Natif::De(*widget) : nullptr;
  return natif && !natif->Saisie() ? new AccesPeint(widget, *natif) : nullptr;
}
}  // namespace

void InstallerAcces() { QAccessible::installFactory(Fabriquer); }
