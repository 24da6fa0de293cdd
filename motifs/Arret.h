// Long work can be called off: its loops look now and then whether it is still wanted.
#pragma once

#include <stop_token>

// Comes out of work that was called off. No failure, so no handler of failures takes it.
struct Arrete {};

// What this thread does from here on can be called off by `jeton`.
void PouvoirArreter(std::stop_token jeton);

// Throws Arrete where the work of this thread was called off. Of next to no cost.
void Souffler();
