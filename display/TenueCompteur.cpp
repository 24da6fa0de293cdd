#include "display/TenueCompteur.h"

#include <string>

#include "base/TexteNumerique.h"
#include "kit/Attente.h"
#include "session/FenetreTissagePrincipale.h"

namespace {
constexpr int kRangeeCourante = 11;

const std::string &Etiquette11() { return fenetre.LblIndiqueLigneRendu[kRangeeCourante].Caption; }
bool Levee(int lame) { return fenetre.PicPourTissage.PicPourImage[kRangeeCourante][lame].Visible; }

// The draft is emptied before the shed leaves, and drawn behind it.
bool RangeeACurseur() {
  const int duite = session.DuiteCourante;
  if (duite < 0 || duite > kLignesTravail) return Etiquette11().empty();
  const std::string &ligne = session.LignesTravail[duite];
  if (Etiquette11() != IndicateurDeCle(ligne.substr(0, ligne.find('=')))) return false;
  for (int j = 1; j <= kLames; ++j) {
    const bool dessinee = j <= session.NombreLames && j <= session.NombreLamesGrille;
    if (Levee(j) != (dessinee && session.MatriceLames(duite, j) == 1)) return false;
  }
  return true;
}

bool Numerotee() { return Val(Etiquette11()) > 0; }

std::string NommerDuite() {
  if (Numerotee())
    return Selon("Duite ", "Pick ") + std::to_string(static_cast<int>(Val(Etiquette11()))) +
           Selon(" sur ", " of ") + std::to_string(int{session.NombreDuitesWif});
  return Etiquette11().empty() ? Selon("Duite sans numéro", "Pick without a number") : Etiquette11();
}

std::string NommerLames() {
  std::string lames;
  for (int j = 1; j <= kLames; ++j)
    if (Levee(j)) lames += (lames.empty() ? " " : ", ") + std::to_string(j);
  return lames.empty() ? Selon("aucune lame", "no harness") : Selon("lames", "harnesses") + lames;
}

// The loom is awaited: its next report is answered by a shed.
bool Attendu() { return fenetre.TissageEnCours && fenetre.PortOuvert && session.NombreDuites > 0; }

void Inviter(PanneauCompteur &c) {
  c.LblInvite.Caption = c.NomAccessible = Selon("Configuration, puis Ouvrir", "Configure, then Open");
  c.DescriptionAccessible.clear();
}

void MontrerDuite(PanneauCompteur &c) {
  c.LblNumero.Caption = Etiquette11();
  c.LblNumero.Width = Numerotee() ? kLargeurNumero : kLargeurToile;
  c.LblTotal.Caption = Numerotee() ? Selon("sur ", "of ") + std::to_string(int{session.NombreDuitesWif}) : "";
  const double place = static_cast<double>(session.DuiteCourante) / static_cast<double>(session.NombreDuites);
  c.Ruban.Width = Arrondir(kLargeurRuban * (place > 1 ? 1 : place) / kTwipsParPixel) * kTwipsParPixel;
  c.Gorge.Picture = "GorgeCompteur";
  c.Ruban.Picture = "RubanCompteur";
  c.NomAccessible = NommerDuite() + ", " + NommerLames() +
                    (session.DirectionTissage ? Selon(", inverse", ", reverse") : "");
}

void MontrerSignes(PanneauCompteur &c) {
  const int option = session.OptionTissage;
  c.SigneArmure.Picture = option == Option::Toile           ? "SigneToile"
                          : option == Option::PatronEtToile ? "SignePatronToile"
                                                            : "SignePatron";
  c.SigneSens.Picture = session.DirectionTissage ? "SigneInverse" : "SigneAvant";
  c.SigneEtat.Picture = Attendu() ? "SigneTissage" : "SigneArret";
  c.DescriptionAccessible =
      (Attendu() ? Selon("Tissage en cours", "Weaving") : Selon("À l'arrêt", "Stopped")) + ", " +
      NomOption(option);
}

void Ecrire(PanneauCompteur &c) {
  c.Visible = fenetre.PicPourTissage.Visible;  // it goes where the draft goes
  const bool patron = session.NombreDuites > 0;
  if (attente.Visible || (patron && !RangeeACurseur())) return;
  for (Controle *de : std::initializer_list<Controle *>{&c.LblNumero, &c.LblTotal, &c.Gorge, &c.Ruban,
                                                        &c.SigneArmure, &c.SigneSens, &c.SigneEtat})
    de->Visible = patron;
  c.LblInvite.Visible = !patron;
  if (!patron) return Inviter(c);
  MontrerDuite(c);
  MontrerSignes(c);
}
}  // namespace

void TenirCompteur() {
  try {
    Ecrire(fenetre.Compteur);
  } catch (const ErreurExecution &) {
    // A pick that cannot be told is woven all the same.
  }
}
