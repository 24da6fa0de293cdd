#include "loom/EssaisSolenoides.h"

#include <string>

#include "base/TexteNumerique.h"
#include "display/Voyants.h"
#include "kit/FenetreMessageCourt.h"
#include "loom/PortMetier.h"
#include "loom/TramesDuite.h"
#include "mainwindow/FenetreTissagePrincipale.h"
#include "pattern/ConversionsBases.h"
#include "weaving/Commandes.h"

namespace {
constexpr int kPeriodeTest = 1000;  // milliseconds
constexpr int kDerniereLame = 24;

// Eight solenoids each, the lowest the least significant. D carries none.
struct Tranches {
  std::string a = "00000000", b = a, c = a, d = a;

  void Lever(int solenoide) {
    if (solenoide < 1 || solenoide > kDerniereLame) return;
    std::string &tranche = solenoide <= 8 ? a : solenoide <= 16 ? b : c;
    tranche[static_cast<std::size_t>(7 - (solenoide - 1) % 8)] = '1';
  }
};

int Octet(const std::string &tranche) { return Arrondir(Val(ConvH2D(ConvB2H(tranche)))); }

void OuvrirAuBesoin() {
  if (!MSComm1().PortOpen()) OuvrirPort();
}

void Envoyer24(const Tranches &t) {
  OuvrirAuBesoin();
  MSComm1().Output(kLiberer24);
  MSComm1().Output(TrameCharger24(Octet(t.a), Octet(t.b), Octet(t.c), Octet(t.d)));
  MSComm1().Output(kExecuter24);
}

void Envoyer16(const Tranches &t) {
  OuvrirAuBesoin();
  PreparerEnvoi16();
  MSComm1().Output("RELEASE\n");
  MSComm1().Output(TrameMotif16(ConvB2H(t.b), ConvB2H(t.a)));
}

void EnvoyerMot16(const char *mot) {
  OuvrirAuBesoin();
  MSComm1().OutBufferCount(0);
  MSComm1().Output(mot);
}
}  // namespace

void CheckSelenoide_Click() {
  try {
    ChangerVoyant(Commande::FinirTest, false);
    Tranches t;
    for (int i = 1; i <= kDerniereLame; ++i)
      if (fenetre.CheckSelenoide[i].Value) t.Lever(i);
    if (session.NombreLames == 16) Envoyer16(t);
    if (session.NombreLames == 24) Envoyer24(t);
  } catch (const ErreurExecution &e) {
    AfficherErreurNumerotee(e);
  }
}

void TestLames24() {
  if (fenetre.TestInterrompu) return;
  Tranches t;
  t.Lever(fenetre.LameTest);
  if (session.NombreLames == 24) Envoyer24(t);
  if (session.NombreLames == 16) EnvoyerMot16("TEST\r");
}

void TestMetier16() {
  try {
    ChangerVoyant(Commande::FinirTest, false);
    if (session.NombreLames == 16) EnvoyerMot16("TEST\r");
  } catch (const ErreurExecution &e) {
    AfficherErreurNumerotee(e);
  }
}

void Timer2_Timer() {
  ++fenetre.LameTest;
  if (fenetre.LameTest > kDerniereLame) fenetre.LameTest = 1;
  if (session.NombreLames == 24) TestLames24();
  if (session.NombreLames == 16) TestMetier16();
}

void DebuterTest() {
  fenetre.TestInterrompu = false;
  if (session.NombreLames == 16) TestMetier16();
  if (session.NombreLames == 24) {
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
  if (session.NombreLames == 16) EnvoyerMot16("RELEASE\r");
  if (session.NombreLames == 24 && MSComm1().PortOpen()) MSComm1().Output(kLiberer24);
  plateforme().DoEvents();
}
