#include "app-motifs/fenetre/FenetreMotifs.h"

#include <QBoxLayout>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QShortcut>
#include <QSpinBox>
#include <QSplitter>
#include <QStatusBar>
#include <QStyle>

#include "app-motifs/Poste.h"
#include "app-motifs/dessin/Dessin.h"
#include "app-motifs/fenetre/DialogueSections.h"
#include "app-motifs/fenetre/VueMotif.h"
#include "motifs/Assemblage.h"
#include "motifs/DossierBrandis.h"
#include "motifs/Fichier.h"
#include "motifs/LectureMotif.h"

namespace {
QString Texte(const std::string &t) { return QString::fromStdString(t); }
std::string Chemin(const QString &t) { return QFile::encodeName(t).toStdString(); }
QString Nom(const Motif &motif) { return QFileInfo(QFile::decodeName(motif.chemin.c_str())).fileName(); }
}  // namespace

FenetreMotifs::FenetreMotifs(std::string dossierExecutable, Langue langue)
    : dossierExecutable_(std::move(dossierExecutable)), langue_(langue) {
  setWindowTitle(Selon("Motifs pour Brandis", "Patterns for Brandis"));
  setAcceptDrops(true);
  resize(1180, 760);
  Composer();
  MontrerCourant();
}

QString FenetreMotifs::Selon(const char *fr, const char *en) const {
  return QString::fromUtf8(langue_ == Langue::Francais ? fr : en);
}

void FenetreMotifs::Composer() {
  vue_ = new VueMotif(langue_);
  vue_->setObjectName(QStringLiteral("vue"));
  connect(vue_, &VueMotif::Survole, this, [this](const QString &t) { statusBar()->showMessage(t); });
  titre_ = new QLabel;
  titre_->setTextFormat(Qt::PlainText);
  titre_->setWordWrap(true);

  auto *milieu = new QWidget;
  auto *colonne = new QVBoxLayout(milieu);
  colonne->setContentsMargins(0, 0, 0, 0);
  colonne->addWidget(titre_);
  colonne->addWidget(vue_, 1);

  auto *volets = new QSplitter;
  volets->addWidget(ComposerListe());
  volets->addWidget(milieu);
  volets->addWidget(ComposerConstats());
  volets->setStretchFactor(1, 1);
  volets->setSizes({220, 660, 300});
  volets->setChildrenCollapsible(false);

  auto *tout = new QWidget;
  auto *rangees = new QVBoxLayout(tout);
  rangees->addWidget(volets, 1);
  rangees->addWidget(ComposerTouches());
  setCentralWidget(tout);
  statusBar();
}

QWidget *FenetreMotifs::ComposerListe() {
  auto *volet = new QWidget;
  auto *colonne = new QVBoxLayout(volet);
  colonne->setContentsMargins(0, 0, 0, 0);
  auto *etiquette = new QLabel(Selon("&Motifs", "&Patterns"));
  liste_ = new QListWidget;
  liste_->setObjectName(QStringLiteral("motifs"));
  liste_->setAccessibleName(Selon("Motifs ouverts", "Open patterns"));
  liste_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  liste_->setSpacing(2);
  etiquette->setBuddy(liste_);
  colonne->addWidget(etiquette);
  colonne->addWidget(liste_, 1);
  connect(liste_, &QListWidget::currentRowChanged, this, [this] { MontrerCourant(); });
  auto *supprimer = new QShortcut(QKeySequence::Delete, liste_);
  supprimer->setContext(Qt::WidgetShortcut);
  connect(supprimer, &QShortcut::activated, this, [this] { Fermer(); });
  return volet;
}

QWidget *FenetreMotifs::ComposerConstats() {
  auto *volet = new QWidget;
  auto *colonne = new QVBoxLayout(volet);
  colonne->setContentsMargins(0, 0, 0, 0);
  auto *etiquette = new QLabel(Selon("&Constats", "&Findings"));
  listeConstats_ = new QListWidget;
  listeConstats_->setObjectName(QStringLiteral("constats"));
  listeConstats_->setAccessibleName(
      Selon("Constats ; Entrée montre le lieu", "Findings; Enter shows the place"));
  listeConstats_->setWordWrap(true);  // without spacing: it is not counted where lines are broken
  listeConstats_->setResizeMode(QListView::Adjust);
  listeConstats_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  etiquette->setBuddy(listeConstats_);
  colonne->addWidget(etiquette);
  colonne->addWidget(listeConstats_, 1);
  connect(listeConstats_, &QListWidget::itemClicked, this, [this] { MontrerLieu(); });
  connect(listeConstats_, &QListWidget::currentRowChanged, this, [this] { MontrerLieu(); });

  auto *rangee = new QHBoxLayout;
  auto *question = new QLabel(Selon("Flottés de plus &de", "Floats &longer than"));
  flotte_ = new QSpinBox;
  flotte_->setRange(1, 999);
  flotte_->setValue(kFlotteMax);
  flotte_->setAccessibleName(Selon("Longueur permise d'un flotté, en fils", "Threads that a float may pass"));
  question->setBuddy(flotte_);
  rangee->addWidget(question);
  rangee->addWidget(flotte_);
  rangee->addWidget(new QLabel(Selon("fils", "threads")));
  rangee->addStretch(1);
  colonne->addLayout(rangee);
  connect(flotte_, &QSpinBox::valueChanged, this, [this] { MontrerConstats(); });
  return volet;
}

