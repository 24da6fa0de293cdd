#include "app-motifs/fenetre/Rangee.h"

#include <QWidget>
#include <algorithm>

Rangee::Rangee(QWidget *parent) : QLayout(parent) {
  setContentsMargins(0, 0, 0, 0);
  setSpacing(6);
}

Rangee::~Rangee() {
  for (QLayoutItem *item : items_) delete item;
}

QLayoutItem *Rangee::itemAt(int i) const {
  return i >= 0 && i < count() ? items_[static_cast<std::size_t>(i)] : nullptr;
}

QLayoutItem *Rangee::takeAt(int i) {
  QLayoutItem *item = itemAt(i);
  if (item) items_.erase(items_.begin() + i);
  return item;
}

QSize Rangee::sizeHint() const {
  int largeur = 0, hauteur = 0;
  for (const QLayoutItem *item : items_) {
    largeur += item->sizeHint().width() + spacing();
    hauteur = std::max(hauteur, item->sizeHint().height());
  }
  const QMargins m = contentsMargins();
  return {largeur + m.left() + m.right(), hauteur + m.top() + m.bottom()};
}

QSize Rangee::minimumSize() const {
  QSize taille;
  for (const QLayoutItem *item : items_) taille = taille.expandedTo(item->minimumSize());
  return taille.grownBy(contentsMargins());
}

void Rangee::setGeometry(const QRect &place) {
  QLayout::setGeometry(place);
  Poser(place, true);
}

int Rangee::Poser(const QRect &tout, bool vraiment) const {
  const QRect place = tout.marginsRemoved(contentsMargins());
  int x = place.x(), y = place.y(), hauteur = 0;
  const QMargins marges = contentsMargins();
  const int reste = std::max(0, tout.width() - sizeHint().width() + spacing()),
            haute = sizeHint().height() - marges.top() - marges.bottom();
  for (int i = 0; i < count(); ++i) {
    QLayoutItem *item = itemAt(i);
    const QSize taille(std::min(item->sizeHint().width(), place.width()), haute);
    if (i == ecart_) x += reste;
    if (x > place.x() && x + taille.width() > place.x() + place.width()) {
      x = place.x();
      y += hauteur + spacing();
      hauteur = 0;
    }
    if (vraiment) item->setGeometry({{x, y}, taille});
    x += taille.width() + spacing();
    hauteur = std::max(hauteur, taille.height());
  }
  return y + hauteur - tout.y() + marges.bottom();
}

void Elidee::Dire(const QString &texte) {
  entier_ = texte;
  setAccessibleName(texte);
  Elider();
}

void Elidee::Elider() {
  const QString court =
      fontMetrics().elidedText(entier_, Qt::ElideRight, std::max(0, width() - 2 * margin()));
  setText(court);
  setToolTip(court == entier_ ? QString() : entier_);
}

void Elidee::resizeEvent(QResizeEvent *evenement) {
  QLabel::resizeEvent(evenement);
  Elider();
}
