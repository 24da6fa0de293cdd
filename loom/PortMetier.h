// Opening and closing the loom's line.
#pragma once

// Opens port PortMetier with the settings of its protocol and tells its state in Text1. Sends nothing. Etat 1
// and PortOuvert True; on a failure, which it has shown, Etat 0 and PortOuvert as it was. A port that is open
// already stays open, Etat 1.
void OuvrirPort();

// Opens a port that is closed, as OuvrirPort does.
void OuvrirAuBesoin();

// Releases the loom in the words of its protocol, which tells whether a closed port is opened for it. Fails
// as the port does.
void RelacherMetier();

// Lets pending events run, then releases the loom (ESC "R" CR LF) and closes. Nothing is sent to a closed
// port. Etat 1; 0 on a failure, which it has shown.
void FermerPort();