QPushButton *FenetreMotifs::Touche(const char *nom, const QString &texte, const QString &explication,
                                   void (FenetreMotifs::*faire)()) {
  auto *touche = new QPushButton(texte);
  touche->setObjectName(QString::fromLatin1(nom));
  touche->setToolTip(explication);
  touche->setAccessibleDescription(explication);
  touche->setAutoDefault(true);  // Enter presses the key that has the focus
  connect(touche, &QPushButton::clicked, this, faire);
  return touche;
}

QWidget *FenetreMotifs::ComposerTouches() {
  auto *barre = new QWidget;
  auto *rangee = new QHBoxLayout(barre);
  rangee->setContentsMargins(0, 0, 0, 0);
  auto *ouvrir =
      Touche("ouvrir", Selon("&Ouvrir…", "&Open…"),
             Selon("Ouvre des motifs (Ctrl+O)", "Opens patterns (Ctrl+O)"), &FenetreMotifs::ChoisirFichiers);
  ouvrir->setShortcut(QKeySequence());
  rangee->addWidget(ouvrir);
  rangee->addStretch(1);
  touches_ = {
      Touche("image", Selon("Enregistrer l'&image…", "&Save picture…"),
             Selon("Le dessin en PNG, SVG ou PDF (Ctrl+S)", "The drawing as PNG, SVG or PDF (Ctrl+S)"),
             &FenetreMotifs::EnregistrerImage),
      Touche("enfilage", Selon("&Enfilage…", "&Threading…"),
             Selon("Le métier lève la lame du prochain fil à enfiler",
                   "The loom raises the harness of the next end to be threaded"),
             &FenetreMotifs::EcrireEnfilage),
      Touche("sections", Selon("&Sections…", "Se&ctions…"),
             Selon("Met des motifs bout à bout", "Strings patterns together"),
             &FenetreMotifs::AssemblerSections),
      Touche("projet16", Selon("Projet à &16 lames", "&16-harness project"),
             Selon("Le projet enregistré avec lequel commence un métier de 16 lames",
                   "The saved project with which a 16-harness loom begins"),
             &FenetreMotifs::FaireProjet),
      Touche("brandis", Selon("Mettre dans &Brandis", "Put into &Brandis"),
             Selon("Le motif paraît dans la liste d'Ouvrir (Ctrl+Entrée)",
                   "The pattern appears in the list of Open (Ctrl+Enter)"),
             &FenetreMotifs::MettreDansBrandis)};
  for (QPushButton *t : touches_) rangee->addWidget(t);
  const auto raccourci = [this](const QKeySequence &touche, void (FenetreMotifs::*faire)()) {
    connect(new QShortcut(touche, this), &QShortcut::activated, this, faire);
  };
  raccourci(QKeySequence::Open, &FenetreMotifs::ChoisirFichiers);
  raccourci(QKeySequence::Save, &FenetreMotifs::EnregistrerImage);
  raccourci(QKeySequence(Qt::CTRL | Qt::Key_Return), &FenetreMotifs::MettreDansBrandis);
  connect(new QShortcut(QKeySequence::Quit, this), &QShortcut::activated, this, [this] { close(); });
  return barre;
}

