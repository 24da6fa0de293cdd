// The faces of the command buttons.
#pragma once

// Paints the face of one button, 0..21, from its row, in the language in force: face, lamp, caption, picture.
// Fails with 53 or 481 on a missing picture, 9 on another index.
void DessinerBouton(int index);
