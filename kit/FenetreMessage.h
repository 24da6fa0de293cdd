// The large modal window with the picture heading, raised for a pattern file without lift plan.
#pragma once

#include "controls/Controles.h"

struct FenetreMessage : Fenetre {
  FenetreMessage();
  void Visiter(Visiteur &v) override;
  void Load() override;

  BoitePicture FondInformation;
  Etiquette Information, ListeFichierManquant;
  BoitePicture Picture2;  // the close button
  Image ImageMessageFrancais, ImageMessageAnglais, ImageMessage, LogoNorvane;
};

extern FenetreMessage fenetreMessage;

// Writes the text into the window and shows it; returns when it has closed. Fails with 481
// on a missing picture.
void AfficherMessage(const std::string &texte);
