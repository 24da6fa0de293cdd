// The widgets that the mirror paints itself.
#pragma once

#include <QFocusEvent>
#include <QImage>
#include <QLabel>
#include <QWidget>
#include <array>
#include <vector>

#include "controls/Surface.h"
#include "session/ModuleTissage.h"

// The ring around what has the keyboard's focus.
void PeindreAnneau(QPainter &p, const QRect &place);

// A widget that has a ring on top while the weaver stands on it with the Tab key.
template <class W>
class AvecAnneau : public W {
 public:
  using W::W;

 protected:
  void focusInEvent(QFocusEvent *e) override {
    Anneau(e->reason() == Qt::TabFocusReason || e->reason() == Qt::BacktabFocusReason);
  }
  void focusOutEvent(QFocusEvent *) override { Anneau(false); }
  // The walk by Tab is the mirror's own.
  bool focusNextPrevChild(bool) override { return false; }
  bool anneau_ = false;

 private:
  void Anneau(bool visible) {
    if (anneau_ == visible) return;
    anneau_ = visible;
    this->update();
  }
};

// A painted widget.
class Peint : public AvecAnneau<QWidget> {
 public:
  using AvecAnneau::AvecAnneau;

 protected:
  void paintEvent(QPaintEvent *) override;
  virtual void Peindre(QPainter &, const QRect &) {}
};

// A text, with a dark rim of full strength round each letter or a dark plate behind it where that is asked
// for.
class PeintEtiquette : public AvecAnneau<QLabel> {
 public:
  using AvecAnneau::AvecAnneau;
  void Cerne(bool cerne);
  void Plaque(bool plaque);

 protected:
  void paintEvent(QPaintEvent *) override;

 private:
  int Drapeaux() const;
  QRect PlacePlaque() const;
  void PeindreCerne(QPainter &p) const;
  bool cerne_ = false, plaque_ = false;
};

// Pixels and printed texts of a surface, over a background colour.
class PeintDessin : public Peint {
 public:
  using Peint::Peint;
  // `fine` is the same at twice its size where there is one, else null.
  void Dessin(const Surface &surface, const QImage &fine);
  // What lies on it and is finer than the surface; null for none.
  void Pose(const QImage &image, QPoint place);
  void Fond(Couleur couleur);

 protected:
  void Peindre(QPainter &, const QRect &) override;

 private:
  bool Peau() const;
  const QImage &ImagePour(double echelle);
  QImage image_, fine_, sansCle_, pose_;
  QPoint place_;
  std::vector<TexteImprime> textes_;
  Couleur couleur_ = 0;
};

// A picture in its own size from the top left corner, what is beyond the widget cut off.
class PeintImage : public Peint {
 public:
  using Peint::Peint;
  void Picture(const QImage &image);

 protected:
  void Peindre(QPainter &, const QRect &) override;

 private:
  QImage image_;
};

// The outline of a box inside its rectangle, `epaisseur` pixels wide; the pointer passes through it.
class PeintForme : public Peint {
 public:
  explicit PeintForme(QWidget *parent);
  void Bord(Couleur couleur, int epaisseur);

 protected:
  void Peindre(QPainter &, const QRect &) override;

 private:
  Couleur couleur_ = 0;
  int epaisseur_ = 1;
};

// The draft: a ground and the shown cells.
class PeintGrille : public PeintDessin {
 public:
  static constexpr std::size_t kCases = 20 * kLames, kImages = 3;
  static constexpr signed char kCachee = -1;
  // Rank of each cell's picture, and the place of each in pixels; row after row.
  using Cases = std::array<signed char, kCases>;
  using Places = std::array<QRect, kCases>;

  explicit PeintGrille(QWidget *parent) : PeintDessin(parent) { cases_.fill(kCachee); }
  // Before the first cell is shown.
  void Meubler(const std::array<QImage, kImages> &images, const Places &places);
  // Repaints the cells that differ.
  void Montrer(const Cases &cases);

 protected:
  void Peindre(QPainter &, const QRect &) override;

 private:
  Cases cases_;
  Places places_;
  std::array<QImage, kImages> images_;
};
