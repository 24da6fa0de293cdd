// The device goes, is waited for, and is back; or stays and takes nothing.
#include "platform/qt/machine/PortSerieQt.h"

// What the system held or was still to have is forgotten: how much of it the loom has heard, nobody knows.
void PortSerieQt::Perdre() {
  if (!Presente()) return;
  absent_ = true;
  bloquee_ = false;
  essaisVains_ = 0;
  partis_[numero_] = nom_;
  emission_.Vider();
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

// A look of the timer at a line that did not take all. Looks are counted, not the time: a program that was
// itself stopped has not tried.
void PortSerieQt::Insister() {
  if (!Pousser() && Presente() && !emission_.Vide() && ++essaisVains_ == kEssaisVains) Bloquer(true);
}

void PortSerieQt::Bloquer(bool bloquee) {
  if (bloquee_ == bloquee) return;
  bloquee_ = bloquee;
  if (bloquee) emission_.GarderDernierTour();
  Dire(bloquee ? EvenementLigne::Bloquee : EvenementLigne::Debloquee);
}
