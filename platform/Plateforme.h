// The seam: all that the system asks of the machine it runs on. The program puts Qt behind it, the tests a
// bench that records and replies.
#pragma once

#include <string>

#include "controls/Controles.h"
#include "platform/PortSerie.h"

// The file-open dialog. FileName goes in with the folder and a wildcard, and comes out with the chosen path.
struct DialogueFichier {
  bool CancelError = false;
  std::string FileName;
  std::string Filter;
  long Flags = 0;
};

// The message of the notification icon that brings the window back: the left button went down on it.
constexpr int kIconeBoutonGauche = 513;

// Available area of the screen on which the window opens, in twips.
struct Ecran {
  double Left, Top, Width, Height;
};

class Plateforme {
 public:
  virtual ~Plateforme() = default;

  virtual PortSerie &MSComm1() = 0;
  // Fails with 32755 when the weaver cancels and CancelError is set.
  virtual void ShowOpen(DialogueFichier &dialogue) = 0;

  // Lets pending events run: clicks, keys, ticks.
  virtual void DoEvents() = 0;
  // Brings the screen up to the data at once, and runs no events.
  virtual void Rafraichir() = 0;
  // The same for one window alone, for what changes a hundred times in one step.
  virtual void RafraichirFenetre(Fenetre &fenetre) = 0;
  // Shows a loaded window and returns at once.
  virtual void Montrer(Fenetre &fenetre) = 0;
  // Shows a loaded window and returns when it is no longer visible; timers go on meanwhile.
  virtual void MontrerModal(Fenetre &fenetre) = 0;
  virtual void DonnerFocus(Controle &controle) = 0;

  // Opens a web page or a mail address with the desktop's program; failures are not told.
  virtual void OuvrirAdresse(const std::string &adresse) = 0;
  // action 0 adds, 2 removes the icon of the minimised window; 1 when it worked, 0 when not.
  virtual Entier IconeNotification(int action, const std::string &bulle) = 0;
  virtual void Beep() = 0;
  // A question with Retry and Cancel; true for Retry.
  virtual bool DemanderReprise(const std::string &texte) = 0;

  // Pushes what was written to the journal onto the disk, without waiting for it. The descriptor may be
  // closed at once. A push that still waits for its turn takes with it what was written meanwhile.
  virtual void PousserSurDisque(int descripteur) = 0;
  // Whole days since 30 December 1899.
  virtual double Aujourdhui() = 0;
  virtual Ecran EcranDisponible() = 0;
  // A picture of the program by its name; fails with 481.
  virtual const Surface &Picture(const std::string &nom) = 0;
  // A picture file; fails with 53 or 481.
  virtual const Surface &LoadPicture(const std::string &chemin) = 0;
  // Folder of the program, without a promise about a trailing separator.
  virtual std::string DossierProgramme() = 0;

  // Asks for the end of the process once the running event is over.
  virtual void Terminer() = 0;
};

// The platform in force. One is installed before anything else runs.
Plateforme &plateforme();
void InstallerPlateforme(Plateforme *p);

// Members used everywhere, under their short names.
inline PortSerie &MSComm1() { return plateforme().MSComm1(); }
