// The window of brandis-motifs, used as a weaver uses it.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QDropEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <filesystem>
#include <functional>
#include <future>

#include "app-motifs/dessin/Dessin.h"
#include "app-motifs/fenetre/Boiseries.h"
#include "app-motifs/fenetre/FenetreMotifs.h"
#include "app-motifs/fenetre/Rangee.h"
#include "app-motifs/fenetre/VueConstats.h"
#include "app-motifs/fenetre/VueMotif.h"
#include "base/PageGuide.h"
#include "motifs/Fichier.h"
#include "motifs/Flottes.h"
#include "motifs/LectureMotif.h"
#include "motifs/Ramener.h"

namespace {
const QString kFichiers = QStringLiteral(BRANDIS_FICHIERS "/");

class EssaiFenetre : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(dossier.isValid());
    std::filesystem::create_directory(Dossier() + "/Data");
    // What the window keeps of itself goes there too.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, dossier.path());
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  }
  std::string Dossier() const { return dossier.path().toStdString(); }
  static QListWidget *Liste(FenetreMotifs &f, const char *nom) {
    return f.findChild<QListWidget *>(QString::fromLatin1(nom));
  }
  static QPushButton *Touche(FenetreMotifs &f, const char *nom) {
    return f.findChild<QPushButton *>(QString::fromLatin1(nom));
  }
  static void Cliquer(QListWidget *liste, int rang) {
    QTest::mouseClick(liste->viewport(), Qt::LeftButton, Qt::NoModifier,
                      liste->visualItemRect(liste->item(rang)).center());
  }
  // Does this in the next dialog that comes up.
  static void AuDialogue(std::function<void(QDialog &)> faire) {
    QTimer::singleShot(0, qApp, [faire] {
      auto *dialogue = qobject_cast<QDialog *>(QApplication::activeModalWidget());
      if (dialogue)
        faire(*dialogue);
      else
        AuDialogue(faire);
    });
  }
  // The text of the next message, which is then answered.
  static void AuMessage(QString &texte, QMessageBox::StandardButton reponse) {
    AuDialogue([&texte, reponse](QDialog &d) {
      auto &boite = dynamic_cast<QMessageBox &>(d);
      texte = boite.text();
      QTest::mouseClick(boite.button(reponse), Qt::LeftButton);
    });
  }
  QTemporaryDir dossier;
};
}  // namespace

