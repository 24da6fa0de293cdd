#include "motifs/Projet16.h"

#include <bit>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <system_error>

#include "motifs/Fichier.h"
#include "motifs/FormeTissable.h"

namespace fs = std::filesystem;

namespace {
constexpr int kRangeeRouge = 11;                                        // the row of the current pick
constexpr std::size_t kChemin = 255, kLigne = 70, kConfiguration = 20;  // bytes

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
  return configuration.size() < kConfiguration ? Mot(sinon) : configuration.substr(place, 2);
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
                          const std::string &configuration) {
  ExigerTissable(motif, motif.foules);
  Lames levees = 0;
  for (Lames l : motif.foules) levees |= l;
  if (const int haute = PlusHaute(levees); haute > kLamesPetitMetier) {
    const std::string n = std::to_string(haute);
    throw Refus(motif.chemin, 0,
                {"la lame " + n + " est levée, et ce métier en a 16.",
                 "harness " + n + " is raised, and this loom has 16."});
  }
  if (cheminWif.size() > kChemin)
    throw Refus(
        cheminWif, 0,
        {"un projet ne garde que 255 octets de ce nom.", "a project keeps only 255 bytes of this name."});

  const std::string port = Reglage(configuration, 0, 1);
  Projet16 projet;
  projet.entete = Date(jour) + Complete(cheminWif, kChemin) + Mot(motif.Duites()) +
                  (port == Mot(0) ? Mot(1) : port) + Mot(kLamesPetitMetier) +
                  Reglage(configuration, 4, kRangeeRouge) + Mot(1) + Mot(0) + Reglage(configuration, 6, -1) +
                  Mot(motif.Duites()) + Reglage(configuration, 14, -1);
  for (int i = 0; i < motif.Duites(); ++i)
    projet.lignes += Complete(LignePlan(i + 1, motif.foules[static_cast<std::size_t>(i)]), kLigne);
  return projet;
}

std::string InstallerProjet16(const Projet16 &projet, const std::string &data) {
  const fs::path dossier(data), entete = dossier / "Resume.Trm", lignes = dossier / "Resume2.Trm";
  // What a save that was cut off has left would be put back over the new project.
  const fs::path coupee = dossier / "Reprise.Avant";
  const std::string anciennes = GarderDeCote(lignes);
  const std::string ancien = GarderDeCote(entete);
  GarderDeCote(coupee);
  EcrireFichier(lignes.string(), projet.lignes, true);
  EcrireFichier(entete.string(), projet.entete, true);
  fs::remove(coupee);
  return ancien.empty() ? anciennes : ancien;
}
