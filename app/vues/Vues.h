// Every window, panel, bubble and message of the real program, raised one after the other by the commands
// that the weaver has: for looking at them all, and for measuring what they show.
#pragma once

#include <QTemporaryDir>
#include <functional>
#include <memory>
#include <string>

#include "controls/Controles.h"
#include "platform/qt/machine/PlateformeQt.h"

class Vues {
 public:
  // Takes one view: its name, and the window that stands.
  using Prise = std::function<void(const std::string &nom, Fenetre &fenetre)>;

  // Makes a program's folder of its own out of `programme`, with a loom on COM 1 that says nothing.
  Vues(const std::string &programme, Prise prendre);
  ~Vues();

  // All views in one language, from a fresh start on.
  void Parcourir(bool francais);
  // The native widget of a window.
  QWidget *Natif(const Controle &c) const;
  // The program's folder.
  std::string Dossier() const { return dossier_.path().toStdString(); }

 private:
  class Machine;
  void LancerProgramme(bool francais);
  void Prendre(const std::string &nom, Fenetre &f);
  // Does it as an event of the window, then takes the view.
  void Voir(const std::string &nom, Fenetre &f, const std::function<void()> &lever);
  void Faire(const std::function<void()> &procedure);
  void Ouvrir(const char *motif);
  void VoirDebut();
  void VoirPanneaux();
  void VoirTissage();
  void VoirBulles();
  void VoirMessages();

  Prise prendre_;
  QTemporaryDir dossier_;
  std::unique_ptr<Machine> machine_;
  int ligne_ = -1;   // the loom's end of the line
  std::string nom_;  // of the view that a modal window stands for
};
