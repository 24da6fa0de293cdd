// What the main window does by itself: language, moving, centring, notification icon.
#pragma once

#include "base/Entier.h"

// The language flags: 1 French, any other English. Repaints everything, and redraws a plan, which sends its pick
// while weaving.
void Drapeau_Click(Entier index);

// The drag bar; places in twips inside the bar.
void BarreDeplacement_MouseDown(int bouton, double x, double y);
void BarreDeplacement_MouseMove(int bouton, double x, double y);
void BarreDeplacement_MouseUp(int bouton, double x, double y);
// Back to the middle of the screen.
void PicTVCentre_Click();

// Minimised or maximised, the window hides into the notification area.
void Form_Resize();
// X carries the message number of the icon, in twips; a left press brings the window back.
void Form_MouseMove(double x);
