#include "platform/qt/machine/PlateformeQt.h"

#include <fcntl.h>
#include <unistd.h>

#include <QApplication>
#include <QDate>
#include <QDesktopServices>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QIcon>
#include <QMessageBox>
#include <QScreen>
#include <QTimer>
#include <QUrl>

#include "platform/qt/machine/ListeFichiers.h"
#include "platform/qt/machine/Rapport.h"
#include "platform/qt/natifs/TexteNatif.h"

namespace {
constexpr int kAjouter = 0;
constexpr int kRonde = 1000;  // milliseconds between two looks for the notification area

// "Label|*.ext|Label|*.ext": each label with its pattern in parentheses, which the dialog matches in any
// case.
QStringList Filtres(const std::string &filtre) {
  const QStringList parties = Texte(filtre).split(u'|');
  QStringList filtres;
  for (qsizetype i = 0; i + 1 < parties.size(); i += 2) {
    const bool complet =
        parties[i].contains(QStringLiteral("(") + parties[i + 1] + u')', Qt::CaseInsensitive);
    filtres << (complet ? parties[i] : parties[i] + QStringLiteral(" (") + parties[i + 1] + u')');
  }
  return filtres;
}
}  // namespace

PlateformeQt::PlateformeQt(const DossiersProgramme &dossiers)
    : dossiers_(dossiers),
      images_(dossiers.dessins),
      port_(dossiers.programme),
      suivi_(port_),
      miroir_(images_, [this](const std::string &rapport) { FinirSurRapport(rapport); }),
      dehors_([this] { FinirDeDehors(); }) {
  port_.Evenement = [this](EvenementLigne evenement) { SuivreLigne(evenement); };
  disque_.setMaxThreadCount(1);
  miroir_.ApresEvenement([this] {
    FinirAttentes();
    suivi_.Suivre();
  });
  // Once the windows stand and are painted: nobody waits for the icon.
  constexpr int kRetardIcone = 100;  // milliseconds
  QTimer::singleShot(kRetardIcone, &vivante_, [this] {
    QIcon icone;
    for (const char *taille : {"", "16", "22", "24", "32", "48", "64"})
      if (const QImage image = images_.Cherchee(std::string("Brandis") + taille); !image.isNull())
        icone.addPixmap(QPixmap::fromImage(image));
    if (!icone.isNull()) QApplication::setWindowIcon(icone);
  });
}

// The return comes from a look of the port's own, in the middle of nothing, and has its answer before what
// waited leaves; all else may come in the middle of anything.
void PlateformeQt::SuivreLigne(EvenementLigne evenement) {
  if (LigneVue) LigneVue(evenement, port_.Appareil());
  if (evenement == EvenementLigne::Revenue && LigneRevenue) miroir_.Passer(LigneRevenue);
  QMetaObject::invokeMethod(
      &vivante_, [this] { AnnoncerLigne(); }, Qt::QueuedConnection);
}

void PlateformeQt::AnnoncerLigne() {
  if (LigneChangee) miroir_.Passer([this] { LigneChangee(port_.Etat()); });
}

void PlateformeQt::FinirSurRapport(const std::string &rapport) {
  miroir_.Fermer();
  port_.NePlusAttendre();
  RapporterEtFinir(CompleterRapport ? CompleterRapport(rapport) : rapport, ApresRapport);
}