TEST_F(EssaiFenetre, DropSeeAndPutIntoBrandis) {
  FenetreMotifs f(Dossier(), Langue::Anglais);
  f.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&f));
  EXPECT_FALSE(Touche(f, "brandis")->isEnabled());
  QMimeData depot;
  depot.setUrls({QUrl::fromLocalFile(kFichiers + "serge-1.0.wif"),
                 QUrl::fromLocalFile(kFichiers + "lames-par-fil.wif"),
                 QUrl::fromLocalFile(QStringLiteral("/dev/zero"))});
  QDragEnterEvent entree({5, 5}, Qt::CopyAction, &depot, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&f, &entree);
  EXPECT_TRUE(entree.isAccepted());
  QString message;
  AuMessage(message, QMessageBox::Ok);
  QDropEvent lache({5, 5}, Qt::CopyAction, &depot, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&f, &lache);
  EXPECT_EQ(message, "/dev/zero: this is not an ordinary file.");
  QListWidget *motifs = Liste(f, "motifs");
  auto *constats = f.findChild<VueConstats *>();
  const auto rangee = [&](int i) { return constats->topLevelItem(i)->text(0); };
  ASSERT_EQ(motifs->count(), 2);
  EXPECT_EQ(motifs->currentRow(), 1);
  EXPECT_EQ(rangee(2), "harness 4: never lifted, and ends are on it.");

  // A click on a finding brings its place near.
  auto *vue = f.findChild<VueMotif *>();
  vue->Zoomer(0.1, {0, 0});
  constats->setCurrentItem(constats->topLevelItem(2));
  EXPECT_GE(vue->Zoom(), 8);
  // A kind of thing is one row, opened for its places.
  f.findChild<QSpinBox *>()->setValue(1);
  QTreeWidgetItem *genre = nullptr;
  for (int i = 0; i < constats->topLevelItemCount(); ++i)
    if (constats->topLevelItem(i)->childCount() > 1) genre = constats->topLevelItem(i);
  ASSERT_TRUE(genre);
  Lieu lieu;
  QObject::connect(constats, &VueConstats::Choisi, [&](const Lieu &l) { lieu = l; });
  QTest::mouseClick(constats->viewport(), Qt::LeftButton, Qt::NoModifier,
                    constats->visualItemRect(genre).center());
  EXPECT_TRUE(genre->isExpanded());
  constats->setCurrentItem(genre->child(1));
  EXPECT_EQ(genre->child(1)->text(0).toStdString(), TexteLieu(lieu).en);
  f.findChild<QSpinBox *>()->setValue(7);

  Cliquer(motifs, 0);
  EXPECT_EQ(rangee(0), "Nothing to say.");
  QTest::mouseClick(Touche(f, "brandis"), Qt::LeftButton);
  const std::string la = Dossier() + "/Data/serge-1.0.wif";
  const Motif ecrit = LireMotif(la);
  EXPECT_TRUE(ecrit.liftplan);
  EXPECT_EQ(ecrit.foules, LireMotif((kFichiers + "serge-1.0.wif").toStdString()).foules);

  // What is there is replaced only when the weaver says so.
  EcrireFichier(la, "le mien", true);
  AuMessage(message, QMessageBox::No);
  f.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&f));
  QTest::keyClick(motifs, Qt::Key_Return, Qt::ControlModifier);
  EXPECT_TRUE(message.endsWith("is there already. Replace it?"));
  EXPECT_EQ(LireBrut(la), "le mien");
  AuMessage(message, QMessageBox::Yes);
  QTest::mouseClick(Touche(f, "brandis"), Qt::LeftButton);
  EXPECT_EQ(LireMotif(la).foules, ecrit.foules);

  f.activateWindow();
  motifs->setFocus();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&f));
  for (int i = 0; i < 2; ++i) QTest::keyClick(motifs, Qt::Key_Delete);
  EXPECT_FALSE(Touche(f, "brandis")->isEnabled());
  EXPECT_EQ(constats->topLevelItemCount(), 0);
}

TEST_F(EssaiFenetre, WheelDragAndKeysMoveTheDrawing) {
  VueMotif vue(Langue::Francais);
  vue.resize(320, 320);
  QString lieu;
  QObject::connect(&vue, &VueMotif::Survole, [&](const QString &t) { lieu = t; });
  const auto motif = std::make_shared<const Motif>(LireMotif(BRANDIS_FICHIERS "/pedales-ensemble.wif"));
  vue.Montrer(std::make_shared<DessinPret>(motif, ReglagesPlanche{}));
  vue.show();
  const double tout = vue.Zoom();
  const auto cellule = [&](int fil, int duite) { return vue.CaseDe(fil, duite).center().toPoint(); };
  EXPECT_GT(cellule(1, 1).y(), cellule(1, 7).y()) << "the first pick is below, as on the loom";
  QTest::mouseMove(&vue, cellule(9, 1));
  EXPECT_EQ(lieu, QStringLiteral("fil 9, lame 8   duite 1 : 1,2,5,6"));
  const QPoint point = cellule(4, 4);
  QWheelEvent roue(point, vue.mapToGlobal(point), {}, {0, 240}, Qt::NoButton, Qt::NoModifier,
                   Qt::NoScrollPhase, false);
  QApplication::sendEvent(&vue, &roue);
  EXPECT_GT(vue.Zoom(), tout * 1.2);
  for (int i = 0; i < 3; ++i) vue.Zoomer(1.6, point);
  QTest::mouseMove(&vue, point + QPoint(1, 0));  // the cell under the pointer stays there
  EXPECT_TRUE(lieu.startsWith(QStringLiteral("fil 4, lame 4   duite 4"))) << lieu.toStdString();

  // However near the cloth is, threading and plan are in sight, and move with it.
  const QPointF avant = vue.CaseDe(4, 4).center();
  QTest::mousePress(&vue, Qt::LeftButton, Qt::NoModifier, point);
  QTest::mouseMove(&vue, point + QPoint(0, 20));
  QTest::mouseRelease(&vue, Qt::LeftButton, Qt::NoModifier, point);
  EXPECT_NEAR(vue.CaseDe(4, 4).center().y(), avant.y() + 20, 1);
  EXPECT_NEAR(vue.CaseDe(4, 4).center().x(), avant.x(), 1);
  QTest::keyClick(&vue, Qt::Key_0);
  EXPECT_DOUBLE_EQ(vue.Zoom(), tout);
}

