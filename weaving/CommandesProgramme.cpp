#include "weaving/CommandesProgramme.h"

#include "display/GrilleDuites.h"
#include "display/Voyants.h"
#include "kit/BullesInfo.h"
#include "kit/FondFenetre.h"
#include "kit/Palette.h"
#include "loom/EssaisSolenoides.h"
#include "loom/PortMetier.h"
#include "loom/TramesDuite.h"
#include "mainwindow/CompositionFenetre.h"
#include "mainwindow/FenetreTissagePrincipale.h"
#include "mainwindow/JeuxBoutons.h"
#include "mainwindow/PanneauConfiguration.h"
#include "pattern/LecteurLiftplan.h"
#include "saved/FichierConfiguration.h"
#include "saved/RepriseProjet.h"
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

// The direction of weaving, not that of scrolling, decides here; AfficherDuites goes on by itself when the
// draft scrolls up.
void RedessinerSelonDirection() {
  if (session.DirectionTissage)
    AfficherDuitesHaut();
  else
    AfficherDuites(session.DuiteCourante);
}

void AppliquerMode() {
  DessinerConfiguration();
  AppliquerConfiguration();
  RedessinerSelonDirection();
}

void AllumerMode(int voyant, int option) {
  EteindreVoyantsMode();
  if (session.OptionTissage == option) ChangerVoyant(voyant, true);
}

void Quitter() {
  FermerPort();
  EcrireConfiguration();
  fenetre.Visible = false;
  plateforme().Terminer();
}

void Ouvrir() {
  MontrerUnInstant();
  InitialiserPatron();
  ChangerVoyant(1, true);
  OuvrirFichierWif();
  if (session.Etat != EtatEtape::Echec) {
    LireLiaisons();
    CacherBitsEnvoi();
  }
  if (session.Etat == EtatEtape::Echec) {
    ChangerVoyant(1, false);
    CacherUnInstant();
    return;
  }
  if (session.Etat == EtatEtape::Reussi) {
    session.Etat = EtatEtape::Echec;
    fenetre.PatronCharge = true;
    MontrerDepartArret();
  }
  DessinerConfiguration();
  AppliquerConfiguration();
  AfficherDuites(session.DuiteCourante);
  MontrerDepartArret();
  CacherUnInstant();
  ChangerVoyant(1, false);
}

void PasserEnToile() {
  MontrerUnInstant();
  fenetre.DuiteAvantToile = session.DuiteCourante;
  session.OptionTissage = Option::Toile;
  AppliquerMode();
  CacherUnInstant();
  AllumerMode(4, Option::Toile);
}

void PasserEnPatronEtToile() {
  MontrerUnInstant();
  session.DuiteCourante = fenetre.DuiteAvantToile + 1;
  if (session.DuiteCourante < 1) session.DuiteCourante = 1;
  session.OptionTissage = Option::PatronEtToile;
  AppliquerMode();
  CacherUnInstant();
  AllumerMode(17, Option::PatronEtToile);
}

void PasserEnPatron() {
  MontrerUnInstant();
  session.OptionTissage = Option::Patron;
  session.DuiteCourante = fenetre.DuiteAvantToile + 1;
  if (session.DuiteCourante == 0) session.DuiteCourante = 1;
  AppliquerMode();
  AllumerMode(5, Option::Patron);
  CacherUnInstant();
}

void AvancerUneDuite() {
  ActiverEcouteMetier();
  DuiteSuivante();
}

void InverserDirection() {
  session.DirectionTissage = !session.DirectionTissage;
  BasculerInversion();
}

void DemanderDuite() {
  const BoitePicture &bouton = fenetre.BoutonProgramme[8];
  BoitePicture &fond = fenetre.FondEntreDuite;
  PreparerSurface(fond);
  PeindreFondPanneauTitre(fond.Dessin, "Duite #: ", Palette::Lin);
  fenetre.TxtDuite.Text = std::to_string(session.DuiteCourante);
  fond.Left = bouton.Left;
  fond.Top = bouton.Top + bouton.Height + 120;
  fond.Visible = true;
  ChangerVoyant(8, true);
  plateforme().DonnerFocus(fenetre.TxtDuite);
}

