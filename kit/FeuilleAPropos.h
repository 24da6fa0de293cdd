// The about window: the version, and the maker of the loom in slowly scrolling lines, two of which are links.
#pragma once

#include "base/Table.h"
#include "controls/Controles.h"

struct FeuilleAPropos : Fenetre {
  FeuilleAPropos();
  void Visiter(Visiteur &v) override;
  // Paints in the language in force and places itself by the main window's draft.
  void Load() override;

  BoitePicture Picture1;  // the body
  Image Image1;
  Image Image2;  // covers the body without a picture: a click anywhere on it closes the window
  BoitePicture BoutonFin;
  BoitePicture Picture2;       // the opening through which the strip is seen
  BoitePicture picTexte;       // the strip
  Table<Etiquette, 5> Label1;  // 0 and 2..5; 4 is the web address, 5 the mail address
  Minuterie tmrDepart, tmrTexte, Timer3;
  Entier VitesseTexte;  // milliseconds between two steps of the strip
};

extern FeuilleAPropos feuilleAPropos;

// Loads the window and shows it; returns when it has closed.
void AfficherAPropos();
