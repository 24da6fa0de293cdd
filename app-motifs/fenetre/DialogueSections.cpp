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
constexpr int kRang = Qt::UserRole, kFois = Qt::UserRole + 1, kDe = Qt::UserRole + 2, kA = Qt::UserRole + 3;

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
  fois_->setObjectName(QStringLiteral("fois"));
  fois_->setRange(1, kDuitesMetier);
  fois_->setPrefix(QStringLiteral("× "));
  fois_->setAccessibleName(Selon("Nombre de reprises", "Number of repeats"));
  const auto duite = [this](const QString &prefixe, const QString &nom) {
    auto *champ = new QSpinBox;
    champ->setPrefix(prefixe);
    champ->setAccessibleName(nom);
    return champ;
  };
  de_ = duite(Selon("de ", "from "), Selon("Première duite de la partie", "First pick of the part"));
  a_ = duite(Selon("à ", "to "), Selon("Dernière duite de la partie", "Last pick of the part"));
  connect(choix_, &QComboBox::currentIndexChanged, this, [this] { Borner(); });
  connect(de_, &QSpinBox::valueChanged, this, [this](int n) { a_->setMinimum(n); });
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
  auto *partie = new QHBoxLayout;
  for (QWidget *w : std::initializer_list<QWidget *>{choix_, de_, a_, fois_}) partie->addWidget(w);
  partie->setStretch(0, 1);
  choix_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  choix_->setMinimumContentsLength(12);
  grille->addLayout(partie, 0, 0, 1, 2);
  grille->addWidget(touche(Selon("&Ajouter", "&Add"),
                           [this] {
                             Ajouter(choix_->currentIndex(), {de_->value(), a_->value()}, fois_->value());
                           }),
                    0, 2);
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
  Borner();
  Ajouter(rang, {de_->value(), a_->value()}, 1);
}

QString DialogueSections::Selon(const char *fr, const char *en) const {
  return QString::fromUtf8(langue_ == Langue::Francais ? fr : en);
}

void DialogueSections::Borner() {
  const int rang = choix_->currentIndex();
  if (rang < 0) return;
  const int duites = motifs_[static_cast<std::size_t>(rang)]->Duites();
  de_->setRange(1, duites);
  de_->setValue(1);
  a_->setRange(1, duites);
  a_->setValue(duites);
}

void DialogueSections::Ajouter(int rang, Etendue duites, int fois) {
  if (rang < 0) return;
  const Motif &motif = *motifs_[static_cast<std::size_t>(rang)];
  QString nom = Nom(motif);
  if (duites.premier > 1 || duites.dernier < motif.Duites())
    nom += QStringLiteral(" [%1-%2]").arg(duites.premier).arg(duites.dernier);
  auto *ligne = new QListWidgetItem(QStringLiteral("%1 × %2").arg(nom).arg(fois), sections_);
  ligne->setData(kRang, rang);
  ligne->setData(kDe, duites.premier);
  ligne->setData(kA, duites.dernier);
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
  for (int i = 0; i < sections_->count(); ++i) {
    const QListWidgetItem *ligne = sections_->item(i);
    const long long partie = ligne->data(kA).toInt() - ligne->data(kDe).toInt() + 1;
    duites += (partie + (Separer() ? 1 : 0)) * ligne->data(kFois).toInt();
  }
  if (Separer() && duites > 0) --duites;
  total_->setText(Selon("%1 duites sur 2500", "%1 picks of 2500").arg(duites));
  accepter_->setEnabled(duites > 0 && duites <= kDuitesMetier);
}

std::vector<Piece> DialogueSections::Pieces() const {
  std::vector<Piece> pieces;
  for (int i = 0; i < sections_->count(); ++i) {
    const QListWidgetItem *ligne = sections_->item(i);
    const Motif &motif = *motifs_[static_cast<std::size_t>(ligne->data(kRang).toInt())];
    pieces.push_back(
        {Extraire(motif, {ligne->data(kDe).toInt(), ligne->data(kA).toInt()}), ligne->data(kFois).toInt()});
  }
  return pieces;
}

bool DialogueSections::Separer() const { return separer_->isChecked(); }
