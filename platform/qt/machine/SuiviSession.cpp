#include "platform/qt/machine/SuiviSession.h"

#include "session/FenetreTissagePrincipale.h"
#include "session/ModuleTissage.h"

void SuiviSession::Suivre() {
  catalogue_.Suivre(session.LangueFrancaise);
  inhibiteur_.Empecher(fenetre.TissageEnCours && port_.PortOpen(), Selon("Tissage en cours", "Weaving"));
}
