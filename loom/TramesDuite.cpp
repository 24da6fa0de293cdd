#include "loom/TramesDuite.h"

#include "base/TexteNumerique.h"
#include "loom/PortMetier.h"
#include "loom/Protocoles.h"
#include "loom/RetourDuite.h"
#include "session/FenetreTissagePrincipale.h"
#include "session/Journal.h"

namespace {
constexpr char kEsc = 27;
constexpr int kTranche = 8;

std::string Milieu(const std::string &s, std::size_t position) {
  return s.size() < position ? std::string() : s.substr(position - 1, kTranche);
}

// Cut alike whatever the harness count.
Tranches Couper(const std::string &s) {
  return {s.size() <= kTranche ? s : s.substr(s.size() - kTranche), Milieu(s, 9), Milieu(s, 17),
          Milieu(s, 25)};
}

// The pick as its frame raises it, not as the plan has it: the slices take the harnesses 1 to 32 in turn.
void NoterTrame(const Tranches &t) {
  std::vector<int> lames;
  int lame = 0;
  for (const std::string &tranche : {t.a, t.b, t.c, t.d}) {
    for (std::size_t i = 0; i < kTranche; ++i, ++lame)
      if (i < tranche.size() && tranche[tranche.size() - 1 - i] == '1') lames.push_back(lame + 1);
  }
  const std::string &ligne = session.LignesTravail[session.DuiteCourante];
  NoterDuite(session.DuiteCourante, ligne.substr(0, ligne.find('=')), lames, DuiteRetrouvable());
}
}  // namespace

void EnvoyerDuite() {
  if (!fenetre.PortOuvert) return;
  const Tranches t = Couper(fenetre.BitsDuite[session.DuiteCourante]);
  const Protocole &p = LeProtocole();
  if (p.rouvre) OuvrirAuBesoin();
  if (!p.EnvoyerDuite) return;
  p.EnvoyerDuite(t);
  NoterTrame(t);
}

void Text1_KeyDown(int touche) {
  if (touche != Touche::Entree) return;
  OuvrirAuBesoin();
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
