#include "mainwindow/FacesCommandes.h"

#include "controls/Palette.h"
#include "display/Voyants.h"
#include "kit/FondFenetre.h"
#include "session/Commandes.h"
#include "session/FenetreTissagePrincipale.h"

namespace {
bool EstAllume(const FicheCommande &c) {
  switch (c.voyant) {
    case RegleVoyant::Option:
      return session.OptionTissage == c.option;
    case RegleVoyant::Tissage:
      return fenetre.TissageEnCours;
    case RegleVoyant::Bulles:
      return session.BullesActives;
    case RegleVoyant::Rouge:
      break;
  }
  return false;
}
}  // namespace

void DessinerBouton(int index) {
  const FicheCommande &c = Fiche(index);
  BoitePicture &b = fenetre.BoutonProgramme[index];
  if (session.SurvolActif && session.BoutonSurvole == index) {  // a repaint ends the hover
    RendreTailleBouton(b);
    session.SurvolActif = false;
  }
  PreparerSurface(b);
  if (c.face == Face::Claire)
    PeindreFaceClaire(b.Dessin);
  else
    PeindreFaceFoncee(b.Dessin);
  ChangerVoyant(index, EstAllume(c));
  reglages.BoutonAvecImage = true;
  reglages.BoutonTexteDecale = c.decalage.EnVigueur();
  reglages.BoutonTexteDecale2 = c.decalage2;
  EcrireTexteBouton(b, c.legende.EnVigueur(), reglages.BoutonAvecImage, c.legende2.EnVigueur(), 0,
                    Palette::EncreNoire, Gris(255));
  if (*c.dessin) PeindreDessin(b, c.dessin, c.x, c.y);
}
