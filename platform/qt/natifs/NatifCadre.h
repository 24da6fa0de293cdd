// The frame of a window as a native one, without a border: title, ground, outline, place and state.
#pragma once

#include "platform/qt/natifs/Natif.h"
#include "platform/qt/natifs/Peints.h"

class NatifCadre : public Natif {
 public:
  // `cadre` is the top-level widget, which somebody else owns; it has to outlive this.
  NatifCadre(PeintDessin *cadre, Fenetre &donnee, bool principale, Guichet &guichet);

  Fenetre &LaFenetre() const { return Donnee<Fenetre>(); }
  // Blocks the other windows from its next showing on, and takes the keyboard then.
  void Modale(bool modale);
  // Over the windows of other programs, with those of its own above it; the keyboard goes to it, or to the
  // modal window.
  void MettreDevant(bool activer = true);
  // Raises the windows that belong above this one: a window manager that has activated it may have raised it
  // over them.
  void LeverAutres();
  // The window manager moved the window, or changed its state.
  void Deplacee();
  void EtatChange();
  // The pointer is at this height of the screen. Where the window is higher than the screen, the edge that
  // the pointer touches brings in what lies beyond it: true, and all windows have other places.
  bool Defiler(int y);

 protected:
  void RefleterGenre() override;
  void RefleterPlace() override;

 private:
  void Paraitre();
  void AnnoncerResize();
  QRect PlaceNative() const;

  PeintDessin *cadre_;
  const bool principale_;
  Montre<Couleur> fond_;
  Montre<std::uint64_t> version_;
  Montre<std::string> titre_;
  Montre<Region> contour_;
  Montre<QString> mots_;  // of a message, for those who listen
  Montre<int> etat_;
  bool etatConnu_ = false;
};
