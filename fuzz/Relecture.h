// What a pattern has to stand: its weavable form is read again with the same sheds, and as it stands too.
#pragma once

#include <cstdlib>

#include "motifs/FormeTissable.h"
#include "motifs/LectureMotif.h"
#include "motifs/Levees.h"

inline void Exiger(bool vrai) {
  if (!vrai) std::abort();
}

// The file of these sheds, read by this program and, line by line, as the loom's program reads it.
inline Motif Relire(const std::string &forme, const std::vector<Lames> &foules) {
  Motif lu = ComprendreMotif(forme, "relu");
  Exiger(lu.foules == foules && lu.liftplan);
  const TelQuel telQuel = LireTelQuel(lu);
  Exiger(telQuel.plan && telQuel.ferme && telQuel.echec == 0 && telQuel.autrement == 0);
  return lu;
}
