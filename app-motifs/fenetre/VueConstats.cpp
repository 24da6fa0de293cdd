#include "app-motifs/fenetre/VueConstats.h"

#include <QHeaderView>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

#include "app-motifs/fenetre/Boiseries.h"
#include "app-motifs/fenetre/Palette.h"
#include "app-motifs/fenetre/Textes.h"

namespace {
constexpr int kSigne = Qt::UserRole, kLieu = Qt::UserRole + 1;
constexpr int kMarge = 30, kLigne = 22, kAir = 6, kRetrait = 14;  // pixels

// The text beside the red line, as many rules high as it takes.
class Peintre : public QStyledItemDelegate {
 public:
  explicit Peintre(QTreeWidget *arbre) : QStyledItemDelegate(arbre), arbre_(arbre) {}

  void paint(QPainter *p, const QStyleOptionViewItem &vue, const QModelIndex &ou) const override {
    p->save();
    const QRect la(0, vue.rect.top(), arbre_->viewport()->width(), vue.rect.height());
    if (vue.state & QStyle::State_Selected) p->fillRect(la, QColor(Palette::BoisBlond));
    p->setPen(QColor(Palette::PapierLigne));
    p->drawLine(la.bottomLeft(), la.bottomRight());
    p->setPen(QColor(Palette::Brique));
    p->drawLine(kMarge, la.top(), kMarge, la.bottom());
    if (const QVariant signe = ou.data(kSigne); signe.isValid())
      PeindreSigne(*p, QRectF(7, la.top() + (kLigne - 17) / 2.0 + 1, 17, 17),
                   static_cast<Signe>(signe.toInt()));
    if (arbre_->model()->hasChildren(ou)) {
      const double x = la.right() - 11, y = la.top() + kLigne / 2.0, bas = arbre_->isExpanded(ou) ? 1 : 0;
      p->setRenderHint(QPainter::Antialiasing);
      p->setPen(Qt::NoPen);
      p->setBrush(QColor(Palette::BoisBrun));
      p->drawPolygon(bas > 0 ? QPolygonF({{x - 5, y - 3}, {x + 5, y - 3}, {x, y + 4}})
                             : QPolygonF({{x - 3, y - 5}, {x - 3, y + 5}, {x + 4, y}}));
    }
    p->setPen(QColor(Palette::Encre));
    p->setFont(vue.font);
    p->drawText(Place(vue, ou).translated(0, la.top() + 3), Qt::TextWordWrap, ou.data().toString());
    if (vue.state & QStyle::State_HasFocus) {
      p->setPen(QPen(QColor(Palette::Encre), 1, Qt::DotLine));
      p->setBrush(Qt::NoBrush);
      p->drawRect(la.adjusted(1, 1, -2, -3));
    }
    p->restore();
  }

  QSize sizeHint(const QStyleOptionViewItem &vue, const QModelIndex &ou) const override {
    const QRect texte =
        QFontMetrics(vue.font).boundingRect(Place(vue, ou), Qt::TextWordWrap, ou.data().toString());
    return {kMarge, std::max(kLigne, texte.height() + kAir)};
  }

 private:
  QRect Place(const QStyleOptionViewItem &, const QModelIndex &ou) const {
    const int gauche = kMarge + 8 + (ou.parent().isValid() ? kRetrait : 0);
    return {gauche, 0, std::max(40, arbre_->viewport()->width() - gauche - 18), 10000};
  }
  QTreeWidget *const arbre_;
};
}  // namespace

VueConstats::VueConstats(Langue langue) : langue_(langue) {
  setHeaderHidden(true);
  setColumnCount(1);
  setIndentation(0);
  setUniformRowHeights(false);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setItemDelegate(new Peintre(this));
  setExpandsOnDoubleClick(false);
  setMinimumSize(130, 80);
  connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem *ligne) { Dire(ligne); });
  connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem *ligne) {
    if (ligne->childCount() > 0) ligne->setExpanded(!ligne->isExpanded());
    Dire(ligne);
  });
}

void VueConstats::Dire(QTreeWidgetItem *ligne) {
  if (!ligne || !ligne->data(0, kLieu).isValid()) return;
  emit Choisi(lieux_[static_cast<std::size_t>(ligne->data(0, kLieu).toInt())]);
}

void VueConstats::Montrer(const std::vector<Constat> &constats) {
  const QSignalBlocker silence(this);
  clear();
  lieux_.clear();
  const auto mener = [this](QTreeWidgetItem *ligne, const Lieu &lieu) {
    ligne->setData(0, kLieu, static_cast<int>(lieux_.size()));
    lieux_.push_back(lieu);
  };
  const bool fr = langue_ == Langue::Francais;
  for (const Constat &c : constats) {
    auto *ligne = new QTreeWidgetItem(this, {Texte(c.texte.En(langue_))});
    ligne->setData(0, kSigne, static_cast<int>(c.faute ? Signe::Faute : Signe::Remarque));
    const QString genre = c.faute ? (fr ? QStringLiteral("Faute : ") : QStringLiteral("Fault: "))
                                  : (fr ? QStringLiteral("Remarque : ") : QStringLiteral("Remark: "));
    ligne->setData(0, Qt::AccessibleTextRole, genre + ligne->text(0));
    mener(ligne, c);
    if (c.lieux.size() < 2) continue;
    for (const Lieu &l : c.lieux) mener(new QTreeWidgetItem(ligne, {Texte(TexteLieu(l).En(langue_))}), l);
    if (const long long autres = c.nombre - static_cast<long long>(c.lieux.size()); autres > 0)
      new QTreeWidgetItem(ligne, {(fr ? QStringLiteral("et %1 autres") : QStringLiteral("and %1 more"))
                                      .arg(Texte(EnGroupes(autres)))});
  }
  if (!constats.empty()) return;
  auto *ligne =
      new QTreeWidgetItem(this, {fr ? QStringLiteral("Rien à redire.") : QStringLiteral("Nothing to say.")});
  ligne->setData(0, kSigne, static_cast<int>(Signe::Bien));
}

// The rules of the empty rest of the slip.
void VueConstats::paintEvent(QPaintEvent *evenement) {
  QTreeWidget::paintEvent(evenement);
  QPainter p(viewport());
  int y = 0;
  if (const int n = topLevelItemCount(); n > 0) {
    const QTreeWidgetItem *dernier = topLevelItem(n - 1);
    if (dernier->isExpanded() && dernier->childCount() > 0)
      dernier = dernier->child(dernier->childCount() - 1);
    y = visualItemRect(dernier).bottom() + 1;
  }
  p.setPen(QColor(Palette::Brique));
  p.drawLine(kMarge, y, kMarge, viewport()->height());
  p.setPen(QColor(Palette::PapierLigne));
  for (y += kLigne - 1; y < viewport()->height(); y += kLigne) p.drawLine(0, y, viewport()->width(), y);
}

void VueConstats::resizeEvent(QResizeEvent *evenement) {
  QTreeWidget::resizeEvent(evenement);
  scheduleDelayedItemsLayout();  // the lines break elsewhere
}
