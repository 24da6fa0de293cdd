#include "motifs/Arret.h"

#include <utility>

namespace {
thread_local std::stop_token jetonDuFil;
}

void PouvoirArreter(std::stop_token jeton) { jetonDuFil = std::move(jeton); }

void Souffler() {
  if (jetonDuFil.stop_requested()) throw Arrete();
}
