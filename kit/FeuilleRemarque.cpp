#include "kit/FeuilleRemarque.h"

#include "base/TexteNumerique.h"
#include "controls/Palette.h"
#include "kit/Attente.h"
#include "kit/FondFenetre.h"
#include "kit/ModuleTransparence.h"
#include "platform/Plateforme.h"
#include "session/Journal.h"
#include "session/ModuleTissage.h"

FeuilleRemarque feuilleRemarque;

namespace {
constexpr double kHaut = 7900, kDecalageGauche = 500;  // twips
constexpr Couleur kBlanc = Gris(255);

void Fermer() { Decharger(feuilleRemarque); }

void MontrerLignes(FeuilleRemarque &f) {
  for (int i = 1; i <= 8; ++i) {
    f.LblRemarque[i].Caption.clear();
    f.LblRemarque[i].Visible = false;
  }
  for (int i = 1; i <= session.NombreLignesRemarque; ++i) f.LblRemarque[i].Visible = true;
  // The height that the lines ask for; checked, and not used: the window keeps its size.
  [[maybe_unused]] const Entier hauteur = (session.NombreLignesRemarque - 1) * 216 + 645;
}
}  // namespace

FeuilleRemarque::FeuilleRemarque() {
  Message = true;
  Width = 8115;
  Height = 2475;
  Placer(Picture2, 0, 0, 8130, 2475);
  Placer(EnteteRemarque, 825, 0, 6390, 375);
  EnteteRemarque.Caption = "Remarque";
  EnteteRemarque.Font = {"MS Sans Serif", 13.5, true, true};
  EnteteRemarque.ForeColor = kBlanc;
  EnteteRemarque.Alignment = Alignement::Centre;
  constexpr int kHauts[9] = {0, 555, 795, 1005, 1215, 1500, 1710, 1920, 2115};
  for (int i = 1; i <= 8; ++i) {
    Placer(LblRemarque[i], i <= 4 ? 240 : 255, kHauts[i], 7710, 240);
    LblRemarque[i].Font = {"MS Sans Serif", 9.75, true, true};
    LblRemarque[i].ForeColor = kBlanc;
    LblRemarque[i].Cerne = true;
  }
}

void FeuilleRemarque::Visiter(Visiteur &v) {
  v.Voir("Picture2", Picture2, *this);
  v.Voir("EnteteRemarque", EnteteRemarque, Picture2);
  for (int i = 1; i <= 8; ++i) v.Voir("LblRemarque(" + std::to_string(i) + ")", LblRemarque[i], Picture2);
  v.Voir("Timer1", Timer1);
}

void FeuilleRemarque::Load() {
  Click = Picture2.Click = EnteteRemarque.Click = Timer1.Timer = Fermer;
  KeyDown = [](int, int) { Fermer(); };
  Picture2.NomAccessible = Selon("Fermer", "Close");
  for (int i = 1; i <= 8; ++i) LblRemarque[i].Click = Fermer;

  Picture2.Dessin = plateforme().Picture("FondRemarque");
  Entier l = Arrondir(Picture2.Width), h = Arrondir(Picture2.Height);
  ConvertirEnPixels(l, h);
  reglages.StyleCadreRemarque = 1;
  PeindreCadreRemarque(Picture2.Dessin, 0, 0, l, h);
  ArrondirCoins(Picture2.Dessin, 7, Palette::RemarqueNuit, Palette::OrangeSombre);
  MontrerLignes(*this);
  if (Trim(EnteteRemarque.Caption).empty()) EnteteRemarque.Caption = "Information";
  for (int i = 1; i <= 8; ++i) LblRemarque[i].Caption = session.LignesRemarque[i];

  const Ecran ecran = plateforme().EcranDisponible();
  Left = ecran.Left + (ecran.Width - Width) / 2 - kDecalageGauche;
  Top = kHaut;
  FaconnerFenetre(*this, Picture2);
  Charger(attente).Montrer(false);
  if (session.DelaiRemarque == 0) session.DelaiRemarque = 1;
  Timer1.Interval(static_cast<int>(ArrondirAuPair(session.DelaiRemarque * 1000)));
}

void AfficherRemarque(const std::string &entete) {
  FeuilleRemarque &f = Charger(feuilleRemarque);
  f.EnteteRemarque.Caption = entete;
  std::string lignes;
  for (int i = 1; i <= session.NombreLignesRemarque; ++i) lignes += session.LignesRemarque[i] + " ";
  NoterMessage(entete, lignes);
  f.Visible = true;
  plateforme().MontrerModal(f);
}
