// What hangs on the state of the session and on no event of its own: the toolkit's words follow the language
// in force, the machine stays awake while the loom is at work.
#pragma once

#include "platform/PortSerie.h"
#include "platform/qt/machine/Catalogue.h"
#include "platform/qt/machine/Inhibiteur.h"

class SuiviSession {
 public:
  explicit SuiviSession(const PortSerie &port) : port_(port) {}
  // After every event; reads LangueFrancaise, TissageEnCours and the port.
  void Suivre();

 private:
  const PortSerie &port_;
  Catalogue catalogue_;
  Inhibiteur inhibiteur_;
};
