// The pointer over the main window: help in the status line and in bubbles, swelling buttons, pointers.
#pragma once

#include "base/Entier.h"

// Whether help can stand beside its command. Away from the kept place it cannot: the bubbles close and help
// is turned off for good.
bool AccepterSurvol();

// Places of the pointer do not matter to any of these.
void BoutonProgramme_MouseMove(Entier index);
void BoutonAide_MouseMove();
void Drapeau_MouseMove(Entier index);
void LogoNor_MouseMove();
void PicTVCentre_MouseMove();
void TxtVitessePortSerie_MouseMove();
// The port field, by pointer, keyboard or choice: the device behind the number that it shows.
void RemarquerAppareil();

// These end the hover.
void Picture2_MouseMove();
void FenetreConfiguration_MouseMove();
void PicNor_MouseMove();  // and tells the status text of the logo
