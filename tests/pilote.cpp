// The real program with a hand on its mouse and keyboard: events come as lines on standard input and go to
// the native widgets. Argument: the program's folder. Each line is answered by "ok", or by what it asked for.
//
//   clic NOM            press and release in the middle of a control, by its name
//   ecrire NOM TEXTE    replace the text of a field and press Enter
//   choisir NOM TEXTE   choose an item of a list field by keyboard
//   fichier CHEMIN      answer the open dialog
//   etat                the state, a line
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
#include "kit/FenetreLigne.h"
#include "kit/FenetreMessageCourt.h"
#include "platform/qt/natifs/StyleNatif.h"
#include "session/Commandes.h"
#include "session/FenetreTissagePrincipale.h"

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
  if (!ligne) return;
  ligne->setFocus();
  ligne->selectAll();
  QTest::keyClicks(ligne, texte);
  QTest::keyClick(ligne, Qt::Key_Return);
}

void Choisir(QWidget *champ, const QString &texte) {
  auto *liste = qobject_cast<QComboBox *>(champ);
  const int place = liste ? liste->findText(texte) : -1;
  if (place < 0) return;
  liste->setFocus();
  while (liste->currentIndex() < place) QTest::keyClick(liste, Qt::Key_Down);
  while (liste->currentIndex() > place) QTest::keyClick(liste, Qt::Key_Up);
}

void RepondreDialogue(const QString &chemin) {
  for (QWidget *w : QApplication::topLevelWidgets())
    if (qobject_cast<QFileDialog *>(w) && w->isVisible())
      Ecrire(w->findChild<QLineEdit *>(QStringLiteral("fileNameEdit")), chemin);
}

std::string Etat() {
  std::ostringstream s;
  s << "duite=" << session.DuiteCourante << " nombre=" << session.NombreDuites
    << " lames=" << session.NombreLames << " ouvert=" << fenetre.PortOuvert << " boutons=";
  for (int i = 0; i < Commande::Nombre; ++i) s << (fenetre.BoutonProgramme[i].Visible ? '1' : '0');
  s << " ligne=" << (fenetreLigne.Visible ? fenetreLigne.NomAccessible : "");
  s << " message=" << (fenetreMessageCourt.Visible ? fenetreMessageCourt.Ligne[2].Caption : "");
  return s.str();
}

// What it does runs behind what was asked before, and so inside a modal window that a click has opened.
std::string Executer(PlateformeQt &machine, const std::string &ligne) {
  std::istringstream mots(ligne);
  std::string ordre, nom, reste;
  mots >> ordre >> nom;
  std::getline(mots >> std::ws, reste);
  if (ordre == "etat") return Etat();
  QWidget *w = Natif(machine, nom);
  if (!w && ordre != "fichier") return "absent " + nom;
  QMetaObject::invokeMethod(
      qApp,
      [=] {
        if (ordre == "clic") QTest::mouseClick(w, Qt::LeftButton);
        if (ordre == "ecrire") Ecrire(w, QString::fromStdString(reste));
        if (ordre == "choisir") Choisir(w, QString::fromStdString(reste));
        if (ordre == "fichier") RepondreDialogue(QString::fromStdString(nom));
      },
      Qt::QueuedConnection);
  return "ok";
}
}  // namespace

int main(int nombre, char **mots) {
  if (nombre < 2) return 2;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(nombre, mots);
  QApplication::setQuitOnLastWindowClosed(false);
  InstallerStyle();
  PlateformeQt machine(TrouverDossiers(mots[1]));
  Monter(machine);

  QSocketNotifier entree(0, QSocketNotifier::Read);
  QObject::connect(&entree, &QSocketNotifier::activated, [&] {
    std::string ligne;
    if (!std::getline(std::cin, ligne)) std::_Exit(3);
    std::cout << Executer(machine, ligne) << std::endl;
  });
  return QApplication::exec();
}
