#include "weaving/RetourLigne.h"

#include "display/GrilleDuites.h"
#include "session/FenetreTissagePrincipale.h"
#include "session/ModuleTissage.h"

void RenvoyerDuite() {
  if (!fenetre.TissageEnCours || !fenetre.PortOuvert || session.NombreDuites < 1) return;
  MSComm1().OutBufferCount(0);
  RedessinerSelonDirection();
}
