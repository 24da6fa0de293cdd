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
#include "weaving/CommandesProgramme.h"

// The sanitizer counts allocated bytes exactly, the plain allocator with what it keeps at hand. Painting is
// slower under the sanitizer, and fewer rounds show as much there.
#ifdef __SANITIZE_ADDRESS__
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
constexpr int kTours = 250, kJeu = 4 * 1024;
static std::size_t OctetsTenus() { return __sanitizer_get_current_allocated_bytes(); }
#else
constexpr int kTours = 1000, kJeu = 128 * 1024;
static std::size_t OctetsTenus() { return mallinfo2().uordblks; }
#endif

namespace {
namespace fs = std::filesystem;
using Suite = std::function<void()>;

struct Machine : PlateformeQt {
  using PlateformeQt::PlateformeQt;
  void Terminer() override { ++fins, PlateformeQt::Terminer(); }
  int fins = 0;
};

// A window with its raising procedure, its closing event, and a text of it in both languages.
struct Cas {
  Fenetre *fenetre;
  Suite lever, fermer;
  std::function<std::string()> texte;
  const char *francais, *anglais;
};

void PlusTard(const Suite &suite) { QMetaObject::invokeMethod(qApp, suite, Qt::QueuedConnection); }

class EssaiCadres : public testing::Test {
 protected:
  void SetUp() override {
    dossier = std::make_unique<QTemporaryDir>();
    const std::string base = dossier->path().toStdString();
    fs::create_directory(base + "/Data");
    fs::create_directory_symlink(BRANDIS_PROGRAMME "/Dessins Boutons", base + "/Dessins Boutons");
    for (Fenetre *f : ToutesFenetres()) Decharger(*f);
    session = {};
    fenetre = FenetreTissagePrincipale();
    machine = std::make_unique<Machine>(DossiersProgramme{base, BRANDIS_PROGRAMME});
    Monter(*machine);
    session.LangueFrancaise = session.BullesActives = true;
    session.IntervalleMessageCourt = 30000;  // no window closes by itself while the test looks at it
    session.NombreLignesRemarque = 6;
    session.DelaiRemarque = 30;
    session.NombreDuites = 1;
  }
  void Passer(const Suite &procedure) { machine->LeMiroir().Passer(procedure); }
  Suite Levee(const Suite &s) {
    return [=, this] { Passer(s); };
  }
  QWidget *Natif(const Controle &c) { return machine->LeMiroir().Widget(c); }
  Suite Clic(const Controle &c) {
    return [&c, this] { QTest::mouseClick(Natif(c), Qt::LeftButton); };
  }
  void Survoler(const Controle &c, QPoint place) {
    QMouseEvent e(QEvent::MouseMove, place, Natif(c)->mapToGlobal(place), {}, {}, {});
    QApplication::sendEvent(Natif(c), &e);
  }
  Cas Bulle(BulleInfo &b, const Controle &source, const char *francais, const char *anglais) {
    return {&b,
            [&source, this] {
              Survoler(source, {5, 5});
            },
            [this] {
              Survoler(fenetre.Picture2, {400, 20});
            },
            [&b] { return b.LBlMessage[3].Caption; },
            francais,
            anglais};
  }
  // Raises the window, acts while it stands, and closes it; a modal one runs all that in its own loop.
  void Tenir(const Cas &cas, const Suite &pendant) {
    bool debout = false;
    PlusTard([&] {
      debout = cas.fenetre->Visible && Natif(*cas.fenetre)->isVisible();
      pendant();
      cas.fermer();
    });
    cas.lever();
    QCoreApplication::sendPostedEvents();
    ASSERT_TRUE(debout && !cas.fenetre->Visible && !Natif(*cas.fenetre)->isVisible()) << cas.francais;
  }
  std::vector<Cas> TousLesCas();

