// The help bubbles: four shaped windows, one for each corner in which the tail points, and how they open and
// close. Every Afficher procedure writes the status line `Remarque` and, with BullesActives, shows its
// bubble.
#pragma once

#include "base/Entier.h"
#include "base/Table.h"
#include "controls/Controles.h"
#include "kit/TextesBulles.h"

struct BulleInfo : Fenetre {
  void Visiter(Visiteur &v) override;
  // Shapes the window; the texts are written by whoever shows it.
  void Load() override;

  BoitePicture PicTransparente;
  Table<Etiquette, 6> LBlMessage;  // 1..6

 protected:
  // Place of a line, in twips.
  struct Ligne {
    int gauche, haut, largeur;
  };
  BulleInfo(const char *picture, const Ligne (&lignes)[6]);

 private:
  std::string picture_;
};

struct BulleInfoBasGauche : BulleInfo {
  BulleInfoBasGauche();
};
struct BulleInfoHautDroit : BulleInfo {
  BulleInfoHautDroit();
};
struct BulleInfoHautGauche : BulleInfo {
  BulleInfoHautGauche();
};
struct BulleInfoBasDroit : BulleInfo {
  BulleInfoBasDroit();
};

extern BulleInfoBasGauche bulleInfoBasGauche;
extern BulleInfoHautDroit bulleInfoHautDroit;
extern BulleInfoHautGauche bulleInfoHautGauche;
extern BulleInfoBasDroit bulleInfoBasDroit;

// Help of a command, 0..21; any other index only empties BulleInfoBasDroit.
void AfficherBulleBouton(Entier index);
void AfficherBulleAide();
// 1 French, 2 English; any other index does nothing.
void AfficherBulleDrapeau(Entier index);
void AfficherBulleBarre();
void AfficherBulleLogo();

// Empties the status line and unloads every bubble that stands. One that was not loaded is loaded by the
// question and stays hidden.
void FermerBulles();

// The status line: the text of a control, in the language in force.
void EcrireRemarque(const Controle &controle, Paire texte);
void EffacerRemarque();
// After a command: the text of a control that has gone goes too, that of one that stands changes its
// language.
void AccorderRemarque();
