#include "display/GrilleDuites.h"

#include "loom/TramesDuite.h"
#include "pattern/MatriceLames.h"
#include "session/FenetreTissagePrincipale.h"

namespace {
constexpr int kRangees = 20, kRangeeCourante = 11, kDerniereColonneNoire = 24;
// The cells on the ground, twips.
constexpr int kGauche = 30, kHaut = 45, kPasColonne = 240, kPasRangee = 225, kLargeur = 225, kHauteur = 210;

void CacherRangee(int rangee) {
  for (int j = 1; j <= kLames; ++j) fenetre.PicPourTissage.PicPourImage[rangee][j].Visible = false;
}

void CacherCases() {
  CacherBitsEnvoi();
  for (int r = 1; r <= kRangees; ++r) CacherRangee(r);
}

void DessinerRangee(int rangee, int duite) {
  // A very short plan reaches past the tables with its single correction: that row stays blank.
  if (duite < 0 || duite > kLignesTravail) return;
  LireCaseMatrice(duite);
  for (int j = 1; j <= session.NombreLames; ++j)
    if (session.MatriceLames(duite, j) == 1)
      fenetre.PicPourTissage.PicPourImage[rangee][j].Visible = j <= session.NombreLamesGrille;
  EcrireIndicateurLigne(rangee, duite);
}

// Pick `distance` before p; one addition only.
int DuiteAvant(Entier p, int distance) {
  const Entier q = p - distance;
  return q < 1 ? q + session.NombreDuites : q;
}

// Pick `distance` after p; one subtraction only.
int DuiteApres(Entier p, int distance) {
  const Entier q = p + distance;
  return q > session.NombreDuites ? q - session.NombreDuites : q;
}

// The same in the ascending layout, which tests for less than 1 and so never wraps: the rows under the
// current one run past the last pick and stay blank.
int DuiteApresHaut(Entier p, int distance) {
  const Entier q = p + distance;
  return q < 1 ? q + session.NombreDuites : q;
}

// The steps both layouts share before they draw: the draft is emptied and, while weaving, the pick goes over
// the line. False when there is nothing to draw.
bool ViderPuisEnvoyer() {
  ViderGrille();
  if (session.NombreDuites == 0) return false;
  if (fenetre.TissageEnCours) EnvoyerDuite();
  return true;
}
}  // namespace

void AfficherDuites(const Entier &duite) {
  if (session.DirectionDeroulement) {
    AfficherDuitesHaut();
    return;
  }
  if (!ViderPuisEnvoyer()) return;
  for (int r = 1; r <= kRangees; ++r) {
    const int distance = r - kRangeeCourante;
    DessinerRangee(r, distance < 0   ? DuiteApres(duite, -distance)
                      : distance > 0 ? DuiteAvant(duite, distance)
                                     : int{duite});
  }
}

void AfficherDuitesHaut() {
  if (!ViderPuisEnvoyer()) return;
  const Entier p = session.DuiteCourante;
  for (int r = 1; r <= kRangees; ++r) {
    const int distance = r - kRangeeCourante;
    DessinerRangee(r, distance < 0   ? DuiteAvant(p, -distance)
                      : distance > 0 ? DuiteApresHaut(p, distance)
                                     : int{p});
  }
}

void RedessinerSelonDirection() {
  if (session.DirectionTissage)
    AfficherDuitesHaut();
  else
    AfficherDuites(session.DuiteCourante);
}

void ViderGrille() {
  CacherCases();
  EffacerIndicateursLigne();
}

void PreparerGrille() {
  CacherCases();
  for (int r = session.NombreLamesGrille; r <= kRangees; ++r)
    if (r >= 1) fenetre.LblIndiqueLigneRendu[r].Caption.clear();
  fenetre.LblNombreLigne.Caption.clear();
}

void InitialiserCases() {
  for (int r = 1; r <= kRangees; ++r)
    for (int j = 1; j <= kLames; ++j) {
      CaseDuite &c = fenetre.PicPourTissage.PicPourImage[r][j];
      c.Left = kGauche + kPasColonne * (j - 1);
      c.Top = kHaut + kPasRangee * (r - 1);
      c.Width = kLargeur;
      c.Height = kHauteur;
      if (j <= kDerniereColonneNoire) c.Picture = r == kRangeeCourante ? ImageCase::Rouge : ImageCase::Noir;
    }
}

void CacherBitsEnvoi() {
  for (int j = 1; j <= kLames; ++j) fenetre.BitEnvoie[j].Visible = false;
}

void MasquerRangee(Entier rangee) {
  if (rangee >= 3 && rangee <= kRangees) CacherRangee(rangee);
}

void CacherRangee12() { CacherRangee(12); }
void CacherRangee13() { CacherRangee(13); }

void EffacerIndicateursLigne() {
  for (int r = 1; r <= kRangees; ++r) fenetre.LblIndiqueLigneRendu[r].Caption.clear();
}
