// The mirror: what the data says is what the native window shows, and what the weaver does is what the data
// says.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <random>

#include "platform/qt/machine/PlateformeQt.h"
#include "platform/qt/machine/ToucheAide.h"
#include "platform/qt/machine/ToucheTaille.h"
#include "platform/qt/natifs/Peints.h"
#include "platform/qt/natifs/StyleNatif.h"
#include "platform/qt/natifs/TexteNatif.h"
#include "session/FenetreTissagePrincipale.h"

namespace {
struct FenetreEssai : Fenetre {
  BoitePicture Peau, Bouton, Autre;
  Image Dessin;
  Etiquette Libelle;
  Forme Cadre;
  ZoneTexte Zone, Bloc;
  ListeChoix Choix, Nombre;
  CaseCochee Coche;
  PanneauGrille Grille;
  Minuterie Horloge;

  FenetreEssai() {
    Bloc.Multiligne = true;
    Nombre.Saisie = true;
    Placer(*this, 300, 300, 9000, 7500);
    Placer(Peau, 0, 0, 9000, 7500);
    Placer(Bouton, 150, 150, 1245, 435);
    Placer(Autre, 1500, 150, 1245, 435);
    Placer(Dessin, 150, 900, 480, 480);
    Placer(Libelle, 150, 1500, 2000, 225);
    Placer(Cadre, 100, 1400, 500, 300);
    Placer(Zone, 150, 2000, 1500, 330);
    Placer(Bloc, 150, 2400, 1500, 900);
    Placer(Choix, 3000, 150, 1530, 315);
    Placer(Nombre, 4800, 150, 1530, 315);
    Placer(Coche, 3000, 900, 210, 210);
    Placer(Grille, 150, 3400, 7725, 4800);
  }
  void Visiter(Visiteur &v) override {
    v.Voir("Peau", Peau, *this);
    for (auto &[nom, c] : Enfants()) v.Voir(nom, *c, Peau);
    v.Voir("Horloge", Horloge);
  }
  std::vector<std::pair<std::string, Controle *>> Enfants() {
    return {{"Bouton", &Bouton}, {"Autre", &Autre}, {"Dessin", &Dessin}, {"Libelle", &Libelle},
            {"Cadre", &Cadre},   {"Zone", &Zone},   {"Bloc", &Bloc},     {"Choix", &Choix},
            {"Nombre", &Nombre}, {"Coche", &Coche}, {"Grille", &Grille}};
  }
};

class EssaiMiroir : public testing::Test {
 protected:
  static void SetUpTestSuite() { InstallerStyle(); }
  void SetUp() override {
    QDir(dossier.path()).mkpath("Images");
    QImage image(15, 14, QImage::Format_RGB32);
    image.fill(Qt::red);
    for (const char *nom : {"PicNoir", "PicRouge", "PicBlanc"})
      ASSERT_TRUE(image.save(dossier.path() + "/Images/" + nom + ".png"));
    machine = std::make_unique<PlateformeQt>(
        DossiersProgramme{dossier.path().toStdString(), {dossier.path().toStdString()}});
    InstallerPlateforme(machine.get());
    miroir().Ajouter(f);
    Charger(f).Visible = true;
    miroir().Refleter();
    QApplication::setActiveWindow(miroir().Widget(f));
  }

  Miroir &miroir() { return machine->LeMiroir(); }
  template <class W = QWidget>
  W *Natif(const Controle &c) {
    return static_cast<W *>(miroir().Widget(c));
  }
  QLineEdit *Focaliser(ZoneTexte &zone) {
    machine->DonnerFocus(zone);
    return Natif<QLineEdit>(zone);
  }

  void Melanger(std::mt19937 &hasard);
  void Comparer();

