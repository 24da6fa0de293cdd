#include "mainwindow/CompositionFenetre.h"

#include <initializer_list>

#include "controls/Palette.h"
#include "display/GrilleDuites.h"
#include "display/Voyants.h"
#include "kit/Attente.h"
#include "kit/BullesInfo.h"
#include "kit/FenetreMessageCourt.h"
#include "kit/FondFenetre.h"
#include "kit/ModuleTransparence.h"
#include "kit/ProcedureConnexe.h"
#include "kit/TextesBulles.h"
#include "mainwindow/FacesCommandes.h"
#include "mainwindow/JeuxBoutons.h"
#include "mainwindow/PanneauConfiguration.h"
#include "mainwindow/PanneauDiagnostic.h"
#include "saved/FichierConfiguration.h"
#include "session/Commandes.h"
#include "session/FenetreTissagePrincipale.h"
#include "weaving/PlansTissage.h"
#include "weaving/SequenceurDuites.h"

namespace {
double Droite(const Controle &c) { return c.Left + c.Width; }

void InitialiserSession() {
  fenetre.IntervalleEcoute = 100;
  fenetre.TxtVitessePortSerie.Text = "100";
  EffacerRemarque();
  fenetre.LblTabbyA.Caption.clear();
  fenetre.LblTabbyB.Caption.clear();
  session.NombreLames = kLamesDepart;
  LireConfiguration();
}

void ChargerImages() {
  FenetreTissagePrincipale &f = fenetre;
  ChargerPicture(f.Picture2, "Habillage");
  ChargerPicture(f.PicTVCentre, "PicTVCentre");
  ChargerPicture(f.UnInstant, "UnInstant");
  ChargerPicture(f.Picture3, "Picture3");
  f.BarreDeplacement.Picture = "BITMAP101";
  f.LogoNor.Picture = "LogoNor";
  f.BoutonAide.Picture = "BoutonAide";
  f.ImageMetier.Picture = "ImageMetier";
  f.Drapeau[1].Picture = "Drapeau1";
  f.Drapeau[2].Picture = "Drapeau2";
}

void DimensionnerFenetre() {
  fenetre.Width = kLargeurFenetre;
  fenetre.Height = kHauteurFenetre;
  CentrerFenetreEcran(fenetre);
  ChargerImages();
  fenetre.Picture2.Width = fenetre.Width;
  fenetre.Picture2.Height = fenetre.Height;
}

void PlacerTrame() {
  FenetreTissagePrincipale &f = fenetre;
  EncadrerBande(f.PicPourControle, f.FondInscritDuite);
  EncadrerBande(f.PicPourControle2, f.Indicateur24);
  CentrerSurControle(f.PicPourTissage, f.Picture2);
  f.PicPourTissage.Left -= 700;
  f.PicPourTissage.Top -= 200;
  f.PicPourControle.Top = f.PicPourTissage.Top + f.PicPourTissage.Height;
  f.PicPourControle.Left = 300;
}

void PlacerPanneauConfiguration() {
  BoitePicture &panneau = fenetre.FenetreConfiguration;
  PreparerSurface(panneau);
  PeindreFondPanneauOnglet(panneau.Dessin, "Configure", panneau.BackColor);
  CentrerSurControle(panneau, fenetre.PicPourTissage);
  panneau.Top = fenetre.PicPourTissage.Top - 10;
}

void Aligner(std::initializer_list<int> boutons, double gauche, double haut, double ecart) {
  for (int i : boutons) {
    BoitePicture &b = fenetre.BoutonProgramme[i];
    b.Top = haut;
    b.Left = gauche;
    gauche = Droite(b) + ecart;
  }
}

void PlacerBoutons() {
  using namespace Commande;
  auto &b = fenetre.BoutonProgramme;
  const double droite = fenetre.Picture2.Width;
  BoitePicture &quitter = b[Quitter], &sortir = b[SortirConfiguration], &annuler = b[AnnulerConfiguration];
  quitter.Top = 300;
  quitter.Left = droite - quitter.Width - 1400;
  b[Avancer].Top = 6450;
  b[Inverser].Top = 7200;
  b[Avancer].Left = b[Inverser].Left = droite - quitter.Width - 1750;
  Aligner({Demarrer, Arreter, TisserPatronEtToile, TisserPatron, TisserToile, ChoisirDuite}, 350, 7950, 325);
  Aligner({OuvrirMotif, Reprendre, Configurer, Rafraichir, Diagnostiquer}, 1740, 8625, 250);
  sortir.Top = annuler.Top = 300;
  sortir.Left = fenetre.FenetreConfiguration.Width - sortir.Width - 300;
  annuler.Left = sortir.Left - 250 - sortir.Width;
  // Save follows a button of the panel, and so stands where Resume stood.
  b[Enregistrer].Top = b[OuvrirMotif].Top;
  b[Enregistrer].Left = Droite(annuler) + 250;
}

void PlacerLogo() {
  fenetre.PicNor.Visible = fenetre.Text1.Visible = false;
  fenetre.PicNor.Volet = fenetre.Text1.Volet = fenetre.FenetreConfiguration.Volet = true;
  fenetre.LogoNor.Top = fenetre.Picture2.Height - fenetre.LogoNor.Height - 500;
  fenetre.LogoNor.Left = fenetre.Picture2.Width - fenetre.LogoNor.Width - 650;
}

void PreparerTrame() {
  BoitePicture &etiquettes = fenetre.PicLblIndiqueLigneRendu;
  etiquettes.Height = fenetre.PicPourTissage.Height;
  etiquettes.BackColor = Palette::Papier;
  PreparerSurface(etiquettes);
  PeindreFondPanneauCreux(etiquettes.Dessin, Palette::Papier);
  ChargerPicture(fenetre.PicPourTissage, "Fond24");
}

// For assistive tools a command is called what is written on it, and what the status line says of it describes
// it; where nothing is written, that is its name.
void NommerCommande(int i) {
  Controle &c = fenetre.BoutonProgramme[i];
  const std::string suite = Fiche(i).legende2.EnVigueur();
  c.NomAccessible = Fiche(i).legende.EnVigueur() + (suite.empty() ? suite : " " + suite);
  c.DescriptionAccessible = TexteDe(i).statut;
  if (c.NomAccessible.empty()) c.NomAccessible.swap(c.DescriptionAccessible);
}

void NommerCommandes() {
  auto nommer = [](Controle &c, int source) { c.NomAccessible = TexteDe(source).statut; };
  for (int i = 0; i < Commande::Nombre; ++i) NommerCommande(i);
  fenetre.BoutonAide.NomAccessible = Selon("À propos de Brandis", "About Brandis");
  nommer(fenetre.Drapeau[1], SourceBulle::DrapeauFrancais);
  nommer(fenetre.Drapeau[2], SourceBulle::DrapeauAnglais);
  nommer(fenetre.BarreDeplacement, SourceBulle::BarreDeplacement);
  nommer(fenetre.LogoNor, SourceBulle::LogoNor);
  fenetre.PicTVCentre.NomAccessible =
      Selon("Centre la fenêtre à l'écran", "Center the window on then desk top");
  fenetre.TxtVitessePortSerie.NomAccessible = kIntervalle.EnVigueur();
  fenetre.Text1.NomAccessible = Selon("Réponses du métier", "Answers of the loom");
  fenetre.txtTerm.NomAccessible = "Terminal";
  fenetre.TxtDuite.NomAccessible = Selon("Numéro de duite", "Pick number");
  for (int i = 1; i <= 24; ++i)
    fenetre.CheckSelenoide[i].NomAccessible = Selon("Lame ", "Harness ") + std::to_string(i);
}

// A cursor out of a damaged or unlucky configuration must not keep the program from ever starting again.
void AppliquerAuDepart() {
  try {
    AppliquerConfiguration();
  } catch (const ErreurExecution &e) {
    if (e.Number() != Erreur::Indice && e.Number() != Erreur::Depassement) throw;
    session.NombreDuites = 0;
    attente.Montrer(false);
    AfficherErreurNumerotee(e);
  }
}
}  // namespace

