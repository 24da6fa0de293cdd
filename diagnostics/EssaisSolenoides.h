// Trying the solenoids without a pattern: by hand, by the walking test, by the loom's own test.
#pragma once

// A box changed: sends the whole set of ticked boxes in the protocol of NombreLames, in separate writes.
// Opens a closed port. Failures are shown.
void CheckSelenoide_Click();

// One step of the walking test: fires solenoid LameTest, unless the test was stopped. Nothing is caught.
void TestLames24();
// Starts the 16-harness loom's own test. Failures are shown.
void TestMetier16();
// The next solenoid, round from 24 to 1.
void Timer2_Timer();

// Start and stop of the test, commands 20 and 21.
void DebuterTest();
void ArreterTest();
