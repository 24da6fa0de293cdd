#include "weaving/PlansTissage.h"

#include "pattern/MatriceLames.h"
#include "session/ChampsConfiguration.h"
#include "session/FenetreTissagePrincipale.h"

namespace {
constexpr int kDuitesToile = 40;

std::string LigneToile(const std::string &cle, int premiere) {
  std::string ligne = cle + "=";
  for (int lame = premiere; lame <= session.NombreLames; lame += 2)
    ligne += (lame == premiere ? "" : ",") + std::to_string(lame);
  return ligne;
}

void ViderPlan() {
  for (int i = 1; i <= kLignesTravail; ++i) session.LignesTravail[i].clear();
  ViderMatrice(1, kLignesTravail);
}
}  // namespace

void LireLiaisons() {
  if (session.NombreDuites < 1) return;
  Relire(LeChamp(Champ::Toile), fenetre.ComConfiguration[Champ::Toile].Text);
  session.ToileA = LigneToile("TabbyA", 1);
  session.ToileB = LigneToile("TabbyB", 2);
  fenetre.LblTabbyA.Caption = session.ToileA;
  fenetre.LblTabbyB.Caption = session.ToileB;
  const Couleur rouge = Rgb(255, 0, 0), noir = 0;
  fenetre.LblTabbyA.ForeColor = session.ToileDepart ? rouge : noir;
  fenetre.LblTabbyB.ForeColor = session.ToileDepart ? noir : rouge;
  fenetre.LblTabbyA.Plaque = session.ToileDepart;
  fenetre.LblTabbyB.Plaque = !session.ToileDepart;
}

void ConstruirePatron() {
  ViderPlan();
  for (int i = 1; i <= session.NombreDuitesWif; ++i) session.LignesTravail[i] = session.LignesWif[i];
  session.NombreDuites = session.NombreDuitesWif;
  ConstruireMatrice();
}

void ConstruireToile() {
  ViderPlan();
  // Tabby A comes first whatever ToileDepart says.
  for (int i = 1; i <= kDuitesToile; ++i)
    session.LignesTravail[i] = i % 2 == 1 ? session.ToileA : session.ToileB;
  session.NombreDuites = kDuitesToile;
  ConstruireMatrice();
}

void ConstruirePatronToile() {
  const Entier c = session.DuiteCourante;
  const Entier fin = c + session.NombreDuitesWif;
  for (int i = c; i <= fin; ++i) {
    session.LignesTravail[i].clear();
    ViderMatrice(i, i);
  }
  for (int i = c; i <= session.NombreDuites; ++i) session.LignesTravail[i] = session.LignesWif[i];
  session.NombreDuites = session.NombreDuitesWif;
}

void ConstruirePatronToileInverse() {
  const Entier c = session.DuiteCourante;
  Entier p = c - 2;
  for (int i = c; i <= kLignesTravail; ++i) session.LignesTravail[i].clear();
  // The matrix is cleared only as far as a lift plan reaches, the plan to its end.
  ViderMatrice(c, kLignesWif);
  bool toileA = true;
  for (int i = c - 1; i <= session.NombreDuites; ++i) {
    session.LignesTravail[++p] = session.LignesWif[i];
    session.LignesTravail[++p] = toileA ? session.ToileA : session.ToileB;
    toileA = !toileA;
  }
  session.NombreDuites = p;
  ConstruireMatrice();
}
