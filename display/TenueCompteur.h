// Keeps the counter on the upper beam as the draft and the session stand.
#pragma once

// Reads the red row of the draft, the plan, the cursor and the flags of weaving; writes the controls of
// `fenetre.Compteur` and nothing else. Runs before every mirroring, and changes nothing while a plan is made
// or the draft does not yet show the cursor's pick: so no pick is told before its shed has left. Never fails.
void TenirCompteur();
