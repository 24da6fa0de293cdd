// The timed note of up to eight lines.
#pragma once

#include "base/Table.h"
#include "controls/Controles.h"

struct FeuilleRemarque : Fenetre {
  FeuilleRemarque();
  void Visiter(Visiteur &v) override;
  // Takes LignesRemarque, NombreLignesRemarque and DelaiRemarque of the session. Fails with 9 on a count
  // above 8, and with 6 on one so far below 0 that its height leaves 16 bits.
  void Load() override;

  BoitePicture Picture2;
  Etiquette EnteteRemarque;
  Table<Etiquette, 8> LblRemarque;  // 1..8
  Minuterie Timer1;
};

extern FeuilleRemarque feuilleRemarque;

// Loads the note with the lines of the session, writes its heading and shows it; returns when it has closed.
// Fails with 481 on a missing picture.
void AfficherRemarque(const std::string &entete);
