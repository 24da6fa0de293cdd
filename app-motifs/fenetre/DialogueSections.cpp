#include "app-motifs/fenetre/DialogueSections.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>

namespace {
constexpr int kRang = Qt::UserRole, kFois = Qt::UserRole + 1;

QString Nom(const Motif &motif) { return QFileInfo(QFile::decodeName(motif.chemin.c_str())).fileName(); }
}  // namespace

DialogueSections::DialogueSections(const std::vector<std::shared_ptr<const Motif>> &motifs, int rang,
                                   Langue langue, QWidget *parent)
    : QDialog(parent), motifs_(motifs), langue_(langue) {
  setWindowTitle(Selon("Sections", "Sections"));
  auto *grille = new QGridLayout(this);
  choix_ = new QComboBox;
  choix_->setAccessibleName(Selon("Motif à ajouter", "Pattern to add"));
  for (const auto &m : motifs_) choix_->addItem(Nom(*m));
  choix_->setCurrentIndex(rang);
  fois_ = new QSpinBox;
  fois_->setRange(1, kDuitesMetier);
  fois_->setPrefix(QStringLiteral("× "));
  fois_->setAccessibleName(Selon("Nombre de reprises", "Number of repeats"));
  sections_ = new QListWidget;
  sections_->setAccessibleName(
      Selon("Sections, de la première à la dernière", "Sections, from the first to the last"));
  separer_ = new QCheckBox(Selon("Une duite &vide entre les reprises", "An &empty pick between repeats"));
  total_ = new QLabel;

  const auto touche = [this](const QString &texte, auto faire) {
    auto *t = new QPushButton(texte);
    t->setAutoDefault(false);
    connect(t, &QPushButton::clicked, this, faire);
    return t;
  };
  grille->addWidget(choix_, 0, 0);
  grille->addWidget(fois_, 0, 1);
  grille->addWidget(
      touche(Selon("&Ajouter", "&Add"), [this] { Ajouter(choix_->currentIndex(), fois_->value()); }), 0, 2);
  grille->addWidget(sections_, 1, 0, 4, 2);
  grille->addWidget(touche(Selon("&Monter", "&Up"), [this] { Deplacer(-1); }), 1, 2);
  grille->addWidget(touche(Selon("&Descendre", "&Down"), [this] { Deplacer(1); }), 2, 2);
  grille->addWidget(touche(Selon("&Retirer", "&Remove"),
                           [this] {
                             delete sections_->takeItem(sections_->currentRow());
                             Compter();
                           }),
                    3, 2);
  grille->setRowStretch(4, 1);
  grille->addWidget(separer_, 5, 0, 1, 3);
  grille->addWidget(total_, 6, 0, 1, 3);
  auto *boutons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel);
  accepter_ = boutons->button(QDialogButtonBox::Save);
  grille->addWidget(boutons, 7, 0, 1, 3);
  connect(boutons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(boutons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(separer_, &QCheckBox::toggled, this, [this] { Compter(); });
  Ajouter(rang, 1);
}

QString DialogueSections::Selon(const char *fr, const char *en) const {
  return QString::fromUtf8(langue_ == Langue::Francais ? fr : en);
}

void DialogueSections::Ajouter(int rang, int fois) {
  if (rang < 0) return;
  const Motif &motif = *motifs_[static_cast<std::size_t>(rang)];
  auto *ligne = new QListWidgetItem(QStringLiteral("%1 × %2").arg(Nom(motif)).arg(fois), sections_);
  ligne->setData(kRang, rang);
  ligne->setData(kFois, fois);
  sections_->setCurrentItem(ligne);
  Compter();
}

void DialogueSections::Deplacer(int pas) {
  const int rang = sections_->currentRow(), neuf = rang + pas;
  if (rang < 0 || neuf < 0 || neuf >= sections_->count()) return;
  sections_->insertItem(neuf, sections_->takeItem(rang));
  sections_->setCurrentRow(neuf);
}

void DialogueSections::Compter() {
  long long duites = 0;
  for (const Piece &p : Pieces())
    duites += static_cast<long long>(p.motif.Duites() + (Separer() ? 1 : 0)) * p.fois;
  if (Separer() && duites > 0) --duites;
  total_->setText(Selon("%1 duites sur 2500", "%1 picks of 2500").arg(duites));
  accepter_->setEnabled(duites > 0 && duites <= kDuitesMetier);
}

std::vector<Piece> DialogueSections::Pieces() const {
  std::vector<Piece> pieces;
  for (int i = 0; i < sections_->count(); ++i) {
    const QListWidgetItem *ligne = sections_->item(i);
    pieces.push_back(
        {*motifs_[static_cast<std::size_t>(ligne->data(kRang).toInt())], ligne->data(kFois).toInt()});
  }
  return pieces;
}

bool DialogueSections::Separer() const { return separer_->isChecked(); }
