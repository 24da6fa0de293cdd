#include "mainwindow/PanneauConfiguration.h"

#include <array>
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
#include "session/FenetreTissagePrincipale.h"
#include "session/Journal.h"
#include "weaving/PlansTissage.h"
#include "weaving/SequenceurDuites.h"

namespace {
constexpr Paire kEtiquettes[9] = {{"", ""},
                                  {"Métier Port:", "Loom Port:"},
                                  {"Nombre Lames:", "Number of Harnesses:"},
                                  {"Duites Active (Rouge):", "Lookahead Picks:"},
                                  {"Début Déroulement:", "Scrolling Direction:"},
                                  {"Option Toile Patron:", "Weave Option:"},
                                  {"Direction Patron:", "Weave Direction:"},
                                  {"Départ Patron:", "Starting Bar:"},
                                  {"Départ Toile:", "Starting Tabby:"}};
constexpr Paire kDeroulement[2] = {{"Haut", "Up"}, {"Bas", "Down"}};
constexpr Paire kDirections[2] = {{"Suivant", "Forward"}, {"Précédent", "Reverse"}};
constexpr Paire kToiles[2] = {{"Liaison A", "Tabby A"}, {"Liaison B", "Tabby B"}};
constexpr int kDuitesActives = 11;

ListeChoix &Champ(int i) { return fenetre.ComConfiguration[i]; }
std::string TexteChamp(int i) { return Trim(Champ(i).Text); }

bool Est(const std::string &texte, const Paire &paire) {
  return texte == paire.francais || texte == paire.anglais;
}

std::vector<std::string> Textes(std::initializer_list<Paire> paires) {
  std::vector<std::string> liste;
  for (const Paire &p : paires) liste.push_back(p.EnVigueur());
  return liste;
}

void RemplirListes() {
  Champ(1).Liste = {"COM 1", "COM 2", "COM 3", "COM 4"};
  Champ(2).Liste = {"16", "24"};
  Champ(3).Liste = {std::to_string(kDuitesActives)};
  Champ(4).Liste = Textes({kDeroulement[0], kDeroulement[1]});
  Champ(5).Liste = Textes({kNomsOption[0], kNomsOption[1], kNomsOption[2]});
  Champ(6).Liste = Textes({kDirections[0], kDirections[1]});
  Champ(7).Liste.clear();
  for (int i = 1; i <= session.NombreDuites; ++i) Champ(7).Liste.push_back(std::to_string(i));
  Champ(8).Liste = Textes({kToiles[0], kToiles[1]});
}

// A value that has no item sets no text: the field keeps what stood in it.
void EcrireValeurs() {
  if (session.PortMetier >= 1 && session.PortMetier <= 4)
    Champ(1).Text = "COM " + std::to_string(session.PortMetier);
  if (session.NombreLames == 16 || session.NombreLames == 24)
    Champ(2).Text = std::to_string(session.NombreLames);
  // The list has one item and shows it whatever the variable was.
  Champ(3).Text = std::to_string(kDuitesActives);
  Champ(4).Text = kDeroulement[session.DirectionDeroulement ? 0 : 1].EnVigueur();
  if (session.LangueFrancaise) Champ(5).Text = kNomsOption[0].francais;
  if (session.OptionTissage >= 1 && session.OptionTissage <= 3)
    Champ(5).Text = kNomsOption[session.OptionTissage - 1].EnVigueur();
  Champ(6).Text = kDirections[session.DirectionTissage ? 1 : 0].EnVigueur();
  Champ(7).Text = std::to_string(session.DuiteCourante);
  Champ(8).Text = kToiles[session.ToileDepart ? 0 : 1].EnVigueur();
}

void LireDirections() {
  const std::string deroulement = TexteChamp(4), direction = TexteChamp(6), toile = TexteChamp(8);
  session.DirectionDeroulement = Est(deroulement, kDeroulement[0]);
  // No list offers "Inverse": in French the panel always gives forward.
  session.DirectionTissage = direction == "Reverse" || direction == "Inverse";
  session.ToileDepart = Est(toile, kToiles[0]);
}

void LirePort() {
  for (int i = 1; i <= 4; ++i)
    if (TexteChamp(1) == "COM " + std::to_string(i)) session.PortMetier = i;
}

void AdapterImages() {
  switch (session.NombreLames) {
    case 16:
    case 24:
      AdapterNombreLames();
      [[fallthrough]];
    case 8:
    case 12:
    case 32: {
      const std::string nombre = std::to_string(session.NombreLames);
      ChargerPicture(fenetre.PicPourTissage, "Fond" + nombre);
      ChargerIndicateur(fenetre.FondInscritDuite, session.NombreLames);
      break;
    }
    default:
      break;
  }
}

void PlacerTrame() {
  constexpr double kHautGrille = 2160;
  FenetreTissagePrincipale &f = fenetre;
  f.PicPourControle.Width = f.FondInscritDuite.Width + 300;
  f.PicPourControle.BackColor = Gris(192);
  PreparerSurface(f.PicPourControle);
  PeindreFondPanneau(f.PicPourControle.Dessin, f.PicPourControle.BackColor);
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

void LireOption() {
  for (int i = 0; i < 3; ++i)
    if (Est(TexteChamp(5), kNomsOption[i])) session.OptionTissage = i + 1;
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
  for (int i = 1; i <= 8; ++i) fenetre.LblConfiguration[i].Caption = kEtiquettes[i].EnVigueur();
  RemplirListes();
  EcrireValeurs();
  PreparerSurface(fenetre.FenetreConfiguration);
  PeindreFondPanneauOnglet(fenetre.FenetreConfiguration.Dessin, Selon("Configuration", "Configure"),
                           fenetre.FenetreConfiguration.BackColor);
  if (fenetre.PatronCharge) LireLiaisons();
}

void AppliquerConfiguration() {
  session.DuiteCourante = Arrondir(Val(TexteChamp(7)));
  session.DuitesActives = Arrondir(Val(TexteChamp(3)));
  LireDirections();
  BasculerInversion();
  LirePort();
  session.NombreLames = Arrondir(Val(Champ(2).Text));
  session.NombreLamesGrille = session.NombreLames;
  PreparerGrille();
  AdapterImages();
  PlacerTrame();
  fenetre.LblDate.Caption = TexteDate(plateforme().Aujourdhui());
  EcrireNombreLigne();
  LireOption();
  ConstruirePlan();
}

void AfficherConfiguration() {
  EcrireValeurs();
  Champ(2).Text = std::to_string(session.NombreLames);
  Champ(3).Text = std::to_string(session.DuitesActives);
  // "Liaison" is no item, and the way back does not know it.
  if (session.LangueFrancaise && session.OptionTissage == Option::Toile) Champ(5).Text = "Liaison";
  fenetre.LblDate.Caption = TexteDate(session.DateProjet);
  fenetre.LblCheminWif.Caption = session.CheminWif;
  if (!RelirePlan()) return;
  EcrireNombreLigne();
  ConstruireMatrice();
}

void ComConfiguration_Click(Entier index) {
  if (index == 8) LireLiaisons();
}

void ComConfiguration_GotFocus(Entier) {}