void PlateformeQt::FinirDeDehors() {
  if (std::exchange(finDehors_, true)) return;
  FinirAttentes();
  if (FinDemandee) miroir_.Passer(FinDemandee);
  QMetaObject::invokeMethod(
      qApp, [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
}

void PlateformeQt::ShowOpen(DialogueFichier &dialogue) {
  miroir_.Refleter();
  QFileDialog choix(miroir_.Principale());
  choix.setOption(QFileDialog::DontUseNativeDialog);
  choix.setAcceptMode(QFileDialog::AcceptOpen);
  choix.setFileMode(QFileDialog::AnyFile);  // a name that does not exist is the reader's to refuse
  DisposerListeFichiers(choix);
  choix.setNameFilters(Filtres(dialogue.Filter));
  choix.setDirectory(QFileInfo(QFile::decodeName(dialogue.FileName.c_str())).path());
  if (choix.exec() == QDialog::Accepted && !choix.selectedFiles().isEmpty())
    dialogue.FileName = QFile::encodeName(choix.selectedFiles().first()).toStdString();
  else if (dialogue.CancelError)
    throw ErreurExecution(Erreur::DialogueAnnule);
}

void PlateformeQt::DoEvents() {
  miroir_.Refleter();
  QCoreApplication::processEvents();
}

void PlateformeQt::Rafraichir() {
  miroir_.Refleter();
  miroir_.Repeindre();
}

void PlateformeQt::RafraichirFenetre(Fenetre &fenetre) { miroir_.RefleterEtRepeindre(fenetre); }

void PlateformeQt::Montrer(Fenetre &fenetre) {
  miroir_.Ajouter(fenetre);
  fenetre.Visible = true;
  miroir_.Refleter();
}

void PlateformeQt::MontrerModal(Fenetre &fenetre) {
  if (terminee_ || finDehors_) return;
  miroir_.Ajouter(fenetre);
  miroir_.Modale(fenetre, true);
  fenetre.Visible = true;
  miroir_.Refleter();
  QEventLoop boucle;
  modales_.push_back({&fenetre, &boucle});
  if (fenetre.Visible && fenetre.Chargee) boucle.exec();
  modales_.pop_back();
  miroir_.Refleter();
  miroir_.Modale(fenetre, false);
  if (QWidget *principale = miroir_.Principale()) principale->activateWindow();
}

void PlateformeQt::FinirAttentes() {
  for (const Modale &a : modales_)
    if (finDehors_ || !a.fenetre->Visible || !a.fenetre->Chargee) a.boucle->quit();
}

void PlateformeQt::CliquerIcone() {
  if (MessageIcone) miroir_.Passer([this] { MessageIcone(kIconeBoutonGauche); });
}

void PlateformeQt::Ramener() {
  if (icone_ && icone_->isVisible()) CliquerIcone();
  QWidget *cadre = miroir_.Principale();
  if (!cadre) return;
  if (cadre->isMinimized()) cadre->showNormal();
  miroir_.MettreDevant();
}

void PlateformeQt::OuvrirAdresse(const std::string &adresse) {
  QDesktopServices::openUrl(QUrl::fromUserInput(Texte(adresse)));
}

Entier PlateformeQt::IconeNotification(int action, const std::string &bulle) {
  if (!QSystemTrayIcon::isSystemTrayAvailable()) return 0;
  if (action != kAjouter) {
    const bool presente = icone_ && icone_->isVisible();
    if (icone_) icone_->hide();
    zoneLa_.stop();
    return presente ? 1 : 0;
  }
  if (!icone_) {
    icone_ = std::make_unique<QSystemTrayIcon>(QApplication::windowIcon());
    QObject::connect(icone_.get(), &QSystemTrayIcon::activated, icone_.get(),
                     [this](QSystemTrayIcon::ActivationReason raison) {
                       if (raison == QSystemTrayIcon::Trigger) CliquerIcone();
                     });
    QObject::connect(&zoneLa_, &QTimer::timeout, icone_.get(), [this] {
      if (!QSystemTrayIcon::isSystemTrayAvailable()) CliquerIcone();
    });
  }
  icone_->setToolTip(Texte(bulle.c_str()));  // a filled-up text, ended by a null
  icone_->show();
  zoneLa_.start(kRonde);
  return 1;
}

void PlateformeQt::Beep() { QApplication::beep(); }

bool PlateformeQt::DemanderReprise(const std::string &texte) {
  miroir_.Refleter();
  return QMessageBox::critical(miroir_.Principale(), QStringLiteral("Brandis"), Texte(texte),
                               QMessageBox::Retry | QMessageBox::Cancel) == QMessageBox::Retry;
}

void PlateformeQt::PousserSurDisque(int descripteur) {
  if (pousseeAttendue_.exchange(true)) return;  // it will find this too
  const int copie = fcntl(descripteur, F_DUPFD_CLOEXEC, 0);
  disque_.start([this, copie] {
    pousseeAttendue_ = false;
    fdatasync(copie);
    close(copie);
  });
}

double PlateformeQt::Aujourdhui() {
  return static_cast<double>(QDate(1899, 12, 30).daysTo(QDate::currentDate()));
}

Ecran PlateformeQt::EcranDisponible() {
  if (!ecran_) ecran_ = QGuiApplication::primaryScreen();
  const QRect place = ecran_->availableGeometry();
  return {Twips(place.x()), Twips(place.y()), Twips(place.width()), Twips(place.height())};
}

void PlateformeQt::Terminer() {
  terminee_ = true;
  miroir_.Fermer();
  // Not quit(): it asks the windows first, and the main one refuses to be closed.
  QMetaObject::invokeMethod(
      qApp, [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
}
