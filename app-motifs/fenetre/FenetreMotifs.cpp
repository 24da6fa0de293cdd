#include "app-motifs/fenetre/FenetreMotifs.h"

#include <QBoxLayout>
#include <QDesktopServices>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QShortcut>
#include <QSpinBox>
#include <QSplitter>
#include <QStatusBar>
#include <QStyle>
#include <QUrl>

#include "app-motifs/fenetre/Boiseries.h"
#include "app-motifs/fenetre/ListeMotifs.h"
#include "app-motifs/fenetre/Rangee.h"
#include "app-motifs/fenetre/Textes.h"
#include "app-motifs/fenetre/VueConstats.h"
#include "app-motifs/fenetre/VueMotif.h"
#include "base/PageGuide.h"
#include "motifs/Fichier.h"
#include "motifs/LectureMotif.h"

namespace {
QSettings Memoire() { return QSettings(QStringLiteral("Brandis"), QStringLiteral("brandis-motifs")); }
const QString kPlace = QStringLiteral("place"), kVolets = QStringLiteral("volets"),
              kDossier = QStringLiteral("dossier");
constexpr QSize kTaille(1180, 760), kCadre(16, 48);  // the desktop's frame about it
}  // namespace

FenetreMotifs::FenetreMotifs(std::string dossierExecutable, Langue langue)
    : dossierExecutable_(std::move(dossierExecutable)), langue_(langue) {
  setWindowTitle(Selon("Motifs pour Brandis", "Patterns for Brandis"));
  setAcceptDrops(true);
  Composer();
  Placer();
  MontrerCourant();
}

QString FenetreMotifs::Selon(const char *fr, const char *en) const {
  return QString::fromUtf8(langue_ == Langue::Francais ? fr : en);
}

// As it was left, and never larger than the screen it comes up on.
void FenetreMotifs::Placer() {
  const QSettings memoire = Memoire();
  dossier_ = memoire.value(kDossier).toString();
  resize(kTaille);
  if (memoire.contains(kPlace)) restoreGeometry(memoire.value(kPlace).toByteArray());
  if (memoire.contains(kVolets)) volets_->restoreState(memoire.value(kVolets).toByteArray());
  const QRect ecran = screen()->availableGeometry();
  resize(size().boundedTo(ecran.size() - kCadre));
  if (!memoire.contains(kPlace)) return;
  move(std::clamp(x(), ecran.left(), std::max(ecran.left(), ecran.right() + 1 - width() - kCadre.width())),
       std::clamp(y(), ecran.top(), std::max(ecran.top(), ecran.bottom() + 1 - height() - kCadre.height())));
}

void FenetreMotifs::closeEvent(QCloseEvent *evenement) {
  QSettings memoire = Memoire();
  memoire.setValue(kPlace, saveGeometry());
  memoire.setValue(kVolets, volets_->saveState());
  memoire.setValue(kDossier, dossier_);
  QMainWindow::closeEvent(evenement);
}

void FenetreMotifs::Composer() {
  dit_ = new Elidee;
  dit_->setObjectName(QStringLiteral("dit"));
  place_ = new Elidee;
  place_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  volets_ = new QSplitter;
  volets_->addWidget(ComposerListe());
  volets_->addWidget(ComposerDessin());
  volets_->addWidget(ComposerConstats());
  volets_->setStretchFactor(1, 1);
  volets_->setSizes({220, 660, 300});
  volets_->setHandleWidth(12);
  volets_->setChildrenCollapsible(false);

  auto *tout = new QWidget;
  auto *fond = new Lin;
  auto *toile = new QVBoxLayout(fond);
  toile->setContentsMargins(10, 14, 10, 8);
  toile->addWidget(volets_);
  auto *rangees = new QVBoxLayout(tout);
  rangees->setContentsMargins(0, 0, 0, 0);
  rangees->setSpacing(0);
  rangees->addWidget(ComposerChateau());
  rangees->addWidget(fond, 1);
  rangees->addWidget(ComposerTouches());
  setCentralWidget(tout);
  statusBar()->addWidget(dit_, 3);
  statusBar()->addWidget(place_, 2);
}

QWidget *FenetreMotifs::ComposerChateau() {
  auto *chateau = new Bois(Bois::Chateau);
  auto *colonne = new QVBoxLayout(chateau);
  colonne->setContentsMargins(12, 6, 12, 13);
  colonne->setSpacing(1);
  titre_ = new Elidee;
  titre_->setObjectName(QStringLiteral("titre"));
  tailles_ = new Elidee;
  tailles_->setObjectName(QStringLiteral("tailles"));
  for (Elidee *e : {titre_, tailles_}) {
    e->setTextFormat(Qt::PlainText);
    e->setAlignment(Qt::AlignCenter);
    colonne->addWidget(e);
  }
  return chateau;
}

