// The faces of the command buttons: caption, picture and kind of each.
#pragma once

// Paints the face of one button, 0..21, in the language in force: face, lamp, caption, picture. Fails with 53
// or 481 on a missing picture.
void DessinerBouton(int index, bool voyant);
