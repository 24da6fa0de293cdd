// A pattern in the list: a swatch cut from its cloth, its name and its sizes.
#pragma once

#include <QImage>
#include <QStyledItemDelegate>

#include "motifs/Motif.h"

class QListWidgetItem;

// A corner of the cloth, from the first end and the first pick on.
QImage Coupon(const Motif &motif);

// What the row shows and tells.
void Inscrire(QListWidgetItem &ligne, const Motif &motif, const QImage &coupon, Langue langue);

class PeintreMotifs : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter *peintre, const QStyleOptionViewItem &vue, const QModelIndex &ou) const override;
  QSize sizeHint(const QStyleOptionViewItem &vue, const QModelIndex &ou) const override;
};
