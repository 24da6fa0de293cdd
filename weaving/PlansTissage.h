// The plans that mix pattern and tabby. Each builder fills LignesTravail, sets NombreDuites and ends in
// ConstruireMatrice; all fail with 9 where a plan leaves its tables, and nothing catches it.
#pragma once

// Builds ToileA and ToileB for NombreLames, takes ToileDepart from field 8 of the panel and shows both lines.
// Nothing without a plan.
void LireLiaisons();

void ConstruirePatron();  // option 1: the lift plan as it stands
void ConstruireToile();   // option 2: twenty times tabby A, tabby B
// Option 3: from the cursor on a tabby between every two pattern picks. The first half builds no matrix and
// is always followed by the second.
void ConstruirePatronToile();
void ConstruirePatronToileInverse();