// A cursor of cells, led by keys and told to screen readers.
TEST_F(EssaiFenetre, CursorOfCells) {
  InstallerAccesVue();
  VueMotif vue(Langue::Anglais);
  vue.resize(400, 300);
  const auto motif = std::make_shared<const Motif>(LireMotif(BRANDIS_FICHIERS "/pedales-ensemble.wif"));
  for (const bool enHaut : {false, true}) {
    vue.Montrer(std::make_shared<DessinPret>(motif, ReglagesPlanche{.enHaut = enHaut}));
    QTest::keyClick(&vue, Qt::Key_Left);  // the first key shows where it is
    EXPECT_EQ(vue.FilCurseur() * 100 + vue.DuiteCurseur(), 101);
    QTest::keyClick(&vue, Qt::Key_Left);
    QTest::keyClick(&vue, enHaut ? Qt::Key_Down : Qt::Key_Up);
    EXPECT_EQ(vue.FilCurseur() * 100 + vue.DuiteCurseur(), 202);
    QTest::keyClick(&vue, Qt::Key_End);
    QTest::keyClick(&vue, Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(vue.FilCurseur() * 100 + vue.DuiteCurseur(), 907);
    QAccessibleInterface *acces = QAccessible::queryAccessibleInterface(&vue);
    EXPECT_EQ(acces->role(), QAccessible::Graphic);
    EXPECT_EQ(acces->text(QAccessible::Description), "end 9, harness 8   pick 7: 1,2");
    EXPECT_FALSE(acces->text(QAccessible::Help).isEmpty());
  }
  for (int i = 0; i < 30; ++i) vue.Zoomer(1.3, {200, 150});
  for (const Qt::Key touche : {Qt::Key_Home, Qt::Key_End}) {
    QTest::keyClick(&vue, touche);  // and it never leaves the sight
    EXPECT_TRUE(QRectF(vue.rect()).contains(vue.CaseDe(vue.FilCurseur(), vue.DuiteCurseur())));
  }
}

// Every control can be reached by keyboard, and says what it is.
TEST_F(EssaiFenetre, NamedAndReachable) {
  for (const Langue langue : {Langue::Francais, Langue::Anglais}) {
    FenetreMotifs f(Dossier(), langue);
    f.Ouvrir({kFichiers + "serge-1.0.wif"});
    f.show();
    EXPECT_EQ(Touche(f, "brandis")->text(),
              langue == Langue::Francais ? "Mettre dans &Brandis" : "Put into &Brandis");
    QList<QWidget *> vus;
    for (QWidget *w = f.nextInFocusChain(); w != &f; w = w->nextInFocusChain())
      if (w->isVisible() && w->isEnabled() && (w->focusPolicy() & Qt::TabFocus)) vus << w;
    for (const char *nom :
         {"ouvrir", "image", "enfilage", "sections", "projet16", "brandis", "couleurs", "ramener",
          "structure", "reprises", "haut", "retirer", "motifs", "constats", "vue"}) {
      auto *w = f.findChild<QWidget *>(QString::fromLatin1(nom));
      ASSERT_TRUE(w) << nom;
      EXPECT_TRUE(vus.contains(w)) << nom;
      auto *touche = qobject_cast<QPushButton *>(w);
      EXPECT_FALSE((touche ? touche->text() : w->accessibleName()).isEmpty()) << nom;
    }
  }
}

TEST_F(EssaiFenetre, SectionsAndProject) {
  FenetreMotifs f(Dossier(), Langue::Anglais);
  f.Ouvrir({kFichiers + "serge-1.0.wif"});
  f.show();
  QTest::mouseClick(Touche(f, "projet16"), Qt::LeftButton);
  EXPECT_EQ(LireBrut(Dossier() + "/Data/Resume.Trm").size(), 281u);

  const QString cible = dossier.path() + "/deux.wif";
  AuDialogue([&](QDialog &sections) {
    sections.findChild<QSpinBox *>("fois")->setValue(3);
    for (QPushButton *t : sections.findChildren<QPushButton *>())
      if (t->text() == "&Add") QTest::mouseClick(t, Qt::LeftButton);
    AuDialogue([&](QDialog &fichiers) {
      fichiers.findChild<QLineEdit *>()->setText(cible);
      fichiers.accept();
    });
    sections.accept();
  });
  QTest::mouseClick(Touche(f, "sections"), Qt::LeftButton);
  EXPECT_EQ(LireMotif(cible.toStdString()).Duites(), 4 * 8);
}

// A part of a piece, a name without its ending, and a file that is there.
TEST_F(EssaiFenetre, PartsAndNamesWithoutEnding) {
  FenetreMotifs f(Dossier(), Langue::Anglais);
  f.Ouvrir({kFichiers + "serge-1.0.wif"});
  f.show();
  const auto nommer = [&](const QString &nom, const QString &genre = {}) {
    AuDialogue([this, nom, genre](QDialog &d) {
      auto &fichiers = dynamic_cast<QFileDialog &>(d);
      if (!genre.isEmpty()) fichiers.selectNameFilter(genre);
      fichiers.findChild<QLineEdit *>()->setText(dossier.path() + "/" + nom);
      d.accept();
    });
  };
  AuDialogue([&](QDialog &sections) {
    const auto champs = sections.findChildren<QSpinBox *>();
    champs[0]->setValue(3);  // from, to, how often
    champs[1]->setValue(6);
    champs[2]->setValue(2);
    for (QPushButton *t : sections.findChildren<QPushButton *>())
      if (t->text() == "&Add") QTest::mouseClick(t, Qt::LeftButton);
    nommer("parties");
    sections.accept();
  });
  QTest::mouseClick(Touche(f, "sections"), Qt::LeftButton);
  EXPECT_EQ(LireMotif(Dossier() + "/parties.wif").Duites(), 8 + 2 * 4);

  nommer("image", "SVG (*.svg)");
  QTest::mouseClick(Touche(f, "image"), Qt::LeftButton);
  EXPECT_EQ(LireBrut(Dossier() + "/image.svg").substr(0, 5), "<?xml");
  // The same name again: asked before it is written over, and what was said stays until the next deed.
  const QString dit = f.findChild<Elidee *>("dit")->Entier();
  EXPECT_TRUE(dit.startsWith("Saved: ")) << dit.toStdString();
  QTest::mouseMove(f.findChild<VueMotif *>());
  EXPECT_EQ(f.findChild<Elidee *>("dit")->Entier(), dit);
  EcrireFichier(Dossier() + "/image.svg", "la mienne", true);
  QString message;
  nommer("image", "SVG (*.svg)");
  QTimer::singleShot(0, qApp, [&] {
    AuDialogue([&](QDialog &d) {
      if (auto *boite = qobject_cast<QMessageBox *>(&d)) {
        message = boite->text();
        QTest::mouseClick(boite->button(QMessageBox::No), Qt::LeftButton);
      }
    });
  });
  QTest::mouseClick(Touche(f, "image"), Qt::LeftButton);
  EXPECT_TRUE(message.contains("image.svg is there already")) << message.toStdString();
  EXPECT_EQ(LireBrut(Dossier() + "/image.svg"), "la mienne");

  // Off the list by its key.
  QTest::mouseClick(Touche(f, "retirer"), Qt::LeftButton);
  EXPECT_EQ(Liste(f, "motifs")->count(), 0);
  EXPECT_FALSE(Touche(f, "retirer")->isEnabled());
}

// Whatever the file says, the window fits the smallest screen, and comes up as it was left.
TEST_F(EssaiFenetre, FitsSmallScreens) {
  EcrireFichier(Dossier() + "/long.wif",
                "[WIF]\n[TEXT]\nTitle=" + std::string(3000, 'x') + "\nAuthor=" + std::string(3000, 'y') +
                    "\n[LIFTPLAN]\n1=1,2\n",
                false);
  Habiller(*qApp);
  for (const Langue langue : {Langue::Francais, Langue::Anglais}) {
    FenetreMotifs f(Dossier(), langue);
    f.Ouvrir({dossier.path() + "/long.wif"});
    EXPECT_LE(f.minimumSizeHint().width(), 760);
    EXPECT_LE(f.minimumSizeHint().height(), 540);
    f.resize(760, 540);
    f.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&f));
    EXPECT_EQ(f.size(), QSize(760, 540));
    for (QPushButton *t : f.findChildren<QPushButton *>()) {
      const QRect la(t->mapTo(&f, QPoint(0, 0)), t->size());
      EXPECT_TRUE(f.rect().contains(la)) << t->objectName().toStdString();
    }
    f.close();
    FenetreMotifs encore(Dossier(), langue);
    EXPECT_EQ(encore.size(), QSize(760, 540));
    encore.resize(9000, 9000);
    encore.close();
    FenetreMotifs retrouvee(Dossier(), langue);
    const QSize ecran = retrouvee.screen()->availableSize();
    EXPECT_TRUE(retrouvee.width() <= ecran.width() && retrouvee.height() <= ecran.height());
  }
}

