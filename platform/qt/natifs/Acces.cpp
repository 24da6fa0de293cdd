#include "platform/qt/natifs/Acces.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QLabel>
#include <map>

#include "platform/qt/natifs/AccesListe.h"
#include "platform/qt/natifs/Natif.h"
#include "platform/qt/natifs/TexteNatif.h"

namespace {
QString Mots(const Natif &natif) {
  const Controle &c = natif.Donnee();
  if (c.NomAccessible.empty() && c.genre() == Genre::Etiquette)
    return Texte(static_cast<const Etiquette &>(c).Caption).trimmed();
  return Texte(c.NomAccessible);
}

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
    return sorte == QAccessible::Name ? Mots(natif_) : QAccessibleWidget::text(sorte);
  }

  // What is read out as one text is one.
  int childCount() const override { return natif_.Donnee().Annonce ? 0 : QAccessibleWidget::childCount(); }

  QAccessible::State state() const override {
    QAccessible::State etat = QAccessibleWidget::state();
    const std::optional<bool> &enMarche = natif_.Donnee().EnMarche;
    etat.checkable = enMarche.has_value();
    etat.checked = enMarche.value_or(false);
    if (natif_.Donnee().genre() == Genre::Etiquette) {
      // The label on a plate is the one of its row or panel that counts.
      etat.selectable = etat.selected = static_cast<const Etiquette &>(natif_.Donnee()).Plaque;
      if (Mots(natif_).isEmpty() || DansMessage()) etat.invisible = true;
    }
    return etat;
  }

  QStringList actionNames() const override {
    QStringList noms;
    if (natif_.Bouton()) noms << pressAction();
    if (natif_.Atteignable()) noms << setFocusAction();
    return noms;
  }

  // Behind the tool's own call: a command may raise a window that waits.
  void doAction(const QString &action) override {
    if (action == setFocusAction() && natif_.Atteignable()) widget()->setFocus();
    if (action != pressAction() || !natif_.Bouton()) return;
    QMetaObject::invokeMethod(
        widget(), [natif = &natif_] { natif->Presser(); }, Qt::QueuedConnection);
  }

 private:
  // Read out with all others of its window.
  bool DansMessage() const {
    const Natif *cadre = Natif::De(*widget()->window());
    return cadre && static_cast<const Fenetre &>(cadre->Donnee()).Message;
  }

  Natif &natif_;
};

// The lines of a window from top to bottom, as one text.
QString Lignes(const QWidget &cadre) {
  std::multimap<int, QString> lignes;
  for (const auto *label : cadre.findChildren<QLabel *>()) {
    const Natif *natif = label->isVisibleTo(&cadre) ? Natif::De(*label) : nullptr;
    if (natif && !Mots(*natif).isEmpty()) lignes.emplace(label->mapTo(&cadre, QPoint()).y(), Mots(*natif));
  }
  QStringList textes;
  for (const auto &[y, texte] : lignes) textes << texte;
  return textes.join(u' ');
}

// A window by what it is to the weaver.
class AccesCadre : public QAccessibleWidget {
 public:
  AccesCadre(QWidget *cadre, Natif &natif) : QAccessibleWidget(cadre), natif_(natif) {}

  QAccessible::Role role() const override {
    if (!widget()->parentWidget()) return QAccessible::Window;
    if (LaFenetre().Message) return QAccessible::AlertMessage;
    return LaFenetre().SansSouris ? QAccessible::ToolTip : QAccessible::Dialog;
  }

  QString text(QAccessible::Text sorte) const override {
    if (sorte != QAccessible::Name) return QAccessibleWidget::text(sorte);
    return LaFenetre().Message ? Lignes(*widget()) : Texte(LaFenetre().Caption);
  }

 private:
  const Fenetre &LaFenetre() const { return static_cast<const Fenetre &>(natif_.Donnee()); }
  Natif &natif_;
};

QAccessibleInterface *Fabriquer(const QString &, QObject *objet) {
  auto *widget = qobject_cast<QWidget *>(objet);
  Natif *natif = widget ? Natif::De(*widget) : nullptr;
  if (!natif) return nullptr;
  if (widget->isWindow()) return new AccesCadre(widget, *natif);
  if (auto *combo = qobject_cast<QComboBox *>(widget)) return new AccesListe(combo, *natif);
  return natif->Saisie() ? nullptr : new AccesPeint(widget, *natif);
}
}  // namespace

QString MotsDuMessage(const QWidget &cadre) {
  return cadre.isVisible() && QAccessible::isActive() ? Lignes(cadre) : QString();
}

void AnnoncerMarche(QWidget *widget) {
  if (!QAccessible::isActive()) return;
  QAccessible::State change;
  change.checked = true;
  QAccessibleStateChangeEvent evenement(widget, change);
  QAccessible::updateAccessibility(&evenement);
}

void AnnoncerTexte(QWidget *widget, const QString &texte) {
  if (texte.isEmpty() || !QAccessible::isActive()) return;
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