  QTemporaryDir dossier;
  FenetreEssai f;
  std::unique_ptr<PlateformeQt> machine;
};

// Any change that a procedure could make.
void EssaiMiroir::Melanger(std::mt19937 &hasard) {
  auto de = [&](int bas, int haut) { return std::uniform_int_distribution<int>(bas, haut)(hasard); };
  auto texte = [&] {
    static const char *const textes[] = {"", "1", "Fermer", "Arr\xC3\xAAt", "Arr\xEAt \x80", "two\r\nlines",
                                         "3"};
    return std::string(textes[de(0, 6)]);
  };
  for (auto &[nom, c] : f.Enfants())
    if (de(0, 3) == 0) {
      Placer(*c, de(-500, 5000), de(-500, 5000), de(0, 3000), de(0, 3000));
      c->Visible = de(0, 1) != 0;
      c->MousePointer = de(0, 1) ? kPointeurDeplacer : kPointeurDefaut;
      c->NomAccessible = texte();
    }
  f.Bouton.BackColor = static_cast<Couleur>(de(0, 0xffffff));
  if (de(0, 1)) f.Autre.Dessin.Refaire(de(0, 60), de(0, 60), static_cast<Couleur>(de(0, 0xffffff)));
  f.Libelle.Caption = texte();
  f.Libelle.Font = {"Arial", de(0, 1) ? 8.25 : 9.75, de(0, 1) != 0};
  f.Libelle.ForeColor = static_cast<Couleur>(de(0, 0xffffff));
  f.Dessin.Picture = de(0, 1) ? "PicNoir" : "";
  f.Zone.Text = texte();
  f.Bloc.Text = texte();
  if (de(0, 2) == 0) f.Choix.Liste = f.Nombre.Liste = {"1", texte(), texte()};
  f.Choix.Text = texte();
  f.Nombre.Text = texte();
  f.Coche.Value = de(0, 1) != 0;
  CaseDuite &c = f.Grille.PicPourImage[de(1, 20)][de(1, 32)];
  c.Visible = de(0, 1) != 0;
  c.Picture = static_cast<ImageCase>(de(0, 2));
  f.Caption = texte();
  f.Left = de(0, 3000);
  if (de(0, 19) == 0) f.Contour = de(0, 1) ? Region{{0, 0, 40}, {1, 5, 30}, {1, 30, 35}} : Region{};
}

void EssaiMiroir::Comparer() {
  auto un = [](const std::string &t) { return Texte(t).remove('\n'); };  // a one-line field shows no line end
  for (auto &[nom, c] : f.Enfants()) {
    QRect place = Pixels(*c);
    if (c == &f.Libelle && f.Libelle.Caption.find('\n') != std::string::npos)  // broken lines show whole
      place.setHeight(std::max(place.height(), 2 * Natif(*c)->fontMetrics().lineSpacing()));
    ASSERT_EQ(Natif(*c)->geometry(), place) << nom;
    ASSERT_EQ(Natif(*c)->isVisibleTo(Natif(f.Peau)), c->Visible) << nom;
  }
  const auto *libelle = Natif<QLabel>(f.Libelle);
  ASSERT_EQ(libelle->text(), Texte(f.Libelle.Caption));
  ASSERT_EQ(libelle->font().pixelSize(), f.Libelle.Font.Taille > 9 ? 13 : 11);
  ASSERT_EQ(libelle->palette().color(QPalette::WindowText), Teinte(f.Libelle.ForeColor));
  ASSERT_EQ(un(Octets(Natif<QLineEdit>(f.Zone)->text())), un(f.Zone.Text));
  ASSERT_EQ(Natif(f.Bloc)->property("plainText").toString(), Texte(f.Bloc.Text));
  const auto *choix = Natif<QComboBox>(f.Choix), *nombre = Natif<QComboBox>(f.Nombre);
  ASSERT_EQ(choix->currentIndex() < 0 ? choix->placeholderText() : choix->currentText(), Texte(f.Choix.Text));
  ASSERT_EQ(un(Octets(nombre->currentText())), un(f.Nombre.Text));
  ASSERT_EQ(static_cast<std::size_t>(choix->count()), f.Choix.Liste.size());
  ASSERT_EQ(Natif<QCheckBox>(f.Coche)->isChecked(), f.Coche.Value);
  ASSERT_EQ(Natif(f)->pos(), Pixels(f).topLeft());
  ASSERT_EQ(Natif(f)->windowTitle(), Texte(f.Caption));
  ASSERT_EQ(Natif(f)->mask(), f.Contour.empty() ? QRegion() : QRegion(0, 0, 40, 1) + QRegion(5, 1, 30, 1));
}

TEST_F(EssaiMiroir, FollowsEveryChangeWritesNothingTwiceAndCausesNoEvent) {
  int evenements = 0;
  for (auto &[nom, c] : f.Enfants()) {
    c->Click = c->GotFocus = [&] { ++evenements; };
    c->MouseMove = [&](int, double, double) { ++evenements; };
  }
  std::mt19937 hasard(20);
  for (int tour = 0; tour < 150; ++tour) {
    Melanger(hasard);
    const std::string texte = f.Zone.Text, bloc = f.Bloc.Text, choix = f.Choix.Text;
    miroir().Refleter();
    ASSERT_NO_FATAL_FAILURE(Comparer()) << "round " << tour;
    const long avant = miroir().Ecritures();
    miroir().Refleter();
    ASSERT_EQ(miroir().Ecritures(), avant) << "round " << tour;
    ASSERT_EQ(f.Zone.Text, texte);
    ASSERT_EQ(f.Bloc.Text, bloc) << "byte for byte, though its widget tells of every setting";
    ASSERT_EQ(f.Choix.Text, choix);
  }
  EXPECT_EQ(evenements, 0);
}

TEST_F(EssaiMiroir, ALabelNarrowerThanTheEdgeOfItsPlateIsShown) {
  f.Libelle.Plaque = true;
  for (const char *texte : {"7", "\u200b"}) {  // the second has no width of its own
    f.Libelle.Caption = texte;
    for (const bool serre : {false, true}) {
      f.Libelle.Serre = serre;
      f.Libelle.Agrandi = !serre;
      for (f.Libelle.Width = 0; f.Libelle.Width < 90; f.Libelle.Width += 15) miroir().Refleter();
    }
  }
  EXPECT_EQ(Natif<QLabel>(f.Libelle)->text(), Texte(f.Libelle.Caption));
}

// As on a screen that cuts no window to its outline.
TEST_F(EssaiMiroir, OutsideAnOutlineATransparentWindowStaysEmpty) {
  QWidget &cadre = *Natif(f);
  cadre.setAttribute(Qt::WA_TranslucentBackground);
  f.BackColor = f.Peau.BackColor = Rgb(1, 2, 3);
  f.Contour = {{5, 20, 30}, {5, 40, 50}};
  miroir().Refleter();
  const QImage image = cadre.grab().toImage();
  EXPECT_GT(qAlpha(image.pixel(20, 5)), 0);
  for (const int x : {19, 30, 39, 50}) EXPECT_EQ(qAlpha(image.pixel(x, 5)), 0) << x;
}

TEST_F(EssaiMiroir, WhatIsSeenLateComesInAtItsPlaceInTheStack) {
  FenetreEssai g;
  miroir().Ajouter(g);
  Charger(g).Visible = true;
  g.Autre.Visible = g.Coche.Visible = false;
  miroir().Refleter();
  EXPECT_EQ(Natif(g.Autre), nullptr);
  g.Autre.Visible = g.Coche.Visible = true;
  miroir().Refleter();
  QObjectList pile;
  for (auto &[nom, c] : g.Enfants()) pile << Natif(*c);
  EXPECT_EQ(Natif(g.Peau)->children(), pile);
}

// Offscreen, the screen is 800 pixels high.
TEST_F(EssaiMiroir, OnALowScreenTheEdgeThatThePointerTouchesBringsInTheRest) {
  Natif(f)->hide();
  const double haut = -50 * kTwipsParPixel;
  f.Visible = false;
  miroir().Refleter();
  Placer(f, 0, haut, 9000, 900 * kTwipsParPixel);
  f.Visible = true;
  miroir().Refleter();
  EXPECT_EQ(Natif(f)->y(), 0) << "the shuttle lies at the top";
  const auto toucher = [&](int y) {
    QMouseEvent bouge(QEvent::MouseMove, QPointF(20, 20), QPointF(20, y), Qt::NoButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(Natif(f), &bouge);
    return Natif(f)->y();
  };
  EXPECT_EQ(toucher(400), 0);
  EXPECT_EQ(toucher(799), -100);
  EXPECT_EQ(toucher(400), -100);
  EXPECT_EQ(toucher(0), 0);
  EXPECT_EQ(f.Top, haut) << "it has not been moved";
}

TEST_F(EssaiMiroir, TypingKeepsTheCursorAndPassesTheFilter) {
  f.Zone.Text = "1234";
  std::string vu;
  f.Zone.KeyDown = [&](int touche, int) {
    if (touche == Touche::Entree) vu = f.Zone.Text;
  };
  f.Zone.KeyPress = [](int code) { return code == ',' ? '.' : code > '9' || code == '-' ? 0 : code; };
  QLineEdit *ligne = Focaliser(f.Zone);
  ligne->setCursorPosition(2);
  EXPECT_EQ(f.Zone.SelStart, 2);
  QTest::keyClicks(ligne, "5x,");
  QKeyEvent accent(QEvent::KeyPress, Qt::Key_Eacute, {}, QStringLiteral("\u00e9"));
  QApplication::sendEvent(ligne, &accent);
  EXPECT_EQ(f.Zone.Text, "125.34");
  EXPECT_EQ(ligne->cursorPosition(), 4);
  for (auto touche : {Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Return}) QTest::keyClick(ligne, touche);
  EXPECT_EQ(vu, "1254");
  EXPECT_EQ(f.Zone.SelStart, 3);

  // Past the keys: pasted over a selection, and dropped.
  QApplication::clipboard()->setText(QStringLiteral("a7,\u00e9b"));
  ligne->setSelection(1, 2);
  QTest::keyClick(ligne, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(f.Zone.Text, "17.4");
  EXPECT_EQ(f.Zone.SelStart, 3);
  QMimeData depose;
  depose.setText(QStringLiteral("x1-5"));
  QDragEnterEvent entre(QPoint(1, 5), Qt::CopyAction, &depose, Qt::LeftButton, {});
  QDropEvent tombe(QPointF(1, 5), Qt::CopyAction, &depose, Qt::LeftButton, {});
  QApplication::sendEvent(ligne, &entre);
  QApplication::sendEvent(ligne, &tombe);
  EXPECT_EQ(f.Zone.Text, "1517.4");
  EXPECT_EQ(f.Zone.Text, ligne->text().toStdString());
  f.Zone.Text = "abc";  // what the program writes is not filtered
  miroir().Refleter();
  EXPECT_EQ(ligne->text(), "abc");
}

TEST_F(EssaiMiroir, AClickArrivesThoughTheButtonSinksAndItsRecordIsMadeAnew) {
  int clics = 0, boutons = 0;
  auto lier = [&](FenetreEssai &w) {
    w.Bouton.MouseDown = [&](int, double, double) { f.Bouton.Top += 15, f.Bouton.Left += 15; };
    w.Bouton.MouseUp = [&](int, double, double) { f.Bouton.Top -= 15, f.Bouton.Left -= 15; };
  };
  lier(f);
  f.Bouton.Click = [&] {
    f = FenetreEssai();
    f.Chargee = f.Visible = true;
    lier(f);
    ++clics;  // what the closure holds must have outlived the record
  };
  QWidget *bouton = Natif(f.Bouton);
  QTest::mousePress(bouton, Qt::LeftButton, {}, QPoint(1, 0));  // on its very edge, which sinks away
  QTest::mouseRelease(bouton, Qt::LeftButton, {}, QPoint(0, -1));
  EXPECT_EQ(clics, 1);
  EXPECT_EQ(Natif(f.Bouton), bouton);
  EXPECT_FALSE(f.Bouton.Click);

  f.Bouton.Click = [&] { ++clics; };
  f.Bouton.MouseMove = [&](int b, double, double) { boutons = b; };
  QTest::mousePress(bouton, Qt::LeftButton, {}, QPoint(5, 5));
  QTest::mouseMove(bouton, QPoint(6, 5));
  QTest::mouseRelease(bouton, Qt::LeftButton, {}, QPoint(5, 90));
  EXPECT_EQ(clics, 1) << "let go outside";
  EXPECT_EQ(boutons, kBoutonGauche);
  EXPECT_EQ(f.Bouton.Top, 150);
}

TEST_F(EssaiMiroir, FieldsWriteWhatIsChosenBeforeTheirClick) {
  std::string vu;
  f.Choix.Liste.assign(2500, "x");
  f.Choix.Liste[1] = "B\xE9";
  f.Choix.Click = [&] { vu = f.Choix.Text; };
  f.Nombre.Click = [&] { vu = f.Nombre.Text; };
  f.Coche.Click = [&] { vu = f.Coche.Value ? "checked" : "unchecked"; };
  miroir().Refleter();
  auto *choix = Natif<QComboBox>(f.Choix);
  machine->DonnerFocus(f.Choix);
  for (int i = 0; i < 2; ++i) QTest::keyClick(choix, Qt::Key_Down);
  EXPECT_EQ(vu, "B\xE9") << "byte for byte";
  machine->DonnerFocus(f.Nombre);
  QTest::keyClicks(Natif(f.Nombre), "42");
  EXPECT_EQ(vu, "42");
  QTest::mouseClick(Natif(f.Coche), Qt::LeftButton);
  EXPECT_EQ(vu, "checked");
}

TEST_F(EssaiMiroir, EverythingByKeyboard) {
  std::string trace;
  f.Bouton.Click = [&] { trace += 'b'; };
  f.Autre.Click = [&] { trace += 'a', f.Autre.Visible = false; };
  f.Dessin.KeyDown = [&](int touche, int) { trace += touche == 18 ? "" : std::to_string(touche); };  // Alt
  f.Dessin.Click = [&] { trace += '!'; };
  f.KeyDown = [&](int touche, int maj) {
    trace += "(" + std::to_string(touche) + "," + std::to_string(maj) + ")";
  };
  f.Autre.Top = 180;  // still the same row
  miroir().Refleter();
  auto presser = [&](Qt::Key touche, Qt::KeyboardModifiers m = {}) {
    QTest::keyClick(Natif(f)->focusWidget(), touche, m);
  };
  // The second button hides itself; the walk goes on from its place.
  for (auto touche : {Qt::Key_Tab, Qt::Key_Space, Qt::Key_Tab, Qt::Key_Return, Qt::Key_Tab}) presser(touche);
  EXPECT_EQ(Natif(f)->focusWidget(), Natif(f.Choix));
  for (int i = 0; i < 2; ++i) presser(Qt::Key_Tab);
  EXPECT_EQ(Natif(f)->focusWidget(), Natif(f.Dessin)) << "left in its row, of the checkbox";
  presser(Qt::Key_Return);
  presser(Qt::Key_O, Qt::AltModifier);
  presser(Qt::Key_Escape);
  presser(Qt::Key_Backtab);
  EXPECT_EQ(trace, "ba13(79,4)(27,0)");
  EXPECT_EQ(Natif(f)->focusWidget(), Natif(f.Nombre));
}

TEST_F(EssaiMiroir, AHeldKeyPressesOnce) {
  int clics = 0;
  f.Bouton.Click = [&] { ++clics; };
  miroir().Refleter();
  QWidget *bouton = Natif(f.Bouton);
  bouton->setFocus();
  auto touche = [&](QEvent::Type type, quint64 instant, bool repetee = false) {
    QKeyEvent e(type, Qt::Key_Space, {}, QStringLiteral(" "), repetee);
    e.setTimestamp(instant);
    QApplication::sendEvent(bouton, &e);
  };
  // Held: the pairs come with one time stamp, and some are known for repetitions already.
  touche(QEvent::KeyPress, 100);
  for (quint64 instant : {600u, 640u, 680u}) {
    touche(QEvent::KeyRelease, instant);
    touche(QEvent::KeyPress, instant);
  }
  touche(QEvent::KeyRelease, 720, true);
  touche(QEvent::KeyPress, 720, true);
  EXPECT_EQ(clics, 1);
  touche(QEvent::KeyRelease, 730);
  touche(QEvent::KeyPress, 790);
  EXPECT_EQ(clics, 2);
}

TEST_F(EssaiMiroir, AssistiveToolsAreToldWhatIsThereAndPressIt) {
  int clics = 0;
  f.Bouton.Click = [&] { ++clics; };
  f.Bouton.NomAccessible = "D\u00e9part";
  f.Bouton.EnMarche = true;
  f.Libelle.Caption = "0027";
  f.Choix.NomAccessible = "Loom Port:";
  f.Choix.Liste = {"COM 1", "COM 2"};
  f.Choix.Text = "COM 2";
  miroir().Refleter();
  auto acces = [&](const Controle &c) { return QAccessible::queryAccessibleInterface(Natif(c)); };
  QAccessibleInterface *bouton = acces(f.Bouton);
  EXPECT_EQ(bouton->role(), QAccessible::Button);
  EXPECT_EQ(bouton->text(QAccessible::Name), u"D\u00e9part"_qs);
  EXPECT_TRUE(bouton->state().focusable && bouton->state().checkable && bouton->state().checked);
  using Action = QAccessibleActionInterface;
  ASSERT_EQ(bouton->actionInterface()->actionNames(),
            QStringList({Action::pressAction(), Action::setFocusAction()}));
  bouton->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(clics, 0) << "the tool's call returns first";
  QCoreApplication::processEvents();
  EXPECT_EQ(clics, 1);
  EXPECT_TRUE(acces(f.Autre)->actionInterface()->actionNames().isEmpty()) << "nobody handles its click";
  EXPECT_EQ(acces(f.Libelle)->role(), QAccessible::StaticText);
  EXPECT_EQ(acces(f.Libelle)->text(QAccessible::Name), u"0027"_qs);
  EXPECT_FALSE(acces(f.Libelle)->state().selected);
  f.Libelle.Plaque = true;
  f.Bouton.EnMarche = false;
  miroir().Refleter();
  EXPECT_TRUE(acces(f.Libelle)->state().selected) << "the row that counts";
  EXPECT_TRUE(bouton->state().checkable && !bouton->state().checked);
}

TEST_F(EssaiMiroir, AListIsChosenInByItsItemsActions) {
  int clics = 0;
  f.Choix.NomAccessible = "Loom Port:";
  f.Choix.Liste = {"COM 1", "COM 2"};
  f.Choix.Text = "COM 2";
  f.Choix.Click = [&] { ++clics; };
  miroir().Refleter();
  QAccessibleInterface *liste = QAccessible::queryAccessibleInterface(Natif(f.Choix));
  EXPECT_EQ(liste->text(QAccessible::Name), u"Loom Port:"_qs);
  EXPECT_EQ(liste->text(QAccessible::Value), u"COM 2"_qs);
  ASSERT_EQ(liste->childCount(), 2);
  EXPECT_EQ(liste->child(0)->text(QAccessible::Name), u"COM 1"_qs);
  EXPECT_TRUE(liste->child(1)->state().selected && !liste->child(0)->state().selected);
  EXPECT_EQ(liste->indexOfChild(liste->child(1)), 1);
  liste->child(0)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(clics, 0) << "the tool's call returns first";
  QCoreApplication::processEvents();
  EXPECT_EQ(clics, 1);
  EXPECT_EQ(f.Choix.Text, "COM 1");
  EXPECT_EQ(liste->text(QAccessible::Value), u"COM 1"_qs);
  f.Choix.Liste.pop_back();
  QAccessibleInterface *dernier = liste->child(1);
  miroir().Refleter();
  EXPECT_FALSE(dernier->isValid()) << "an item that went";
  EXPECT_EQ(liste->childCount(), 1);
}

TEST_F(EssaiMiroir, AMessageIsOneText) {
  QAccessibleInterface *cadre = QAccessible::queryAccessibleInterface(Natif(f.Libelle)->window());
  EXPECT_EQ(cadre->role(), QAccessible::Window);
  FenetreEssai message;
  Charger(message);  // makes the record anew
  message.Message = true;
  message.Libelle.Caption = "The save failed.";
  machine->Montrer(message);
  miroir().Refleter();
  QAccessibleInterface *alerte = QAccessible::queryAccessibleInterface(Natif(message.Libelle)->window());
  EXPECT_EQ(alerte->text(QAccessible::Name), u"The save failed."_qs);
  EXPECT_TRUE(QAccessible::queryAccessibleInterface(Natif(message.Libelle))->state().invisible)
      << "said once";
  Decharger(message);
}

TEST_F(EssaiMiroir, WhatIsNewsIsReachedByTabAndWrittenBeforeTheMirror) {
  f.Dessin.Annonce = f.Dessin.Facultative = true;
  f.Dessin.Picture = "none of this name";
  miroir().AvantReflet([&] { f.Dessin.NomAccessible = "Pick 2 of 48"; });
  ASSERT_NO_THROW(miroir().Refleter()) << "a missing picture of an extra is no failure";
  QAccessibleInterface *dessin = QAccessible::queryAccessibleInterface(Natif(f.Dessin));
  EXPECT_EQ(dessin->role(), QAccessible::StaticText);
  EXPECT_EQ(dessin->text(QAccessible::Name), u"Pick 2 of 48"_qs);
  EXPECT_TRUE(dessin->state().focusable);
  f.Dessin.Annonce = false;
  miroir().Refleter();
  EXPECT_FALSE(dessin->state().focusable);
}

TEST_F(EssaiMiroir, TheKeyboardGoesIntoAPanelAndBackToItsButton) {
  f.Choix.Visible = f.Nombre.Visible = false;
  f.Choix.Volet = f.Nombre.Volet = true;
  auto montrer = [&](bool volet) {
    f.Choix.Visible = f.Nombre.Visible = volet;
    f.Bouton.Visible = !volet;
  };
  f.Bouton.Click = [&] { montrer(true); };
  miroir().Refleter();
  auto tenu = [&] { return Natif(f)->focusWidget(); };
  Natif(f.Bouton)->setFocus();
  QTest::keyClick(tenu(), Qt::Key_Space);
  EXPECT_EQ(tenu(), Natif(f.Choix));
  for (const Controle *attendu : {static_cast<Controle *>(&f.Nombre), static_cast<Controle *>(&f.Choix)}) {
    QTest::keyClick(tenu(), Qt::Key_Tab);
    EXPECT_EQ(tenu(), Natif(*attendu)) << "Tab stays in the panel";
  }
  montrer(false);
  miroir().Refleter();
  EXPECT_EQ(tenu(), Natif(f.Bouton));
  machine->DonnerFocus(f.Zone);
  QTest::mouseClick(Natif(f.Bouton), Qt::LeftButton);
  EXPECT_EQ(tenu(), Natif(f.Zone)) << "the mouse moves no keyboard";
}

TEST_F(EssaiMiroir, AModalWindowHoldsItsProcedureButNotTheTimers) {
  FenetreEssai message, partie;
  int tics = 0;
  f.Horloge.Timer = [&] {
    if (++tics == 3) Decharger(message);
  };
  f.Horloge.Interval(1);
  machine->Montrer(Charger(partie));
  partie.Horloge.Timer = [&] { ADD_FAILURE() << "a timer of a window that is gone"; };
  partie.Horloge.Interval(1);
  machine->Rafraichir();
  Decharger(partie);
  machine->MontrerModal(Charger(message));
  EXPECT_EQ(tics, 3);
  EXPECT_FALSE(Natif(message)->isVisible() || Natif(partie)->isVisible());
  f.Horloge.Interval(0);
  Charger(message);
  QTimer::singleShot(0, [&] {
    Natif(f)->close();
    Natif(message)->close();
  });
  machine->MontrerModal(message);
  EXPECT_FALSE(message.Chargee) << "the window manager closes a message";
  EXPECT_TRUE(f.Chargee && Natif(f)->isVisible()) << "but not the main window";
}
}  // namespace

TEST(Aide, F1AsksForTheGuideOnceAndIsNoKeyOfTheField) {
  int demandes = 0, touches = 0;
  const ToucheAide aide([&] { ++demandes; });
  struct Saisie : QLineEdit {
    int &touches;
    explicit Saisie(int &t) : touches(t) {}
    void keyPressEvent(QKeyEvent *) override { ++touches; }
  } champ(touches);
  QTest::keyClick(&champ, Qt::Key_F1);
  QKeyEvent tenue(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier, QString(), true);
  QApplication::sendEvent(&champ, &tenue);
  EXPECT_EQ(std::pair(demandes, touches), std::pair(1, 0));
  QTest::keyClick(&champ, Qt::Key_F1, Qt::ShiftModifier);
  QTest::keyClick(&champ, Qt::Key_F2);
  EXPECT_EQ(std::pair(demandes, touches), std::pair(1, 3)) << "Shift, F1 with it, F2";
}

TEST(Taille, CtrlPlusAndMinusAreNoKeysOfTheField) {
  std::vector<int> demandes;
  int touches = 0;
  const ToucheTaille taille([&](int sens) { demandes.push_back(sens); });
  struct Saisie : QLineEdit {
    int &touches;
    explicit Saisie(int &t) : touches(t) {}
    void keyPressEvent(QKeyEvent *e) override {
      touches += e->key() < Qt::Key_Shift || e->key() > Qt::Key_Alt;
    }
  } champ(touches);
  QTest::keyClick(&champ, Qt::Key_Plus, Qt::ControlModifier | Qt::ShiftModifier);
  QTest::keyClick(&champ, Qt::Key_Equal, Qt::ControlModifier);
  QTest::keyClick(&champ, Qt::Key_Plus, Qt::ControlModifier | Qt::KeypadModifier);
  QTest::keyClick(&champ, Qt::Key_Minus, Qt::ControlModifier);
  QKeyEvent tenue(QEvent::KeyPress, Qt::Key_Plus, Qt::ControlModifier, QString(), true);
  QApplication::sendEvent(&champ, &tenue);
  EXPECT_EQ(demandes, (std::vector{1, 1, 1, -1}));
  EXPECT_EQ(touches, 0);
  QTest::keyClick(&champ, Qt::Key_Plus);
  QTest::keyClick(&champ, Qt::Key_Minus, Qt::AltModifier | Qt::ControlModifier);
  QTest::keyClick(&champ, Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(std::pair(demandes.size(), touches), std::pair(std::size_t{4}, 3)) << "the rest is the field's";
}
