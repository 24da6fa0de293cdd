// Window outlines taken from pictures.
#pragma once

#include "controls/Controles.h"

// The runs of pixels that differ from the top left one. The last column always counts as transparent, and
// rows are never merged. Empty when no pixel is opaque. Shows its percent in Attente when that is visible.
// Fails with 11 on a picture of height 1.
Region CreerRegionImage(const Surface &image);

// Gives the window the outline of the picture in the box, which goes to the window's top left corner. Fails
// as CreerRegionImage does.
void FaconnerFenetre(Fenetre &fenetre, BoitePicture &boite);
