#include "kit/FenetreLigne.h"

#include "controls/Palette.h"
#include "kit/FondFenetre.h"
#include "platform/Plateforme.h"
#include "session/FenetreTissagePrincipale.h"
#include "session/ModuleTissage.h"

FenetreLigne fenetreLigne;

namespace {
// Over the beam, in twips of the main window: above the draft, and where no command and no panel stands.
constexpr double kGauche = 1710, kHaut = 855, kLargeur = 8760, kHauteur = 1005;

void EcrireTextes(FenetreLigne &f) {
  if (f.Bloquee) {
    f.LblTitre.Caption = Selon("Le métier ne prend rien.", "The loom takes nothing.");
    f.LblRemarque.Caption = Selon("Ce qui est envoyé l'attend.", "What is sent waits for it.");
    return;
  }
  f.LblTitre.Caption = Selon("La ligne du métier est coupée.", "The line to the loom is gone.");
  f.LblRemarque.Caption = fenetre.TissageEnCours ? Selon("Rebranchez le câble : le tissage continue.",
                                                         "Plug the cable in: weaving goes on.")
                                                 : Selon("Rebranchez le câble.", "Plug the cable in.");
}
}  // namespace

FenetreLigne::FenetreLigne() {
  Width = kLargeur;
  Height = kHauteur;
  Fenetre::Caption = "Brandis";
  BackColor = Palette::Creme;
  SansSouris = true;
  Placer(LblTitre, 150, 105, kLargeur - 300, 405);
  LblTitre.Font = {"Arial", 16, true, false};
  LblTitre.ForeColor = Palette::Rouge;
  Placer(LblRemarque, 150, 540, kLargeur - 300, 345);
  LblRemarque.Font = {"Arial", 12.75, true, false};
  LblRemarque.ForeColor = Palette::Encre;
  LblTitre.Alignment = LblRemarque.Alignment = Alignement::Centre;
}

void FenetreLigne::Suivre() {
  Left = fenetre.Left + kGauche;
  Top = fenetre.Top + kHaut;
  DecalageX = fenetre.DecalageX;
  DecalageY = fenetre.DecalageY;
  EcrireTextes(*this);
  NomAccessible = LblTitre.Caption + " " + LblRemarque.Caption;
}

void FenetreLigne::Visiter(Visiteur &v) {
  v.Voir("LblTitre", LblTitre, *this);
  v.Voir("LblRemarque", LblRemarque, *this);
}

void FenetreLigne::Load() {
  Dessin.Refaire(static_cast<int>(kLargeur) / kTwipsParPixel, static_cast<int>(kHauteur) / kTwipsParPixel,
                 BackColor);
  PeindreFondPanneau(Dessin, BackColor);
}

void MontrerEtatLigne(EtatLigne etat) {
  if (etat == EtatLigne::Bonne) return Decharger(fenetreLigne);
  Charger(fenetreLigne).Bloquee = etat == EtatLigne::Bloquee;
  plateforme().Montrer(fenetreLigne);
}
