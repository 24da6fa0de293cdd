#include "kit/FenetreRappel.h"

#include "kit/FondFenetre.h"
#include "kit/ProcedureConnexe.h"
#include "platform/Plateforme.h"
#include "session/ModuleTissage.h"

FenetreRappel fenetreRappel;

namespace {
constexpr int kLargeur = 589, kHauteur = 248;  // pixels

void Fermer() { Decharger(fenetreRappel); }

std::string Quand(const DerniereSeance &s) {
  if (s.duite.empty()) return Selon("Aucune duite n'avait été envoyée.", "No pick had been sent.");
  return Selon("Dernière duite envoyée : ", "Last pick sent: ") + s.duite + Selon(", le ", ", on ") + s.jour +
         Selon(" à ", " at ") + s.heure;
}
}  // namespace

FenetreRappel::FenetreRappel() {
  Width = 8835;
  Height = 3720;
  Fenetre::Caption = "Brandis";
  BackColor = Rgb(255, 192, 128);
  Placer(LblTitre, 2115, 795, 4680, 210);
  LblTitre.Font = {"MS Sans Serif", 8.25, true, false};
  LblTitre.Alignment = Alignement::Centre;
  Placer(DessinMessage, 1500, 660, 480, 510);  // level with the title
  DessinMessage.Picture = "BITMAP280";
  for (int i = 1; i <= 4; ++i) {
    Placer(Ligne[i], 825, 1440 + 315 * (i - 1), 7185, 240);
    Ligne[i].Font = {"MS Sans Serif", 9.75, true, false};
    Ligne[i].Abreger = i == 2;
  }
  Placer(BoutonOk, 3803, 2760, 1230, 450);
}

void FenetreRappel::Visiter(Visiteur &v) {
  v.Voir("LblTitre", LblTitre, *this);
  v.Voir("DessinMessage", DessinMessage, *this);
  for (int i = 1; i <= 4; ++i) v.Voir("Ligne(" + std::to_string(i) + ")", Ligne[i], *this);
  v.Voir("BoutonOk", BoutonOk, *this);
}

void FenetreRappel::Load() {
  BoutonOk.Click = Fermer;
  BoutonOk.NomAccessible = "OK";
  BoutonOk.MouseDown = [](int, double, double) { EnfoncerBouton(fenetreRappel.BoutonOk); };
  BoutonOk.MouseUp = [](int, double, double) { RelacherBouton(fenetreRappel.BoutonOk); };
  KeyDown = [](int touche, int) {
    if (touche == Touche::Echappement) Fermer();
  };
  CentrerFenetreEcran(*this);
  Dessin.Refaire(kLargeur, kHauteur, BackColor);
  PeindreFenetreMessage(Dessin);
  ChargerPicture(BoutonOk, "BITMAP119");
}

void AfficherRappel(const DerniereSeance &seance) {
  FenetreRappel &f = Charger(fenetreRappel);
  f.LblTitre.Caption = Selon("Séance précédente", "Session before");
  f.Ligne[1].Caption = Selon("La séance précédente n'a pas été terminée par Fermer.",
                             "The session before did not end by Quit.");
  f.Ligne[2].Caption = seance.motif.empty() ? "" : Selon("Motif : ", "Pattern: ") + seance.motif;
  f.Ligne[3].Caption = Quand(seance);
  f.Ligne[4].Caption = Selon("Pour continuer : ouvrir le motif et entrer la duite.",
                             "To go on: open the pattern and enter the pick.");
  NoterMessage(f.LblTitre.Caption, f.Ligne[1].Caption + " " + f.Ligne[3].Caption);
  plateforme().DonnerFocus(f.BoutonOk);
  plateforme().Montrer(f);
}
