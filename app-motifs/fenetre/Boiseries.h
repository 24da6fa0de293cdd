// What the window is made of: the loom's wood, linen, paper and pewter. Paint only.
#pragma once

#include <QWidget>

#include "motifs/Motif.h"

class QApplication;

// The letters and the colours of the loom, for all windows of the program.
void Habiller(QApplication &application);

// A gradient of wood, lit from above, with a moulding along its edge.
class Bois : public QWidget {
 public:
  enum Piece { Chateau, Poutre };
  explicit Bois(Piece piece, QWidget *parent = nullptr) : QWidget(parent), piece_(piece) {}

 protected:
  void paintEvent(QPaintEvent *evenement) override;

 private:
  const Piece piece_;
};

// Linen, with the shadow of the castle along its upper edge.
class Lin : public QWidget {
 public:
  using QWidget::QWidget;

 protected:
  void paintEvent(QPaintEvent *evenement) override;
};

// A wooden frame about what lies in it.
class Cadre : public QWidget {
 public:
  explicit Cadre(QWidget *dedans);

 protected:
  void paintEvent(QPaintEvent *evenement) override;
};

// The house's signs, drawn for the size asked for.
enum class Signe { Remarque, Faute, Bien };
void PeindreSigne(QPainter &peintre, const QRectF &place, Signe signe);
