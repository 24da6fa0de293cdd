#include "pattern/MatriceLames.h"

#include <string_view>

#include "base/Table.h"
#include "base/TexteNumerique.h"
#include "kit/Attente.h"
#include "session/FenetreTissagePrincipale.h"

namespace {
void MarquerLame(Entier duite, double nombre) {
  const double lame = ArrondirAuPair(nombre);
  if (!(lame >= 0 && lame <= kLames)) throw ErreurExecution(Erreur::Indice);
  session.MatriceLames(duite, static_cast<int>(lame)) = 1;
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
  Table<Entier, 50> virgules;  // places from 1; element 0 is the place before the text
  Entier nombreVirgules;
  const Entier longueur(static_cast<long long>(texte.size()));
  for (int i = 1; i <= longueur; ++i)
    if (texte[static_cast<std::size_t>(i - 1)] == ',') virgules[++nombreVirgules] = i;

  if (nombreVirgules == 0) {  // a lone number takes the short way, and the frame raises nothing for it
    const double nombre = Val(texte);
    MarquerLame(duite, nombre > kLames ? nombre : Val(Str(nombre)));
    return;
  }
  const std::string_view vue = texte;
  auto entre = [&vue](int debut, int fin) {
    return Val(vue.substr(static_cast<std::size_t>(debut), static_cast<std::size_t>(fin - debut - 1)));
  };
  MarquerLame(duite, entre(0, virgules[1]));
  for (int k = 1; k <= nombreVirgules; ++k) MarquerLame(duite, entre(virgules[k - 1], virgules[k]));
  virgules[nombreVirgules + 1] = longueur + 1;  // 50 commas have no place for the end of the text
  MarquerLame(duite, entre(virgules[nombreVirgules], virgules[nombreVirgules + 1]));
  ConstruireBits(duite);
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
  const std::string cle = ligne.substr(0, egal);
  const Entier numero = Arrondir(Val(cle));
  std::string &etiquette = fenetre.LblIndiqueLigneRendu[rangee].Caption;
  if (numero > 0)
    etiquette = FormatQuatreChiffres(numero);
  else if (Trim(cle) == "TabbyA")
    etiquette = Selon("LiaisonA", "TabbyA");
  else if (Trim(cle) == "TabbyB")
    etiquette = Selon("LiaisonB", "TabbyB");
}
