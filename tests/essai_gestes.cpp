// Keys, clicks and windows: what reaches a command, and what is only meant for what lies over it.
#include "kit/FenetreMessageCourt.h"
#include "kit/FenetreRappel.h"
#include "tests/Montee.h"

namespace {
class Gestes : public Montee {};

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
