// The device goes, is waited for, and is back.
#include "platform/qt/PortSerieQt.h"
#include "platform/qt/ReglagesPort.h"

// The descriptor is free before the name can stand for a new device.
bool PortSerieQt::OuvrirAppareil() {
  port_.close();
  const std::string appareil = AppareilSous(nom_);
  if (appareil.empty()) return false;
  port_.setPortName(QString::fromStdString(appareil));
  Regler();
  if (!port_.open(QIODevice::ReadWrite)) return false;
  if (protocole_ == 0) port_.setRequestToSend(rts_);
  partis_.erase(numero_);
  return true;
}

void PortSerieQt::Perdre() {
  if (!Presente()) return;
  absent_ = aDire_ = true;
  partis_[numero_] = nom_;
  emission_.Reprendre();
  reprise_.stop();
  // Not inside the toolkit's own reading or writing.
  QMetaObject::invokeMethod(
      &port_,
      [this] {
        if (Coupee()) Lacher();
      },
      Qt::QueuedConnection);
  Dire(EvenementLigne::Coupee);
}

void PortSerieQt::Lacher() {
  if (!port_.isOpen()) return;
  Prendre();
  port_.close();
}

void PortSerieQt::Tourner() {
  if (Presente()) Sonder(0);
  if (!Coupee()) return;
  Lacher();
  if (!OuvrirAppareil()) return;
  absent_ = false;
  Dire(EvenementLigne::Revenue);
  Pousser();
}
