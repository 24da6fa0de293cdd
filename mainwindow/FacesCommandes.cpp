#include "mainwindow/FacesCommandes.h"

#include "display/Voyants.h"
#include "kit/FondFenetre.h"
#include "kit/Palette.h"
#include "mainwindow/FenetreTissagePrincipale.h"

namespace {
enum class Face { Claire, Foncee };
constexpr int kPlace = 60;  // twips, of a picture from the left and the top

struct Apparence {
  const char *francais, *francais2, *anglais, *anglais2;
  const char *dessin;  // file in Dessins Boutons
  Face face;
  int x = kPlace, y = kPlace;  // twips
};

// By index. The picture of 6 follows the direction and is set elsewhere.
constexpr Apparence kApparences[22] = {
    {"Fermer", "", "Quit", "", "IMG487", Face::Claire},
    {"Ouvrir", "", "Open", "", "IMG571", Face::Foncee},
    {"Enregistrer", "", "Save", "", "IMG002", Face::Foncee},
    {"Reprise", "", "Resume", "", "IMG563", Face::Foncee},
    {"Toile", "", "Tabby", "", "IMG564", Face::Claire},
    {"Patron", "", "Pattern", "", "IMG460", Face::Claire},
    {"Avancer", "", "Skip", "", "", Face::Claire},
    {"Suivant", "Précédent", "Forward", "Reverse", "IMG567", Face::Claire, 30, 95},
    {"Duite Départ", "", "Starting Bar", "", "IMG569", Face::Claire},
    {"Arrêt", "", "Stop", "", "IMG566", Face::Claire},
    {"Départ", "", "Strart", "", "IMG565", Face::Claire},
    {"", "", "", "", "IMG578", Face::Foncee, 120, 60},
    {"", "", "", "", "IMG579", Face::Foncee, 120, 60},
    {"Sortie", "", "Exit", "", "IMG547", Face::Claire},
    {"Configuration", "", "Configure", "", "IMG572", Face::Foncee},
    {"Annuler", "", "Cancel", "", "IMG545", Face::Claire},
    {"Rafraîchir", "", "Refresh", "", "IMG573", Face::Foncee, 45},
    {"Toile +", "Patron", "Tabby +", "Pattern", "IMG575", Face::Claire},
    {"Diagnostic", "", "Diagnostics", "", "IMG576", Face::Foncee},
    {"Fermer", "", "Quit", "", "IMG487", Face::Claire},
    {"Début", "", "Start", "", "IMG577", Face::Claire},
    {"Fin Diagnostic", "", "End Diagnostics", "", "IMG566", Face::Claire},
};

// Some captions stand a little aside, by language, clear of picture and lamp.
int Decalage(int index) {
  if (index == 3) return -30;
  if (index == 6 || index == 15) return -50;
  if (index == 19) return session.LangueFrancaise ? 0 : 40;
  if (index == 20) return session.LangueFrancaise ? -80 : 0;
  if (index == 16) return session.LangueFrancaise ? 15 : 0;
  return 0;
}

// Second lines stand clear of the lamp.
int Decalage2(int index) { return index == 7 ? -150 : -100; }

void PeindreDessin(Surface &face, const Apparence &a) {
  if (!*a.dessin) return;
  const std::string chemin = session.CheminApplication + "Dessins Boutons/" + a.dessin + ".BMP";
  face.PaintPicture(plateforme().LoadPicture(chemin), a.x / kTwipsParPixel, a.y / kTwipsParPixel);
}
}  // namespace

void DessinerBouton(int index, bool voyant) {
  const Apparence &a = kApparences[index];
  BoitePicture &b = fenetre.BoutonProgramme[index];
  if (session.SurvolActif && session.BoutonSurvole == index) {  // a repaint ends the hover
    RendreTailleBouton(b);
    session.SurvolActif = false;
  }
  PreparerSurface(b);
  if (a.face == Face::Claire)
    PeindreFaceClaire(b.Dessin);
  else
    PeindreFaceFoncee(b.Dessin);
  ChangerVoyant(index, voyant);
  reglages.BoutonAvecImage = true;
  reglages.BoutonTexteDecale = Decalage(index);
  reglages.BoutonTexteDecale2 = Decalage2(index);
  EcrireTexteBouton(b, Selon(a.francais, a.anglais), reglages.BoutonAvecImage, Selon(a.francais2, a.anglais2),
                    0, Palette::EncreNoire, Gris(255));
  PeindreDessin(b.Dessin, a);
}
