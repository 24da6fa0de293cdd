#include "saved/CopieReprise.h"

#include <cstdint>
#include <optional>
#include <sstream>
#include <string>

#include "base/ErreurExecution.h"
#include "base/FichiersBrandis.h"
#include "saved/FichierConfiguration.h"
#include "saved/FichierOuvert.h"

namespace {
// The copy: a line with this word, the length of each file (-1 for none) and a sum over both; then the bytes
// of both. A rename alone keeps a copy from being cut short; the sum is for a disk that is not sound.
constexpr const char *kMarque = "brandis-reprise-1";

std::string Copie() { return CheminData(kNomCopie); }
std::string Ecartee() { return CheminData(kNomEcartee); }

struct Projet {
  std::optional<std::string> entete, lignes;
};

std::string EnTexte(const Projet &p) {
  const std::string octets = p.entete.value_or("") + p.lignes.value_or("");
  std::uint64_t somme = 14695981039346656037u;  // FNV-1a
  for (char c : octets) somme = (somme ^ static_cast<unsigned char>(c)) * 1099511628211u;
  const auto longueur = [](const std::optional<std::string> &f) {
    return f ? std::to_string(f->size()) : std::string("-1");
  };
  return std::string(kMarque) + ' ' + longueur(p.entete) + ' ' + longueur(p.lignes) + ' ' +
         std::to_string(somme) + '\n' + octets;
}

// Nothing where the text is not, byte for byte, what some project makes.
std::optional<Projet> DeTexte(const std::string &texte) {
  const auto fin = texte.find('\n');
  if (fin == std::string::npos) return std::nullopt;
  std::istringstream tete(texte.substr(0, fin));
  std::string marque;
  long long longueurs[2];
  if (!(tete >> marque >> longueurs[0] >> longueurs[1])) return std::nullopt;
  Projet p;
  std::size_t place = fin + 1;
  std::optional<std::string> *fichiers[] = {&p.entete, &p.lignes};
  for (int i = 0; i < 2; ++i) {
    if (longueurs[i] < 0) continue;
    const auto longueur = static_cast<std::size_t>(longueurs[i]);
    if (longueur > texte.size() - place) return std::nullopt;
    *fichiers[i] = texte.substr(place, longueur);
    place += longueur;
  }
  return EnTexte(p) == texte ? std::optional(p) : std::nullopt;
}

Projet LireFichiers() { return {LireContenu(CheminData(kNomEntete)), LireContenu(CheminData(kNomLignes))}; }

struct CopieLue {
  EtatCopie etat = EtatCopie::Aucune;
  Projet projet;
};

CopieLue LireCopie() {
  const std::string chemin = Copie();
  if (!Existe(chemin)) return {};
  const std::optional<Projet> projet =
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
    const Projet projet = copie.etat == EtatCopie::Remise ? copie.projet : LireFichiers();
    return projet.entete && projet.entete->size() >= kLongueurReprise;
  } catch (const ErreurExecution &) {
    return false;
  }
}
