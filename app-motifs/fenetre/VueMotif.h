// The drawing of a pattern in the window: the wheel zooms, dragging moves, the arrows lead a cursor from
// thread to thread. Threading, tie-up and plan stay in sight while the cloth moves.
#pragma once

#include <QWidget>
#include <optional>

#include "app-motifs/fenetre/CopiesDessin.h"
#include "motifs/Constats.h"

class VueMotif : public QWidget {
  Q_OBJECT

 public:
  explicit VueMotif(Langue langue, QWidget *parent = nullptr);

  // Shows a drawing as a whole, or, with `garder`, from as near as before; nothing for none.
  void Montrer(std::shared_ptr<const DessinPret> dessin, bool garder = false);
  // Brings the place of a finding into view and marks it.
  void MontrerLieu(const Lieu &lieu);

  double Zoom() const { return zoom_; }  // pixels a cell
  // Zooms about a point of the widget, which keeps its cell.
  void Zoomer(double facteur, QPointF point);
  void Ajuster();
  // The end and the pick under the cursor, 0 and 0 before it was moved; and where they lie in the widget.
  int FilCurseur() const { return curseurFil_; }
  int DuiteCurseur() const { return curseurDuite_; }
  QRectF CaseDe(int rangFil, int rangDuite) const;
  // What the keys do, for screen readers.
  QString Aide() const;

 signals:
  // What lies under the pointer or the cursor, in words.
  void Survole(const QString &texte);

 protected:
  void paintEvent(QPaintEvent *evenement) override;
  void wheelEvent(QWheelEvent *evenement) override;
  void mousePressEvent(QMouseEvent *evenement) override;
  void mouseMoveEvent(QMouseEvent *evenement) override;
  void mouseReleaseEvent(QMouseEvent *evenement) override;
  void keyPressEvent(QKeyEvent *evenement) override;
  void resizeEvent(QResizeEvent *evenement) override;
  void focusInEvent(QFocusEvent *evenement) override { QWidget::focusInEvent(evenement), update(); }
  void focusOutEvent(QFocusEvent *evenement) override { QWidget::focusOutEvent(evenement), update(); }

 private:
  // A stretch of cells along one side, as it lies in the widget.
  struct Axe {
    int cellule = 0, nombre = 0;   // of the drawing
    double debut = 0, taille = 0;  // pixels of the widget
    double pas = 1;                // pixels a cell
    double origine = 0;            // cells scrolled by
    double Bord(double c) const { return debut + (c - cellule - origine) * pas; }
    double Cellule(double pixel) const { return cellule + origine + (pixel - debut) / pas; }
    bool Contient(double pixel) const { return pixel >= debut && pixel < debut + taille; }
    double Fin() const { return debut + taille; }
  };
  void Disposer();
  double Cote(int cases, double place) const;
  void Deplacer(QPointF pixels);
  void MettreEnVue(int rangFil, int rangDuite);
  void MenerCurseur(int pasFil, int pasDuite);
  void Pointer(int rangFil, int rangDuite);
  bool SousLePoint(QPointF point, int &rangFil, int &rangDuite) const;
  QString Dire(int rangFil, int rangDuite) const;
  void PeindreVide(QPainter &peintre) const;
  void PeindreVolet(QImage &image, const Axe &x, const Axe &y) const;
  void PeindreDePres(QImage &image, const Axe &x, const Axe &y) const;
  void PeindreFilets(QPainter &peintre) const;
  void PeindreNumeros(QPainter &peintre) const;
  void PeindreLieu(QPainter &peintre) const;

  const Langue langue_;
  std::shared_ptr<const DessinPret> dessin_;
  double zoom_ = 1;
  QPointF origine_;  // cells of the cloth scrolled by
  Axe fils_, cote_, duites_, tete_;
  std::optional<Lieu> lieu_;
  int curseurFil_ = 0, curseurDuite_ = 0;
  QPointF prise_;  // where the pointer was while dragging
  bool ajuste_ = true;
};

// Tells assistive tools that the drawing is one; to be called once.
void InstallerAccesVue();
