// The one working window as data: its controls under their own names, and its fields.
#pragma once

#include <cstdio>
#include <string>

#include "base/Entier.h"
#include "base/Table.h"
#include "controls/Controles.h"
#include "platform/Plateforme.h"
#include "session/ChampsConfiguration.h"
#include "session/Compteur.h"

// Pictures of a draft cell.
enum class ImageCase { Blanc, Noir, Rouge };

struct CaseDuite {
  double Left = 0, Top = 0, Width = 0, Height = 0;  // twips
  bool Visible = false;
  ImageCase Picture = ImageCase::Blanc;
  bool operator==(const CaseDuite &) const = default;
};

// Whose text stands in the status line.
struct SourceRemarque {
  const Controle *controle = nullptr;
  Paire texte{"", ""};
};

// The draft: 20 rows of 32 cells, one per harness, over a drawn ground.
struct PanneauGrille : BoitePicture {
  Table<Table<CaseDuite, kLames>, 20> PicPourImage;  // 1 to 20, each 1 to 32: [row 1..20][harness 1..32]
};

constexpr double kLargeurFenetre = 12120, kHauteurFenetre = 9570;  // twips

struct FenetreTissagePrincipale : Fenetre {
  FenetreTissagePrincipale();
  void Visiter(Visiteur &v) override;

  // The skin and what lies straight on it.
  BoitePicture Picture2;
  Image BarreDeplacement, LogoNor, BoutonAide, ImageMetier;
  BoitePicture PicTVCentre, UnInstant, Picture3;
  Table<BoitePicture, 21> BoutonProgramme;  // session/Commandes.h tells what each is and where it stands
  Table<Image, 2> Drapeau;                  // language flags 1 French, 2 English
  Forme ShDrapeau;
  Etiquette Label1, Label2, Remarque, LblCheminWif, LblDate, LblNombreLigne;
  ZoneTexte txtTerm, Text1, TxtVitessePortSerie;

  PanneauCompteur Compteur;

  // The draft.
  PanneauGrille PicPourTissage;
  BoitePicture PicLblIndiqueLigneRendu;
  Table<Etiquette, 20> LblIndiqueLigneRendu;
  BoitePicture PicPourControle, FondInscritDuite;
  Table<CaseDuite, kLames> BitEnvoie;  // hidden for the whole life of the program

  // Entry of a starting pick.
  BoitePicture FondEntreDuite;
  ZoneTexte TxtDuite;

  // The configuration panel.
  BoitePicture FenetreConfiguration;
  Table<ListeChoix, Champ::Nombre> ComConfiguration;  // session/ChampsConfiguration.h
  Table<Etiquette, Champ::Nombre> LblConfiguration;
  Etiquette LblTabbyA, LblTabbyB;

  // The diagnostic panel.
  BoitePicture PicNor, PicPourControle2, Indicateur24;
  Table<CaseCochee, 24> CheckSelenoide;
  Etiquette LblNomTest;

  Minuterie Timer1, Timer2, Timer3;
  DialogueFichier CommonDialog1;

  // Fields.
  Table<std::string, kLignesWif> BitsDuite;  // one "0" or "1" per harness, harness 1 at the right-hand end
  Table<Booleen, 21> Voyants;                // lamp of each command: True green, False red
  Entier DuiteAvantToile;                    // pick at which the weaver left the pattern for tabby
  Entier IntervalleEcoute;                   // milliseconds
  Booleen VoyantAllume;
  Entier LameTest;  // solenoid under test, 1..24
  Booleen TestInterrompu;
  Booleen FormeAppliquee;
  Booleen TissageEnCours;  // a shown pick is also sent
  Booleen PatronCharge;
  Booleen PortOuvert;
  Booleen DansLiftplan;  // outlives a reading
  SourceRemarque Statut;
  double HautInitial = 0, GaucheInitial = 0;  // the kept, centred place of the window
  Booleen EnDeplacement;
  float SourisX0 = 0, SourisY0 = 0, FenetreHaut0 = 0, FenetreGauche0 = 0;

  // Port diagnostics, kept from call to call.
  std::string EvenementPort, ErreurPort, DonneesPort;
  Entier ReponsePort;
  std::FILE *FichierJournal = nullptr;  // capture file; nothing opens it
  long LongueurTerminal = 0;
};

extern FenetreTissagePrincipale fenetre;
