// One window of the system with all its controls and timers, mirrored.
#pragma once

#include <QTimer>
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "platform/qt/miroir/Veilleur.h"
#include "platform/qt/natifs/NatifCadre.h"

class FenetreNative : private Visiteur {
 public:
  // `principale` is the main window, or null for itself; the others lie above it, and it outlives them. The
  // data has to stay where it is, though it may be made anew there.
  FenetreNative(Fenetre &donnee, FenetreNative *principale, Guichet &guichet);
  ~FenetreNative() override;

  // Moves what differs. The native window is made when the data is first loaded, the widget of a control when
  // it is first to be seen; then both are only hidden.
  void Refleter();
  // Paints what was marked as changed, without running the event queue.
  void Repeindre();

  Fenetre &Donnee() const { return donnee_; }
  NatifCadre &Cadre();
  // Of a control as it lay at the last mirroring; null for a stranger and for one that was never to be seen.
  Natif *Trouver(const Controle &controle) const;

 private:
  struct MinuterieNative {
    Minuterie *donnee = nullptr;
    QTimer horloge;
    Montre<std::tuple<int, unsigned>> montree;
    unsigned passage = 0;
    int tics = 0;  // that run, one inside the other
  };
  struct Place {
    std::unique_ptr<Natif> natif;
    unsigned passage = 0;
  };

  void Voir(const std::string &nom, Controle &controle, Controle &parent) override;
  void Voir(const std::string &nom, Minuterie &minuterie) override;
  void Retirer();
  void CacherAbsents();

  Fenetre &donnee_;
  FenetreNative *principale_;
  Guichet &guichet_;
  std::unique_ptr<PeintDessin> peint_;
  std::unique_ptr<NatifCadre> cadre_;
  std::unique_ptr<Veilleur> veilleur_;
  std::unordered_map<std::string, Place> places_;
  std::unordered_map<const Controle *, Natif *> adresses_;
  std::unordered_map<std::string, MinuterieNative> minuteries_;
  std::unordered_set<QWidget *> enrichis_;  // got a child in the walk that runs
  unsigned passage_ = 0;                    // counts the walks, to find what a walk no longer met
};