QWidget *FenetreMotifs::ComposerDessin() {
  vue_ = new VueMotif(langue_);
  vue_->setObjectName(QStringLiteral("vue"));
  connect(vue_, &VueMotif::Survole, place_, [this](const QString &t) { place_->Dire(t); });
  auto *vues = new QWidget;
  auto *rangee = new Rangee(vues);
  toucheStructure_ = Bascule("structure", Selon("Struct&ure", "Struct&ure"),
                             Selon("La chaîne levée en foncé, la trame en clair",
                                   "Raised warp dark, weft light, whatever their colours"),
                             &FenetreMotifs::ChoisirVue);
  toucheDeux_ =
      Bascule("reprises", Selon("&2 × 2", "&2 × 2"),
              Selon("Deux fois dans chaque sens, pour juger le raccord", "Twice each way, to judge the seam"),
              &FenetreMotifs::Tourner);
  toucheHaut_ = Bascule("haut", Selon("Duite 1 en &haut", "Pick 1 &above"),
                        Selon("La première duite en haut ; sinon en bas, comme sur le métier",
                              "The first pick above; else below, as on the loom"),
                        &FenetreMotifs::Tourner);
  for (QPushButton *t : {toucheStructure_, toucheDeux_, toucheHaut_}) rangee->addWidget(t);
  auto *volet = new QWidget;
  auto *colonne = new QVBoxLayout(volet);
  colonne->setContentsMargins(0, 0, 0, 0);
  colonne->addWidget(new Cadre(vue_), 1);
  colonne->addWidget(vues);
  return volet;
}

QWidget *FenetreMotifs::ComposerListe() {
  auto *volet = new QWidget;
  auto *colonne = new QVBoxLayout(volet);
  colonne->setContentsMargins(0, 0, 0, 0);
  auto *etiquette = new QLabel(Selon("&Motifs", "&Patterns"));
  etiquette->setObjectName(QStringLiteral("etiquette"));
  liste_ = new QListWidget;
  liste_->setObjectName(QStringLiteral("motifs"));
  liste_->setAccessibleName(Selon("Motifs ouverts", "Open patterns"));
  liste_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  liste_->setItemDelegate(new PeintreMotifs(liste_));
  liste_->setUniformItemSizes(true);
  liste_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  liste_->setMinimumSize(110, 80);
  etiquette->setBuddy(liste_);
  auto *retirer = Touche("retirer", Selon("&Retirer", "&Remove"),
                         Selon("Ôte le motif de la liste, et non du disque (Suppr)",
                               "Takes the pattern off the list, not off the disk (Del)"),
                         &FenetreMotifs::Fermer);
  touches_.push_back(retirer);
  colonne->addWidget(etiquette);
  colonne->addWidget(liste_, 1);
  colonne->addWidget(retirer);
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
  etiquette->setObjectName(QStringLiteral("etiquette"));
  constats_ = new VueConstats(langue_);
  constats_->setObjectName(QStringLiteral("constats"));
  constats_->setAccessibleName(
      Selon("Constats ; la flèche droite ouvre les lieux", "Findings; the right arrow opens the places"));
  etiquette->setBuddy(constats_);
  colonne->addWidget(etiquette);
  colonne->addWidget(constats_, 1);
  connect(constats_, &VueConstats::Choisi, vue_, &VueMotif::MontrerLieu);

  auto *question = new QLabel(Selon("Flottés de plus &de", "Floats &longer than"));
  flotte_ = new QSpinBox;
  flotte_->setRange(1, 999);
  flotte_->setValue(kFlotteMax);
  flotte_->setSuffix(Selon(" fils", " threads"));
  flotte_->setAccessibleName(Selon("Longueur permise d'un flotté, en fils", "Threads that a float may pass"));
  question->setBuddy(flotte_);
  auto *bas = new QWidget;
  auto *rangee = new Rangee(bas);
  rangee->addWidget(question);
  rangee->addWidget(flotte_);
  colonne->addWidget(bas);
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
  connect(touche, &QPushButton::clicked, this, [this, faire] {
    Dire({});
    (this->*faire)();
  });
  return touche;
}

QPushButton *FenetreMotifs::Bascule(const char *nom, const QString &texte, const QString &explication,
                                    void (FenetreMotifs::*faire)()) {
  QPushButton *touche = Touche(nom, texte, explication, faire);
  touche->setCheckable(true);
  touches_.push_back(touche);
  return touche;
}

