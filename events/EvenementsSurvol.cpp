#include "events/EvenementsSurvol.h"

#include "base/TexteNumerique.h"
#include "commands/CommandesProgramme.h"
#include "display/Voyants.h"
#include "kit/BullesInfo.h"
#include "kit/FondFenetre.h"
#include "mainwindow/CompositionFenetre.h"
#include "session/ChampsConfiguration.h"
#include "session/Commandes.h"
#include "session/FenetreTissagePrincipale.h"

namespace {
// The lamp on a face that was painted in another size.
void RallumerVoyant(Entier index) { ChangerVoyant(index, fenetre.Voyants[index]); }

void FinirSurvol() {
  fenetre.BarreDeplacement.Picture = "BITMAP101";
  FermerBulles();
  if (!session.SurvolActif) return;
  RendreTailleBouton(fenetre.BoutonProgramme[session.BoutonSurvole]);
  session.SurvolActif = false;
  RallumerVoyant(session.BoutonSurvole);
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
  RallumerVoyant(index);
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
  EcrireRemarque(fenetre.PicTVCentre, {"Centre la fenêtre à l'écran", "Center the window on then desk top"});
}

void TxtVitessePortSerie_MouseMove() { EcrireRemarque(fenetre.TxtVitessePortSerie, kIntervalle); }

void RemarquerAppareil() {
  static std::string texte;  // the status line keeps the address
  const ListeChoix &champ = fenetre.ComConfiguration[Champ::Port];
  if (champ.Text.size() < 5) return;  // no number chosen yet
  const std::string appareil = MSComm1().Appareil(Arrondir(Val(champ.Text.substr(4))));
  texte =
      champ.Text + Selon(" : ", ": ") + (appareil.empty() ? Selon("aucun appareil", "no device") : appareil);
  EcrireRemarque(champ, {texte.c_str(), texte.c_str()});
}

void Picture2_MouseMove() {
  fenetre.Picture2.MousePointer = kPointeurPerso;
  fenetre.Picture2.MouseIcon = "CurseurHabillage";
  FinirSurvol();
}

void FenetreConfiguration_MouseMove() { FinirSurvol(); }

void PicNor_MouseMove() {
  FinirSurvol();
  EcrireRemarque(fenetre.PicNor, StatutDe(SourceBulle::LogoNor));
}
