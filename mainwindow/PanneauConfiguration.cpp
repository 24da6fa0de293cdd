#include "mainwindow/PanneauConfiguration.h"

#include <algorithm>
#include <filesystem>

#include "base/TexteDate.h"
#include "base/TexteNumerique.h"
#include "display/GrilleDuites.h"
#include "kit/FondFenetre.h"
#include "kit/ProcedureConnexe.h"
#include "mainwindow/PanneauDiagnostic.h"
#include "pattern/LecteurLiftplan.h"
#include "pattern/LignesFichier.h"
#include "pattern/MatriceLames.h"
#include "session/ChampsConfiguration.h"
#include "session/FenetreTissagePrincipale.h"
#include "session/Journal.h"
#include "weaving/PlansTissage.h"
#include "weaving/SequenceurDuites.h"

namespace {
constexpr int kLamesDessinees[] = {8, 12, 16, 24, 32};  // harness counts that have pictures

ListeChoix &Liste(const FicheChamp &champ) { return fenetre.ComConfiguration[champ.numero]; }

void RemplirListe(const FicheChamp &champ) {
  std::vector<std::string> &liste = Liste(champ).Liste;
  liste.clear();
  for (const ElementListe &e : champ.elements) liste.push_back(e.texte.EnVigueur());
  if (champ.elements.empty())
    for (int i = 1; i <= session.NombreDuites; ++i) liste.push_back(std::to_string(i));
}

void RelireChamps(Tour tour) {
  for (const FicheChamp &champ : LesChamps())
    if (champ.tour == tour) Relire(champ, Liste(champ).Text);
}

// A value that has no item sets no text: the field keeps what stood in it.
void EcrireValeur(const FicheChamp &champ) {
  std::string &texte = Liste(champ).Text;
  const Entier valeur = ValeurDe(champ);
  if (const char *dAbord = champ.aPart.dAbord.EnVigueur()) texte = dAbord;
  if (champ.elements.empty()) texte = std::to_string(valeur);
  for (const ElementListe &e : champ.elements)  // a list of one item shows it whatever the variable was
    if (e.valeur == valeur || champ.elements.size() == 1) texte = e.texte.EnVigueur();
}

void AdapterImages() {
  const int lames = session.NombreLames;
  AdapterNombreLames();
  if (std::ranges::find(kLamesDessinees, lames) == std::end(kLamesDessinees)) return;
  ChargerPicture(fenetre.PicPourTissage, "Fond" + std::to_string(lames));
  ChargerIndicateur(fenetre.FondInscritDuite, lames);
}

void AjusterTrame() {
  constexpr double kHautGrille = 2160;
  FenetreTissagePrincipale &f = fenetre;
  f.PicPourControle.Width = f.FondInscritDuite.Width + 300;
  f.PicPourControle.BackColor = Gris(192);
  EncadrerBande(f.PicPourControle, f.FondInscritDuite);
  CentrerHorizontalement(f.PicPourTissage, f.Picture2);
  f.PicPourTissage.Left -= 900;
  f.PicPourTissage.Top = kHautGrille;
  f.PicLblIndiqueLigneRendu.Height = f.PicPourTissage.Height;
  f.PicLblIndiqueLigneRendu.Top = kHautGrille;
  f.PicLblIndiqueLigneRendu.Left = f.PicPourTissage.Left + f.PicPourTissage.Width + 50;
  f.PicPourControle.Left = f.PicPourTissage.Left - 150;
  f.LblCheminWif.Top = f.PicPourTissage.Top - f.LblCheminWif.Height + 10;
  f.LblCheminWif.Left = f.PicPourTissage.Left;
  f.LblCheminWif.Width = f.LblDate.Left - 50 - f.LblCheminWif.Left;  // a narrow grid stands further right
  f.LblDate.Top = f.LblCheminWif.Top;
  f.LblNombreLigne.Top = f.LblDate.Top;
  f.LblNombreLigne.Left = f.LblDate.Left + f.LblDate.Width + 10;
  f.LblNombreLigne.Alignment = Alignement::Gauche;
}

void ConstruirePlan() {
  switch (session.OptionTissage) {
    case Option::PatronEtToile:
      ConstruirePatronToile();
      ConstruirePatronToileInverse();
      break;
    case Option::Toile:
      ConstruireToile();
      break;
    case Option::Patron:
      ConstruirePatron();
      break;
    default:
      break;
  }
  NoterPlan();
}

// The pattern file once more: from a "[LIFTPLAN]" line to the next blank or closing line. False when there is
// no plan in it.
bool RelirePlan() {
  std::error_code erreur;
  if (session.CheminWif.empty() || !std::filesystem::is_regular_file(session.CheminWif, erreur)) return false;
  session.NombreDuites = -1;
  LignesFichier fichier(session.CheminWif);
  bool dedans = false;
  for (std::string ligne; fichier.Lire(ligne) && session.NombreDuites <= kLignesWif;) {
    if (ligne == "[WEAVING]" || ligne == "[TREADLING]" || LTrim(ligne).empty()) dedans = false;
    if (ligne == "[LIFTPLAN]") dedans = true;
    if (!dedans) continue;
    ++session.NombreDuites;
    session.LignesWif[session.NombreDuites] = ligne;
    session.LignesTravail[session.NombreDuites] = ligne;
  }
  session.NombreDuitesPatron = session.NombreDuites;
  session.NombreDuitesWif = session.NombreDuites;
  return session.NombreDuites >= 1;
}
}  // namespace

void DessinerConfiguration() {
  for (const FicheChamp &champ : LesChamps()) {
    const char *etiquette = champ.etiquette.EnVigueur();
    fenetre.LblConfiguration[champ.numero].Caption = Liste(champ).NomAccessible = etiquette;
    RemplirListe(champ);
    EcrireValeur(champ);
  }
  PreparerSurface(fenetre.FenetreConfiguration);
  PeindreFondPanneauOnglet(fenetre.FenetreConfiguration.Dessin, Selon("Configuration", "Configure"),
                           fenetre.FenetreConfiguration.BackColor);
  if (fenetre.PatronCharge) LireLiaisons();
}

void AppliquerConfiguration() {
  RelireChamps(Tour::AvantSens);
  BasculerInversion();
  RelireChamps(Tour::AvantTrame);
  session.NombreLamesGrille = session.NombreLames;
  PreparerGrille();
  AdapterImages();
  AjusterTrame();
  fenetre.LblDate.Caption = TexteDate(plateforme().Aujourdhui());
  EcrireNombreLigne();
  RelireChamps(Tour::AvantPlan);
  ConstruirePlan();
}

void AfficherConfiguration() {
  for (const FicheChamp &champ : LesChamps()) {
    EcrireValeur(champ);
    if (champ.aPart.parNombre) Liste(champ).Text = std::to_string(ValeurDe(champ));
  }
  // "Liaison" is no item, and the way back does not know it.
  if (session.LangueFrancaise && session.OptionTissage == Option::Toile)
    fenetre.ComConfiguration[Champ::Option].Text = "Liaison";
  fenetre.LblDate.Caption = TexteDate(session.DateProjet);
  fenetre.LblCheminWif.Caption = session.CheminWif;
  if (!RelirePlan()) return;
  EcrireNombreLigne();
  ConstruireMatrice();
}

void ComConfiguration_Click(Entier index) {
  if (index == Champ::Toile) LireLiaisons();
}

void ComConfiguration_GotFocus(Entier) {}
