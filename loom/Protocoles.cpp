#include "loom/Protocoles.h"

#include <algorithm>
#include <span>

#include "base/TexteNumerique.h"
#include "pattern/ConversionsBases.h"
#include "platform/Plateforme.h"
#include "session/ChampsConfiguration.h"

namespace {
constexpr char kExecuter24[] =
    "\x1B"
    "E\r\n";

int ValeurDuite(const std::string &tranche) { return Arrondir(ConvB2D(tranche).value_or(0)); }
int ValeurCases(const std::string &tranche) { return Arrondir(Val(ConvH2D(ConvB2H(tranche)))); }

// ESC "I", the four data bytes, CR LF.
std::string Charger24(const Tranches &t, int (*valeur)(const std::string &)) {
  std::string trame = "\x1BI";
  for (const std::string *tranche : {&t.a, &t.b, &t.c, &t.d}) trame += static_cast<char>(valeur(*tranche));
  return trame + "\r\n";
}

void EnvoyerDuite24(const Tranches &t) {
  MSComm1().Output(kLiberer24 + Charger24(t, ValeurDuite) + kExecuter24);
}

void EnvoyerCases24(const Tranches &t) {
  MSComm1().Output(kLiberer24);
  MSComm1().Output(Charger24(t, ValeurCases));
  MSComm1().Output(kExecuter24);
}

// Nothing can be released on a closed port, and closing has done it.
void Relacher24() {
  if (MSComm1().PortOpen()) MSComm1().Output(kLiberer24);
}

// What waits to go out is thrown away, RTS off, no handshaking.
void Preparer16() {
  MSComm1().OutBufferCount(0);
  MSComm1().RTSEnable(false);
  MSComm1().Handshaking(0);
}

constexpr char kLiberer16[] = "RELEASE\n";

std::string Motif16(const Tranches &t) {
  return "SET PATTERN 0x" + ConvB2H(t.b) + ConvB2H(t.a) + "\nPUSH PATTERN\n";
}

void EnvoyerDuite16(const Tranches &t) {
  Preparer16();
  MSComm1().Output(kLiberer16 + Motif16(t));
}

void EnvoyerCases16(const Tranches &t) {
  Preparer16();
  MSComm1().Output(kLiberer16);
  MSComm1().Output(Motif16(t));
}

// Words outside a frame end in CR.
void EnvoyerMot16(const char *mot) {
  MSComm1().OutBufferCount(0);
  MSComm1().Output(mot);
}

void EnvoyerEssai16() { EnvoyerMot16("TEST\r"); }
void Relacher16() { EnvoyerMot16("RELEASE\r"); }

constexpr Protocole kProtocoles[] = {
    {.lames = 16,
     .largeurBande = 4250,
     .reglages = "9600,N,8,1",
     .rapport = "[CC]",
     .rapportParLecture = true,
     .rouvre = true,
     .relacherAvantFermer = true,
     .essai = Essai::DuMetier,
     .EnvoyerDuite = EnvoyerDuite16,
     .EnvoyerCases = EnvoyerCases16,
     .EnvoyerEssai = EnvoyerEssai16,
     .Relacher = Relacher16},
    {.lames = 24,
     .largeurBande = 6205,
     .reglages = "1200,N,8,1",
     .rapport = "C",
     .rapportParLecture = false,
     .rouvre = false,
     .relacherAvantFermer = false,
     .essai = Essai::Marche,
     .EnvoyerDuite = EnvoyerDuite24,
     .EnvoyerCases = EnvoyerCases24,
     .EnvoyerEssai = nullptr,
     .Relacher = Relacher24},
    // Listened to all the same.
    {.lames = 0,
     .largeurBande = 0,
     .reglages = nullptr,
     .rapport = "C",
     .rapportParLecture = false,
     .rouvre = false,
     .relacherAvantFermer = false,
     .essai = Essai::Aucun,
     .EnvoyerDuite = nullptr,
     .EnvoyerCases = nullptr,
     .EnvoyerEssai = nullptr,
     .Relacher = nullptr},
};
static_assert(std::ranges::equal(kChoixLames, std::span(kProtocoles).first<std::size(kProtocoles) - 1>(), {},
                                 &ElementListe::valeur, &Protocole::lames));
}  // namespace

const Protocole &LeProtocole() {
  const Protocole *p = kProtocoles;
  while (p->lames != 0 && p->lames != session.NombreLames) ++p;
  return *p;
}
