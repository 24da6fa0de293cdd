// The everyday message window: every failure ends here. It closes itself and never blocks its caller.
#pragma once

#include <functional>

#include "base/ErreurExecution.h"
#include "base/Table.h"
#include "controls/Controles.h"

struct FenetreMessageCourt : Fenetre {
  FenetreMessageCourt();
  void Visiter(Visiteur &v) override;
  // Paints, takes title and picture of the kind in Etat, and starts the ticks; the first is run by hand.
  void Load() override;
  void Unload() override;

  Minuterie Timer1;
  Etiquette LblTitre;
  Image DessinMessage;
  Table<Etiquette, 5> Ligne;  // 1..5
  Entier CompteurFermeture;   // ticks; the fifth closes the window
  bool EnLecture = false;     // it stays until it is read
};

extern FenetreMessageCourt fenetreMessageCourt;

// Raises the message: title, and the text on the second line; lines 1, 3, 4 and 5 stay empty. A message that
// stands already is overwritten and lives no longer for it.
void AfficherMessageCourt(const std::string &titre, const std::string &texte);

// Takes the message away: False where none stands.
bool FermerMessageCourt();

// Runs `suite` where no message stands: at once, or when the one that stands is unloaded. One at a time.
void ApresLeMessage(std::function<void()> suite);

// The last word before the process ends: keeps the message that stands, says below it what ends the process,
// and waits for that key or click. A second call meanwhile ends the waiting of the first.
void AttendreLecture();

// Title "Erreur" or "Error", and "Erreur numéro:", the number, "; Description: ", the description, which also
// go to MessageErreur.
void AfficherErreurNumerotee(const ErreurExecution &e);
// The same with the description alone.
void AfficherDescription(const ErreurExecution &e);
// Runs one step; its failure is shown by the description, and whatever stands behind it goes on.
template <class F>
void Poursuivre(F &&etape) {
  try {
    etape();
  } catch (const ErreurExecution &e) {
    AfficherDescription(e);
  }
}

// The ground of a message, its title `haut` twips from the top, and the picture beside it.
void PoserTitreMessage(Fenetre &message, Etiquette &titre, Image &dessin, double haut);
// Picture and title of a message kind; any other `Etat` leaves both, and 0 hides the picture.
void AppliquerGenreMessage(Image &dessin, Etiquette &titre);
