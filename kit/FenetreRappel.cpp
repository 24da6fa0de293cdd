#include "kit/FenetreRappel.h"

#include <cstdlib>

#include "kit/FenetreMessageCourt.h"
#include "kit/FondFenetre.h"
#include "kit/ProcedureConnexe.h"
#include "platform/Plateforme.h"
#include "session/Journal.h"
#include "session/ModuleTissage.h"

FenetreRappel fenetreRappel;

namespace {
constexpr int kLargeur = 589, kHauteur = 288;  // pixels

void Fermer() { Decharger(fenetreRappel); }

std::string Quand(const DerniereSeance &s) {
  if (s.duite.empty()) return Selon("Aucune duite n'avait été envoyée.", "No pick had been sent.");
  return Selon("Dernière duite envoyée : ", "Last pick sent: ") + s.duite + Selon(", le ", ", on ") + s.jour +
         Selon(" à ", " at ") + s.heure;
}

std::string Indicateur(const std::string &cle) {
  try {
    return IndicateurDeCle(cle);
  } catch (const ErreurExecution &) {
    return "";
  }
}

// How it was woven: "Pattern and Tabby, row 0016, in reverse".
std::string Comment(const DerniereSeance &s) {
  if (s.plan.option == 0) return "";
  std::string texte = NomOption(s.plan.option);
  if (const std::string rangee = Indicateur(s.cle); !rangee.empty())
    texte += Selon(", rangée ", ", row ") + rangee;
  if (s.inverse) texte += Selon(", en sens inverse", ", in reverse");
  texte += ".";
  if (s.plan.avantToile > 0)
    texte += Selon(" Patron quitté à la duite ", " Pattern left at pick ") +
             std::to_string(s.plan.avantToile) + ".";
  return texte;
}

// The pick lies in rows that a new plan of pattern and tabby keeps of the one that Open builds, by the option
// in force; or the one behind it does.
bool DependDeLOuverture(const DerniereSeance &s) {
  const int n = std::atoi(s.duite.c_str()), c = s.plan.depart;
  if (c < 2 || (n >= c && n != (s.inverse ? c : s.plan.duites))) return false;
  // Open with pattern and tabby puts a tabby in the last row of the pattern, that of c - 1 at the most.
  return session.OptionTissage == Option::Toile ||
         (session.OptionTissage == Option::PatronEtToile && c == s.plan.duites);
}

// What puts the last shed on the loom again and leaves the one behind it to the next report; empty where
// nothing does.
std::string Retour(const DerniereSeance &s) {
  const bool melange = s.plan.option == Option::PatronEtToile;
  if (!s.retrouvable || s.plan.option == 0 || (melange && s.plan.depart < 1) || DependDeLOuverture(s))
    return "";
  std::string texte =
      Selon("Ouvrir le motif ; Configuration : ", "Open the pattern; Configure: ") + NomOption(s.plan.option);
  if (melange) texte += Selon(", Départ Patron ", ", Starting Bar ") + std::to_string(s.plan.depart);
  texte += Selon(", Sortie ; Départ ; Duite Départ ", ", Exit; Strart; Starting Bar ") + s.duite;
  // The panel keeps the direction; in French it always gives forward.
  const bool inverse = !session.LangueFrancaise && session.DirectionTissage;
  if (inverse != s.inverse) texte += Selon(" ; Suivant/Précédent", "; Forward/Reverse");
  return texte + ".";
}
}  // namespace

FenetreRappel::FenetreRappel() {
  Message = true;
  Width = 8835;
  Height = 4320;
  Fenetre::Caption = "Brandis";
  PoserTitreMessage(*this, LblTitre, DessinMessage, 795);
  DessinMessage.Picture = "BITMAP280";
  for (int i = 1; i <= 5; ++i) {
    Placer(Ligne[i], 825, 1410 + 315 * (i - 1), 7185, i == 5 ? 480 : 240);
    Ligne[i].Font = {"MS Sans Serif", 9.75, true, false};
    Ligne[i].Abreger = i == 2;
  }
  Placer(BoutonOk, 3803, 3360, 1230, 450);
}

void FenetreRappel::Visiter(Visiteur &v) {
  v.Voir("LblTitre", LblTitre, *this);
  v.Voir("DessinMessage", DessinMessage, *this);
  for (int i = 1; i <= 5; ++i) v.Voir("Ligne(" + std::to_string(i) + ")", Ligne[i], *this);
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
  f.Ligne[4].Caption = Comment(seance);
  f.Ligne[5].Caption = Retour(seance);
  NoterMessage(f.LblTitre.Caption, f.Ligne[1].Caption + " " + f.Ligne[3].Caption + " " + f.Ligne[4].Caption +
                                       " " + f.Ligne[5].Caption);
  plateforme().DonnerFocus(f.BoutonOk);
  plateforme().Montrer(f);
}
