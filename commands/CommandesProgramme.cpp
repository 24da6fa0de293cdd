#include "commands/CommandesProgramme.h"

#include "commands/RepriseProjet.h"
#include "controls/Palette.h"
#include "diagnostics/EssaisSolenoides.h"
#include "display/GrilleDuites.h"
#include "display/Voyants.h"
#include "kit/BullesInfo.h"
#include "kit/FenetreMessageCourt.h"
#include "kit/FondFenetre.h"
#include "loom/PortMetier.h"
#include "loom/Protocoles.h"
#include "mainwindow/CompositionFenetre.h"
#include "mainwindow/JeuxBoutons.h"
#include "mainwindow/PanneauConfiguration.h"
#include "pattern/LecteurLiftplan.h"
#include "saved/FichierConfiguration.h"
#include "session/Commandes.h"
#include "session/FenetreTissagePrincipale.h"
#include "session/Journal.h"
#include "weaving/EcouteMetier.h"
#include "weaving/PlansTissage.h"
#include "weaving/SequenceurDuites.h"

namespace {
void Voir(int bouton, bool visible) { fenetre.BoutonProgramme[bouton].Visible = visible; }

void MontrerUnInstant() {
  fenetre.UnInstant.Visible = true;
  plateforme().Rafraichir();
}
void CacherUnInstant() { fenetre.UnInstant.Visible = false; }

void AppliquerMode() {
  DessinerConfiguration();
  AppliquerConfiguration();
  RedessinerSelonDirection();
}

void AllumerMode(Commande::Index mode) {
  EteindreVoyantsMode();
  if (session.OptionTissage == Fiche(mode).option) ChangerVoyant(mode, true);
}

void Quitter() {
  FermerPort();
  EcrireConfiguration();
  const bool gardee = session.Etat == EtatEtape::Reussi;
  NoterFin();
  if (!gardee) {
    // A test that went on behind the message would open the port again.
    for (Minuterie *m : {&fenetre.Timer1, &fenetre.Timer2, &fenetre.Timer3}) m->Interval(0);
    AttendreLecture();
  }
  fenetre.Visible = false;
  plateforme().Terminer();
}

void Ouvrir() {
  MontrerUnInstant();
  InitialiserPatron();
  ChangerVoyant(Commande::OuvrirMotif, true);
  OuvrirFichierWif();
  if (session.Etat != EtatEtape::Echec) {
    LireLiaisons();
    CacherBitsEnvoi();
  }
  if (session.Etat == EtatEtape::Echec) {
    ChangerVoyant(Commande::OuvrirMotif, false);
    CacherUnInstant();
    return;
  }
  if (session.Etat == EtatEtape::Reussi) {
    session.Etat = EtatEtape::Rien;
    fenetre.PatronCharge = true;
    NoterOuverture(session.NombreDuitesWif);
    NoterMotif(session.CheminWif);
    MontrerDepartArret();
  }
  DessinerConfiguration();
  AppliquerConfiguration();
  AfficherDuites(session.DuiteCourante);
  MontrerDepartArret();
  CacherUnInstant();
  ChangerVoyant(Commande::OuvrirMotif, false);
}

void PasserEnToile() {
  MontrerUnInstant();
  fenetre.DuiteAvantToile = session.DuiteCourante;
  session.OptionTissage = Option::Toile;
  AppliquerMode();
  CacherUnInstant();
  AllumerMode(Commande::TisserToile);
}

void PasserEnPatronEtToile() {
  MontrerUnInstant();
  session.DuiteCourante = fenetre.DuiteAvantToile + 1;
  if (session.DuiteCourante < 1) session.DuiteCourante = 1;
  session.OptionTissage = Option::PatronEtToile;
  AppliquerMode();
  CacherUnInstant();
  AllumerMode(Commande::TisserPatronEtToile);
}

void PasserEnPatron() {
  MontrerUnInstant();
  session.OptionTissage = Option::Patron;
  session.DuiteCourante = fenetre.DuiteAvantToile + 1;
  if (session.DuiteCourante == 0) session.DuiteCourante = 1;
  AppliquerMode();
  AllumerMode(Commande::TisserPatron);
  CacherUnInstant();
}

void AvancerUneDuite() {
  ActiverEcouteMetier();
  DuiteSuivante();
}

void InverserDirection() {
  session.DirectionTissage = !session.DirectionTissage;
  BasculerInversion();
  if (fenetre.TissageEnCours && session.DerniereDuiteEnvoyee) NoterSens();
}

void DemanderDuite() {
  const BoitePicture &bouton = fenetre.BoutonProgramme[Commande::ChoisirDuite];
  BoitePicture &fond = fenetre.FondEntreDuite;
  PreparerSurface(fond);
  PeindreFondPanneauTitre(fond.Dessin, "Duite #: ", Palette::Papier);
  fenetre.TxtDuite.Text = std::to_string(session.DuiteCourante);
  // Selected whole: a typed number takes its place instead of growing behind it.
  fenetre.TxtDuite.SelStart = 0;
  fenetre.TxtDuite.SelLength = static_cast<int>(fenetre.TxtDuite.Text.size());
  fond.Left = bouton.Left;
  fond.Top = bouton.Top + bouton.Height + 120;
  fond.Visible = true;
  ChangerVoyant(Commande::ChoisirDuite, true);
  plateforme().DonnerFocus(fenetre.TxtDuite);
}

void Arreter() {
  if (LeProtocole().relacherAvantFermer) RelacherMetier();
  fenetre.TissageEnCours = false;
  FermerPort();
  const bool ferme = session.Etat == EtatEtape::Reussi;
  CacherBitsEnvoi();
  ArreterEcouteMetier();
  session.Etat = EtatEtape::Rien;
  VoyantsArretA();
  if (ferme) CacherBoutonsTissage();
  Voir(Commande::Configurer, true);
  Voir(Commande::Diagnostiquer, true);
  if (!fenetre.BoutonProgramme[Commande::OuvrirMotif].Visible) Voir(Commande::Enregistrer, true);
}

void Demarrer() {
  fenetre.TissageEnCours = true;
  Voir(Commande::Enregistrer, false);
  if (!fenetre.PatronCharge) return;
  VoirEntrees(false);
  OuvrirPort();
  if (session.Etat == EtatEtape::Reussi) {
    session.Etat = EtatEtape::Rien;
    ChangerVoyant(Commande::Demarrer, true);
    ChangerVoyant(Commande::Arreter, false);
    MontrerBoutonsTissage();
  }
  ActiverEcouteMetier();
  DuiteSuivante();
}

void BasculerBulles() {
  session.BullesActives = !session.BullesActives;
  ChangerVoyant(Commande::BasculerBulles, session.BullesActives);
}

void Minimiser() {
  FermerBulles();
  fenetre.WindowState = 1;
}

void FermerConfiguration() {
  MontrerCommandesPrincipales();
  fenetre.FenetreConfiguration.Visible = false;
}

void ConclureConfiguration() {
  if (session.NombreDuites > 0) MontrerDepartArret();
  ChangerVoyant(Commande::Configurer, false);
}

void SortirConfiguration() {
  FermerConfiguration();
  AppliquerConfiguration();
  // Forces NombreLames back to 24: a choice of 16 holds for the plan just built and for the grid.
  EcrireConfiguration();
  AfficherDuites(session.DuiteCourante);
  ConclureConfiguration();
}

void OuvrirConfiguration() {
  CacherCommandesPrincipales();
  DessinerConfiguration();
  fenetre.FenetreConfiguration.Visible = true;
  CacherDepartArret();
  ChangerVoyant(Commande::Configurer, true);
}

void AnnulerConfiguration() {
  FermerConfiguration();
  ConclureConfiguration();
}

void RecommencerSansPatron() {
  fenetre.Visible = false;
  fenetre.BoutonProgramme[Commande::Rafraichir].Width = Fiche(Commande::Rafraichir).largeur;
  fenetre.BoutonProgramme[Commande::Rafraichir].Height = kHauteurBouton;
  Form_Load();
  fenetre.Visible = true;
  ViderGrille();
  InitialiserPatron();
  fenetre.LblCheminWif.Caption.clear();
  fenetre.LblNombreLigne.Caption.clear();
  VoirEntrees(true);
  CacherDepartArret();
}

void OuvrirDiagnostic() {
  FermerPort();
  for (int i = 1; i <= 24; ++i) fenetre.CheckSelenoide[i].Value = false;
  CacherCommandesPrincipales();
  fenetre.PicNor.Visible = true;
  fenetre.Text1.Visible = true;
  plateforme().Rafraichir();
  ChangerVoyant(Commande::Diagnostiquer, true);
}

void QuitterDiagnostic() {
  fenetre.Timer2.Interval(0);
  fenetre.Timer3.Interval(0);
  plateforme().DoEvents();
  FermerPort();
  fenetre.PicNor.Visible = false;
  fenetre.Text1.Visible = false;
  ChangerVoyant(Commande::QuitterDiagnostic, false);
  ChangerVoyant(Commande::Diagnostiquer, false);
  MontrerCommandesPrincipales();
}
}  // namespace

