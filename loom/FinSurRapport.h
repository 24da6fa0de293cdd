// The end of the process behind the report of a failure that nobody caught.
#pragma once

// Releases the loom and closes the port where it is open, so that no solenoid stays on behind a program that
// is gone. Lets no event run, touches nothing of the session; a failure is swallowed, for nobody is left to
// be told.
void RelacherAvantFin();
