#include "app/Montage.h"

#include <QApplication>
#include <cstdio>
#include <cstdlib>

#include "kit/Attente.h"
#include "kit/BullesInfo.h"
#include "kit/FenetreLigne.h"
#include "kit/FenetreMessage.h"
#include "kit/FenetreMessageCourt.h"
#include "kit/FenetreMessageErreur.h"
#include "kit/FeuilleAPropos.h"
#include "kit/FeuilleRemarque.h"
#include "mainwindow/CompositionFenetre.h"
#include "mainwindow/Evenements.h"
#include "mainwindow/FenetreTissagePrincipale.h"
#include "weaving/CommandesProgramme.h"

namespace {
void Demarrer() {
  fenetre.Chargee = true;
  LierEvenements();
  Form_Load();
  fenetre.Visible = true;
}

// The messages of the notification icon reach the window as its pointer moves do.
void TransmettreMessageIcone(int message) {
  const auto bouge = fenetre.MouseMove;
  if (bouge) bouge(0, message * double{kTwipsParPixel}, 0);
}
}  // namespace

const std::vector<Fenetre *> &ToutesFenetres() {
  static const std::vector<Fenetre *> fenetres{&fenetre,
                                               &attente,
                                               &fenetreMessageCourt,
                                               &fenetreMessage,
                                               &fenetreMessageErreur,
                                               &feuilleRemarque,
                                               &feuilleAPropos,
                                               &fenetreLigne,
                                               &bulleInfoBasGauche,
                                               &bulleInfoHautDroit,
                                               &bulleInfoHautGauche,
                                               &bulleInfoBasDroit};
  return fenetres;
}

void Monter(PlateformeQt &machine) {
  InstallerPlateforme(&machine);
  for (Fenetre *f : ToutesFenetres()) machine.LeMiroir().Ajouter(*f);
  machine.MessageIcone = TransmettreMessageIcone;
  machine.LigneChangee = MontrerLigneCoupee;
  machine.FinDemandee = [] { BoutonProgramme_Click(0); };
  machine.LeMiroir().Passer(Demarrer);
}

int Tourner(PlateformeQt &machine) {
  const int etat = QApplication::exec();
  if (!machine.BusMuet()) return etat;
  std::fflush(nullptr);
  std::_Exit(etat);  // an orderly end would wait for the bus
}
