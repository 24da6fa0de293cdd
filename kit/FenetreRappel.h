// The reminder at the start: the session before did not end by Quit. Stays until it is dismissed and blocks
// nothing.
#pragma once

#include "base/Table.h"
#include "controls/Controles.h"
#include "session/DerniereSeance.h"

struct FenetreRappel : Fenetre {
  FenetreRappel();
  void Visiter(Visiteur &v) override;
  void Load() override;

  Etiquette LblTitre;
  Image DessinMessage;
  Table<Etiquette, 5> Ligne;  // 1..5, the last of two rows
  BoitePicture BoutonOk;
};

extern FenetreRappel fenetreRappel;

// Tells pattern, last pick sent, date and time, how it was woven, and where there is one the way that puts
// its shed on the loom again. The way is reckoned for the language, the option and the direction in force,
// those of a new process. Gives the keyboard to its button: Enter, Space, Escape and a click dismiss it.
// Fails with 481 on a missing picture.
void AfficherRappel(const DerniereSeance &seance);
