#include "platform/qt/machine/ListeFichiers.h"

#include <QDateTime>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QStyledItemDelegate>
#include <QTreeView>

namespace {
constexpr int kJourEtMinute = 16;  // characters of a date and time

enum Colonne { kNom, kTaille, kType, kDate };

// The day of a file and its minute, in an order that can be read down the column.
class DateCourte : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (const auto *fichiers = qobject_cast<const QFileSystemModel *>(index.model()))
      option->text =
          fichiers->lastModified(index).toString(Qt::ISODate).left(kJourEtMinute).replace(u'T', u' ');
  }
};
}  // namespace

void DisposerListeFichiers(QFileDialog &choix) {
  choix.setViewMode(QFileDialog::Detail);
  auto *liste = choix.findChild<QTreeView *>(QStringLiteral("treeView"));
  if (!liste || !liste->model() || liste->model()->columnCount() <= kDate) return;
  QHeaderView *tete = liste->header();
  liste->hideColumn(kType);
  liste->setItemDelegateForColumn(kDate, new DateCourte(liste));
  tete->setStretchLastSection(false);
  tete->setSectionResizeMode(kNom, QHeaderView::Stretch);
  for (const int colonne : {kTaille, kDate})
    tete->setSectionResizeMode(colonne, QHeaderView::ResizeToContents);
}