QWidget *FenetreMotifs::ComposerTouches() {
  auto *barre = new Bois(Bois::Poutre);
  auto *rangee = new Rangee(barre);
  rangee->setContentsMargins(12, 10, 12, 9);
  auto *ouvrir =
      Touche("ouvrir", Selon("&Ouvrir…", "&Open…"),
             Selon("Ouvre des motifs (Ctrl+O)", "Opens patterns (Ctrl+O)"), &FenetreMotifs::ChoisirFichiers);
  ouvrir->setShortcut(QKeySequence());
  rangee->addWidget(ouvrir);
  rangee->Ecarter();
  const std::vector<QPushButton *> verbes{
      Touche("image", Selon("&Image…", "P&icture…"),
             Selon("Enregistre le dessin en PNG, SVG ou PDF (Ctrl+S)",
                   "Saves the drawing as PNG, SVG or PDF (Ctrl+S)"),
             &FenetreMotifs::EnregistrerImage),
      Touche("enfilage", Selon("&Enfilage…", "&Threading…"),
             Selon("Le métier lève la lame du prochain fil à enfiler",
                   "The loom raises the harness of the next end to be threaded"),
             &FenetreMotifs::EcrireEnfilage),
      Touche(
          "sections", Selon("&Sections…", "&Sections…"),
          Selon("Met des motifs ou leurs parties bout à bout", "Strings patterns or parts of them together"),
          &FenetreMotifs::AssemblerSections),
      Touche("couleurs", Selon("Cou&leurs…", "&Weft colours…"),
             Selon("La feuille des changements de trame, à poser sur le métier",
                   "The sheet of the weft's changes, to lay on the loom"),
             &FenetreMotifs::MontrerCouleurs),
      Touche("ramener", Selon("Rame&ner…", "Fit har&nesses…"),
             Selon("Récrit le motif sur les lames qui partent au métier, le tissu restant le même",
                   "Writes the pattern anew on harnesses that go out to the loom, the cloth being the same"),
             &FenetreMotifs::RamenerLames),
      Touche("projet16", Selon("Projet à &16 lames", "&16-harness project"),
             Selon("Le projet enregistré avec lequel commence un métier de 16 lames",
                   "The saved project with which a 16-harness loom begins"),
             &FenetreMotifs::FaireProjet),
      Touche("brandis", Selon("Mettre dans &Brandis", "Put into &Brandis"),
             Selon("Le motif paraît dans la liste d'Ouvrir (Ctrl+Entrée)",
                   "The pattern appears in the list of Open (Ctrl+Enter)"),
             &FenetreMotifs::MettreDansBrandis)};
  for (QPushButton *t : verbes) {
    rangee->addWidget(t);
    touches_.push_back(t);
  }
  // A key that cannot be pressed has no shortcut either.
  const auto raccourci = [this](const QKeySequence &touche, const char *nom) {
    connect(new QShortcut(touche, this), &QShortcut::activated, this,
            [this, nom] { findChild<QPushButton *>(QString::fromLatin1(nom))->click(); });
  };
  raccourci(QKeySequence::Open, "ouvrir");
  raccourci(QKeySequence::Save, "image");
  raccourci(QKeySequence(Qt::CTRL | Qt::Key_Return), "brandis");
  connect(new QShortcut(QKeySequence(Qt::Key_F1), this), &QShortcut::activated, this,
          &FenetreMotifs::MontrerGuide);
  connect(new QShortcut(QKeySequence::Quit, this), &QShortcut::activated, this, [this] { close(); });
  return barre;
}

FenetreMotifs::MotifOuvert FenetreMotifs::Courant() const {
  const int rang = liste_->currentRow();
  return rang >= 0 && rang < static_cast<int>(motifs_.size()) ? motifs_[static_cast<std::size_t>(rang)]
                                                              : nullptr;
}

ReglagesPlanche FenetreMotifs::Reglages() const {
  ReglagesPlanche r;
  const MotifOuvert motif = Courant();
  r.structure = structure_.value_or(motif && CouleursMuettes(*motif));
  r.enHaut = enHaut_;
  r.reprises = deuxFois_ ? 2 : 1;
  return r;
}

void FenetreMotifs::MontrerCourant() {
  const MotifOuvert motif = Courant();
  for (QPushButton *t : touches_) t->setEnabled(motif != nullptr);
  toucheStructure_->setChecked(Reglages().structure);
  if (motif) {
    QString texte = motif->titre.empty() ? Nom(*motif) : Texte(motif->titre);
    if (!motif->auteur.empty()) texte += QStringLiteral(" — ") + Texte(motif->auteur);
    titre_->Dire(texte);
    tailles_->Dire(Selon("%1 fils · %2 duites · %3 lames", "%1 ends · %2 picks · %3 harnesses")
                       .arg(motif->Fils())
                       .arg(motif->Duites())
                       .arg(motif->lames));
  } else {
    titre_->Dire(windowTitle());
    tailles_->Dire({});
  }
  place_->Dire({});
  MontrerDessin(false);
  MontrerConstats();
}

void FenetreMotifs::Dire(const QString &texte) { dit_->Dire(texte); }

void FenetreMotifs::MontrerGuide() {
  const std::string page = PageGuide(dossierExecutable_, langue_ == Langue::Francais);
  if (page.empty())
    Refuser(Selon("Le guide n'est pas installé.", "The guide is not installed."));
  else
    QDesktopServices::openUrl(QUrl::fromLocalFile(QFile::decodeName(page.c_str())));
}

void FenetreMotifs::Refuser(const QString &texte) {
  QMessageBox boite(QMessageBox::Warning, windowTitle(), texte, QMessageBox::Ok, this);
  boite.setTextFormat(Qt::PlainText);
  boite.exec();
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
