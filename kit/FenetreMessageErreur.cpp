#include "kit/FenetreMessageErreur.h"

#include "kit/FenetreMessageCourt.h"
#include "kit/FondFenetre.h"
#include "kit/ProcedureConnexe.h"
#include "platform/Plateforme.h"
#include "session/ModuleTissage.h"

FenetreMessageErreur fenetreMessageErreur;

namespace {
constexpr int kAnnulation = 8;                 // kind
constexpr int kModifierDirectement = 88;       // result
constexpr int kLargeur = 591, kHauteur = 248;  // pixels

void BoutonOk_Click() { Decharger(fenetreMessageErreur); }

void BoutonModifierIngredientDirectement_Click() {
  session.Etat = kModifierDirectement;
  fenetreMessageErreur.BoutonModifierIngredientDirectement.Visible = false;
  Decharger(fenetreMessageErreur);
}

void LierPression(BoitePicture &bouton) {
  bouton.MouseDown = [&bouton](int, double, double) { EnfoncerBouton(bouton); };
  bouton.MouseUp = [&bouton](int, double, double) { RelacherBouton(bouton); };
}
}  // namespace

FenetreMessageErreur::FenetreMessageErreur() {
  Message = true;
  Width = 8865;
  Height = 3720;
  Fenetre::Caption = "Brandis";
  PoserTitreMessage(*this, LblTitre, DessinMessage, 780);
  constexpr int kHauts[5] = {0, 1350, 1650, 1935, 2220};
  for (int i = 1; i <= 4; ++i) {
    Placer(Ligne[i], 825, kHauts[i], 7575, 270);
    Ligne[i].Caption = "Ligne(" + std::to_string(i) + ")";
    Ligne[i].Font = {"MS Sans Serif", 9.75, true, false};
  }
  Placer(BoutonOk, 4380, 3195, 1230, 450);
  Placer(BoutonAnnuler, 2760, 3195, 1470, 450);
  BoutonAnnuler.Visible = false;
  Placer(BoutonModifierIngredientDirectement, 6300, 3195, 1935, 435);
}

void FenetreMessageErreur::Visiter(Visiteur &v) {
  v.Voir("LblTitre", LblTitre, *this);
  v.Voir("DessinMessage", DessinMessage, *this);
  for (int i = 1; i <= 4; ++i) v.Voir("Ligne(" + std::to_string(i) + ")", Ligne[i], *this);
  v.Voir("BoutonAnnuler", BoutonAnnuler, *this);
  v.Voir("BoutonOk", BoutonOk, *this);
  v.Voir("BoutonModifierIngredientDirectement", BoutonModifierIngredientDirectement, *this);
}

void FenetreMessageErreur::Load() {
  BoutonOk.Click = BoutonOk_Click;
  KeyDown = [](int touche, int) {
    if (touche == Touche::Echappement) BoutonOk_Click();
  };
  BoutonModifierIngredientDirectement.Click = BoutonModifierIngredientDirectement_Click;
  LierPression(BoutonOk);
  LierPression(BoutonModifierIngredientDirectement);
  ChargerPicture(BoutonAnnuler, "BoutonAnnuler");
  ChargerPicture(BoutonModifierIngredientDirectement, "BoutonModifierIngredientDirectement");

  AppliquerGenreMessage(DessinMessage, LblTitre);
  Dessin.Refaire(kLargeur, kHauteur, BackColor);
  PeindreFenetreMessage(Dessin);
  CentrerFenetreEcran(*this);
  ChargerPicture(BoutonOk, session.Etat == kAnnulation ? "BoutonAnnuler" : "BITMAP119");
  plateforme().DonnerFocus(BoutonOk);
  BoutonModifierIngredientDirectement.Visible = session.Etat != kAnnulation;
  BoutonOk.NomAccessible = session.Etat == kAnnulation ? Selon("Annuler", "Cancel") : "OK";
}
