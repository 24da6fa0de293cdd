#include "platform/qt/natifs/AccesListe.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QPointer>

#include "platform/qt/natifs/Natif.h"
#include "platform/qt/natifs/TexteNatif.h"

namespace {
// An item by its rank, whatever stands there now.
class AccesChoix : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  AccesChoix(QComboBox *combo, int rang) : combo_(combo), rang_(rang) {}

  bool isValid() const override { return combo_ && rang_ < combo_->count(); }
  QObject *object() const override { return nullptr; }
  QAccessibleInterface *childAt(int, int) const override { return nullptr; }
  QAccessibleInterface *parent() const override { return QAccessible::queryAccessibleInterface(combo_); }
  QAccessibleInterface *child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface *) const override { return -1; }
  QString text(QAccessible::Text sorte) const override {
    return isValid() && sorte == QAccessible::Name ? combo_->itemText(rang_) : QString();
  }
  void setText(QAccessible::Text, const QString &) override {}
  QRect rect() const override {
    QAccessibleInterface *liste = parent();
    return liste ? liste->rect() : QRect();
  }
  QAccessible::Role role() const override { return QAccessible::ListItem; }
  QAccessible::State state() const override {
    QAccessible::State etat;
    etat.selectable = true;
    etat.selected = isValid() && combo_->currentIndex() == rang_;
    etat.invisible = !isValid() || !combo_->isVisible();
    return etat;
  }
  void *interface_cast(QAccessible::InterfaceType sorte) override {
    return sorte == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
  }
  QStringList actionNames() const override { return {pressAction()}; }
  QStringList keyBindingsForAction(const QString &) const override { return {}; }
  void doAction(const QString &action) override {
    if (action != pressAction() || !combo_) return;
    QMetaObject::invokeMethod(
        combo_,
        [combo = combo_.data(), rang = rang_] {
          if (!combo->isVisible() || rang >= combo->count()) return;
          combo->hidePopup();
          combo->setCurrentIndex(rang);
          Q_EMIT combo->activated(rang);
        },
        Qt::QueuedConnection);
  }

 private:
  QPointer<QComboBox> combo_;
  const int rang_;
};
}  // namespace

AccesListe::AccesListe(QComboBox *combo, Natif &natif)
    : QAccessibleWidget(combo, QAccessible::ComboBox), combo_(combo), natif_(natif) {}

AccesListe::~AccesListe() {
  for (const QAccessible::Id id : choix_) QAccessible::deleteAccessibleInterface(id);
}

QString AccesListe::text(QAccessible::Text sorte) const {
  if (sorte == QAccessible::Name) return Texte(natif_.Donnee().NomAccessible);
  if (sorte != QAccessible::Value && sorte != QAccessible::Description) return QAccessibleWidget::text(sorte);
  const bool choisi = combo_->isEditable() || combo_->currentIndex() >= 0;
  return choisi ? combo_->currentText() : combo_->placeholderText();
}

QAccessible::State AccesListe::state() const {
  QAccessible::State etat = QAccessibleWidget::state();
  etat.expandable = etat.hasPopup = true;
  etat.expanded = combo_->view()->isVisible();
  etat.editable = combo_->isEditable();
  return etat;
}

int AccesListe::childCount() const { return combo_->count(); }

QAccessibleInterface *AccesListe::child(int rang) const {
  if (rang < 0 || rang >= combo_->count()) return nullptr;
  while (choix_.size() <= static_cast<std::size_t>(rang))
    choix_.push_back(
        QAccessible::registerAccessibleInterface(new AccesChoix(combo_, static_cast<int>(choix_.size()))));
  return QAccessible::accessibleInterface(choix_[static_cast<std::size_t>(rang)]);
}

int AccesListe::indexOfChild(const QAccessibleInterface *enfant) const {
  for (std::size_t i = 0; i < choix_.size(); ++i)
    if (QAccessible::accessibleInterface(choix_[i]) == enfant) return static_cast<int>(i);
  return -1;
}

QStringList AccesListe::actionNames() const { return {showMenuAction(), pressAction(), setFocusAction()}; }

void AccesListe::doAction(const QString &action) {
  if (action == setFocusAction()) combo_->setFocus();
  if (action != showMenuAction() && action != pressAction()) return;
  QMetaObject::invokeMethod(
      combo_, [combo = combo_] { combo->view()->isVisible() ? combo->hidePopup() : combo->showPopup(); },
      Qt::QueuedConnection);
}
