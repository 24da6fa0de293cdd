// The window of brandis-motifs, used as a weaver uses it.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QDropEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <filesystem>
#include <functional>

#include "app-motifs/fenetre/FenetreMotifs.h"
#include "app-motifs/fenetre/VueMotif.h"
#include "motifs/Fichier.h"
#include "motifs/LectureMotif.h"

namespace {
const QString kFichiers = QStringLiteral(BRANDIS_FICHIERS "/");

class EssaiFenetre : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(dossier.isValid());
    std::filesystem::create_directory(Dossier() + "/Data");
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
  QListWidget *motifs = Liste(f, "motifs"), *constats = Liste(f, "constats");
  ASSERT_EQ(motifs->count(), 2);
  EXPECT_EQ(motifs->currentRow(), 1);
  EXPECT_EQ(constats->item(2)->text(), "harness 4: never lifted, and ends are on it.");

  // A click on a finding brings its place near.
  auto *vue = f.findChild<VueMotif *>();
  vue->Zoomer(0.1, {0, 0});
  Cliquer(constats, 0);
  EXPECT_GE(vue->Zoom(), 8);
  f.findChild<QSpinBox *>()->setValue(1);
  EXPECT_GT(constats->count(), 4);
  f.findChild<QSpinBox *>()->setValue(7);

  Cliquer(motifs, 0);
  EXPECT_EQ(constats->item(0)->text(), "Nothing to say.");
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
  EXPECT_EQ(constats->count(), 0);
}

TEST_F(EssaiFenetre, WheelDragAndKeysMoveTheDrawing) {
  VueMotif vue(Langue::Francais);
  vue.resize(320, 320);
  QString lieu;
  QObject::connect(&vue, &VueMotif::Survole, [&](const QString &t) { lieu = t; });
  vue.Montrer(std::make_shared<const Motif>(LireMotif(BRANDIS_FICHIERS "/pedales-ensemble.wif")));
  vue.show();
  const double tout = vue.Zoom();
  // 9 ends, 8 harnesses, 7 picks: the cell of end 9 and pick 1 stands at column 1, row 12.
  const auto cellule = [&](double x, double y) {
    const double largeur = 9 + 4 + 6 + 1, hauteur = 8 + 4 + 7 + 1;
    return QPoint(qRound(160 + (x - largeur / 2) * tout), qRound(160 + (y - hauteur / 2) * tout));
  };
  QTest::mouseMove(&vue, cellule(1.5, 12.5));
  EXPECT_EQ(lieu, QStringLiteral("fil 9, lame 8   duite 1 : 1,2,5,6"));
  const QPoint point = cellule(9.5, 18.5);
  QWheelEvent roue(point, vue.mapToGlobal(point), {}, {0, 240}, Qt::NoButton, Qt::NoModifier,
                   Qt::NoScrollPhase, false);
  QApplication::sendEvent(&vue, &roue);
  EXPECT_GT(vue.Zoom(), tout * 1.2);
  QTest::mouseMove(&vue, point + QPoint(1, 0));  // the cell under the pointer stays there
  EXPECT_EQ(lieu, QStringLiteral("fil 1, lame 1   duite 7 : 1,2"));
  QTest::mousePress(&vue, Qt::LeftButton, Qt::NoModifier, point);
  QTest::mouseMove(&vue, point + QPoint(0, 2 + static_cast<int>(vue.Zoom())));
  QTest::mouseRelease(&vue, Qt::LeftButton, Qt::NoModifier, point);
  QTest::keyClick(&vue, Qt::Key_Minus);
  QTest::keyClick(&vue, Qt::Key_0);
  EXPECT_DOUBLE_EQ(vue.Zoom(), tout);
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
         {"ouvrir", "image", "enfilage", "sections", "projet16", "brandis", "motifs", "constats", "vue"}) {
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
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  AuDialogue([&](QDialog &sections) {
    sections.findChild<QSpinBox *>()->setValue(3);
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
