// Whole frames as golden pictures, the pixels of the native window, and the life of every window.
#include <gtest/gtest.h>
#include <malloc.h>

#include <QApplication>
#include <QDir>
#include <QLoggingCategory>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "app/Montage.h"
#include "kit/Attente.h"
#include "kit/BullesInfo.h"
#include "kit/Fabricant.h"
#include "kit/FenetreMessage.h"
#include "kit/FenetreMessageCourt.h"
#include "kit/FenetreMessageErreur.h"
#include "kit/FeuilleAPropos.h"
#include "kit/FeuilleRemarque.h"
#include "kit/FondFenetre.h"
#include "mainwindow/EvenementsFenetre.h"
#include "mainwindow/FenetreTissagePrincipale.h"
#include "pattern/MatriceLames.h"
#include "platform/qt/Habillage.h"
#include "platform/qt/TexteNatif.h"
#include "weaving/CommandesProgramme.h"

#ifdef __SANITIZE_ADDRESS__
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace {
struct Machine : PlateformeQt {
  using PlateformeQt::PlateformeQt;
  void Terminer() override {
    ++fins;
    PlateformeQt::Terminer();
  }
  int fins = 0;
};

// A window with its raising procedure, its closing event, and a text in the language in force.
struct Cas {
  Fenetre *fenetre;
  std::function<void()> lever, fermer;
  std::function<std::string()> texte;
  const char *francais, *anglais;
};

void PlusTard(const std::function<void()> &suite) {
  QMetaObject::invokeMethod(qApp, suite, Qt::QueuedConnection);
}

class EssaiCadres : public testing::Test {
 protected:
  void SetUp() override { Ouvrir(); }

  // The program anew, in a folder of its own.
  void Ouvrir() {
    machine.reset();
    dossier = std::make_unique<QTemporaryDir>();
    QDir(dossier->path()).mkdir("Data");
    const std::string base = dossier->path().toStdString();
    std::filesystem::create_directory_symlink(BRANDIS_PROGRAMME "/Dessins Boutons",
                                              base + "/Dessins Boutons");
    for (Fenetre *f : ToutesFenetres()) Decharger(*f);
    session = {};
    fenetre = FenetreTissagePrincipale();
    reglages = {};
    machine = std::make_unique<Machine>(DossiersProgramme{base, BRANDIS_PROGRAMME});
    Monter(*machine);
    if (fenetreMessageCourt.Visible) Cliquer(fenetreMessageCourt);
    session.LangueFrancaise = session.BullesActives = true;
    session.IntervalleMessageCourt = 30000;  // no window closes by itself while the test looks at it
    session.NombreLignesRemarque = 6;
    session.DelaiRemarque = 30;
    session.NombreDuites = 1;
  }

  void Passer(const std::function<void()> &procedure) { machine->LeMiroir().Passer(procedure); }
  QWidget *Natif(const Controle &c) { return machine->LeMiroir().Widget(c); }
  void Cliquer(const Controle &c) { QTest::mouseClick(Natif(c), Qt::LeftButton); }
  void Survoler(const Controle &c, QPoint place = {5, 5}) {
    QMouseEvent e(QEvent::MouseMove, place, Natif(c)->mapToGlobal(place), {}, {}, {});
    QApplication::sendEvent(Natif(c), &e);
  }
  Cas Bulle(BulleInfo &b, const Controle &source, const char *francais, const char *anglais) {
    return {&b,
            [this, &source] { Survoler(source); },
            [this] {
              Survoler(fenetre.Picture2, {400, 20});
            },
            [&b] { return b.LBlMessage[3].Caption; },
            francais,
            anglais};
  }
  std::vector<Cas> TousLesCas();
  void Tenir(const Cas &cas, const std::function<void()> &pendant);

  std::unique_ptr<QTemporaryDir> dossier;
  std::unique_ptr<Machine> machine;
};

std::vector<Cas> EssaiCadres::TousLesCas() {
  return {Bulle(bulleInfoHautDroit, fenetre.BoutonProgramme[0], "Fermer le programme", "End the"),
          Bulle(bulleInfoBasGauche, fenetre.BoutonProgramme[1], "Ouvrir un patron", "Open a pattern"),
          Bulle(bulleInfoHautGauche, fenetre.BarreDeplacement, "Permet le déplacement ", "Move the windows"),
          Bulle(bulleInfoBasDroit, fenetre.LogoNor, Fabricant::RaisonSociale, Fabricant::RaisonSociale),
          {&fenetreMessageCourt, [this] { Passer([] { AfficherMessageCourt(TitreErreur(), "texte"); }); },
           [this] { Cliquer(fenetreMessageCourt.Ligne[2]); },
           [] { return fenetreMessageCourt.LblTitre.Caption; }, "Erreur", "Error"},
          {&fenetreMessage, [this] { Passer([] { AfficherMessage("texte"); }); },
           [this] { Cliquer(fenetreMessage.Picture2); }, [] { return fenetreMessage.ImageMessage.Picture; },
           "ImageMessageFrancais", "ImageMessageAnglais"},
          {&fenetreMessageErreur,
           [this] {
             Passer([] {
               session.Etat = 8;
               plateforme().MontrerModal(Charger(fenetreMessageErreur));
             });
           },
           [this] { Cliquer(fenetreMessageErreur.BoutonOk); },
           [] { return fenetreMessageErreur.BoutonOk.NomAccessible; }, "Annuler", "Cancel"},
          {&feuilleRemarque, [this] { Passer([] { AfficherRemarque("titre"); }); },
           [this] { QTest::keyClick(Natif(feuilleRemarque)->focusWidget(), Qt::Key_A); },
           [] { return feuilleRemarque.EnteteRemarque.Caption; }, "titre", "titre"},
          {&feuilleAPropos, [this] { Cliquer(fenetre.BoutonAide); },
           [this] { Cliquer(feuilleAPropos.BoutonFin); },
           [] { return feuilleAPropos.BoutonFin.Dessin.Ecrits().front().texte; }, "Sortie", "Exit"},
          {&attente, [this] { Passer([] { attente.Montrer(true); }); }, [this] { Passer(ConstruireMatrice); },
           [] { return attente.Remarque.Caption; }, "Ini. ", "Ini. "}};
}

// Raises the window, acts while it stands, and closes it; a modal one runs all that in its own loop.
void EssaiCadres::Tenir(const Cas &cas, const std::function<void()> &pendant) {
  bool debout = false;
  PlusTard([&] {
    debout = cas.fenetre->Visible && Natif(*cas.fenetre)->isVisible();
    pendant();
    cas.fermer();
  });
  cas.lever();
  QCoreApplication::sendPostedEvents();
  ASSERT_TRUE(debout);
  ASSERT_FALSE(cas.fenetre->Visible || Natif(*cas.fenetre)->isVisible());
}

QImage EnImage(const Surface &s) {
  QImage image(s.Largeur(), s.Hauteur(), QImage::Format_RGB32);
  for (int y = 0; y < s.Hauteur(); ++y)
    for (int x = 0; x < s.Largeur(); ++x) image.setPixel(x, y, s.Point(x, y) | 0xff000000u);
  return image;
}

// All frames of one size, one below the other.
Surface Planche(int l, int h) {
  std::vector<Surface> cadres;
  auto peindre = [&](int largeur, int hauteur, const auto &peintre) {
    peintre(cadres.emplace_back(largeur, hauteur, Gris(192)));
  };
  peindre(l, h, [](Surface &s) { PeindreFenetreMessage(s); });
  peindre(l, h, [](Surface &s) { PeindreFondInformation(s); });
  peindre(l, h, [](Surface &s) {
    reglages.StyleCadreRemarque = 1;
    PeindreCadreRemarque(s, 0, 0, s.Largeur(), s.Hauteur());
  });
  const Couleur lin = Rgb(0xf4, 0xef, 0xe3);
  peindre(l, h / 4, [=](Surface &s) { PeindreFondPanneau(s, lin); });
  peindre(l, h / 4, [=](Surface &s) { PeindreFondPanneauOnglet(s, "Configure", lin); });
  peindre(l, h / 4, [=](Surface &s) { PeindreFondPanneauCreux(s, lin); });
  peindre(l, h / 4, [=](Surface &s) { PeindreFondPanneauTitre(s, "Duite #: ", lin); });
  for (const bool claire : {true, false}) {
    BoitePicture bouton;
    Placer(bouton, 0, 0, l / 4 * kTwipsParPixel, h / 6 * kTwipsParPixel);
    PreparerSurface(bouton);
    claire ? PeindreFaceClaire(bouton.Dessin) : PeindreFaceFoncee(bouton.Dessin);
    cadres.push_back(bouton.Dessin);
    claire ? PeindreSurvolCarre(bouton) : PeindreSurvolRond(bouton);
    cadres.push_back(bouton.Dessin);
  }
  int y = 0;
  for (const Surface &s : cadres) y += s.Hauteur() + 4;
  Surface planche(l, y, Rgb(255, 0, 255));
  y = 0;
  for (const Surface &s : cadres) {
    planche.PaintPicture(s, 0, y);
    y += s.Hauteur() + 4;
  }
  return planche;
}

TEST_F(EssaiCadres, FramesAreThoseOfTheGoldenPictures) {
  for (const auto &[l, h] : {std::pair{589, 248}, std::pair{332, 187}}) {
    const QString nom = QStringLiteral("/cadres_%1x%2.png").arg(l).arg(h);
    const QImage peinte = EnImage(Planche(l, h));
    const QImage voulue(QStringLiteral(BRANDIS_CADRES) + nom);
    if (!voulue.isNull() && peinte == voulue.convertToFormat(QImage::Format_RGB32)) continue;
    QDir().mkpath(QStringLiteral(BRANDIS_CADRES_PEINTS));
    EXPECT_TRUE(peinte.save(QStringLiteral(BRANDIS_CADRES_PEINTS) + nom));
    ADD_FAILURE() << nom.toStdString() << (voulue.isNull() ? " is missing" : " differs")
                  << "; what was painted lies in " BRANDIS_CADRES_PEINTS;
  }
}

TEST_F(EssaiCadres, TheNativeWindowShowsThePixelsOfTheData) {
  QWidget *cadre = Natif(fenetre);
  const QImage vue = cadre->grab().toImage().convertToFormat(QImage::Format_RGB32);
  QRegion nue = cadre->mask();
  for (QObject *enfant : Natif(fenetre.Picture2)->children())
    if (auto *w = qobject_cast<QWidget *>(enfant); w && w->isVisible()) nue -= w->geometry();
  int pixels = 0, autres = 0;
  for (const QRect &r : nue)
    for (int y = r.top(); y <= r.bottom(); ++y)
      for (int x = r.left(); x <= r.right(); ++x, ++pixels)
        autres += vue.pixel(x, y) != (fenetre.Picture2.Dessin.Point(x, y) | 0xff000000u);
  EXPECT_GT(pixels, 100000);
  EXPECT_EQ(autres, 0) << "pixels of the bare skin";
  const BoitePicture &face = fenetre.BoutonProgramme[11];  // the one with no text printed on it
  ASSERT_TRUE(face.Dessin.Ecrits().empty());
  const QRect place(Natif(face)->mapTo(cadre, QPoint(0, 0)), Natif(face)->size());
  EXPECT_EQ(vue.copy(place).convertToFormat(QImage::Format_RGB32),
            EnImage(face.Dessin).copy(0, 0, place.width(), place.height()));
}

// The sanitizer counts to the byte, the plain allocator with what it keeps at hand; painting is slower under
// the sanitizer, and a few rounds show there what a thousand do.
#ifdef __SANITIZE_ADDRESS__
constexpr int kTours = 250;
constexpr std::size_t kJeu = 4 * 1024;
std::size_t OctetsTenus() { return __sanitizer_get_current_allocated_bytes(); }
#else
constexpr int kTours = 1000;
constexpr std::size_t kJeu = 128 * 1024;
std::size_t OctetsTenus() { return mallinfo2().uordblks; }
#endif

long KioResidents() {
  std::ifstream statm("/proc/self/statm");
  long taille = 0, residente = 0;
  statm >> taille >> residente;
  return residente * 4;
}

// Timers get the lowest free number, so with all gaps filled the highest one counts those that run.
int MinuteriesEnMarche() {
  constexpr int kSondes = 256;
  QObject sonde;
  int plusHaut = 0;
  for (int i = 0; i < kSondes; ++i) plusHaut = std::max(plusHaut, sonde.startTimer(3600000));
  return plusHaut - kSondes;
}

auto Poignees() {
  namespace fs = std::filesystem;
  return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
}

TEST_F(EssaiCadres, AThousandOpeningsOfEveryWindowLeaveNothingBehind) {
  const std::vector<Cas> cas = TousLesCas();
  ASSERT_EQ(cas.size() + 1, ToutesFenetres().size()) << "a window that this test does not know";
  auto tour = [&] {
    for (const Cas &c : cas) ASSERT_NO_FATAL_FAILURE(Tenir(c, [] {}));
    QCoreApplication::processEvents();
  };
  tour();
  tour();
  {
    QTimer temoin;
    const int avant = MinuteriesEnMarche();
    temoin.start(3600000);
    ASSERT_EQ(MinuteriesEnMarche(), avant + 1) << "the count counts";
  }
  const auto widgets = QApplication::allWidgets().size();
  const int minuteries = MinuteriesEnMarche();
  const auto poignees = Poignees();
  const std::size_t octets = OctetsTenus();
  const long residents = KioResidents();
  for (int i = 1; i < kTours; ++i) ASSERT_NO_FATAL_FAILURE(tour());
  std::cout << kTours << " rounds: resident " << residents << " -> " << KioResidents() << " KiB, allocated "
            << octets << " -> " << OctetsTenus() << " bytes\n";
  EXPECT_LE(QApplication::allWidgets().size(), widgets);
  EXPECT_LE(MinuteriesEnMarche(), minuteries);
  EXPECT_LE(Poignees(), poignees);
  EXPECT_LE(OctetsTenus(), octets + kJeu);
}

TEST_F(EssaiCadres, MessagesOfATimerStandBesideAModalWindow) {
  int tics = 0;
  std::string trace;
  fenetre.Timer1.Timer = [&] {
    fenetre.Timer1.Interval(++tics < 4 ? 1 : 0);
    if (tics == 1) AfficherMessageCourt(TitreErreur(), "deux");
    if (tics == 2) AfficherRemarque("note"), trace += "note closed,";
    if (tics == 3) Decharger(fenetreMessage);  // the outer one first
    if (tics == 4) Decharger(feuilleRemarque);
  };
  Passer([&] {
    AfficherMessageCourt(TitreErreur(), "un");
    fenetre.Timer1.Interval(1);
    AfficherMessage("modal");
    trace += "message closed";
  });
  EXPECT_EQ(trace, "note closed,message closed");
  EXPECT_EQ(tics, 4);
  EXPECT_EQ(Natif(fenetreMessageCourt.Ligne[2])->property("text").toString(), "deux");
  EXPECT_TRUE(Natif(fenetreMessageCourt)->isVisible());
  EXPECT_FALSE(Natif(fenetreMessage)->isVisible() || Natif(feuilleRemarque)->isVisible());
}

TEST_F(EssaiCadres, QuitEndsTheProcessOnceWhateverWindowStands) {
  const std::size_t nombre = TousLesCas().size();
  for (std::size_t i = 0; i < nombre; ++i) {
    if (i > 0) Ouvrir();
    const Cas cas = TousLesCas()[i];
    bool revenu = false;
    PlusTard([&] {
      PlusTard([&] {
        EXPECT_TRUE(cas.fenetre->Visible) << i;
        Passer([] { BoutonProgramme_Click(0); });
      });
      cas.lever();
      revenu = true;
    });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_TRUE(revenu) << "the procedure that raised window " << i << " hangs";
    EXPECT_EQ(machine->fins, 1) << i;
  }
}

TEST_F(EssaiCadres, AStandingWindowKeepsItsLanguageAndTheNextOneIsInTheNew) {
  for (const Cas &c : TousLesCas()) {
    auto changer = [&](int drapeau, const char *dedans, const char *bouton) {
      EXPECT_EQ(c.texte(), dedans);
      Passer([&] { Drapeau_Click(drapeau); });
      EXPECT_EQ(c.texte(), dedans);
      EXPECT_EQ(fenetre.BoutonProgramme[0].Dessin.Ecrits().front().texte, bouton);
    };
    ASSERT_NO_FATAL_FAILURE(Tenir(c, [&] { changer(2, c.francais, "Quit"); }));
    ASSERT_NO_FATAL_FAILURE(Tenir(c, [&] { changer(1, c.anglais, "Fermer"); }));
  }
}
}  // namespace

int main(int nombre, char **mots) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(nombre, mots);
  QApplication::setQuitOnLastWindowClosed(false);
  HabillerApplication();
  // This screen tells at every opening that it cannot raise windows.
  QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
  testing::InitGoogleTest(&nombre, mots);
  return RUN_ALL_TESTS();
}
