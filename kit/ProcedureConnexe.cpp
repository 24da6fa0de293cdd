#include "kit/ProcedureConnexe.h"

#include "platform/Plateforme.h"
#include "session/ModuleTissage.h"

NotificationIcone notificationIcone;
int ActionIcone = 0;
Entier IconeActive;

namespace {
constexpr std::size_t kLongueurBulle = 64;  // bytes
}

void CentrerFenetreEcran(Fenetre &fenetre) {
  const Ecran ecran = plateforme().EcranDisponible();
  fenetre.Left = ecran.Left + ecran.Width / 2 - fenetre.Width / 2;
  fenetre.Top = ecran.Top + ecran.Height / 2 - fenetre.Height / 2;
}

void CentrerSurControle(Controle &objet, const Controle &reference) {
  objet.Left = reference.Left + reference.Width / 2 - objet.Width / 2;
  objet.Top = reference.Top + reference.Height / 2 - objet.Height / 2;
}

void CentrerHorizontalement(Controle &objet, const Controle &conteneur) {
  objet.Left = conteneur.Width / 2 - objet.Width / 2;
}

void EnfoncerBouton(Controle &bouton) {
  if (session.BoutonEnfonce) return;
  bouton.Top += kTwipsParPixel;
  bouton.Left += kTwipsParPixel;
  session.BoutonEnfonce = true;
}

void RelacherBouton(Controle &bouton) {
  if (!session.BoutonEnfonce) return;
  bouton.Top -= kTwipsParPixel;
  bouton.Left -= kTwipsParPixel;
  session.BoutonEnfonce = false;
}

void BasculerIconeNotification(Fenetre &fenetre, const std::string &texte, Entier cacher) {
  notificationIcone.Bulle = texte + '\0';
  notificationIcone.Bulle.resize(kLongueurBulle, ' ');
  if (cacher != 0) {
    ActionIcone = 0;
    fenetre.Visible = false;
  } else {
    ActionIcone = 2;
    fenetre.WindowState = 0;
    fenetre.Visible = true;
  }
  IconeActive = plateforme().IconeNotification(ActionIcone, notificationIcone.Bulle);
  // Where nothing can hold the icon, nothing could bring a hidden window back: it is only minimised.
  if (cacher != 0 && IconeActive == 0) fenetre.Visible = true;
}

int FiltreTouchesNumeriques(int code) {
  if ((code >= '0' && code <= '9') || code == Touche::Retour || code == '.') return code;
  return code == ',' ? '.' : 0;
}
