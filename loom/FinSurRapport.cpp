#include "loom/FinSurRapport.h"

#include "loom/Protocoles.h"
#include "platform/Plateforme.h"

void RelacherAvantFin() {
  try {
    if (!MSComm1().PortOpen()) return;
    MSComm1().Output(kLiberer24);
    MSComm1().PortOpen(false);
  } catch (const ErreurExecution &) {
  }
}
