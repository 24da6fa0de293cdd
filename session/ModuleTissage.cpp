#include "session/ModuleTissage.h"

#include "base/TexteNumerique.h"
#include "platform/Plateforme.h"

Session session;

void InitialiserPatron() {
  session.CheminWif.clear();
  session.NombreDuites = 0;
  for (int i = 1; i <= kLignesWif; ++i) {
    session.LignesWif[i].clear();
    session.LignesTravail[i].clear();
  }
  ViderMatrice(1, kLignesWif);
}

void ViderMatrice(int premier, int dernier) {
  for (int j = 1; j <= kLames; ++j)
    for (int i = premier; i <= dernier; ++i) session.MatriceLames(i, j) = 0;
}

void CalculerCheminApplication() {
  session.CheminApplication = plateforme().DossierProgramme();
  if (session.CheminApplication.empty() || session.CheminApplication.back() != '/')
    session.CheminApplication += '/';
}

std::string TitreErreur() { return Selon("Erreur", "Error"); }

std::string Selon(const std::string &francais, const std::string &anglais) {
  return session.LangueFrancaise ? francais : anglais;
}

std::string NomOption(int option) {
  return option >= 1 && option <= 3 ? kNomsOption[option - 1].EnVigueur() : Selon("aucun", "none");
}

std::string IndicateurDeCle(const std::string &cle) {
  const Entier numero = Arrondir(Val(cle));
  if (numero > 0) return FormatQuatreChiffres(numero);
  if (Trim(cle) == "TabbyA") return Selon("LiaisonA", "TabbyA");
  if (Trim(cle) == "TabbyB") return Selon("LiaisonB", "TabbyB");
  return "";
}
