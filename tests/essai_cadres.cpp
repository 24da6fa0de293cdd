// The life of every window.
#include "commands/CommandesProgramme.h"
#include "events/EvenementsFenetre.h"
#include "kit/Attente.h"
#include "kit/BullesInfo.h"
#include "kit/FenetreMessage.h"
#include "kit/FenetreMessageCourt.h"
#include "kit/FenetreMessageErreur.h"
#include "kit/FenetreRappel.h"
#include "kit/FeuilleAPropos.h"
#include "kit/FeuilleRemarque.h"
#include "session/Commandes.h"
#include "tests/Montee.h"

extern "C" __attribute__((weak)) std::size_t __sanitizer_get_current_allocated_bytes();  // ASan

namespace {
namespace fs = std::filesystem;

// A window: what raises it, the control that closes it by a click, a text of it in both languages.
struct Cas {
  Fenetre &f;
  void (*lever)();
  const Controle *clic;
  const std::string &texte;
  const char *francais, *anglais;  // beginnings
};
auto &message = fenetreMessage;
auto &erreur = fenetreMessageErreur;
auto &note = feuilleRemarque;
auto &propos = feuilleAPropos;
void Bulle0() { AfficherBulleBouton(Commande::Quitter); }
void Bulle1() { AfficherBulleBouton(Commande::OuvrirMotif); }
void Court() { AfficherMessageCourt(TitreErreur(), "un"); }
void Message() { AfficherMessage("texte"); }
void Erreurs() { session.Etat = 8, plateforme().MontrerModal(Charger(erreur)); }
void Note() { AfficherRemarque("titre"); }
void Rappel() {
  AfficherRappel({true, "m.wif", "7", "2026-01-02", "03:04:05", "7", false, true, {1, 20, 0, 0}});
}
void Progres() { attente.Montrer(true); }
const Cas kCas[] = {
    {bulleInfoHautDroit, Bulle0, {}, fenetre.Remarque.Caption, "Fermer", "End the"},
    {bulleInfoBasGauche, Bulle1, {}, fenetre.Remarque.Caption, "Ouvrir un patron", "Open a pattern"},
    {bulleInfoHautGauche, AfficherBulleBarre, {}, fenetre.Remarque.Caption, "Barre de", "Stroke"},
    {bulleInfoBasDroit, AfficherBulleLogo, {}, fenetre.Remarque.Caption, "", "Button Information"},
    {fenetreMessageCourt, Court, &fenetreMessageCourt, fenetreMessageCourt.LblTitre.Caption, "Erre", "Erro"},
    {message, Message, &message.Picture2, message.Picture2.NomAccessible, "Fermer", "Close"},
    {erreur, Erreurs, &erreur.BoutonOk, erreur.BoutonOk.NomAccessible, "Annuler", "Cancel"},
    {fenetreRappel, Rappel, &fenetreRappel.BoutonOk, fenetreRappel.LblTitre.Caption, "Séance", "Session"},
    {note, Note, &note.Picture2, note.EnteteRemarque.Caption, "titre", "titre"},
    {propos, BoutonAide_Click, &propos.BoutonFin, propos.BoutonFin.NomAccessible, "Sortie", "Exit"},
    {attente, Progres, {}, attente.Remarque.Caption, "Ini. ", "Ini. "}};
class EssaiCadres : public Montee {
 protected:
  void SetUp() override {
    Montee::SetUp();
    session.BullesActives = true;
    session.IntervalleMessageCourt = 30000;  // no window closes by itself while the test looks at it
    session.DelaiRemarque = 30;
  }
  // Presses the flag, if any, while the window stands; a modal one runs that in its own loop.
  void Tenir(const Cas &c, int drapeau) {
    session.LangueFrancaise = drapeau != 1;
    PlusTard([&] {
      EXPECT_TRUE(Natif(c.f)->isVisible()) << c.francais;
      for (int i = 0; drapeau && i < 2; ++i) {  // as raised, both before and after
        EXPECT_TRUE(c.texte.starts_with(drapeau == 2 ? c.francais : c.anglais)) << c.texte;
        Passer([&] { Drapeau_Click(drapeau); });
        EXPECT_EQ(fenetre.BoutonProgramme[Commande::Quitter].Dessin.Textes()[0].texte,
                  drapeau == 2 ? "Quit" : "Fermer");
      }
      c.clic ? QTest::mouseClick(Natif(*c.clic), Qt::LeftButton)
             : Passer([] { FermerBulles(), attente.Montrer(false); });
    });
    Passer(c.lever);
    QCoreApplication::sendPostedEvents();
    ASSERT_FALSE(c.f.Visible || Natif(c.f)->isVisible()) << c.francais;
  }
};

TEST_F(EssaiCadres, TheWindowIsDraggedCentredAndMinimisedByHand) {
  QWidget *barre = Natif(fenetre.BarreDeplacement), *cadre = Natif(fenetre);
  session.BullesActives = false;
  const QPoint depart(20, 10), ecran = barre->mapToGlobal(depart), place = cadre->pos();
  QTest::mouseMove(barre, depart + QPoint(5, 5));
  EXPECT_EQ(cadre->pos(), place) << "nobody holds it";
  QTest::mousePress(barre, Qt::LeftButton, {}, depart);
  for (const QPoint pas : {QPoint(30, -5), QPoint(-60, -40)})
    QTest::mouseMove(barre, barre->mapFromGlobal(ecran + pas));
  QTest::mouseRelease(barre, Qt::LeftButton, {}, barre->mapFromGlobal(ecran + QPoint(-60, -40)));
  QTest::mouseMove(barre, depart - QPoint(5, 5));
  EXPECT_EQ(cadre->pos(), place + QPoint(-60, -40));
  EXPECT_FALSE(Natif(fenetre.BoutonProgramme[Commande::BasculerBulles])->isVisible());
  QTest::mouseClick(Natif(fenetre.PicTVCentre), Qt::LeftButton);
  EXPECT_EQ(cadre->pos(), place);
  EXPECT_TRUE(Natif(fenetre.BoutonProgramme[Commande::BasculerBulles])->isVisible() &&
              !Natif(fenetre.PicTVCentre)->isVisible());
  QTest::mouseClick(Natif(fenetre.BoutonProgramme[Commande::Minimiser]), Qt::LeftButton);
  QCoreApplication::processEvents();
  EXPECT_TRUE(cadre->isMinimized() && fenetre.Visible) << "there is no notification area here";
}

// Widgets, timers (with all gaps filled their highest number), file descriptors, KiB under the sanitizer.
std::array<long, 4> Possessions() {
  QObject sonde;
  int minuteries = 0;
  for (int i = 0; i < 256; ++i) minuteries = std::max(minuteries, sonde.startTimer(3600000));
  const auto poignees = std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
  const auto octets = __sanitizer_get_current_allocated_bytes;
  return {QApplication::allWidgets().size(), minuteries, poignees, octets ? long(octets() / 1024) : 0};
}

TEST_F(EssaiCadres, EveryWindowKeepsItsLanguageOpensInTheNewOneAndLeavesNothingBehind) {
  // Beside the main window, and the note about the line, which follows the language.
  ASSERT_EQ(std::size(kCas) + 2, ToutesFenetres().size()) << "a window that this test does not know";
  std::array<long, 4> avant{};
  for (int i = 0; i < (__sanitizer_get_current_allocated_bytes ? 250 : 1000); ++i) {
    for (const Cas &c : kCas) ASSERT_NO_FATAL_FAILURE(Tenir(c, i < 2 ? 2 - i : 0));
    QCoreApplication::processEvents();
    if (i == 9) avant = Possessions();
  }
  const auto apres = Possessions();
  for (std::size_t i = 0; i < 4; ++i) EXPECT_LE(apres[i], avant[i]) << i;
}

TEST_F(EssaiCadres, MessagesOfATimerStandBesideAModalWindow) {
  int tics = 0;
  fenetre.Timer1.Timer = [&] {
    fenetre.Timer1.Interval(++tics < 4 ? 1 : 0);
    if (tics == 1) AfficherMessageCourt(TitreErreur(), "deux");
    if (tics == 2) Note();
    if (tics > 2) Decharger(tics == 3 ? static_cast<Fenetre &>(message) : note);  // the outer one first
  };
  Court();
  fenetre.Timer1.Interval(1);
  Passer(Message);
  EXPECT_EQ(Natif(fenetreMessageCourt.Ligne[2])->property("text").toString(), "deux");
  EXPECT_TRUE(fenetreMessageCourt.Visible && !Natif(message)->isVisible() && !Natif(note)->isVisible());
}

TEST_F(EssaiCadres, QuitEndsTheProcessOnceWhateverWindowStands) {
  for (const Cas &c : kCas) {
    SetUp();
    bool debout = false;
    auto quitter = [&] { debout = c.f.Visible, Passer([] { BoutonProgramme_Click(Commande::Quitter); }); };
    PlusTard([&] { PlusTard(quitter), Passer(c.lever); });
    EXPECT_TRUE(QApplication::exec() == 0 && debout && machine->fins == 1) << c.francais;
  }
}
}  // namespace