void BoutonProgramme_Click(Entier index) {
  switch (static_cast<Commande::Index>(int{index})) {
    case Commande::Quitter:
      return Quitter();
    case Commande::OuvrirMotif:
      return Ouvrir();
    case Commande::Enregistrer:
      return EnregistrerProjet();
    case Commande::Reprendre:
      return ReprendreProjet();
    case Commande::TisserToile:
      return PasserEnToile();
    case Commande::TisserPatronEtToile:
      return PasserEnPatronEtToile();
    case Commande::TisserPatron:
      return PasserEnPatron();
    case Commande::Avancer:
      return AvancerUneDuite();
    case Commande::Inverser:
      return InverserDirection();
    case Commande::ChoisirDuite:
      return DemanderDuite();
    case Commande::Arreter:
      return Arreter();
    case Commande::Demarrer:
      return Demarrer();
    case Commande::BasculerBulles:
      return BasculerBulles();
    case Commande::Minimiser:
      return Minimiser();
    case Commande::SortirConfiguration:
      return SortirConfiguration();
    case Commande::Configurer:
      return OuvrirConfiguration();
    case Commande::AnnulerConfiguration:
      return AnnulerConfiguration();
    case Commande::Rafraichir:
      return RecommencerSansPatron();
    case Commande::Diagnostiquer:
      return OuvrirDiagnostic();
    case Commande::QuitterDiagnostic:
      return QuitterDiagnostic();
    case Commande::DebuterTest:
      return DebuterTest();
    case Commande::FinirTest:
      return ArreterTest();
  }
}
