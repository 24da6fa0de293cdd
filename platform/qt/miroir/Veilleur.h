// Turns the toolkit's mouse and key events of one window into the events of its controls.
#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <vector>

#include "platform/qt/natifs/NatifCadre.h"

class QInputMethodEvent;
class QKeyEvent;
class QMouseEvent;

class Veilleur : public QObject {
 public:
  Veilleur(NatifCadre &cadre, bool principale, Guichet &guichet)
      : fenetre_(cadre), principale_(principale), guichet_(guichet) {}

  void Surveiller(Natif &natif);
  bool eventFilter(QObject *source, QEvent *e) override;
  // After a mirroring: the keyboard goes into a panel that its press opened, and back when it has gone.
  void SuivreVolet();

 private:
  // Mouse. True: the toolkit does not see the event.
  bool Souris(Natif &natif, QMouseEvent &e);
  void PointeurParti(const Natif &natif);
  // False: a double click's second press, which presses nothing here.
  bool Presser(Natif &natif, const QMouseEvent &e);
  void Relacher(Natif &natif, const QMouseEvent &e);

  // Keys.
  bool Enfoncer(Natif &natif, QWidget &source, QKeyEvent &e);
  bool Saisir(Natif &natif, QKeyEvent &e, bool repetee);
  bool Commander(Natif &natif, int code, int maj);
  bool Filtrer(Natif &natif, QKeyEvent &e);
  bool Filtrer(Natif &natif, QInputMethodEvent &e);
  // Calls the procedure where there is one.
  bool Avertir(const Controle &controle, int code, int maj);

  // Whole window.
  bool Cadre(QEvent &e);
  void Parcourir(int pas);
  std::vector<Natif *> OrdreLecture() const;
  QPoint Centre(const Natif &natif) const;
  bool DansVolet(const Natif &natif) const;

  NatifCadre &fenetre_;
  const bool principale_;
  Guichet &guichet_;
  QHash<QObject *, Natif *> natifs_;
  std::vector<Natif *> ordre_;
  Natif *presse_ = nullptr;
  bool muette_ = false;       // the press that stands pressed nothing, and so its release is none
  QRect lieuPresse_;          // of the control on the screen, before its press moved it
  Natif *dernier_ = nullptr;  // the last that Tab reached, also after it was hidden
  bool voletOuvert_ = false;
  QPointer<QWidget> retour_;  // the button that opened the panel
  bool rejoue_ = false;       // an event that the filter sends on itself
};