void FenetreMotifs::Ouvrir(const QStringList &chemins) {
  QStringList refus;
  int dernier = -1;
  for (const QString &chemin : chemins) {
    try {
      const std::string absolu = Chemin(QFileInfo(chemin).absoluteFilePath());
      auto motif = std::make_shared<const Motif>(LireMotif(absolu));
      const auto la = std::find_if(motifs_.begin(), motifs_.end(),
                                   [&](const MotifOuvert &m) { return m->chemin == absolu; });
      dernier = static_cast<int>(la - motifs_.begin());
      const QString texte =
          Nom(*motif) + (motif->titre.empty() ? QString() : QLatin1Char('\n') + Texte(motif->titre));
      if (la != motifs_.end()) {
        *la = std::move(motif);
        liste_->item(dernier)->setText(texte);
        continue;
      }
      motifs_.push_back(std::move(motif));
      const QSignalBlocker silence(liste_);
      auto *ligne = new QListWidgetItem(texte, liste_);
      ligne->setToolTip(chemin);
    } catch (const Refus &r) {
      refus << Texte(r.En(langue_));
    } catch (const std::exception &e) {
      refus << chemin + QStringLiteral(": ") + QString::fromLocal8Bit(e.what());
    }
  }
  if (dernier >= 0) {
    const QSignalBlocker silence(liste_);
    liste_->setCurrentRow(dernier);
  }
  MontrerCourant();
  if (!refus.isEmpty()) Refuser(refus.join(QStringLiteral("\n\n")));
}

FenetreMotifs::MotifOuvert FenetreMotifs::Courant() const {
  const int rang = liste_->currentRow();
  return rang >= 0 && rang < static_cast<int>(motifs_.size()) ? motifs_[static_cast<std::size_t>(rang)]
                                                              : nullptr;
}

void FenetreMotifs::MontrerCourant() {
  const MotifOuvert motif = Courant();
  for (QPushButton *t : touches_) t->setEnabled(motif != nullptr);
  vue_->Montrer(motif);
  if (motif) {
    QString texte = motif->titre.empty() ? Nom(*motif) : Texte(motif->titre);
    if (!motif->auteur.empty()) texte += QStringLiteral(" — ") + Texte(motif->auteur);
    texte += QLatin1Char('\n') + Selon("%1 fils, %2 duites, %3 lames", "%1 ends, %2 picks, %3 harnesses")
                                     .arg(motif->Fils())
                                     .arg(motif->Duites())
                                     .arg(motif->lames);
    titre_->setText(texte);
  } else {
    titre_->setText(Selon("Déposez ici des motifs, ou Ouvrir.", "Drop patterns here, or Open."));
  }
  MontrerConstats();
}

void FenetreMotifs::MontrerConstats() {
  const QSignalBlocker silence(listeConstats_);
  listeConstats_->clear();
  constats_.clear();
  const MotifOuvert motif = Courant();
  if (!motif) return;
  constats_ = Verifier(*motif, flotte_->value());
  const QIcon faute = style()->standardIcon(QStyle::SP_MessageBoxWarning),
              remarque = style()->standardIcon(QStyle::SP_MessageBoxInformation);
  for (const Constat &c : constats_) {
    auto *ligne = new QListWidgetItem(c.faute ? faute : remarque, Texte(c.texte.En(langue_)), listeConstats_);
    const QString genre = c.faute ? Selon("Faute : ", "Fault: ") : Selon("Remarque : ", "Remark: ");
    ligne->setData(Qt::AccessibleTextRole, genre + ligne->text());
  }
  if (constats_.empty()) {
    auto *ligne = new QListWidgetItem(Selon("Rien à redire.", "Nothing to say."), listeConstats_);
    ligne->setFlags(Qt::ItemIsEnabled);
  }
}

void FenetreMotifs::MontrerLieu() {
  const int rang = listeConstats_->currentRow();
  if (rang >= 0 && rang < static_cast<int>(constats_.size()))
    vue_->MontrerLieu(constats_[static_cast<std::size_t>(rang)]);
}

void FenetreMotifs::Fermer() {
  const int rang = liste_->currentRow();
  if (rang < 0) return;
  motifs_.erase(motifs_.begin() + rang);
  const QSignalBlocker silence(liste_);
  delete liste_->takeItem(rang);
  MontrerCourant();
}

void FenetreMotifs::Refuser(const QString &texte) {
  QMessageBox boite(QMessageBox::Warning, windowTitle(), texte, QMessageBox::Ok, this);
  boite.setTextFormat(Qt::PlainText);
  boite.exec();
}

template <class F>
void FenetreMotifs::Ecrire(F &&faire) {
  for (bool remplacer = false;; remplacer = true) {
    try {
      statusBar()->showMessage(faire(remplacer));
      return;
    } catch (const DejaLa &d) {
      if (remplacer) return Refuser(Texte(d.En(langue_)));
      const QString question = Selon("%1 existe déjà. Le remplacer ?", "%1 is there already. Replace it?");
      if (QMessageBox::question(this, windowTitle(), question.arg(Texte(d.Chemin())),
                                QMessageBox::Yes | QMessageBox::No, QMessageBox::No) != QMessageBox::Yes)
        return;
    } catch (const Refus &r) {
      return Refuser(Texte(r.En(langue_)));
    } catch (const std::exception &e) {
      return Refuser(QString::fromLocal8Bit(e.what()));
    }
  }
}

