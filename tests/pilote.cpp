// The real program with a hand on its mouse and keyboard: events come as lines on standard input and go to
// the native widgets. Argument: the program's folder. Each line is answered by "ok", or by what it asked for.
//
//   clic NOM            press and release in the middle of a control, by its name
//   ecrire NOM TEXTE    replace the text of a field and press Enter
//   choisir NOM TEXTE   choose an item of a list field by keyboard
//   fichier CHEMIN      answer the open dialog; without a path, cancel it
//   etat                the state, a line
//   image CHEMIN        a picture of the main window
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QSocketNotifier>
#include <QTest>
#include <cstdio>
#include <iostream>
#include <sstream>

#include "app/Montage.h"
#include "kit/FenetreMessageCourt.h"
#include "mainwindow/FenetreTissagePrincipale.h"
#include "platform/qt/Habillage.h"

namespace {
struct Chercheur : Visiteur {
  explicit Chercheur(const std::string &nom) : cherche(nom) {}
  void Voir(const std::string &nom, Controle &c, Controle &) override {
    if (nom == cherche) trouve = &c;
  }
  void Voir(const std::string &, Minuterie &) override {}
  std::string cherche;
  Controle *trouve = nullptr;
};

QWidget *Natif(PlateformeQt &machine, const std::string &nom) {
  for (Fenetre *f : ToutesFenetres()) {
    Chercheur chercheur(nom);
    if (f->Chargee && f->Visible) f->Visiter(chercheur);
    if (!chercheur.trouve) continue;
    QWidget *w = machine.LeMiroir().Widget(*chercheur.trouve);
    if (w && w->isVisible()) return w;
  }
  return nullptr;
}

void Ecrire(QWidget *champ, const QString &texte) {
  auto *ligne = qobject_cast<QLineEdit *>(champ);
  if (!ligne) ligne = champ->findChild<QLineEdit *>();
  if (!ligne) return;
  ligne->setFocus();
  ligne->selectAll();
  QTest::keyClicks(ligne, texte);
  QTest::keyClick(ligne, Qt::Key_Return);
}

void Choisir(QWidget *champ, const QString &texte) {
  auto *liste = qobject_cast<QComboBox *>(champ);
  if (!liste) liste = champ->findChild<QComboBox *>();
  if (!liste) return;
  if (liste->isEditable()) return Ecrire(liste->lineEdit(), texte);
  liste->setFocus();
  const int place = liste->findText(texte);
  if (place < 0) return;
  while (liste->currentIndex() < place) QTest::keyClick(liste, Qt::Key_Down);
  while (liste->currentIndex() > place) QTest::keyClick(liste, Qt::Key_Up);
}

void RepondreDialogue(const QString &chemin) {
  for (QWidget *w : QApplication::topLevelWidgets()) {
    auto *dialogue = qobject_cast<QFileDialog *>(w);
    if (!dialogue || !dialogue->isVisible()) continue;
    if (chemin.isEmpty()) {
      dialogue->reject();
      return;
    }
    auto *nom = dialogue->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    nom->clear();
    QTest::keyClicks(nom, chemin);
    QTest::keyClick(nom, Qt::Key_Return);
    return;
  }
}

std::string Etat() {
  std::ostringstream s;
  s << "duite=" << session.DuiteCourante << " nombre=" << session.NombreDuites
    << " lames=" << session.NombreLames << " ouvert=" << fenetre.PortOuvert << " boutons=";
  for (int i = 0; i <= 21; ++i) s << (fenetre.BoutonProgramme[i].Visible ? '1' : '0');
  s << " message=" << (fenetreMessageCourt.Visible ? fenetreMessageCourt.Ligne[2].Caption : "");
  return s.str();
}

// Runs behind what was asked before, and so inside a modal window that a click has opened.
void PlusTard(const std::function<void()> &suite) {
  QMetaObject::invokeMethod(qApp, suite, Qt::QueuedConnection);
}

void Executer(PlateformeQt &machine, const std::string &ligne) {
  std::istringstream mots(ligne);
  std::string ordre, nom, reste;
  mots >> ordre;
  if (ordre == "etat") {
    std::cout << Etat() << std::endl;
    return;
  }
  if (ordre == "fichier" || ordre == "image") {
    std::getline(mots >> std::ws, reste);
    const QString chemin = QString::fromStdString(reste);
    if (ordre == "image")
      machine.LeMiroir().Principale()->grab().save(chemin);
    else
      PlusTard([chemin] { RepondreDialogue(chemin); });
    std::cout << "ok" << std::endl;
    return;
  }
  mots >> nom;
  std::getline(mots >> std::ws, reste);
  QWidget *w = Natif(machine, nom);
  if (!w) {
    std::cout << "absent " << nom << std::endl;
    return;
  }
  const QString texte = QString::fromStdString(reste);
  PlusTard([ordre, w, texte] {
    if (ordre == "clic") QTest::mouseClick(w, Qt::LeftButton);
    if (ordre == "ecrire") Ecrire(w, texte);
    if (ordre == "choisir") Choisir(w, texte);
  });
  std::cout << "ok" << std::endl;
}
}  // namespace

int main(int nombre, char **mots) {
  if (nombre < 2) return 2;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(nombre, mots);
  QApplication::setQuitOnLastWindowClosed(false);
  HabillerApplication();
  PlateformeQt machine(TrouverDossiers(mots[1]));
  Monter(machine);

  QSocketNotifier entree(0, QSocketNotifier::Read);
  QObject::connect(&entree, &QSocketNotifier::activated, [&] {
    std::string ligne;
    if (!std::getline(std::cin, ligne)) std::_Exit(3);
    Executer(machine, ligne);
  });
  return QApplication::exec();
}
