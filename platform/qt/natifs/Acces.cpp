#include "platform/qt/natifs/Acces.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>

#include "platform/qt/natifs/Natif.h"
#include "platform/qt/natifs/TexteNatif.h"

namespace {
// Asked for by the tool when it wants to know, so that a start without one does nothing for it.
class AccesPeint : public QAccessibleWidget {
 public:
  AccesPeint(QWidget *widget, Natif &natif) : QAccessibleWidget(widget), natif_(natif) {}

  QAccessible::Role role() const override {
    if (natif_.Bouton()) return QAccessible::Button;
    if (natif_.Donnee().Annonce) return QAccessible::StaticText;
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

  // What is read out as one text is one.
  int childCount() const override { return natif_.Donnee().Annonce ? 0 : QAccessibleWidget::childCount(); }

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

// The toolkit's own names a list by what is chosen in it, and leaves its label to a relation that few tools
// read.
class AccesListe : public QAccessibleWidget {
 public:
  AccesListe(QComboBox *combo, Natif &natif)
      : QAccessibleWidget(combo, QAccessible::ComboBox), combo_(combo), natif_(natif) {}

  QString text(QAccessible::Text sorte) const override {
    if (sorte == QAccessible::Name) return Texte(natif_.Donnee().NomAccessible);
    if (sorte != QAccessible::Value) return QAccessibleWidget::text(sorte);
    const bool choisi = combo_->isEditable() || combo_->currentIndex() >= 0;
    return choisi ? combo_->currentText() : combo_->placeholderText();
  }

  QAccessible::State state() const override {
    QAccessible::State etat = QAccessibleWidget::state();
    etat.expandable = etat.hasPopup = true;
    etat.expanded = combo_->view()->isVisible();
    etat.editable = combo_->isEditable();
    return etat;
  }

  QStringList actionNames() const override { return {showMenuAction(), pressAction()}; }

  void doAction(const QString &action) override {
    if (action != showMenuAction() && action != pressAction()) return;
    QMetaObject::invokeMethod(
        combo_, [combo = combo_] { combo->view()->isVisible() ? combo->hidePopup() : combo->showPopup(); },
        Qt::QueuedConnection);
  }

 private:
  QComboBox *combo_;
  Natif &natif_;
};

QAccessibleInterface *Fabriquer(const QString &, QObject *objet) {
  auto *widget = qobject_cast<QWidget *>(objet);
  Natif *natif = widget && !widget->isWindow() ? Natif::De(*widget) : nullptr;
  if (!natif) return nullptr;
  if (auto *combo = qobject_cast<QComboBox *>(widget)) return new AccesListe(combo, *natif);
  return natif->Saisie() ? nullptr : new AccesPeint(widget, *natif);
}
}  // namespace

void AnnoncerTexte(QWidget *widget, const QString &texte) {
  if (!QAccessible::isActive()) return;
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
  QAccessibleAnnouncementEvent annonce(widget, texte);
  QAccessible::updateAccessibility(&annonce);
#else
  // The toolkit's bridge has no word for it yet and keeps alerts to itself: told on its line, under its
  // names.
  const QDBusConnection ligne(QStringLiteral("a11y"));
  QAccessibleInterface *acces = QAccessible::queryAccessibleInterface(widget);
  if (!ligne.isConnected() || !acces) return;
  QDBusMessage annonce = QDBusMessage::createSignal(
      u"/org/a11y/atspi/accessible/%1"_qs.arg(QAccessible::uniqueId(acces)),
      QStringLiteral("org.a11y.atspi.Event.Object"), QStringLiteral("Announcement"));
  constexpr int kPoli = 1;  // behind what the reader is saying
  annonce << QString() << kPoli << 0 << QVariant::fromValue(QDBusVariant(texte)) << QVariantMap();
  ligne.send(annonce);
#endif
}

void InstallerAcces() { QAccessible::installFactory(Fabriquer); }
