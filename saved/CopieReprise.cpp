#include "saved/CopieReprise.h"

#include <optional>
#include <string>

#include "base/CopieProjet.h"
#include "base/ErreurExecution.h"
#include "base/FichiersBrandis.h"
#include "saved/FichierConfiguration.h"
#include "saved/FichierOuvert.h"

namespace {
std::string Copie() { return CheminData(kNomCopie); }
std::string Ecartee() { return CheminData(kNomEcartee); }

CopieProjet LireFichiers() {
  return {LireContenu(CheminData(kNomEntete)), LireContenu(CheminData(kNomLignes))};
}

struct CopieLue {
  EtatCopie etat = EtatCopie::Aucune;
  CopieProjet projet;
};

CopieLue LireCopie() {
  const std::string chemin = Copie();
  if (!Existe(chemin)) return {};
  const std::optional<CopieProjet> projet =
      EstFichierOrdinaire(chemin) ? DeTexte(LireContenu(chemin).value_or("")) : std::nullopt;
  if (!projet) return {EtatCopie::Abimee, {}};
  return {EtatCopie::Remise, *projet};
}

template <class F>
bool Tenter(F &&etape) {
  try {
    etape();
    return true;
  } catch (const ErreurExecution &) {
    return false;
  }
}
}  // namespace

void MettreDeCote() {
  if (LireCopie().etat != EtatCopie::Remise) RemplacerContenu(Copie(), EnTexte(LireFichiers()));
}

void AcheverSauvegarde() {
  for (const char *nom : {kNomEntete, kNomLignes})
    if (Existe(CheminData(nom))) SynchroniserFichier(CheminData(nom));
  SynchroniserDossierDe(Copie());
  Renommer(Copie(), Ecartee());
  try {
    SynchroniserDossierDe(Copie());
  } catch (const ErreurExecution &) {
    // Does the disk know? Back, then; where even that fails the new files are whole, and count.
    if (Tenter([] { Renommer(Ecartee(), Copie()); })) throw;
  }
  Tenter([] { Oter(Ecartee()); });
}

EtatCopie RemettreProjet() {
  const CopieLue copie = LireCopie();
  if (copie.etat == EtatCopie::Aucune) return copie.etat;
  if (copie.etat == EtatCopie::Remise) {
    RemettreContenu(CheminData(kNomLignes), copie.projet.lignes);
    RemettreContenu(CheminData(kNomEntete), copie.projet.entete);
    SynchroniserDossierDe(Copie());
  }
  // A copy that stays, or comes back, is put back once more: nothing is lost by it.
  if (Tenter([] { Renommer(Copie(), Ecartee()); }) && copie.etat == EtatCopie::Remise)
    Tenter([] { Oter(Ecartee()); });
  return copie.etat;
}

bool ProjetEnregistre() {
  try {
    const CopieLue copie = LireCopie();
    const CopieProjet projet = copie.etat == EtatCopie::Remise ? copie.projet : LireFichiers();
    return projet.entete && projet.entete->size() >= kLongueurReprise;
  } catch (const ErreurExecution &) {
    return false;
  }
}
