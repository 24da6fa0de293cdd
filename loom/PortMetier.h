// Opening and closing the loom's line.
#pragma once

#include <string>

// What releases the loom: ESC "R" CR LF.
inline const std::string kLiberer24 = "\x1BR\r\n";

// Opens port PortMetier at the speed of NombreLames (24: 1200 baud, 16: 9600, else as it stood) and tells its
// state in Text1. Sends nothing. Etat 1 and PortOuvert True; on a failure, which it has shown, Etat 0 and
// PortOuvert as it was. A port that is open already stays open, Etat 1.
void OuvrirPort();

// Lets pending events run, then releases the loom (ESC "R" CR LF) and closes. Nothing is sent to a closed
// port. Etat 1; 0 on a failure, which it has shown.
void FermerPort();
