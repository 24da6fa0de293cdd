#include "motifs/Motif.h"

#include <bit>

int PlusHaute(Lames lames) { return kLamesMax - std::countl_zero(lames); }

std::string ListeLames(Lames lames) {
  std::string liste;
  for (; lames; lames &= lames - 1) {
    if (!liste.empty()) liste += ',';
    liste += std::to_string(std::countr_zero(lames) + 1);
  }
  return liste;
}
