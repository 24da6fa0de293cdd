// How the main window is put together.
#pragma once

// The start-up sequence: session, configuration, window, faces, plan of the option in force. Runs when the
// window is made and once more from Refresh. Reads and writes the whole session. A stored cursor for which no
// plan can be built is told in a message and leaves no plan. Fails with 53 or 481 on a missing picture.
void Form_Load();

// Gives the window the outline of its skin, with the progress window standing meanwhile. Fails with 481.
void AppliquerFormeFenetre();

// Paints all faces, lamps, captions and pictures in the language in force, and both panels. Fails with 53 or
// 481.
void DessinerBoutons();

// Puts the red box around the flag of the language in force.
void PlacerMarqueLangue();

// Whether the window stands at its kept place; with help bubbles off a vertical move does not count.
bool EstAPlaceInitiale();
