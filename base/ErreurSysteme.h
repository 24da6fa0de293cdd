// Failures of the operating system told as run-time failures.
#pragma once

#include "base/ErreurExecution.h"

// Throws the failure that stands for an errno value: 53, 61, 70, 75, 76 or 57.
[[noreturn]] void LeverErreurSysteme(int errnoValeur);
// The same failure, to be told without being thrown.
ErreurExecution ErreurSysteme(int errnoValeur);
