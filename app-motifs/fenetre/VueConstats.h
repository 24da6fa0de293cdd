// The findings on a ruled slip: a row for each kind of thing, opened for its places.
#pragma once

#include <QTreeWidget>

#include "motifs/Constats.h"

class VueConstats : public QTreeWidget {
  Q_OBJECT

 public:
  explicit VueConstats(Langue langue);
  // The findings of a pattern; where there are none, that is said.
  void Montrer(const std::vector<Constat> &constats);

 signals:
  // The place that the weaver chose.
  void Choisi(const Lieu &lieu);

 protected:
  void paintEvent(QPaintEvent *evenement) override;
  void resizeEvent(QResizeEvent *evenement) override;
  void drawBranches(QPainter *, const QRect &, const QModelIndex &) const override {}

 private:
  void Dire(QTreeWidgetItem *ligne);
  const Langue langue_;
  std::vector<Lieu> lieux_;  // that the rows lead to
};
