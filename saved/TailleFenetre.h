// How large the weaver wants the window: a file of its own beside the settings, whose records have no room
// for it. Sizes are percent of the drawn window.
#pragma once

#include <string>

constexpr int kTaillesFenetre[] = {100, 125, 150, 200};

// What `Data` of the folder keeps; 100 where nothing is kept, or no size.
int LireTailleFenetre(const std::string &dossier);
// Fails as writing a file does.
void GarderTailleFenetre(const std::string &dossier, int taille);

// The largest size up to `voulue` at which the window lies within a screen of so many pixels at 100; 100
// where none does.
int TailleTenue(int voulue, int largeurEcran, int hauteurEcran);
// The next size up (`sens` above 0) or down; the same where there is none.
int TailleVoisine(int taille, int sens);
