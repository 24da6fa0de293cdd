#include "kit/FenetreMessageCourt.h"

#include <utility>

#include "base/TexteNumerique.h"
#include "kit/FondFenetre.h"
#include "kit/ProcedureConnexe.h"
#include "platform/Plateforme.h"
#include "session/Journal.h"
#include "session/ModuleTissage.h"

FenetreMessageCourt fenetreMessageCourt;

namespace {
constexpr int kIntervalle = 1000;  // milliseconds
constexpr int kDernierTic = 5;
std::function<void()> suite;  // waits until no message stands

void Timer1_Timer() {
  FenetreMessageCourt &f = fenetreMessageCourt;
  ++f.CompteurFermeture;
  if (f.CompteurFermeture != kDernierTic) return;
  f.Timer1.Interval(0);
  Decharger(f);
}

void Fermer() { FermerMessageCourt(); }
}  // namespace

FenetreMessageCourt::FenetreMessageCourt() {
  Message = true;
  Width = 8835;
  Height = 3720;
  Fenetre::Caption = "Note";
  PoserTitreMessage(*this, LblTitre, DessinMessage, 795);
  for (int i = 1; i <= 5; ++i) {
    Placer(Ligne[i], 825, 1305 + 285 * (i - 1), 7740, 225);
    Ligne[i].Caption = "Ligne(" + std::to_string(i) + ")";
    Ligne[i].Font = {"MS Sans Serif", 9.75, true, false};
  }
}

void FenetreMessageCourt::Visiter(Visiteur &v) {
  v.Voir("LblTitre", LblTitre, *this);
  v.Voir("DessinMessage", DessinMessage, *this);
  for (int i = 1; i <= 5; ++i) v.Voir("Ligne(" + std::to_string(i) + ")", Ligne[i], *this);
  v.Voir("Timer1", Timer1);
}

void FenetreMessageCourt::Load() {
  CentrerFenetreEcran(*this);
  Click = Fermer;
  for (int i = 1; i <= 5; ++i) Ligne[i].Click = Fermer;
  Timer1.Timer = Timer1_Timer;

  Dessin.Refaire(589, 248, BackColor);
  PeindreFenetreMessage(Dessin);
  AppliquerGenreMessage(DessinMessage, LblTitre);
  CompteurFermeture = 0;
  if (session.IntervalleMessageCourt == 0) session.IntervalleMessageCourt = kIntervalle;
  Timer1.Interval(session.IntervalleMessageCourt);
  Timer1_Timer();
}

void FenetreMessageCourt::Unload() {
  if (const auto attendue = std::exchange(suite, nullptr)) attendue();
}

bool FermerMessageCourt() {
  if (!fenetreMessageCourt.Visible) return false;
  Decharger(fenetreMessageCourt);
  return true;
}

void ApresLeMessage(std::function<void()> procedure) {
  suite = std::move(procedure);
  if (!fenetreMessageCourt.Visible) fenetreMessageCourt.Unload();
}

void PoserTitreMessage(Fenetre &message, Etiquette &titre, Image &dessin, double haut) {
  message.BackColor = Rgb(255, 192, 128);
  Placer(titre, 2115, haut, 4680, 210);
  titre.Caption = "Titre";
  titre.Font = {"MS Sans Serif", 8.25, true, false};
  titre.Alignment = Alignement::Centre;
  Placer(dessin, 1500, haut - 135, 480, 510);  // level with the title
  dessin.Picture = "BITMAP281";
}

void AppliquerGenreMessage(Image &dessin, Etiquette &titre) {
  dessin.Visible = session.Etat != 0;
  switch (session.Etat) {
    case 16:
      titre.Caption = "Erreur";
      dessin.Picture = "BITMAP278";
      break;
    case 32:
      titre.Caption = "Confirmation";
      dessin.Picture = "BITMAP279";
      break;
    case 48:
      titre.Caption = "Avertissement";
      dessin.Picture = "BITMAP280";
      plateforme().Rafraichir();
      break;
    case 64:
      titre.Caption = "Information";
      dessin.Picture = "BITMAP281";
      break;
    default:
      break;
  }
}

void AfficherMessageCourt(const std::string &titre, const std::string &texte) {
  FenetreMessageCourt &f = Charger(fenetreMessageCourt);
  for (int i = 1; i <= 5; ++i) f.Ligne[i].Caption.clear();
  f.Ligne[2].Caption = texte;
  f.LblTitre.Caption = titre;
  NoterMessage(titre, texte);
  f.Visible = true;
  plateforme().Montrer(f);
}

void AttendreLecture() {
  FenetreMessageCourt &f = fenetreMessageCourt;
  suite = nullptr;  // the process ends behind it
  if (!f.Visible) return;
  if (std::exchange(f.EnLecture, true)) return Decharger(f);
  f.Timer1.Interval(0);
  f.Ligne[5].Caption = Selon("Entrée ou un clic ferme Brandis.", "Enter or a click ends Brandis.");
  plateforme().MontrerModal(f);
}

void AfficherErreurNumerotee(const ErreurExecution &e) {
  session.MessageErreur = "Erreur numéro:" + Str(e.Number()) + "; Description: " + e.Description();
  AfficherMessageCourt(TitreErreur(), session.MessageErreur);
}

void AfficherDescription(const ErreurExecution &e) {
  session.MessageErreur = e.Description();
  AfficherMessageCourt(TitreErreur(), session.MessageErreur);
}
