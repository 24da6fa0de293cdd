#include "motifs/Projet16.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <bit>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <optional>
#include <system_error>

#include "base/CopieProjet.h"
#include "base/FichiersBrandis.h"
#include "motifs/Fichier.h"
#include "motifs/FormeTissable.h"

namespace fs = std::filesystem;

namespace {
constexpr int kRangeeRouge = 11;  // the row of the current pick
constexpr int kDuitesToile = 40;  // of the plain tabby plan

std::tm Jour() {
  const std::time_t maintenant = std::time(nullptr);
  std::tm jour{};
  localtime_r(&maintenant, &jour);
  return jour;
}

std::string Mot(int valeur) {
  return {static_cast<char>(valeur & 255), static_cast<char>(valeur >> 8 & 255)};
}

std::string Date(double jour) {
  const auto bits = std::bit_cast<std::uint64_t>(jour);
  std::string octets;
  for (int i = 0; i < 8; ++i) octets += static_cast<char>(bits >> (8 * i) & 255);
  return octets;
}

std::string Complete(std::string texte, std::size_t longueur) {
  texte.resize(longueur, ' ');
  return texte;
}

// The two bytes at a place of the configuration, or those of a first start.
std::string Reglage(const std::string &configuration, std::size_t place, int sinon) {
  return configuration.size() < kLongueurConfiguration ? Mot(sinon) : configuration.substr(place, 2);
}

std::optional<std::string> Octets(const fs::path &fichier) {
  return fs::exists(fichier) ? std::optional(LireBrut(fichier.string())) : std::nullopt;
}

// The new project counts from here on. What fails behind the rename changes nothing.
void Achever(const fs::path &copie) {
  const fs::path ecartee = copie.parent_path() / kNomEcartee;
  if (rename(copie.c_str(), ecartee.c_str()) != 0) {
    const Phrase raison = RaisonSysteme(errno);
    throw Refus(
        copie.string(), 0,
        {"l'ancien projet demeure : " + raison.fr + ".", "the earlier project stands: " + raison.en + "."});
  }
  const int dossier = open(copie.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (dossier >= 0) {
    fsync(dossier);
    close(dossier);
  }
  unlink(ecartee.c_str());
}

// The pick that stands, so that the first Start goes on to the wanted one. With tabby the plan begins at the
// pick that stands, and the first Start weaves that one of the pattern.
int DuiteDebout(const Motif &motif, const ReglagesProjet &r) {
  if (r.option == 2) return kDuitesToile;
  if (r.option == 3) return r.duite;
  return r.duite > 1 ? r.duite - 1 : motif.Duites();
}

// Keeps a file under a name with the date, the first that is free. Empty where there is nothing to keep.
std::string GarderDeCote(const fs::path &fichier) {
  if (!fs::exists(fichier) || fs::file_size(fichier) == 0) return "";
  const std::tm jour = Jour();
  char date[16];
  std::strftime(date, sizeof date, "%Y-%m-%d", &jour);
  for (int essai = 1;; ++essai) {
    fs::path cote = fichier.parent_path() /
                    (fichier.stem().string() + " " + date +
                     (essai > 1 ? " (" + std::to_string(essai) + ")" : "") + fichier.extension().string());
    if (fs::exists(cote)) continue;
    EcrireFichier(cote.string(), LireBrut(fichier.string()), false);
    return cote.string();
  }
}
}  // namespace

double Aujourdhui() {
  std::tm jour = Jour();
  // Noon of the same date, taken as universal: no change of hour moves it to another day.
  jour.tm_hour = 12;
  jour.tm_min = jour.tm_sec = 0;
  constexpr int kJoursJusqua1970 = 25569;
  return static_cast<double>(timegm(&jour) / 86400 + kJoursJusqua1970);
}

Projet16 ComposerProjet16(const Motif &motif, const std::string &cheminWif, double jour,
                          const std::string &configuration, const ReglagesProjet &reglages) {
  ExigerTissable(motif, motif.foules);
  Lames levees = 0;
  for (Lames l : motif.foules) levees |= l;
  if (const int haute = PlusHaute(levees); haute > kLamesPetitMetier) {
    const std::string n = std::to_string(haute);
    throw Refus(motif.chemin, 0,
                {"la lame " + n + " est levée, et ce métier en a 16.",
                 "harness " + n + " is raised, and this loom has 16."});
  }
  if (cheminWif.size() > kLongueurCheminWif)
    throw Refus(
        cheminWif, 0,
        {"un projet ne garde que 255 octets de ce nom.", "a project keeps only 255 bytes of this name."});

  if (reglages.duite > motif.Duites()) {
    const std::string d = std::to_string(reglages.duite), n = std::to_string(motif.Duites());
    throw Refus(motif.chemin, 0,
                {"la duite " + d + " n'est pas là : " + n + " duites en tout.",
                 "pick " + d + " is not there: " + n + " picks in all."});
  }
  const int debout = DuiteDebout(motif, reglages);
  if (const int plan = 2 * motif.Duites() - debout + 2; reglages.option == 3 && plan > kDuitesMetier) {
    const std::string n = std::to_string(plan);
    throw Refus(motif.chemin, 0,
                {n + " duites avec la toile, et Brandis en prend 2500.",
                 n + " picks with tabby, and Brandis takes 2500."});
  }

  std::string port = reglages.port > 0 ? Mot(reglages.port) : Reglage(configuration, 0, 1);
  Projet16 projet;
  projet.entete = Date(jour) + Complete(cheminWif, kLongueurCheminWif) + Mot(motif.Duites()) +
                  (port == Mot(0) ? Mot(1) : port) + Mot(kLamesPetitMetier) +
                  Reglage(configuration, 4, kRangeeRouge) + Mot(reglages.option) + Mot(0) +
                  Reglage(configuration, 6, 0) + Mot(debout) + Reglage(configuration, 14, -1);
  for (int i = 0; i < motif.Duites(); ++i)
    projet.lignes +=
        Complete(LignePlan(i + 1, motif.foules[static_cast<std::size_t>(i)]), kLongueurRepriseLigne);
  return projet;
}

std::string InstallerProjet16(const Projet16 &projet, const std::string &data) {
  const fs::path dossier(data), entete = dossier / kNomEntete, lignes = dossier / kNomLignes,
                                copie = dossier / kNomCopie;
  const std::string anciennes = GarderDeCote(lignes);
  const std::string ancien = GarderDeCote(entete);
  GarderDeCote(copie);
  // A copy that stands whole is that of a save that was cut off: the project that counts.
  if (!DeTexte(Octets(copie).value_or("")))
    EcrireFichier(copie.string(), EnTexte({Octets(entete), Octets(lignes)}), true);
  EcrireFichier(lignes.string(), projet.lignes, true);
  EcrireFichier(entete.string(), projet.entete, true);
  Achever(copie);
  return ancien.empty() ? anciennes : ancien;
}

VerrouBrandis::VerrouBrandis(const std::string &data)
    : descripteur_(open((fs::path(data) / kNomVerrou).c_str(),
                        O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600)) {
  if (descripteur_ < 0 || flock(descripteur_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) return;
  close(descripteur_);
  throw Refus(data, 0,
              {"Brandis y est ouvert ; le quitter d'abord.", "Brandis is open there; quit it first."});
}

VerrouBrandis::~VerrouBrandis() {
  if (descripteur_ >= 0) close(descripteur_);
}
