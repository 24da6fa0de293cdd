// The one gate between the toolkit and the system, and the account of what the mirror writes.
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "platform/qt/natifs/MagasinImages.h"
#include "platform/qt/natifs/TouchesTenues.h"

class Natif;

class Guichet {
 public:
  Guichet(MagasinImages &images, std::function<void(const std::string &)> rapporter);

  // An event comes in: dropped while the mirror writes and after `Fermer`; otherwise its procedure runs under
  // the guard, then the windows are mirrored, then `Apres` runs. The procedure owns copies of what it calls,
  // since the record it was taken from can be made anew inside.
  void Passer(const std::function<void()> &procedure);
  bool Ouverte() const { return !ecrit_ && !fermee_; }
  void Fermer() { fermee_ = true; }

  // The mirror at work; signals from below are dropped meanwhile.
  void Ecrire(const std::function<void()> &travail);
  void Compter() { ++ecritures_; }
  long Ecritures() const { return ecritures_; }

  MagasinImages &Images;
  std::function<void()> Refleter, Apres;
  // A message stands and takes the key that was pressed: true. Called outside any event.
  bool Repondre();
  std::function<bool()> MessageRepond;
  const Natif *Presse = nullptr;  // the control of the last press, in whatever window; only compared
  QPointer<QWidget> AuClavier;     // the button that was pressed last, null where the mouse did it
  const TouchesTenues Touches;
  int Defilement =
      0;  // pixels down that all windows stand from their places, on a screen too low for the main one

 private:
  std::function<void(const std::string &)> rapporter_;
  bool ecrit_ = false, fermee_ = false;
  long ecritures_ = 0;
};

// What a native widget last showed of one property.
template <class T>
class Montre {
 public:
  // Writes the wanted value where it is not the shown one. A tuple of references is compared where its parts
  // lie: a shed waits for the mirror, and nearly all of it stands as it stood.
  template <class U = T, class Ecriture>
  void Suivre(Guichet &guichet, const U &voulu, Ecriture &&ecriture) {
    if (valeur_ && *valeur_ == voulu) return;
    guichet.Compter();
    ecriture(voulu);
    valeur_.emplace(voulu);
  }
  // The widget shows this by itself, since the weaver entered it.
  void Savoir(T valeur) { valeur_ = std::move(valeur); }
  void Oublier() { valeur_.reset(); }

 private:
  std::optional<T> valeur_;
};
