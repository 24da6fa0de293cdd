// The sets of buttons of the main window that are shown and hidden together; each row of session/Commandes.h
// names its own.
#pragma once

void CacherBoutonsTissage();        // hides the weaving set; shows Refresh
void MontrerBoutonsTissage();       // the reverse
void MontrerDepartArret();          // shows Start and Stop
void CacherDepartArret();           // hides them
void VoirEntrees(bool visibles);    // shows or hides Open, Resume, Configure and Diagnostics
void CacherCommandesPrincipales();  // hides the main set, Save, Start, Stop and the language flags
// Shows the main set and the language flags, and Start and Stop once a pattern was loaded. Save does not come
// back.
void MontrerCommandesPrincipales();
