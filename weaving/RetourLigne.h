// The device behind an open port is back.
#pragma once

// While weaving, empties what waits to go out and draws the draft once more, as a language flag does; the
// redraw sends the red row. How much the loom had heard of a frame that the cable cut, nobody knows. Does
// nothing while nothing is woven. Fails as the redraw does.
void RenvoyerDuite();
