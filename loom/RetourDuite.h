// Whether a new process can put the shed of the pick in hand on the loom again: by opening the pattern,
// building the same plan, and entering the number of the pick.
#pragma once

// True where the rows of the pick and of the one behind it, in the direction in force, hold what their lines
// alone say, on 24 harnesses, and a plan that is built anew holds these lines. A plan of pattern and tabby
// built at cursor c does from row c - 1 on; the rows before it, and what row c - 1 has kept of an earlier
// plan, count only as far as they are the pattern's own. Reads the plan and BitsDuite, and never fails.
bool DuiteRetrouvable();
