// What assistive tools are told of a list field: it bears its label, has the chosen text as its value, and
// its items as children, each of which can be chosen by its press action, open or not.
#pragma once

#include <QAccessibleWidget>
#include <vector>

class Natif;
class QComboBox;

// The toolkit's own names a list by what is chosen in it, and leaves its label to a relation that few tools
// read.
class AccesListe : public QAccessibleWidget {
 public:
  AccesListe(QComboBox *combo, Natif &natif);
  ~AccesListe() override;

  QString text(QAccessible::Text sorte) const override;
  QAccessible::State state() const override;
  int childCount() const override;
  QAccessibleInterface *child(int rang) const override;
  int indexOfChild(const QAccessibleInterface *enfant) const override;
  QAccessibleInterface *focusChild() const override { return nullptr; }
  QStringList actionNames() const override;
  void doAction(const QString &action) override;

 private:
  QComboBox *combo_;
  Natif &natif_;
  mutable std::vector<QAccessible::Id> choix_;  // of the items that were asked for
};