void Arreter() {
  if (session.NombreLames == 16) {
    if (!MSComm1().PortOpen()) OuvrirPort();
    MSComm1().OutBufferCount(0);
    MSComm1().Output("RELEASE\r");
  }
  fenetre.TissageEnCours = false;
  FermerPort();
  const bool ferme = session.Etat == EtatEtape::Reussi;
  CacherBitsEnvoi();
  ArreterEcouteMetier();
  session.Etat = EtatEtape::Echec;
  ChangerVoyant(9, true);
  ChangerVoyant(10, false);
  if (ferme) CacherBoutonsTissage();
  Voir(14, true);
  Voir(18, true);
  if (!fenetre.BoutonProgramme[1].Visible) Voir(2, true);
}

void Demarrer() {
  fenetre.TissageEnCours = true;
  Voir(2, false);
  if (!fenetre.PatronCharge) return;
  for (int i : {1, 3, 14, 18}) Voir(i, false);
  OuvrirPort();
  if (session.Etat == EtatEtape::Reussi) {
    session.Etat = EtatEtape::Echec;
    ChangerVoyant(10, true);
    ChangerVoyant(9, false);
    MontrerBoutonsTissage();
  }
  ActiverEcouteMetier();
  DuiteSuivante();
}

void BasculerBulles() {
  session.BullesActives = !session.BullesActives;
  ChangerVoyant(11, session.BullesActives);
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
  ChangerVoyant(14, false);
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
  fenetre.ToileDepartGardee = session.ToileDepart;
  CacherCommandesPrincipales();
  DessinerConfiguration();
  fenetre.FenetreConfiguration.Visible = true;
  CacherDepartArret();
  ChangerVoyant(14, true);
}

void AnnulerConfiguration() {
  FermerConfiguration();
  session.ToileDepart = fenetre.ToileDepartGardee;  // the one variable that a mere choice in the panel writes
  ConclureConfiguration();
}

void RecommencerSansPatron() {
  fenetre.Visible = false;
  fenetre.BoutonProgramme[16].Width = 1380;
  fenetre.BoutonProgramme[16].Height = 435;
  Form_Load();
  fenetre.Visible = true;
  ViderGrille();
  InitialiserPatron();
  fenetre.LblCheminWif.Caption.clear();
  fenetre.LblNombreLigne.Caption.clear();
  for (int i : {1, 3, 14}) Voir(i, true);
  CacherDepartArret();
}

void OuvrirDiagnostic() {
  FermerPort();
  for (int i = 1; i <= 24; ++i) fenetre.CheckSelenoide[i].Value = false;
  CacherCommandesPrincipales();
  fenetre.PicNor.Visible = true;
  fenetre.Text1.Visible = true;
  plateforme().Rafraichir();
  ChangerVoyant(18, true);
}

void QuitterDiagnostic() {
  fenetre.Timer2.Interval(0);
  fenetre.Timer3.Interval(0);
  plateforme().DoEvents();
  FermerPort();
  fenetre.PicNor.Visible = false;
  fenetre.Text1.Visible = false;
  ChangerVoyant(19, false);
  ChangerVoyant(18, false);
  MontrerCommandesPrincipales();
}
}  // namespace

void BoutonProgramme_Click(Entier index) {
  switch (index) {
    case 0:
      return Quitter();
    case 1:
      return Ouvrir();
    case 2:
      return EnregistrerProjet();
    case 3:
      return ReprendreProjet();
    case 4:
      return PasserEnToile();
    case 17:
      return PasserEnPatronEtToile();
    case 5:
      return PasserEnPatron();
    case 6:
      return AvancerUneDuite();
    case 7:
      return InverserDirection();
    case 8:
      return DemanderDuite();
    case 9:
      return Arreter();
    case 10:
      return Demarrer();
    case 11:
      return BasculerBulles();
    case 12:
      return Minimiser();
    case 13:
      return SortirConfiguration();
    case 14:
      return OuvrirConfiguration();
    case 15:
      return AnnulerConfiguration();
    case 16:
      return RecommencerSansPatron();
    case 18:
      return OuvrirDiagnostic();
    case 19:
      return QuitterDiagnostic();
    case 20:
      return DebuterTest();
    case 21:
      return ArreterTest();
    default:
      return;
  }
}
