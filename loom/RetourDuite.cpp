#include "loom/RetourDuite.h"

#include "pattern/MatriceLames.h"
#include "session/FenetreTissagePrincipale.h"

namespace {
constexpr int kLamesAuDepart = 24;  // of a new process

// Row 0 has no bits in any plan. A tabby line that a resume has left empty gets them in a new plan.
bool CommeAuFichier(int n) {
  const std::string &ligne = n < session.DepartPlan ? session.LignesWif[n] : session.LignesTravail[n];
  return fenetre.BitsDuite[n] == (n == 0 ? "" : BitsDeLigne(ligne, kLamesAuDepart));
}

int Derriere(int n) {
  if (session.DirectionTissage) return n - 1 < 1 ? int{session.NombreDuites} : n - 1;
  return n + 1 > session.NombreDuites ? 1 : n + 1;
}
}  // namespace

bool DuiteRetrouvable() {
  try {
    const int n = session.DuiteCourante;
    // A reading that began inside the lift plan has other lines than the next one will.
    if (session.LignesWif[0] != "[LIFTPLAN]") return false;
    if (n < session.DepartPlan - 1 || n > session.NombreDuites) return false;
    if (n > 0 && session.LignesTravail[n].empty()) return false;
    return CommeAuFichier(n) && CommeAuFichier(Derriere(n));
  } catch (const ErreurExecution &) {
    return false;
  }
}
