// The sets of buttons of the main window that are shown and hidden together.
#pragma once

void CacherBoutonsTissage();        // hides 4, 5, 17, 6, 7, 8; shows 16
void MontrerBoutonsTissage();       // the reverse
void MontrerDepartArret();          // shows 9, 10
void CacherDepartArret();           // hides 9, 10
void CacherCommandesPrincipales();  // hides 0, 1, 2, 3, 9, 10, 14, 18, 16 and the language flags
// Shows 0, 1, 3, 14, 18, 16 and the language flags, and 9, 10 once a pattern was loaded. Save does not come
// back.
void MontrerCommandesPrincipales();
