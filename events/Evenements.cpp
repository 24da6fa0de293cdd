#include "events/Evenements.h"

#include "commands/CommandesProgramme.h"
#include "diagnostics/DiagnosticPort.h"
#include "diagnostics/EssaisSolenoides.h"
#include "events/EvenementsFenetre.h"
#include "events/EvenementsSurvol.h"
#include "kit/BullesInfo.h"
#include "kit/Fabricant.h"
#include "kit/ProcedureConnexe.h"
#include "loom/TramesDuite.h"
#include "mainwindow/CompositionFenetre.h"
#include "mainwindow/PanneauConfiguration.h"
#include "session/ChampsConfiguration.h"
#include "session/Commandes.h"
#include "session/FenetreTissagePrincipale.h"
#include "weaving/EcouteMetier.h"
#include "weaving/SequenceurDuites.h"

namespace {
void LierBoutons() {
  for (int i = 0; i < Commande::Nombre; ++i) {
    BoitePicture &b = fenetre.BoutonProgramme[i];
    b.Click = [i] { BoutonProgramme_Click(i), AccorderRemarque(); };
    b.MouseDown = [i](int, double, double) { BoutonProgramme_MouseDown(i); };
    // A habit of the hand would step over a pick, or turn the direction back; Skip alone is meant to be
    // quick.
    b.ClicUnique = i != Commande::Avancer;
    b.MouseUp = [i](int, double, double) { BoutonProgramme_MouseUp(i); };
    b.MouseMove = [i](int, double, double) { BoutonProgramme_MouseMove(i); };
  }
}

void LierChamps() {
  for (int i = 1; i <= Champ::Nombre; ++i) {
    fenetre.ComConfiguration[i].Click = [i] { ComConfiguration_Click(i); };
    fenetre.ComConfiguration[i].GotFocus = [i] { ComConfiguration_GotFocus(i); };
  }
  // The number alone does not tell which socket it is.
  fenetre.ComConfiguration[Champ::Port].Click = [] {
    ComConfiguration_Click(Champ::Port), RemarquerAppareil();
  };
  fenetre.ComConfiguration[Champ::Port].GotFocus = [] {
    ComConfiguration_GotFocus(Champ::Port), RemarquerAppareil();
  };
  fenetre.ComConfiguration[Champ::Port].MouseMove = [](int, double, double) { RemarquerAppareil(); };
  for (int i = 1; i <= 24; ++i) fenetre.CheckSelenoide[i].Click = CheckSelenoide_Click;
  fenetre.TxtDuite.KeyDown = [](int touche, int) { TxtDuite_KeyDown(touche); };
  fenetre.TxtDuite.KeyPress = TxtDuite_KeyPress;
  fenetre.TxtVitessePortSerie.KeyDown = [](int touche, int) { TxtVitessePortSerie_KeyDown(touche); };
  fenetre.TxtVitessePortSerie.KeyPress = TxtVitessePortSerie_KeyPress;
  fenetre.Text1.KeyDown = [](int touche, int) { Text1_KeyDown(touche); };
}

// Escape leaves what was opened last without taking anything: the pick entry, else a panel.
void Form_KeyDown(int touche) {
  if (touche != Touche::Echappement) return;
  if (fenetre.FondEntreDuite.Visible)
    FermerEntreeDuite();
  else if (fenetre.FenetreConfiguration.Visible)
    BoutonProgramme_Click(Commande::AnnulerConfiguration);
  else if (fenetre.PicNor.Visible)
    BoutonProgramme_Click(Commande::QuitterDiagnostic);
  AccorderRemarque();
}

void LierFenetre() {
  fenetre.Resize = Form_Resize;
  fenetre.KeyDown = [](int touche, int) { Form_KeyDown(touche); };
  fenetre.MouseMove = [](int, double x, double) { Form_MouseMove(x); };
  for (int i = 1; i <= 2; ++i) fenetre.Drapeau[i].Click = [i] { Drapeau_Click(i), AccorderRemarque(); };
  fenetre.BarreDeplacement.MouseDown = BarreDeplacement_MouseDown;
  fenetre.BarreDeplacement.MouseMove = BarreDeplacement_MouseMove;
  fenetre.BarreDeplacement.MouseUp = BarreDeplacement_MouseUp;
  fenetre.PicTVCentre.Click = [] { PicTVCentre_Click(), AccorderRemarque(); };
  fenetre.BoutonAide.Click = BoutonAide_Click;
  if (*Fabricant::Site) fenetre.LogoNor.Click = LogoNor_Click;
  fenetre.Timer1.Timer = AttendreOK;
  fenetre.Timer2.Timer = Timer2_Timer;
  fenetre.Timer3.Timer = Timer3_Timer;
}

void LierSurvol() {
  const auto suivre = [](Controle &c, void (*procedure)()) {
    c.MouseMove = [procedure](int, double, double) { procedure(); };
  };
  for (int i = 1; i <= 2; ++i)
    fenetre.Drapeau[i].MouseMove = [i](int, double, double) { Drapeau_MouseMove(i); };
  suivre(fenetre.BoutonAide, BoutonAide_MouseMove);
  suivre(fenetre.LogoNor, LogoNor_MouseMove);
  suivre(fenetre.PicTVCentre, PicTVCentre_MouseMove);
  suivre(fenetre.TxtVitessePortSerie, TxtVitessePortSerie_MouseMove);
  suivre(fenetre.Picture2, Picture2_MouseMove);
  suivre(fenetre.FenetreConfiguration, FenetreConfiguration_MouseMove);
  suivre(fenetre.PicNor, PicNor_MouseMove);
}
}  // namespace

void LierEvenements() {
  LierBoutons();
  LierChamps();
  LierFenetre();
  LierSurvol();
}
