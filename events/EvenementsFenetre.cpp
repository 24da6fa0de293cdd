#include "events/EvenementsFenetre.h"

#include <initializer_list>

#include "display/GrilleDuites.h"
#include "events/EvenementsSurvol.h"
#include "kit/BullesInfo.h"
#include "kit/Fabricant.h"
#include "kit/FeuilleAPropos.h"
#include "kit/ProcedureConnexe.h"
#include "mainwindow/CompositionFenetre.h"
#include "mainwindow/JeuxBoutons.h"
#include "pattern/LecteurLiftplan.h"
#include "session/Commandes.h"
#include "session/FenetreTissagePrincipale.h"

namespace {
constexpr int kMinimisee = 1, kMaximisee = 2;

void VoirTrame(bool visible) {
  for (Controle *c : std::initializer_list<Controle *>{
           &fenetre.PicPourTissage, &fenetre.PicLblIndiqueLigneRendu, &fenetre.PicPourControle,
           &fenetre.LblCheminWif, &fenetre.LblDate, &fenetre.LblNombreLigne, &fenetre.ImageMetier})
    c->Visible = visible;
}
}  // namespace

void BoutonProgramme_MouseDown(Entier index) { EnfoncerBouton(fenetre.BoutonProgramme[index]); }
void BoutonProgramme_MouseUp(Entier index) { RelacherBouton(fenetre.BoutonProgramme[index]); }

void Drapeau_Click(Entier index) {
  session.LangueFrancaise = index == 1;
  PlacerMarqueLangue();
  DessinerBoutons();
  EcrireNombreLigne();
  if (session.NombreDuites >= 1) RedessinerSelonDirection();
}

void BarreDeplacement_MouseDown(int bouton, double x, double y) {
  if (bouton != kBoutonGauche) return;
  fenetre.BarreDeplacement.MousePointer = kPointeurDeplacer;
  fenetre.FenetreGauche0 = static_cast<float>(fenetre.Left);
  fenetre.FenetreHaut0 = static_cast<float>(fenetre.Top);
  fenetre.SourisX0 = static_cast<float>(x);
  fenetre.SourisY0 = static_cast<float>(y);
  fenetre.EnDeplacement = true;
}

void BarreDeplacement_MouseMove(int, double x, double y) {
  fenetre.BarreDeplacement.MousePointer = kPointeurDeplacer;
  fenetre.BarreDeplacement.MouseIcon = "CurseurBarre";
  fenetre.BarreDeplacement.Picture = "BITMAP102";
  if (fenetre.EnDeplacement) {
    fenetre.Left = x - static_cast<double>(fenetre.SourisX0) + static_cast<double>(fenetre.FenetreGauche0);
    fenetre.Top = y - static_cast<double>(fenetre.SourisY0) + static_cast<double>(fenetre.FenetreHaut0);
    fenetre.FenetreGauche0 = static_cast<float>(fenetre.Left);
    fenetre.FenetreHaut0 = static_cast<float>(fenetre.Top);
  }
  if (AccepterSurvol()) return AfficherBulleBarre();
  fenetre.BoutonProgramme[Commande::BasculerBulles].Visible = false;
  fenetre.PicTVCentre.Visible = true;
}

void BarreDeplacement_MouseUp(int bouton, double, double) {
  if (bouton != kBoutonGauche) return;
  fenetre.BarreDeplacement.MousePointer = kPointeurPerso;
  fenetre.EnDeplacement = false;
}

void PicTVCentre_Click() {
  CentrerFenetreEcran(fenetre);
  plateforme().Rafraichir();
  fenetre.BoutonProgramme[Commande::BasculerBulles].Visible = true;
  fenetre.PicTVCentre.Visible = false;
}

void BoutonAide_Click() {
  FermerBulles();  // the skin is to be bare
  fenetre.BoutonProgramme[Commande::Quitter].Visible = false;
  const bool tissage = fenetre.BoutonProgramme[Commande::TisserToile].Visible;
  if (tissage) CacherBoutonsTissage();
  CacherCommandesPrincipales();
  VoirTrame(false);
  AfficherAPropos();
  if (tissage) MontrerBoutonsTissage();
  fenetre.BoutonProgramme[Commande::Quitter].Visible = true;
  MontrerCommandesPrincipales();
  VoirTrame(true);
}

void LogoNor_Click() { plateforme().OuvrirAdresse(Fabricant::Site); }

void Form_Resize() {
  if (fenetre.WindowState == kMinimisee)
    BasculerIconeNotification(fenetre, fenetre.Caption, -1);
  else if (fenetre.WindowState == kMaximisee)
    BasculerIconeNotification(fenetre, fenetre.Caption, 2);
}

void Form_MouseMove(double x) {
  if (IconeActive != 1 || x / kTwipsParPixel != kIconeBoutonGauche) return;
  fenetre.Visible = true;
  BasculerIconeNotification(fenetre, fenetre.Caption, 0);
}