// Work that takes long shows a bar, and can be called off.
TEST_F(EssaiFenetre, LongWorkIsCalledOff) {
  Taches taches;
  EXPECT_EQ(taches.Faire(nullptr, "", "Cancel", [] { return 7; }), 7);
  EXPECT_THROW(taches.Faire(nullptr, "", "Cancel", []() -> int { throw std::runtime_error("x"); }),
               std::runtime_error);
  // Called off it really stops: this would run for ever.
  std::promise<void> arrete;
  AuDialogue([](QDialog &d) { QTest::mouseClick(d.findChild<QPushButton *>(), Qt::LeftButton); });
  EXPECT_FALSE(taches.Faire(nullptr, "", "Cancel", [&arrete] {
    try {
      for (volatile bool encore = true; encore;) Souffler();
    } catch (const Arrete &) {
      arrete.set_value();
      throw;
    }
    return 1;
  }));
  arrete.get_future().wait();
  // Unless it ends by itself.
  std::promise<void> seul;
  const auto autre = seul.get_future().share();
  AuDialogue([&](QDialog &) { seul.set_value(); });
  EXPECT_EQ(taches.Faire(nullptr, "", "Cancel", [autre] { return autre.wait(), 2; }), 2);
  // What writes has no Cancel, and Escape does not end its wait either.
  std::promise<void> ecrit;
  const auto ecriture = ecrit.get_future().share();
  AuDialogue([&](QDialog &d) {
    EXPECT_EQ(d.findChildren<QPushButton *>().size(), 0);
    d.reject();
    AuDialogue([&](QDialog &) { ecrit.set_value(); });
  });
  EXPECT_EQ(taches.Achever(nullptr, "", [ecriture] { return ecriture.wait(), 3; }), 3);
}

