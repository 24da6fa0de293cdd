// Takes the lift plan of a pattern file into the session, as raw text, one line per pick.
#pragma once

// Lets the weaver choose a file and reads it. Leaves CheminWif, LignesWif, LignesTravail, the three counters,
// DuiteCourante on the last pick, and Etat 1; Etat 0 on cancel, on a file without lift plan, and on a
// failure, which it has shown. Calls InitialiserPatron first, so a cancelled dialog leaves no pattern.
void OuvrirFichierWif();

// Reads CheminWif again for a resumed project; LignesTravail stays empty, the cursor as it is. Accepts 24
// harnesses only. Etat as above.
void RelireFichierWif();

// Tells the weaver, in a modal window, that the file has no lift plan.
void AfficherSansLiftplan();

// "Number of picks / pattern: " and the count, into the label if it is visible.
void EcrireNombreLigne();
