#include "kit/Attente.h"

#include "base/TexteNumerique.h"
#include "platform/Plateforme.h"

Attente attente;

Attente::Attente() {
  Width = 8205;
  Height = 2790;
  Placer(Remarque, 4350, 1320, 2610, 180);
  Placer(LblPourcent, 4350, 1455, 2595, 180);
  Remarque.Font = {"Arial", 8.25, true, false};
  LblPourcent.Font = {"Arial", 8.25, true, true};
  LblPourcent.Caption = "100";
}

void Attente::Visiter(Visiteur &v) {
  v.Voir("PicTransparente", PicTransparente, *this);
  v.Voir("Remarque", Remarque, PicTransparente);
  v.Voir("LblPourcent", LblPourcent, PicTransparente);
}

void Attente::Montrer(bool visible) {
  Visible = visible;
  plateforme().Rafraichir();
}

void Attente::EcrirePourcent(double pourcent) {
  if (!Visible) return;
  std::string texte = Str(static_cast<int>(ArrondirAuPair(pourcent))) + " %";
  if (texte == LblPourcent.Caption) return;
  LblPourcent.Caption = std::move(texte);
  plateforme().RafraichirFenetre(*this);
}
