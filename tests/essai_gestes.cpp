// Keys, clicks and windows: what reaches a command, and what is only meant for what lies over it.
#include <QMouseEvent>

#include "commands/CommandesProgramme.h"
#include "kit/FenetreMessage.h"
#include "kit/FenetreMessageCourt.h"
#include "kit/FenetreMessageErreur.h"
#include "kit/FenetreRappel.h"
#include "kit/FeuilleAPropos.h"
#include "kit/FeuilleRemarque.h"
#include "kit/ProcedureConnexe.h"
#include "session/Commandes.h"
#include "tests/Montee.h"

namespace {
class Gestes : public Montee {
 protected:
  void SetUp() override {
    Montee::SetUp();
    session.IntervalleMessageCourt = 30000;  // no message closes by itself
    FermerMessageCourt();
  }
  void Message() {
    Passer([] { AfficherMessageCourt("Error", "text"); });
    ASSERT_TRUE(fenetreMessageCourt.Visible);
  }
  // As the server tells keys: a held one as pairs with one time stamp.
  void Touche(QWidget *w, int touche, QEvent::Type type, bool repetee = false) {
    QKeyEvent e(type, touche, {}, touche == Qt::Key_Space ? QStringLiteral(" ") : QString(), repetee);
    e.setTimestamp(type == QEvent::KeyRelease || repetee ? instant += 40 : instant);
    QApplication::sendEvent(w->focusWidget() ? w->focusWidget() : w, &e);
  }
  void Presser(QWidget *w, int touche) {
    ++instant;
    Touche(w, touche, QEvent::KeyPress);
  }
  void Tenir(QWidget *w, int touche) {
    for (int i = 0; i < 3; ++i) {
      Touche(w, touche, QEvent::KeyRelease);
      Touche(w, touche, QEvent::KeyPress);
    }
    Touche(w, touche, QEvent::KeyPress, true);
  }
  void Lacher(QWidget *w, int touche) { Touche(w, touche, QEvent::KeyRelease); }
  void Focaliser(Controle &c) {
    Passer([&] { plateforme().DonnerFocus(c); }), Natif(c)->setFocus();
  }
  // The second press of a double click and its release, of which the toolkit tells the control under the
  // pointer.
  void PresserEncore(const Controle &c) {
    for (const auto type : {QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
      const QPointF ici(6, 6);
      QMouseEvent e(type, ici, Natif(c)->mapToGlobal(ici), Qt::LeftButton,
                    type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
      QApplication::sendEvent(Natif(c), &e);
    }
  }
  void Cliquer(const Controle &c) { QTest::mouseClick(Natif(c), Qt::LeftButton, {}, QPoint(6, 6)); }

  quint64 instant = 1000;  // milliseconds
};

TEST_F(Gestes, AKeyMeantForAMessageReachesNothingBeneathIt) {
  int clics = 0;
  BoitePicture &avancer = fenetre.BoutonProgramme[Commande::Avancer];
  avancer.Visible = true;
  avancer.Click = [&] { ++clics; };
  Passer([] { BoutonProgramme_Click(Commande::ChoisirDuite); });
  QWidget *w = Natif(fenetre);
  for (const int touche : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Escape}) {
    Focaliser(avancer);
    Message();
    Presser(w, touche);
    EXPECT_FALSE(fenetreMessageCourt.Visible) << touche;
    Tenir(w, touche);
    EXPECT_TRUE(clics == 0 && fenetre.FondEntreDuite.Visible) << touche;
    Lacher(w, touche);
    Presser(w, touche);
    EXPECT_EQ(std::exchange(clics, 0), touche != Qt::Key_Escape);
    EXPECT_EQ(fenetre.FondEntreDuite.Visible, touche != Qt::Key_Escape);
    Lacher(w, touche);
  }

  // A box fires a solenoid: it is a command as others are.
  fenetre.PicNor.Visible = true;
  CaseCochee &coche = fenetre.CheckSelenoide[3];
  Focaliser(coche);
  Message();
  Presser(w, Qt::Key_Space);
  Lacher(w, Qt::Key_Space);
  EXPECT_FALSE(fenetreMessageCourt.Visible || coche.Value);
  fenetre.PicNor.Visible = false;

  // Enter and the space bar are a field's own, Escape is not.
  Passer([] { BoutonProgramme_Click(Commande::ChoisirDuite); });
  Message();
  fenetre.TxtDuite.Text = "0";
  Presser(w, Qt::Key_Return);
  EXPECT_TRUE(fenetreMessageCourt.Visible && !fenetre.FondEntreDuite.Visible);
  Focaliser(fenetre.TxtVitessePortSerie);
  Presser(w, Qt::Key_Escape);
  EXPECT_FALSE(fenetreMessageCourt.Visible);
}

TEST_F(Gestes, InEveryWindowOnePressClosesOneThingTheMessageFirst) {
  for (Fenetre *f : std::initializer_list<Fenetre *>{&fenetreMessage, &fenetreMessageErreur, &fenetreRappel,
                                                     &feuilleRemarque}) {
    f == &fenetreMessage         ? (void)Charger(fenetreMessage)
    : f == &fenetreMessageErreur ? (void)Charger(fenetreMessageErreur)
    : f == &fenetreRappel        ? (void)Charger(fenetreRappel)
                                 : (void)Charger(feuilleRemarque);
    Passer([&] { plateforme().Montrer(*f); });
    Message();
    Presser(Natif(*f), Qt::Key_Escape);
    EXPECT_TRUE(!fenetreMessageCourt.Visible && f->Visible) << f->Caption;
    Tenir(Natif(*f), Qt::Key_Escape);
    EXPECT_TRUE(f->Visible) << f->Caption;
    Lacher(Natif(*f), Qt::Key_Escape);
    Presser(Natif(*f), Qt::Key_Escape);
    EXPECT_FALSE(f->Visible) << f->Caption;
    Lacher(Natif(fenetre), Qt::Key_Escape);
  }
  Message();
  Presser(Natif(fenetreMessageCourt), Qt::Key_Space);
  EXPECT_FALSE(fenetreMessageCourt.Visible) << "its own";
}

TEST_F(Gestes, EnterHeldOnStartingBarOpensTheEntryAndLeavesItOpen) {
  BoitePicture &choisir = fenetre.BoutonProgramme[Commande::ChoisirDuite];
  choisir.Visible = true;
  Focaliser(choisir);
  Presser(Natif(fenetre), Qt::Key_Return);
  ASSERT_TRUE(fenetre.FondEntreDuite.Visible && Natif(fenetre)->focusWidget() == Natif(fenetre.TxtDuite));
  Tenir(Natif(fenetre), Qt::Key_Return);
  EXPECT_TRUE(fenetre.FondEntreDuite.Visible);
  Lacher(Natif(fenetre), Qt::Key_Return);
  Presser(Natif(fenetre), Qt::Key_Return);
  EXPECT_FALSE(fenetre.FondEntreDuite.Visible);
}

TEST_F(Gestes, ADoubleClickIsOneClickOnEveryCommandButSkip) {
  fenetre.FenetreConfiguration.Visible = fenetre.PicNor.Visible = true;
  for (int i = 0; i < Commande::Nombre; ++i) {
    BoitePicture &b = fenetre.BoutonProgramme[i];
    int clics = 0;
    b.Visible = true;
    b.Click = [&] { ++clics; };
    Passer([] {});
    const double haut = b.Top;
    Cliquer(b);
    PresserEncore(b);
    EXPECT_EQ(clics, i == Commande::Avancer ? 2 : 1) << i;
    EXPECT_TRUE(b.Top == haut && !session.BoutonEnfonce) << i;
    Cliquer(b);
    EXPECT_EQ(clics, i == Commande::Avancer ? 3 : 2) << "a third press is one, " << i;
    b.Click = nullptr;
  }
  int autres = 0;
  fenetre.Drapeau[1].Click = [&] { ++autres; };
  Passer([] {});
  Cliquer(fenetre.Drapeau[1]);
  PresserEncore(fenetre.Drapeau[1]);
  EXPECT_EQ(autres, 2);
}

TEST_F(Gestes, ADoubleClickPressesNothingThatItsFirstPressHasPutUnderThePointer) {
  int clics = 0;
  fenetre.BoutonProgramme[Commande::Avancer].Visible = true;
  fenetre.BoutonProgramme[Commande::Avancer].Click = [&] { ++clics; };
  Cliquer(fenetre.BoutonProgramme[Commande::Diagnostiquer]);
  ASSERT_TRUE(fenetre.PicNor.Visible);
  PresserEncore(fenetre.CheckSelenoide[5]);
  EXPECT_FALSE(fenetre.CheckSelenoide[5].Value) << "a solenoid would fire";
  QTest::mouseClick(Natif(fenetre.CheckSelenoide[5]), Qt::LeftButton);
  PresserEncore(fenetre.CheckSelenoide[5]);
  EXPECT_FALSE(fenetre.CheckSelenoide[5].Value) << "on and off again";
  FermerMessageCourt();
  Message();
  Cliquer(fenetreMessageCourt.Ligne[2]);
  PresserEncore(fenetre.BoutonProgramme[Commande::Avancer]);
  EXPECT_TRUE(clics == 0 && !fenetreMessageCourt.Visible) << "not what lay under a message either";
}

TEST_F(Gestes, TheMessageThatQuitWaitsWithTakesTheKeyboardAndIsLeftByIt) {
  for (const int touche : {int(Qt::Key_Return), int(Qt::Key_Space), int(Qt::Key_Escape), 0}) {
    SetUp();
    session.LangueFrancaise = touche == 0;
    std::filesystem::remove(Chemin("Data/Configuration.Con"));
    std::filesystem::create_directory(Chemin("Data/Configuration.Con"));
    bool debout = false;
    for (Minuterie *m : {&fenetre.Timer1, &fenetre.Timer2, &fenetre.Timer3}) m->Interval(10000);
    QTimer veille;
    QObject::connect(&veille, &QTimer::timeout, [&] {
      if (!fenetreMessageCourt.EnLecture) return;
      veille.stop();
      QCoreApplication::processEvents();  // the window comes to the front
      debout = fenetreMessageCourt.Visible && machine->fins == 0;
      EXPECT_EQ(QApplication::activeModalWidget(), Natif(fenetreMessageCourt));
      EXPECT_EQ(QApplication::activeWindow(), Natif(fenetreMessageCourt));
      EXPECT_EQ(fenetreMessageCourt.Ligne[5].Caption,
                touche == 0 ? "Entrée ou un clic ferme Brandis." : "Enter or a click ends Brandis.");
      for (const Minuterie *m : {&fenetre.Timer1, &fenetre.Timer2, &fenetre.Timer3})
        EXPECT_EQ(m->Interval(), 0);
      if (touche)
        Presser(Natif(fenetreMessageCourt), touche);
      else
        Cliquer(fenetreMessageCourt.Ligne[5]);
      EXPECT_FALSE(fenetreMessageCourt.Visible) << touche;
      Passer([] { FermerMessageCourt(); });
    });
    veille.start(1);
    PlusTard([&] { Passer([] { BoutonProgramme_Click(Commande::Quitter); }); });
    EXPECT_TRUE(QApplication::exec() == 0 && debout && machine->fins == 1) << touche;
  }
}

TEST_F(Gestes, TheReminderComesWhereTheMessagesOfTheStartHaveGone) {
  std::ofstream(Chemin("Data/Journal.txt")) << "2026-01-02 03:04:05  Pick sent: 37 (line 37), harnesses 1\n";
  for (const bool premier : {true, false}) {
    if (premier) std::filesystem::remove(Chemin("Data/Configuration.Con"));
    Redemarrer();
    ASSERT_EQ(fenetreMessageCourt.Visible, premier);
    EXPECT_EQ(fenetreRappel.Visible, !premier);
    if (premier) QTest::mouseClick(Natif(fenetreMessageCourt), Qt::LeftButton);
    EXPECT_TRUE(fenetreRappel.Visible && !fenetreMessageCourt.Visible);
    QCoreApplication::processEvents();
    EXPECT_TRUE(Natif(fenetreRappel.BoutonOk)->hasFocus());
  }
}
}  // namespace
