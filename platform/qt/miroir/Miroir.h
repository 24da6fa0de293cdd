// Mirrors the windows of the system, which are plain data, onto native ones, and lets their events in.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "controls/Controles.h"
#include "platform/qt/miroir/FenetreNative.h"
#include "platform/qt/natifs/Guichet.h"

class Miroir {
 public:
  // `rapporter` receives the report of a failure that nobody caught, and does not come back.
  Miroir(MagasinImages &images, std::function<void(const std::string &)> rapporter);
  ~Miroir();

  // The first window is the main window. A window that is known already is not added again.
  void Ajouter(Fenetre &fenetre);

  // Brings every window up to its data; writes nothing where nothing changed, and runs no events.
  void Refleter();
  // Paints at once what `Refleter` changed.
  void Repeindre();
  // Both for one window alone; nothing for a stranger.
  void RefleterEtRepeindre(Fenetre &fenetre);

  // Runs a procedure as an event.
  void Passer(const std::function<void()> &procedure) { guichet_.Passer(procedure); }
  // No event comes in any more.
  void Fermer() { guichet_.Fermer(); }
  // Runs after every event.
  void ApresEvenement(std::function<void()> apres) { guichet_.Apres = std::move(apres); }

  // Runs before each mirroring of all windows, and only writes data.
  void AvantReflet(std::function<void()> avant) { avantReflet_ = std::move(avant); }

  // Asked by a fresh press of Escape, Enter or Space before anything else hears it: true, and it is taken.
  void MessageRepond(std::function<bool()> repond) { guichet_.MessageRepond = std::move(repond); }

  // Brings the main window to the front, and the others that stand above it.
  void MettreDevant();
  void Modale(Fenetre &fenetre, bool modale);
  // Gives the keyboard to a control, at the mirroring that first shows it where it is not to be seen yet.
  void DonnerFocus(Controle &controle);

  // The native widget of a control or window; null while there is none.
  QWidget *Widget(const Controle &controle) const;
  // The main window's, null before its first mirroring.
  QWidget *Principale() const;
  // Properties written so far.
  long Ecritures() const { return guichet_.Ecritures(); }

 private:
  FenetreNative *Trouver(const Fenetre &fenetre) const;
  void AccorderFocus();

  Guichet guichet_;
  std::function<void()> avantReflet_;
  const Controle *focusVoulu_ = nullptr;  // only compared, for it may lie elsewhere by then
  std::vector<std::unique_ptr<FenetreNative>> fenetres_;
};
