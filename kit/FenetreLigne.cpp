#include "kit/FenetreLigne.h"

#include "controls/Palette.h"
#include "kit/FondFenetre.h"
#include "platform/Plateforme.h"
#include "session/FenetreTissagePrincipale.h"
#include "session/ModuleTissage.h"

FenetreLigne fenetreLigne;

namespace {
// Over the counter and as wide as the cloth, in twips of the main window: where no command and no panel
// stands.
constexpr double kGauche = 1680, kHaut = 840, kLargeur = 8760, kHauteur = 1005;
constexpr double kTextes = 1560;  // behind the sign

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
  Message = true;
  Width = kLargeur;
  Height = kHauteur;
  Fenetre::Caption = "Brandis";
  BackColor = Palette::Creme;
  SansSouris = true;
  Fond.Picture = "FondLigne";
  Placer(Fond, 0, 0, kLargeur, kHauteur);
  Placer(Signe, 60, 60, 1320, 870);
  Fond.Facultative = Signe.Facultative = true;
  Placer(LblTitre, kTextes, 75, kLargeur - kTextes - 300, 480);
  LblTitre.Font = {"Arial", 19.5, true, false};
  LblTitre.ForeColor = Palette::Rouge;
  Placer(LblRemarque, kTextes, 555, kLargeur - kTextes - 300, 345);
  LblRemarque.Font = {"Arial", 12.75, true, false};
  LblRemarque.ForeColor = Palette::Encre;
}

void FenetreLigne::Suivre() {
  Left = fenetre.Left + kGauche;
  Top = fenetre.Top + kHaut;
  DecalageX = fenetre.DecalageX;
  DecalageY = fenetre.DecalageY;
  Signe.Picture = Bloquee ? "SigneLigneBloquee" : "SigneLigneCoupee";
  EcrireTextes(*this);
  NomAccessible = LblTitre.Caption + " " + LblRemarque.Caption;
}

void FenetreLigne::Visiter(Visiteur &v) {
  v.Voir("Fond", Fond, *this);
  v.Voir("Signe", Signe, *this);
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
