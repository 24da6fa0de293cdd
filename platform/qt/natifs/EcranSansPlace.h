// Wayland alone: a screen that lets no window place itself, and cuts none to its outline.
#pragma once

class QWidget;

// What lies outside the outline of a window is transparent; to be called before the window is made.
void LaisserVoirAutour(QWidget &cadre);
// The screen moves the window for as long as the button is held, and keeps the release for itself. False
// where windows place themselves.
bool ConfierDeplacement(QWidget &cadre);
