// What the main window does by itself: language, moving, centring, about window, link, notification icon.
#pragma once

#include "base/Entier.h"

// The press effect of a command, 0..21, and no logic.
void BoutonProgramme_MouseDown(Entier index);
void BoutonProgramme_MouseUp(Entier index);

// The language flags: 1 French, any other English. Repaints everything, and redraws a plan, which sends its
// pick while weaving. Fails with 53 or 481 on a missing picture, and as AfficherDuites does.
void Drapeau_Click(Entier index);

// The drag bar; places in twips inside the bar. Away from the kept place a move turns help off and shows the
// centring button in place of command 11.
void BarreDeplacement_MouseDown(int bouton, double x, double y);
void BarreDeplacement_MouseMove(int bouton, double x, double y);
void BarreDeplacement_MouseUp(int bouton, double x, double y);
// Back to the middle of the screen.
void PicTVCentre_Click();

// The about window over the bare skin; returns when it has closed, with everything brought back.
void BoutonAide_Click();
// Opens the maker's web site.
void LogoNor_Click();

// Minimised or maximised, the window hides into the notification area.
void Form_Resize();
// X carries the message number of the icon, in twips; a left press brings the window back.
void Form_MouseMove(double x);
