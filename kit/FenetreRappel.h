// The reminder at the start: the session before did not end by Quit. Stays until it is dismissed and blocks
// nothing.
#pragma once

#include "base/Table.h"
#include "controls/Controles.h"
#include "session/Journal.h"

struct FenetreRappel : Fenetre {
  FenetreRappel();
  void Visiter(Visiteur &v) override;
  void Load() override;

  Etiquette LblTitre;
  Image DessinMessage;
  Table<Etiquette, 4> Ligne;  // 1..4
  BoitePicture BoutonOk;
};

extern FenetreRappel fenetreRappel;

// Tells pattern, last pick sent, date and time, and gives the keyboard to its button: Enter, Space, Escape
// and a click dismiss it. Fails with 481 on a missing picture.
void AfficherRappel(const DerniereSeance &seance);