  std::unique_ptr<QTemporaryDir> dossier;
  std::unique_ptr<Machine> machine;
};

std::vector<Cas> EssaiCadres::TousLesCas() {
  auto &m = fenetreMessage;
  auto &c = fenetreMessageCourt;
  auto &e = fenetreMessageErreur;
  const Suite lettre = [this] { QTest::keyClick(Natif(feuilleRemarque)->focusWidget(), Qt::Key_A); };
  const char *const maker = Fabricant::RaisonSociale;
  return {Bulle(bulleInfoHautDroit, fenetre.BoutonProgramme[0], "Fermer le programme", "End the"),
          Bulle(bulleInfoBasGauche, fenetre.BoutonProgramme[1], "Ouvrir un patron", "Open a pattern"),
          Bulle(bulleInfoHautGauche, fenetre.BarreDeplacement, "Permet le déplacement ", "Move the windows"),
          Bulle(bulleInfoBasDroit, fenetre.LogoNor, maker, maker),
          {&c, Levee([] { AfficherMessageCourt(TitreErreur(), "texte"); }), Clic(c.Ligne[2]),
           [&] { return c.LblTitre.Caption; }, "Erreur", "Error"},
          {&m, Levee([] { AfficherMessage("texte"); }), Clic(m.Picture2),
           [&] { return m.ImageMessage.Picture; }, "ImageMessageFrancais", "ImageMessageAnglais"},
          {&e, Levee([&] { session.Etat = 8, machine->MontrerModal(Charger(e)); }), Clic(e.BoutonOk),
           [&] { return e.BoutonOk.NomAccessible; }, "Annuler", "Cancel"},
          {&feuilleRemarque, Levee([] { AfficherRemarque("titre"); }), lettre,
           [] { return feuilleRemarque.EnteteRemarque.Caption; }, "titre", "titre"},
          {&feuilleAPropos, Clic(fenetre.BoutonAide), Clic(feuilleAPropos.BoutonFin),
           [] { return feuilleAPropos.BoutonFin.Dessin.Ecrits().front().texte; }, "Sortie", "Exit"},
          {&attente, Levee([] { attente.Montrer(true); }), Levee(ConstruireMatrice),
           [] { return attente.Remarque.Caption; }, "Ini. ", "Ini. "}};
}

QImage EnImage(const Surface &s) {
  QImage image(s.Largeur(), s.Hauteur(), QImage::Format_RGB32);
  for (int y = 0; y < s.Hauteur(); ++y)
    for (int x = 0; x < s.Largeur(); ++x) image.setPixel(x, y, s.Point(x, y) | 0xff000000u);
  return image;
}

// All frames of one size, one below the other.
QImage Planche(int l, int h) {
  Surface planche(l, 5 * h + 60, Rgb(255, 0, 255));
  int y = 0;
  auto poser = [&](const Surface &s) { planche.PaintPicture(s, 0, y), y += s.Hauteur() + 4; };
  auto peindre = [&](int hauteur, const auto &peintre) {
    Surface s(l, hauteur, Gris(192));
    peintre(s);
    poser(s);
  };
  peindre(h, PeindreFenetreMessage);
  peindre(h, PeindreFondInformation);
  reglages.StyleCadreRemarque = 1;
  peindre(h, [&](Surface &s) { PeindreCadreRemarque(s, 0, 0, l, h); });
  peindre(h / 4, [](Surface &s) { PeindreFondPanneau(s, Gris(224)); });
  peindre(h / 4, [](Surface &s) { PeindreFondPanneauOnglet(s, "Configure", Gris(224)); });
  peindre(h / 4, [](Surface &s) { PeindreFondPanneauCreux(s, Gris(224)); });
  peindre(h / 4, [](Surface &s) { PeindreFondPanneauTitre(s, "Duite #: ", Gris(224)); });
  for (const bool claire : {true, false}) {
    BoitePicture bouton;
    Placer(bouton, 0, 0, l / 4 * kTwipsParPixel, h / 6 * kTwipsParPixel);
    PreparerSurface(bouton);
    (claire ? PeindreFaceClaire : PeindreFaceFoncee)(bouton.Dessin);
    poser(bouton.Dessin);
    (claire ? PeindreSurvolCarre : PeindreSurvolRond)(bouton);
    poser(bouton.Dessin);
  }
  return EnImage(planche);
}

TEST_F(EssaiCadres, FramesAreThoseOfTheGoldenPictures) {
  for (const auto &[l, h] : {std::pair{589, 248}, std::pair{332, 187}}) {
    const QString nom = QStringLiteral("/cadres_%1x%2.png").arg(l).arg(h);
    const QImage peinte = Planche(l, h);
    if (peinte == QImage(BRANDIS_CADRES + nom).convertToFormat(QImage::Format_RGB32)) continue;
    QDir().mkpath(BRANDIS_CADRES_PEINTS);
    ADD_FAILURE() << nom.toStdString() << " differs or is missing; now painted in " BRANDIS_CADRES_PEINTS
                  << (peinte.save(BRANDIS_CADRES_PEINTS + nom) ? "" : ", which cannot be written");
  }
}

TEST_F(EssaiCadres, TheNativeWindowShowsThePixelsOfTheData) {
  QWidget *cadre = Natif(fenetre);
  const QImage vue = cadre->grab().toImage().convertToFormat(QImage::Format_RGB32);
  QRegion nue = cadre->mask();
  for (QWidget *w : Natif(fenetre.Picture2)->findChildren<QWidget *>())
    if (w->isVisible()) nue -= w->geometry().translated(w->parentWidget()->mapTo(cadre, QPoint()));
  const QImage peau = EnImage(fenetre.Picture2.Dessin);
  int pixels = 0, autres = 0;
  for (const QRect &r : nue)
    for (int y = r.top(); y <= r.bottom(); ++y)
      for (int x = r.left(); x <= r.right(); ++x, ++pixels) autres += vue.pixel(x, y) != peau.pixel(x, y);
  EXPECT_GT(pixels, 100000);
  EXPECT_EQ(autres, 0) << "pixels of the bare skin";
  const BoitePicture &face = fenetre.BoutonProgramme[11];  // no text is printed on it
  const QRect place(Natif(face)->mapTo(cadre, QPoint()), Natif(face)->size());
  EXPECT_EQ(vue.copy(place), EnImage(face.Dessin).copy(QRect({}, place.size())));
}

long Residents() {  // KiB
  long taille = 0, pages = 0;
  std::ifstream("/proc/self/statm") >> taille >> pages;
  return pages * 4;
}
// Timers get the lowest free number, so with all gaps filled the highest one counts those that run.
int Minuteries() {
  QObject sonde;
  int plusHaut = 0;
  for (int i = 0; i < 256; ++i) plusHaut = std::max(plusHaut, sonde.startTimer(3600000));
  return plusHaut - 256;
}
auto Poignees() { return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator()); }

