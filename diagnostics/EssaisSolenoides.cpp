#include "diagnostics/EssaisSolenoides.h"

#include <string>

#include "display/Voyants.h"
#include "kit/FenetreMessageCourt.h"
#include "loom/PortMetier.h"
#include "loom/Protocoles.h"
#include "session/Commandes.h"
#include "session/FenetreTissagePrincipale.h"

namespace {
constexpr int kPeriodeTest = 1000;  // milliseconds
constexpr int kDerniereLame = 24;

// Eight solenoids each, the lowest the least significant. D carries none.
Tranches Repos() { return {"00000000", "00000000", "00000000", "00000000"}; }

void Lever(Tranches &t, int solenoide) {
  if (solenoide < 1 || solenoide > kDerniereLame) return;
  std::string &tranche = solenoide <= 8 ? t.a : solenoide <= 16 ? t.b : t.c;
  tranche[static_cast<std::size_t>(7 - (solenoide - 1) % 8)] = '1';
}

void Envoyer(const Tranches &t) {
  const Protocole &p = LeProtocole();
  if (!p.EnvoyerCases) return;
  OuvrirAuBesoin();
  p.EnvoyerCases(t);
}

void EssayerMetier() {
  OuvrirAuBesoin();
  LeProtocole().EnvoyerEssai();
}
}  // namespace

void CheckSelenoide_Click() {
  try {
    ChangerVoyant(Commande::FinirTest, false);
    Tranches t = Repos();
    for (int i = 1; i <= kDerniereLame; ++i)
      if (fenetre.CheckSelenoide[i].Value) Lever(t, i);
    Envoyer(t);
  } catch (const ErreurExecution &e) {
    AfficherErreurNumerotee(e);
  }
}

void TestLames24() {
  if (fenetre.TestInterrompu) return;
  Tranches t = Repos();
  Lever(t, fenetre.LameTest);
  if (LeProtocole().essai == Essai::Marche) Envoyer(t);
  if (LeProtocole().essai == Essai::DuMetier) EssayerMetier();
}

void TestMetier16() {
  try {
    ChangerVoyant(Commande::FinirTest, false);
    if (LeProtocole().essai == Essai::DuMetier) EssayerMetier();
  } catch (const ErreurExecution &e) {
    AfficherErreurNumerotee(e);
  }
}

void Timer2_Timer() {
  ++fenetre.LameTest;
  if (fenetre.LameTest > kDerniereLame) fenetre.LameTest = 1;
  if (LeProtocole().essai == Essai::Marche) TestLames24();
  if (LeProtocole().essai == Essai::DuMetier) TestMetier16();
}

void DebuterTest() {
  fenetre.TestInterrompu = false;
  if (LeProtocole().essai == Essai::DuMetier) TestMetier16();
  if (LeProtocole().essai == Essai::Marche) {
    fenetre.Timer2.Interval(kPeriodeTest);
    fenetre.LameTest = 1;
    TestLames24();
  }
  ChangerVoyant(Commande::DebuterTest, true);
  ChangerVoyant(Commande::FinirTest, false);
}

void ArreterTest() {
  fenetre.TestInterrompu = true;
  fenetre.LameTest = 0;
  fenetre.Timer1.Interval(0);
  fenetre.Timer3.Interval(0);
  fenetre.Timer2.Interval(0);
  ChangerVoyant(Commande::DebuterTest, false);
  ChangerVoyant(Commande::FinirTest, true);
  RelacherMetier();
  plateforme().DoEvents();
}