void Form_Load() {
  InitialiserSession();
  PlacerMarqueLangue();
  DimensionnerFenetre();
  PlacerTrame();
  PlacerPanneauConfiguration();
  if (!fenetre.FormeAppliquee) {
    AppliquerFormeFenetre();
    fenetre.FormeAppliquee = true;
  }
  DessinerBoutons();
  PlacerBoutons();
  PlacerLogo();
  PreparerTrame();
  CacherBitsEnvoi();
  InitialiserCases();
  CacherBoutonsTissage();
  AfficherDuites(session.DuiteCourante);
  AppliquerAuDepart();
  fenetre.BoutonProgramme[Commande::Enregistrer].Visible = false;
  fenetre.LblNombreLigne.Top = fenetre.LblDate.Top;
  fenetre.LblNombreLigne.Left = Droite(fenetre.LblDate) + 10;
  CacherDepartArret();
  fenetre.HautInitial = fenetre.Top;
  fenetre.GaucheInitial = fenetre.Left;
}

void AppliquerFormeFenetre() {
  Charger(attente).Montrer(true);
  FaconnerFenetre(fenetre, fenetre.Picture2);
  attente.Montrer(false);
}

void DessinerBoutons() {
  CalculerCheminApplication();
  for (int i = 0; i < Commande::Diagnostiquer; ++i) DessinerBouton(i);
  BasculerInversion();
  DessinerConfiguration();
  DessinerDiagnostic();
  NommerCommandes();
}

void PlacerMarqueLangue() { fenetre.ShDrapeau.Left = session.LangueFrancaise ? 285 : 945; }

bool EstAPlaceInitiale() {
  // Lopsided on purpose: with bubbles off a purely vertical move still counts as centred.
  return fenetre.Left == fenetre.GaucheInitial &&
         (fenetre.Top == fenetre.HautInitial || !session.BullesActives);
}
