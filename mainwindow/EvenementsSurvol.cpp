#include "mainwindow/EvenementsSurvol.h"

#include "kit/BullesInfo.h"
#include "kit/FondFenetre.h"
#include "mainwindow/CompositionFenetre.h"
#include "mainwindow/FenetreTissagePrincipale.h"
#include "weaving/Commandes.h"
#include "weaving/CommandesProgramme.h"

namespace {
void FinirSurvol() {
  fenetre.BarreDeplacement.Picture = "BITMAP101";
  FermerBulles();
  if (!session.SurvolActif) return;
  RendreTailleBouton(fenetre.BoutonProgramme[session.BoutonSurvole]);
  session.SurvolActif = false;
}
}  // namespace

bool AccepterSurvol() {
  if (EstAPlaceInitiale()) return true;
  FermerBulles();
  if (session.BullesActives) BoutonProgramme_Click(Commande::BasculerBulles);
  return false;
}

void BoutonProgramme_MouseMove(Entier index) {
  if (session.SurvolActif || !AccepterSurvol()) return;
  session.SurvolActif = true;
  session.BoutonSurvole = index;
  if (Fiche(index).face == Face::Foncee)
    PeindreSurvolRond(fenetre.BoutonProgramme[index]);
  else
    PeindreSurvolCarre(fenetre.BoutonProgramme[index]);
  AfficherBulleBouton(session.BoutonSurvole);
}

void BoutonAide_MouseMove() {
  if (AccepterSurvol()) AfficherBulleAide();
}

void Drapeau_MouseMove(Entier index) { AfficherBulleDrapeau(index); }

void LogoNor_MouseMove() {
  if (AccepterSurvol()) AfficherBulleLogo();
}

void PicTVCentre_MouseMove() {
  fenetre.Remarque.Caption = Selon("Centre la fenêtre à l'écran", "Center the window on then desk top");
}

void Picture2_MouseMove() {
  fenetre.Picture2.MousePointer = kPointeurPerso;
  fenetre.Picture2.MouseIcon = "CurseurHabillage";
  FinirSurvol();
}

void FenetreConfiguration_MouseMove() { FinirSurvol(); }

void PicNor_MouseMove() {
  FinirSurvol();
  fenetre.Remarque.Caption = TexteDe(SourceBulle::LogoNor).statut;
}
