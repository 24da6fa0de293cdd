#include "session/Journal.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <string_view>

#include "platform/Plateforme.h"
#include "session/ModuleTissage.h"

namespace {
// How the lines begin that the next start reads back, in either language.
struct Debut {
  const char *francais, *anglais;
  std::string Texte() const { return Selon(francais, anglais); }
};
constexpr Debut kFin{"Programme quitté", "Program left by Quit"};
constexpr Debut kMotif{"Motif : ", "Pattern: "};
constexpr Debut kDuite{"Duite envoyée : ", "Pick sent: "};
constexpr std::size_t kJour = 10, kHeure = 8, kTexte = kJour + 1 + kHeure + 2;  // columns of a line

std::string Chemin(const char *nom) { return plateforme().DossierProgramme() + "/Data/" + nom; }
std::string CheminJournal() { return Chemin("Journal.txt"); }
std::string CheminAncien() { return Chemin("Journal.1.txt"); }

std::string Maintenant() {
  const std::time_t instant = std::time(nullptr);
  std::tm heure{};
  localtime_r(&instant, &heure);
  char texte[40];
  std::strftime(texte, sizeof texte, "%Y-%m-%d %H:%M:%S", &heure);
  return texte;
}

std::string EnUneLigne(std::string texte) {
  for (char &c : texte)
    if (static_cast<unsigned char>(c) < ' ') c = ' ';
  return texte;
}

std::string Ligne(const std::string &fait) { return Maintenant() + "  " + EnUneLigne(fait) + "\n"; }

void Ajouter(const std::string &ligne, bool pousser = true) {
  // Without waiting where it is a pipe, which it must not be.
  const int d = open(CheminJournal().c_str(),
                     O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0666);
  if (d < 0) return;
  struct stat infos {};
  if (fstat(d, &infos) == 0 && S_ISREG(infos.st_mode) &&
      write(d, ligne.data(), ligne.size()) == static_cast<ssize_t>(ligne.size())) {
    if (pousser) plateforme().PousserSurDisque(d);
    if (infos.st_size + static_cast<off_t>(ligne.size()) > kTailleJournal)
      (void)std::rename(CheminJournal().c_str(), CheminAncien().c_str());
  }
  close(d);
}

// What stands behind one of these beginnings in a line of the journal; null where it begins otherwise.
const char *Apres(const std::string &ligne, const Debut &debut) {
  for (const std::string_view mot : {std::string_view(debut.francais), std::string_view(debut.anglais)})
    if (ligne.size() >= kTexte + mot.size() && ligne.compare(kTexte, mot.size(), mot) == 0)
      return ligne.c_str() + kTexte + mot.size();
  return nullptr;
}

bool Regulier(const std::string &chemin) {
  struct stat infos {};
  return lstat(chemin.c_str(), &infos) == 0 && S_ISREG(infos.st_mode);
}

// The last whole line; empty where there is none.
std::string DerniereLigne(const std::string &chemin) {
  constexpr long kFenetre = 8192;  // bytes, more than a line has
  if (!Regulier(chemin)) return "";
  std::ifstream fichier(chemin, std::ios::binary | std::ios::ate);
  const long taille = static_cast<long>(fichier.tellg());
  fichier.seekg(std::max(0L, taille - kFenetre));
  std::string derniere;
  for (std::string ligne; std::getline(fichier, ligne);)
    if (!ligne.empty()) derniere = ligne;
  return derniere;
}

void Parcourir(const std::string &chemin, DerniereSeance &seance) {
  if (!Regulier(chemin)) return;
  std::ifstream fichier(chemin, std::ios::binary);
  for (std::string ligne; std::getline(fichier, ligne);) {
    if (const char *motif = Apres(ligne, kMotif)) {
      seance.motif = motif;
    } else if (const char *duite = Apres(ligne, kDuite)) {
      const std::string_view suite = duite;
      seance.duite = suite.substr(0, suite.find(' '));
      seance.jour = ligne.substr(0, kJour);
      seance.heure = ligne.substr(kJour + 1, kHeure);
    }
  }
}

std::string Liste(const std::vector<int> &lames) {
  if (lames.empty()) return Selon("aucune lame", "no harness");
  std::string liste;
  for (int lame : lames) liste += (liste.empty() ? "" : ", ") + std::to_string(lame);
  return Selon("lames ", "harnesses ") + liste;
}
}  // namespace

void Noter(const std::string &fait) { Ajouter(Ligne(fait)); }

void NoterDepart() { Noter("Brandis : programme démarré / program started"); }
void NoterFin() { Noter(kFin.Texte()); }

void NoterMotif(const std::string &chemin, Entier duites) {
  Noter(Selon("Ouverture : ", "Opened: ") + std::to_string(duites) + Selon(" duites", " picks"));
  Noter(kMotif.Texte() + chemin);
}

void NoterReprise(const std::string &chemin, Entier duites, Entier duite) {
  Noter(Selon("Reprise du projet : ", "Project resumed: ") + std::to_string(duites) +
        Selon(" duites, curseur sur ", " picks, cursor on ") + std::to_string(duite));
  Noter(kMotif.Texte() + chemin);
}

void NoterDuite(Entier duite, const std::string &cle, const std::vector<int> &lames) {
  session.DerniereDuiteEnvoyee = duite;
  Noter(kDuite.Texte() + std::to_string(duite) + Selon(" (ligne ", " (line ") + cle + "), " + Liste(lames));
}

// Pushed with the pick that follows it, which must not wait for the disk.
void NoterRapport() { Ajouter(Ligne(Selon("Métier : cycle terminé", "Loom: cycle complete")), false); }

void NoterMessage(const std::string &titre, const std::string &texte) {
  Noter("Message : " + titre + " : " + texte);
}

DerniereSeance LireDerniereSeance() {
  DerniereSeance seance;
  std::string derniere = DerniereLigne(CheminJournal());
  if (derniere.empty()) derniere = DerniereLigne(CheminAncien());
  seance.inachevee = !derniere.empty() && !Apres(derniere, kFin);
  if (!seance.inachevee) return seance;
  Parcourir(CheminAncien(), seance);
  Parcourir(CheminJournal(), seance);
  return seance;
}

std::string TexteDerniereDuite() {
  if (!session.DerniereDuiteEnvoyee) return Selon("Aucune duite envoyée.", "No pick was sent.");
  return Selon("Dernière duite envoyée : ", "Last pick sent: ") +
         std::to_string(*session.DerniereDuiteEnvoyee);
}
