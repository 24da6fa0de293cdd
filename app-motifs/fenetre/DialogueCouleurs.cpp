#include "app-motifs/fenetre/DialogueCouleurs.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QTextDocument>

#include "motifs/CouleursTrame.h"

DialogueCouleurs::DialogueCouleurs(const Motif &motif, Langue langue, QWidget *parent)
    : QDialog(parent), langue_(langue), texte_(QString::fromStdString(FeuilleCouleurs(motif, langue))) {
  const bool fr = langue == Langue::Francais;
  setWindowTitle(fr ? QStringLiteral("Couleurs de trame") : QStringLiteral("Weft colours"));
  auto *feuille = new QPlainTextEdit(texte_);
  feuille->setReadOnly(true);
  feuille->setTabChangesFocus(true);
  feuille->setLineWrapMode(QPlainTextEdit::NoWrap);
  feuille->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  feuille->setAccessibleName(windowTitle());
  auto *touches = new QDialogButtonBox(QDialogButtonBox::Close);
  auto *imprimer = touches->addButton(fr ? QStringLiteral("&Imprimer…") : QStringLiteral("&Print…"),
                                      QDialogButtonBox::ActionRole);
  connect(imprimer, &QPushButton::clicked, this, [this] { Imprimer(); });
  connect(touches, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto *colonne = new QVBoxLayout(this);
  colonne->addWidget(feuille, 1);
  colonne->addWidget(touches);
  resize(QSize(620, 520).boundedTo(screen()->availableSize() - QSize(40, 60)));
}

void DialogueCouleurs::Imprimer() {
  QPrinter imprimante(QPrinter::HighResolution);
  imprimante.setDocName(windowTitle());
  QPrintDialog demande(&imprimante, this);
  if (demande.exec() != QDialog::Accepted) return;
  QTextDocument document;
  QFont police = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  police.setPointSize(11);
  document.setDefaultFont(police);
  document.setPlainText(texte_);
  document.print(&imprimante);
}
