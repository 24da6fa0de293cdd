// The listener: polls the port and advances the pick when the loom reports its cycle complete.
#pragma once

// One poll. On 16 harnesses one advance however often "[CC]" stands in what was read; on any other count one
// for each letter "C". What does not match is dropped. Failures are shown, and the poll goes on with its next
// step. Lets pending events run.
void Timer3_Timer();

// Starts Timer3 at IntervalleEcoute milliseconds and polls once at once.
void ActiverEcouteMetier();
// Stops Timer3; the port is not touched.
void ArreterEcouteMetier();
