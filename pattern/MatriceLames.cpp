#include "pattern/MatriceLames.h"

#include <string_view>

#include "base/Table.h"
#include "base/TexteNumerique.h"
#include "kit/Attente.h"
#include "session/FenetreTissagePrincipale.h"

namespace {
int Lame(double nombre) {
  const double lame = ArrondirAuPair(nombre);
  if (!(lame >= 0 && lame <= kLames)) throw ErreurExecution(Erreur::Indice);
  return static_cast<int>(lame);
}

// Gives each harness of a line to `marquer`. False for a lone number, which gets no bits.
template <class F>
bool ParcourirLames(const std::string &texte, F &&marquer) {
  Table<Entier, 50> virgules;  // places from 1; element 0 is the place before the text
  Entier nombreVirgules;
  const Entier longueur(static_cast<long long>(texte.size()));
  for (int i = 1; i <= longueur; ++i)
    if (texte[static_cast<std::size_t>(i - 1)] == ',') virgules[++nombreVirgules] = i;

  if (nombreVirgules == 0) {  // a lone number takes the short way, and the frame raises nothing for it
    const double nombre = Val(texte);
    marquer(Lame(nombre > kLames ? nombre : Val(Str(nombre))));
    return false;
  }
  const std::string_view vue = texte;
  auto entre = [&vue](int debut, int fin) {
    return Lame(Val(vue.substr(static_cast<std::size_t>(debut), static_cast<std::size_t>(fin - debut - 1))));
  };
  marquer(entre(0, virgules[1]));
  for (int k = 1; k <= nombreVirgules; ++k) marquer(entre(virgules[k - 1], virgules[k]));
  virgules[nombreVirgules + 1] = longueur + 1;  // 50 commas have no place for the end of the text
  marquer(entre(virgules[nombreVirgules], virgules[nombreVirgules + 1]));
  return true;
}

// What stands behind the first "=", or the whole line.
std::string DerriereEgal(const std::string &ligne) {
  const auto egal = ligne.find('=');
  return egal == std::string::npos ? ligne : ligne.substr(egal + 1);
}

void ConstruireBits(Entier duite) {
  std::string &bits = fenetre.BitsDuite[duite];
  for (int k = session.NombreLames; k >= 1; --k) bits += session.MatriceLames(duite, k) == 1 ? '1' : '0';
}
}  // namespace

void ConstruireMatrice() {
  const int total = session.NombreDuites;
  Charger(attente).Montrer(true);
  for (int i = 1; i <= kLignesWif; ++i) fenetre.BitsDuite[i].clear();
  for (int i = 1; i <= session.NombreDuites; ++i) {
    const std::string texte = DerriereEgal(session.LignesTravail[i]);
    attente.EcrirePourcent(i * 100.0 / total);
    LireLigneLames(texte, i);
  }
  attente.Montrer(false);
}

void LireLigneLames(const std::string &texte, Entier duite) {
  if (ParcourirLames(texte, [duite](int lame) { session.MatriceLames(duite, lame) = 1; }))
    ConstruireBits(duite);
}

std::string BitsDeLigne(const std::string &ligne, int lames) {
  std::string bits(kLames + 1, '0');
  if (!ParcourirLames(DerriereEgal(ligne),
                      [&bits](int lame) { bits[static_cast<std::size_t>(kLames - lame)] = '1'; }))
    return "";
  return bits.substr(static_cast<std::size_t>(kLames - lames), static_cast<std::size_t>(lames));
}

void LireCaseMatrice(Entier duite) {
  if (session.DuiteCourante != 1) return;
  for (int j = 1; j <= kLames; ++j) (void)session.MatriceLames(duite, j);
}

void EcrireIndicateurLigne(Entier rangee, Entier duite) {
  const std::string &ligne = session.LignesTravail[duite];
  if (ligne.empty() || ligne == "[LIFTPLAN]") return;
  const auto egal = ligne.find('=');
  if (egal == std::string::npos) throw ErreurExecution(Erreur::AppelInvalide);
  const std::string indicateur = IndicateurDeCle(ligne.substr(0, egal));
  if (!indicateur.empty()) fenetre.LblIndiqueLigneRendu[rangee].Caption = indicateur;
}
