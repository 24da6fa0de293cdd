// Any bytes: refused in words, or a pattern that its own weavable form leaves as it is.
#include "fuzz/Relecture.h"
#include "motifs/Constats.h"
#include "motifs/Planche.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *octets, std::size_t nombre) {
  try {
    const Motif motif = ComprendreMotif({reinterpret_cast<const char *>(octets), nombre}, "motif");
    Verifier(motif);
    const Planche planche(motif);
    std::vector<Couleur> cases(static_cast<std::size_t>(planche.Largeur()));
    for (int y = 0; y < planche.Hauteur(); y += 7) planche.Ligne(y, cases.data());
    const std::string forme = FormeTissable(motif);
    const Motif encore = Relire(forme, motif.foules);
    Exiger(encore.enfilage == motif.enfilage && FormeTissable(encore) == forme);
  } catch (const Refus &) {
  }
  return 0;
}
