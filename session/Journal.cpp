#include "session/Journal.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <ctime>
#include <utility>

#include "base/FichiersBrandis.h"
#include "platform/Plateforme.h"
#include "session/FenetreTissagePrincipale.h"
#include "session/FormatJournal.h"

using namespace FormatJournal;

namespace {
std::string rapport;   // the line of a report that waits for the shed behind it
bool entamee = false;  // the file ends within a line

std::string Chemin(const char *nom) { return plateforme().DossierProgramme() + "/" + kData + "/" + nom; }

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

// Without waiting where it is a pipe, which it must not be. Below 0 where there is no journal.
int Ouvrir(int acces) {
  const int d = open(CheminJournal().c_str(), acces | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0666);
  struct stat infos {};
  if (d < 0 || (fstat(d, &infos) == 0 && S_ISREG(infos.st_mode))) return d;
  close(d);
  return -1;
}

// In one write, behind the mark of a line without its end and the report that waited.
void Ajouter(const std::string &ligne) {
  const std::string lignes = (entamee ? kCoupe + std::string("\n") : "") + std::exchange(rapport, "") + ligne;
  const int d = Ouvrir(O_WRONLY | O_APPEND | O_CREAT);
  if (d < 0) return;
  const ssize_t ecrits = write(d, lignes.data(), lignes.size());
  if (ecrits > 0) entamee = lignes[static_cast<std::size_t>(ecrits) - 1] != '\n';
  plateforme().PousserSurDisque(d);
  if (lseek(d, 0, SEEK_END) > kTailleJournal && !entamee)
    (void)std::rename(CheminJournal().c_str(), CheminAncienJournal().c_str());
  close(d);
}

bool FinitDansUneLigne() {
  const int d = Ouvrir(O_RDONLY);
  if (d < 0) return false;
  char derniere = '\n';
  if (lseek(d, -1, SEEK_END) >= 0) (void)!read(d, &derniere, 1);
  close(d);
  return derniere != '\n';
}

std::string Liste(const std::vector<int> &lames) {
  if (lames.empty()) return Selon("aucune lame", "no harness");
  std::string liste;
  for (int lame : lames) liste += (liste.empty() ? "" : ", ") + std::to_string(lame);
  return Selon("lames ", "harnesses ") + liste;
}

void NoterEnvoi(Entier duite, const std::string &suite) {
  session.DerniereDuiteEnvoyee = duite;
  Noter(kDuite.EnVigueur() + std::to_string(duite) + suite);
}
}  // namespace

std::string CheminJournal() { return Chemin(kNomJournal); }
std::string CheminAncienJournal() { return Chemin(kNomAncienJournal); }

void Noter(const std::string &fait) { Ajouter(Ligne(fait)); }

void NoterDepart() {
  entamee = FinitDansUneLigne();
  Noter("Brandis : programme démarré / program started");
}

void NoterFin() { Noter(kFin.EnVigueur()); }

void NoterOuverture(Entier duites) {
  Noter(Selon("Ouverture : ", "Opened: ") + std::to_string(duites) + Selon(" duites", " picks"));
}

void NoterReprise(Entier duites, Entier duite) {
  Noter(Selon("Reprise du projet : ", "Project resumed: ") + std::to_string(duites) +
        Selon(" duites, curseur sur ", " picks, cursor on ") + std::to_string(duite));
}

void NoterMotif(const std::string &chemin) { Noter(kMotif.EnVigueur() + chemin); }

void NoterPlan() {
  const bool melange = session.OptionTissage == Option::PatronEtToile;
  session.DepartPlan = melange ? int{session.DuiteCourante} : 0;
  if (session.NombreDuitesWif < 1) return;
  std::string plan = kPlan.EnVigueur() + NomOption(session.OptionTissage) + ", " +
                     std::to_string(session.NombreDuites) + Selon(" duites", " picks");
  if (melange) plan += Selon(", depuis la ", ", from ") + std::to_string(session.DepartPlan);
  if (session.OptionTissage == Option::Toile && fenetre.DuiteAvantToile > 0)
    plan += Selon(", patron quitté à la ", ", pattern left at ") + std::to_string(fenetre.DuiteAvantToile);
  Noter(plan);
}

void NoterSens() {
  Noter(kSens.EnVigueur() +
        (session.DirectionTissage ? std::string(kInverse.EnVigueur()).substr(2) : Selon("avant", "forward")));
}

void NoterDuite(Entier duite, const std::string &cle, const std::vector<int> &lames, bool retrouvable) {
  const std::string suite = std::string(session.DirectionTissage ? kInverse.EnVigueur() : "") +
                            (retrouvable ? "" : kSansRetour.EnVigueur()) + kLigne.EnVigueur() + cle +
                            kFinLigne + Liste(lames);
  if (!plateforme().MSComm1().Retenu([duite, suite] { NoterEnvoi(duite, suite); }))
    return NoterEnvoi(duite, suite);
  Noter(Selon("Duite retenue pour la ligne : ", "Pick kept for the line: ") + std::to_string(duite) + suite);
}

void NoterRapport() { rapport += Ligne(Selon("Métier : cycle terminé", "Loom: cycle complete")); }

void EcrireRapport() {
  if (!rapport.empty()) Ajouter("");
}

void NoterMessage(const std::string &titre, const std::string &texte) {
  Noter("Message : " + titre + " : " + texte);
}

std::string TexteDerniereDuite() {
  if (!session.DerniereDuiteEnvoyee) return Selon("Aucune duite envoyée.", "No pick was sent.");
  return Selon("Dernière duite envoyée : ", "Last pick sent: ") +
         std::to_string(*session.DerniereDuiteEnvoyee);
}