QString FenetreMotifs::DemanderCible(const QString &titre, const QString &propose, const QString &filtre) {
  return QFileDialog::getSaveFileName(this, titre, propose, filtre);
}

void FenetreMotifs::ChoisirFichiers() {
  Ouvrir(QFileDialog::getOpenFileNames(this, Selon("Ouvrir des motifs", "Open patterns"), QString(),
                                       Selon("Motifs (*.wif *.WIF *.Wif);;Tous les fichiers (*)",
                                             "Patterns (*.wif *.WIF *.Wif);;All files (*)")));
}

void FenetreMotifs::MettreDansBrandis() {
  if (const MotifOuvert motif = Courant())
    Ecrire([&](bool remplacer) {
      return Selon("Dans Brandis : ", "In Brandis: ") +
             Texte(Convertir(*motif, DossierData(dossierExecutable_), remplacer));
    });
}

void FenetreMotifs::EnregistrerImage() {
  const MotifOuvert motif = Courant();
  if (!motif) return;
  QString cible = DemanderCible(Selon("Enregistrer l'image", "Save picture"),
                                QFileInfo(Nom(*motif)).completeBaseName() + QStringLiteral(".png"),
                                QStringLiteral("PNG (*.png);;SVG (*.svg);;PDF (*.pdf)"));
  if (cible.isEmpty()) return;
  if (QFileInfo(cible).suffix().isEmpty()) cible += QStringLiteral(".png");
  Ecrire([&](bool) {
    EcrireFichier(Chemin(cible), Dessiner(*motif, Chemin(cible), {}, langue_), true);
    return Selon("Enregistré : ", "Saved: ") + cible;
  });
}

void FenetreMotifs::EcrireEnfilage() {
  const MotifOuvert motif = Courant();
  if (!motif) return;
  bool choisi = false;
  const int groupe = QInputDialog::getInt(this, Selon("Enfilage", "Threading"),
                                          Selon("Fils à la fois :", "Ends at a time:"), 1, 1, 8, 1, &choisi);
  if (!choisi) return;
  const QString cible =
      DemanderCible(Selon("Enfilage", "Threading"),
                    QFileInfo(Nom(*motif)).completeBaseName() + Selon("-enfilage.wif", "-threading.wif"),
                    QStringLiteral("WIF (*.wif)"));
  if (cible.isEmpty()) return;
  Ecrire([&](bool) {
    EcrireFichier(Chemin(cible), EnfilageTissable(*motif, groupe, langue_), true);
    return Selon("Enregistré : ", "Saved: ") + cible;
  });
}

void FenetreMotifs::AssemblerSections() {
  DialogueSections dialogue(motifs_, liste_->currentRow(), langue_, this);
  if (dialogue.exec() != QDialog::Accepted) return;
  const QString cible = DemanderCible(Selon("Sections", "Sections"), QStringLiteral("sections.wif"),
                                      QStringLiteral("WIF (*.wif)"));
  if (cible.isEmpty()) return;
  Ecrire([&](bool) {
    const std::vector<Piece> pieces = dialogue.Pieces();
    EcrireFichier(Chemin(cible), Assembler(pieces, dialogue.Separer()), true);
    QString dit = Selon("Enregistré : ", "Saved: ") + cible;
    for (const Constat &c : ComparerChaines(pieces)) dit += QStringLiteral("  ") + Texte(c.texte.En(langue_));
    return dit;
  });
}

void FenetreMotifs::FaireProjet() {
  if (const MotifOuvert motif = Courant())
    Ecrire([&](bool remplacer) {
      const auto [chemin, ancien] = FaireProjet16(*motif, DossierData(dossierExecutable_), 0, remplacer);
      QString dit = Selon("Projet à 16 lames prêt : Reprendre dans Brandis.",
                          "16-harness project ready: Resume in Brandis.");
      if (!ancien.empty())
        dit += Selon("  L'ancien est gardé : ", "  The earlier one is kept: ") + Texte(ancien);
      return dit;
    });
}

void FenetreMotifs::dragEnterEvent(QDragEnterEvent *evenement) {
  if (evenement->mimeData()->hasUrls()) evenement->acceptProposedAction();
}

void FenetreMotifs::dropEvent(QDropEvent *evenement) {
  QStringList chemins;
  for (const QUrl &url : evenement->mimeData()->urls())
    if (url.isLocalFile()) chemins << url.toLocalFile();
  evenement->acceptProposedAction();
  Ouvrir(chemins);
}
