// The dialog of kinds with buttons, held in reserve for a question to the weaver; nothing raises it. A caller
// sets Etat to a kind, shows it modally and reads Etat again: 88 when the third button was pressed, else as
// it was.
#pragma once

#include "base/Table.h"
#include "controls/Controles.h"

struct FenetreMessageErreur : Fenetre {
  FenetreMessageErreur();
  void Visiter(Visiteur &v) override;
  // Takes title and picture of the kind in Etat; kind 8 shows a single cancel button.
  void Load() override;

  Etiquette LblTitre;
  Image DessinMessage;
  Table<Etiquette, 4> Ligne;  // 1..4
  BoitePicture BoutonOk, BoutonModifierIngredientDirectement;
  BoitePicture BoutonAnnuler;  // hidden store of the cancel picture
};

extern FenetreMessageErreur fenetreMessageErreur;
