// Room in a window of any size: keys that go on to a next row, and a line of text that ends in "…".
#pragma once

#include <QLabel>
#include <QLayout>
#include <vector>

class Rangee : public QLayout {
 public:
  explicit Rangee(QWidget *parent);
  ~Rangee() override;
  // From this item on the row stands at the right while all of it fits.
  void Ecarter() { ecart_ = count(); }

  void addItem(QLayoutItem *item) override { items_.push_back(item); }
  int count() const override { return static_cast<int>(items_.size()); }
  QLayoutItem *itemAt(int i) const override;
  QLayoutItem *takeAt(int i) override;
  Qt::Orientations expandingDirections() const override { return {}; }
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int largeur) const override { return Poser({0, 0, largeur, 0}, false); }
  QSize sizeHint() const override;
  QSize minimumSize() const override;
  void setGeometry(const QRect &place) override;

 private:
  int Poser(const QRect &place, bool vraiment) const;  // the height

  std::vector<QLayoutItem *> items_;
  int ecart_ = 1 << 20;
};

// One line, however long its text; all of it is in the tip and told to assistive tools.
class Elidee : public QLabel {
 public:
  using QLabel::QLabel;
  void Dire(const QString &texte);
  const QString &Entier() const { return entier_; }
  QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

 protected:
  void resizeEvent(QResizeEvent *evenement) override;

 private:
  void Elider();
  QString entier_;
};