// Every long reckoning looks whether it is still wanted.
TEST_F(EssaiFenetre, ReckoningsStopWhenCalledOff) {
  const Motif motif = LireMotif(BRANDIS_FICHIERS "/tables-derriere.wif");
  const Motif haut = ComprendreMotif("[WIF]\n[THREADING]\n1=1\n2=20\n[LIFTPLAN]\n1=1\n2=20\n", "haut");
  const std::vector<std::function<void()>> travaux{
      [] { LireMotif(BRANDIS_FICHIERS "/serge-1.0.wif"); },
      [&] { ComprendreMotif(*motif.octets, motif.chemin); },
      [&] { Verifier(motif); },
      [&] { Flottes(motif, 1); },
      [&] { Ramener(haut, kLamesMetier); },
      [&] { DessinPret(std::make_shared<const Motif>(motif), {}); },
      [&] { Dessiner(motif, "a.svg", {}, Langue::Anglais); }};
  std::jthread([&] {
    std::stop_source source;
    source.request_stop();
    PouvoirArreter(source.get_token());
    for (const auto &travail : travaux) EXPECT_THROW(travail(), Arrete) << &travail - travaux.data();
  }).join();
}

// What the loom will raise otherwise is said before it is written, and the way out is a key.
TEST_F(EssaiFenetre, FaultsAreSaidBeforeWriting) {
  EcrireFichier(Dossier() + "/haut.wif",
                "[WIF]\n[WEAVING]\nShafts=24\n[THREADING]\n1=1\n2=2\n3=17\n4=24\n"
                "[LIFTPLAN]\n1=1,2\n2=17,24\n3=1,17\n4=2,24\n",
                false);
  FenetreMotifs f(Dossier(), Langue::Anglais);
  f.Ouvrir({dossier.path() + "/haut.wif"});
  f.show();
  QString message;
  AuMessage(message, QMessageBox::No);
  QTest::mouseClick(Touche(f, "brandis"), Qt::LeftButton);
  EXPECT_TRUE(message.contains("are raised otherwise")) << message.toStdString();
  EXPECT_FALSE(std::filesystem::exists(Dossier() + "/Data/haut.wif"));
  AuMessage(message, QMessageBox::Yes);
  QTest::mouseClick(Touche(f, "brandis"), Qt::LeftButton);
  EXPECT_TRUE(std::filesystem::exists(Dossier() + "/Data/haut.wif"));

  AuDialogue([&](QDialog &d) {
    auto &fichiers = dynamic_cast<QFileDialog &>(d);
    fichiers.findChild<QLineEdit *>()->setText(dossier.path() + "/bas");
    AuMessage(message, QMessageBox::Ok);
    d.accept();
  });
  QTest::mouseClick(Touche(f, "ramener"), Qt::LeftButton);
  EXPECT_EQ(message, "To be threaded anew:");
  EXPECT_TRUE(Fautes(LireMotif(Dossier() + "/bas.wif")).empty());
}

TEST_F(EssaiFenetre, F1LooksForTheGuide) {
  FenetreMotifs f(Dossier(), Langue::Francais);
  f.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&f));
  QString message;
  AuMessage(message, QMessageBox::Ok);
  QTest::keyClick(&f, Qt::Key_F1);
  EXPECT_EQ(message, QStringLiteral("Le guide n'est pas installé."));
  std::filesystem::create_directory(Dossier() + "/Guide");
  EcrireFichier(Dossier() + "/Guide/fr.html", "fr", false);
  EXPECT_EQ(PageGuide(Dossier(), true), Dossier() + "/Guide/fr.html");
  EXPECT_EQ(PageGuide(Dossier(), false), "");
}
