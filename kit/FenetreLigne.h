// The note that stands over the upper beam of the main window for as long as the line to the loom is gone, or
// takes nothing. It takes neither the keyboard nor the pointer, and goes by itself.
#pragma once

#include "controls/Controles.h"
#include "platform/PortSerie.h"

struct FenetreLigne : Fenetre {
  FenetreLigne();
  // The language in force, whether weaving goes on, and the place of the main window.
  void Suivre() override;
  void Visiter(Visiteur &v) override;
  void Load() override;

  Image Fond, Signe;
  Etiquette LblTitre, LblRemarque;
  bool Bloquee = false;  // the line is there and takes nothing
};

extern FenetreLigne fenetreLigne;

// Shows the note, or takes it away from a good line.
void MontrerEtatLigne(EtatLigne etat);
