// The drawing of a pattern in the window: the wheel zooms, dragging moves, and so do the keys.
#pragma once

#include <QImage>
#include <QWidget>
#include <memory>
#include <optional>

#include "motifs/Planche.h"

// The drawing in ever smaller copies, each half of the last, so that a far view is quick and quiet. A drawing
// of more than 16 million cells begins with a smaller copy.
class CopiesDessin {
 public:
  explicit CopiesDessin(const Planche &planche);
  // The copy for a zoom in pixels a cell, and the cells that one of its pixels holds along a side.
  const QImage &Pour(double zoom, int &cellules) const;

 private:
  std::vector<QImage> images_;
  int premiere_ = 1;
};

class VueMotif : public QWidget {
  Q_OBJECT

 public:
  explicit VueMotif(Langue langue, QWidget *parent = nullptr);

  // Shows a pattern as a whole; nothing for none.
  void Montrer(std::shared_ptr<const Motif> motif);
  // Brings the place of a finding into view and marks it.
  void MontrerLieu(const Constat &constat);

  double Zoom() const { return zoom_; }  // pixels a cell
  // Zooms about a point of the widget, which keeps its cell.
  void Zoomer(double facteur, QPointF point);
  void Ajuster();

 signals:
  // What lies under the pointer, in words.
  void Survole(const QString &texte);

 protected:
  void paintEvent(QPaintEvent *evenement) override;
  void wheelEvent(QWheelEvent *evenement) override;
  void mousePressEvent(QMouseEvent *evenement) override;
  void mouseMoveEvent(QMouseEvent *evenement) override;
  void mouseReleaseEvent(QMouseEvent *evenement) override;
  void keyPressEvent(QKeyEvent *evenement) override;
  void resizeEvent(QResizeEvent *evenement) override;

 private:
  void Deplacer(QPointF pixels);
  void Retenir();
  void PeindreDeLoin(QPainter &peintre);
  void PeindreDePres(QPainter &peintre);
  void PeindreLieu(QPainter &peintre);
  void DireLieu(QPointF point);

  const Langue langue_;
  std::shared_ptr<const Motif> motif_;
  std::optional<Planche> planche_;
  std::optional<CopiesDessin> copies_;
  double zoom_ = 1;
  QPointF origine_;  // the cell in the upper left corner
  QImage pres_;      // the window as it was painted last from near
  QRectF lieu_;      // marked cells
  QPointF prise_;    // where the pointer was while dragging
  bool ajuste_ = true;
};
