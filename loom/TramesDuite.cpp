#include "loom/TramesDuite.h"

#include "base/TexteNumerique.h"
#include "loom/PortMetier.h"
#include "mainwindow/FenetreTissagePrincipale.h"
#include "pattern/ConversionsBases.h"

namespace {
constexpr char kEsc = 27;
constexpr int kTranche = 8;

// The slices of a bit string, cut alike whatever the harness count.
struct Tranches {
  std::string a, b, c, d;
};

std::string Milieu(const std::string &s, std::size_t position) {
  return s.size() < position ? std::string() : s.substr(position - 1, kTranche);
}

Tranches Couper(const std::string &s) {
  return {s.size() <= kTranche ? s : s.substr(s.size() - kTranche), Milieu(s, 9), Milieu(s, 17),
          Milieu(s, 25)};
}

Entier Valeur(const std::string &tranche) { return Arrondir(ConvB2D(tranche).value_or(0)); }
}  // namespace

std::string TrameCharger24(int a, int b, int c, int d) {
  std::string trame = "\x1BI";
  for (int octet : {a, b, c, d}) trame += static_cast<char>(octet);
  return trame + "\r\n";
}

std::string TrameMotif16(const std::string &hexaB, const std::string &hexaA) {
  return "SET PATTERN 0x" + hexaB + hexaA + "\nPUSH PATTERN\n";
}

void PreparerEnvoi16() {
  MSComm1().OutBufferCount(0);
  MSComm1().RTSEnable(false);
  MSComm1().Handshaking(0);
}

void EnvoyerDuite() {
  if (!fenetre.PortOuvert) return;
  const Tranches t = Couper(fenetre.BitsDuite[session.DuiteCourante]);
  if (session.NombreLames == 24) {
    MSComm1().Output(kLiberer24 + TrameCharger24(Valeur(t.a), Valeur(t.b), Valeur(t.c), Valeur(t.d)) +
                     kExecuter24);
  } else if (session.NombreLames == 16) {
    if (!MSComm1().PortOpen()) OuvrirPort();
    PreparerEnvoi16();
    MSComm1().Output("RELEASE\n" + TrameMotif16(ConvB2H(t.b), ConvB2H(t.a)));
  }
}

void Text1_KeyDown(int touche) {
  if (touche != Touche::Entree) return;
  if (!MSComm1().PortOpen()) OuvrirPort();
  MSComm1().Output("SET PATTERN" + Trim(fenetre.Text1.Text) + "\r");
  MSComm1().Output("PUSH PATTERN\r");
}

void LireReponseMetier() {
  const std::string recu = MSComm1().Input();
  fenetre.Text1.Text = recu;
  std::string tampon;
  for (char c : recu) {
    if (c == kEsc) tampon.clear();
    if (tampon.size() < 3) tampon += c;
    fenetre.Text1.Text += Str(static_cast<int>(tampon.size())) + " = " + Str(static_cast<unsigned char>(c));
  }
  if (tampon ==
      "\x1B"
      "C\r") {
    session.Etat = EtatEtape::CycleComplet;
  } else {
    session.Etat = EtatEtape::Echec;
    MSComm1().InputLen(0);
  }
}

void AttendreOK() {
  std::string recu;
  while (fenetre.PortOuvert) {
    recu += MSComm1().Input();
    fenetre.Text1.Text = recu;
    if (recu.find("OK\r\n") != std::string::npos) {
      session.Etat = EtatEtape::Reussi;
      return;
    }
    plateforme().DoEvents();
    if (fenetre.PortOuvert && !MSComm1().PortOpen()) {
      OuvrirPort();
      if (session.Etat == EtatEtape::Echec) return;  // the port is gone, nothing would ever arrive
    }
  }
}