TEST_F(EssaiCadres, ManyOpeningsOfEveryWindowLeaveNothingBehind) {
  const std::vector<Cas> cas = TousLesCas();
  ASSERT_EQ(cas.size() + 1, ToutesFenetres().size()) << "a window that this test does not know";
  auto tour = [&] {
    for (const Cas &c : cas) ASSERT_NO_FATAL_FAILURE(Tenir(c, [] {}));
    QCoreApplication::processEvents();
  };
  for (int i = 0; i < 2; ++i) tour();
  const auto widgets = QApplication::allWidgets().size(), poignees = qsizetype(Poignees());
  const int minuteries = Minuteries();
  const std::size_t octets = OctetsTenus();
  const long residents = Residents();
  for (int i = 0; i < kTours; ++i) ASSERT_NO_FATAL_FAILURE(tour());
  std::cout << kTours << " rounds: resident " << residents << " -> " << Residents() << " KiB, allocated "
            << octets << " -> " << OctetsTenus() << " bytes\n";
  EXPECT_LE(QApplication::allWidgets().size(), widgets);
  EXPECT_LE(Minuteries(), minuteries);
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
  EXPECT_EQ(Natif(fenetreMessageCourt.Ligne[2])->property("text").toString(), "deux");
  EXPECT_TRUE(Natif(fenetreMessageCourt)->isVisible());
  EXPECT_FALSE(Natif(fenetreMessage)->isVisible() || Natif(feuilleRemarque)->isVisible());
}

TEST_F(EssaiCadres, QuitEndsTheProcessOnceWhateverWindowStands) {
  for (std::size_t i = 0; i < TousLesCas().size(); ++i) {
    SetUp();
    const Cas cas = TousLesCas()[i];
    bool debout = false, revenu = false;
    PlusTard([&] {
      PlusTard([&] { debout = cas.fenetre->Visible, Passer([] { BoutonProgramme_Click(0); }); });
      cas.lever();
      revenu = true;
    });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_TRUE(debout && revenu) << "the procedure that raised it hangs: " << cas.francais;
    EXPECT_EQ(machine->fins, 1) << cas.francais;
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
