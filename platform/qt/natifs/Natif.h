// One control and the native widget that shows it.
#pragma once

#include <QPointer>
#include <QWidget>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "controls/Controles.h"
#include "platform/qt/natifs/Guichet.h"

class Natif {
 public:
  virtual ~Natif() = default;
  Natif(const Natif &) = delete;
  Natif &operator=(const Natif &) = delete;

  // That of a widget, null where the widget shows no control.
  static Natif *De(const QWidget &widget);

  QWidget *Widget() const { return widget_; }
  // The control may lie elsewhere after its window was made anew; every mirroring tells where it is now.
  Controle &Donnee() const { return *donnee_; }
  void Relier(Controle &donnee) { donnee_ = &donnee; }

  // Moves what differs to the widget.
  void Refleter();
  void Cacher();

  // Takes the keyboard and the mouse by itself, as fields do.
  virtual bool Saisie() const { return false; }
  // Takes typed characters.
  virtual bool Ecriture() const { return false; }
  // Reports its click by itself.
  virtual bool ClicPropre() const { return false; }
  // Can be reached by Tab.
  bool Atteignable() const { return widget_->isVisible() && (Saisie() || Bouton() || donnee_->Annonce); }
  bool Bouton() const;
  // What a press does that no mouse did.
  void Presser();
  // Widgets whose events belong to this control.
  virtual std::vector<QWidget *> Sources() const { return {widget_}; }

 protected:
  Natif(QWidget *widget, Controle &donnee, Guichet &guichet);
  // Place, visibility and what only this kind shows.
  virtual void RefleterPlace();
  virtual void RefleterGenre() {}
  // Where the widget stands in its parent, pixels.
  virtual QRect Rectangle() const;
  void RefleterPointeur();

  template <class T>
  T &Donnee() const {
    return static_cast<T &>(*donnee_);
  }

  Guichet &guichet_;
  Montre<QRect> place_;
  Montre<bool> visible_;

 private:
  void RefleterFocus();
  void RefleterAcces();
  QWidget *widget_;
  Controle *donnee_;
  Montre<std::tuple<int, std::string>> pointeur_;
  Montre<std::string> nomAccessible_, descriptionAccessible_;
  Montre<std::optional<bool>> enMarche_;
  Montre<bool> bouton_;
};

// The widget that suits a control's kind, hidden until it is mirrored.
std::unique_ptr<Natif> CreerNatif(Controle &donnee, QWidget *parent, Guichet &guichet);
// Those that the mirror paints, and the fields.
std::unique_ptr<Natif> CreerNatifPeint(Controle &donnee, QWidget *parent, Guichet &guichet);
std::unique_ptr<Natif> CreerNatifSaisie(Controle &donnee, QWidget *parent, Guichet &guichet);
