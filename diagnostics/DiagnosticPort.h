// Reporting of port events, the small terminal behind it, one-shot writes, and the listening field.
#pragma once

#include <string>

#include "controls/Controles.h"

// Writes once and closes, for diagnostics; Etat 0 while the port is not open, else 1. Leaves PortOuvert True.
// Held in reserve, for whoever tries a port by hand.
void EcrirePort(const std::string &texte);

// Tells the last event of the port in Remarque and Text1, or, when no event has ever been told, the last
// error in a message with a beep. Fails as the port does.
void AfficherEtatPort();

// Adds received text to a terminal box: backspaces work, line ends become CR LF, the oldest 4096 characters
// go above 16000. A failure is shown and passed over. `texte` is changed.
void AjouterTerminal(ZoneTexte &boite, std::string &texte);

// Enter takes the number typed as IntervalleEcoute, in milliseconds; the running timer keeps its period.
// Fails with 6 beyond 32767.
void TxtVitessePortSerie_KeyDown(int touche);
int TxtVitessePortSerie_KeyPress(int code);
