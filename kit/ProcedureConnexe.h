// Placing of windows and controls, the pressed look of buttons, the notification icon, and the keys of number
// fields.
#pragma once

#include "controls/Controles.h"

// Middle of the screen's available area.
void CentrerFenetreEcran(Fenetre &fenetre);
// Middle of `objet` on the middle of `reference`, both in the same container.
void CentrerSurControle(Controle &objet, const Controle &reference);
// Middle of the container's width; Top is left alone.
void CentrerHorizontalement(Controle &objet, const Controle &conteneur);

// One pixel right and down while no button is pressed, and back. The flag is shared by all picture buttons.
void EnfoncerBouton(Controle &bouton);
void RelacherBouton(Controle &bouton);

// The record that the notification area takes, one for adding and removing.
struct NotificationIcone {
  int Taille = 88;
  int Identifiant = 1;
  int Drapeaux = 7;
  int MessageRappel = 512;
  std::string Bulle;  // 64 characters: the text, a 0, blanks
};
extern NotificationIcone notificationIcone;
extern int ActionIcone;     // 0 add, 2 delete
extern Entier IconeActive;  // 1 when the last call worked

// `cacher` not 0 adds the icon and hides the window, which stays where no icon can be had; 0 removes it and
// puts the window back to its normal state.
void BasculerIconeNotification(Fenetre &fenetre, const std::string &texte, Entier cacher);

// The key filter of the number fields: digits, backspace and the period pass, a comma becomes a period; 0 for
// any other key.
int FiltreTouchesNumeriques(int code);
