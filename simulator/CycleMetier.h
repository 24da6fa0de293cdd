// The loom's side of a cycle: what it reports after an execute, when, and how it misbehaves. Pure: time comes
// in, writes and cuts come out.
#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "simulator/LigneSimulee.h"

using Delai = std::chrono::milliseconds;

// How one report goes wrong. Several of these may meet in one report.
struct Ecart {
  bool scinder = false;
  bool doubler = false;
  bool perdre = false;
  bool bruit = false;
  bool raccrocher = false;      // the line is cut in the report's place
  Delai retard{0};              // later than the cadence
  std::optional<Delai> retour;  // after a cut: when the line comes back
};

using Scenario = std::map<long, Ecart>;  // by number of shed

struct Geste {
  enum class Genre { Ecrire, Annoncer, Raccrocher, Revenir };
  Genre genre = Genre::Annoncer;
  std::string octets;   // Ecrire
  std::string mention;  // Annoncer: what to say of the report
};

class CycleMetier {
 public:
  // surDemande: cycles complete only through Completer.
  CycleMetier(int nombreLames, Delai cadence, bool surDemande, Scenario scenario);

  // A shed was set: a cycle begins, in place of one that was under way.
  void Commencer(long duite, Instant maintenant);
  // What was held is dropped: the cycle under way will not be reported.
  void Relacher();
  // The cycle is complete now, or as late as the next report is delayed.
  void Completer(Instant maintenant);
  // The line is cut: nothing of what is under way will leave, but a return will.
  void Couper();

  // Misbehaviour of the next report, on top of the script's.
  Ecart &Prochain() { return prochain_; }
  // Delays the report under way or, failing that, the next.
  void Retarder(Delai retard);
  void ChangerCadence(Delai cadence) { cadence_ = cadence; }

  std::optional<Instant> Echeance() const;
  // What falls due by now, in order. ligne gives the pace of the bytes.
  std::vector<Geste> GestesEchus(Instant maintenant, const LigneSimulee &ligne);

 private:
  void Rapporter(Instant quand, const LigneSimulee &ligne);
  Ecart PrendreEcart();
  void Ecrire(Instant quand, std::string octets);

  int nombreLames_;
  Delai cadence_;
  bool surDemande_;
  Scenario scenario_;
  Ecart prochain_;
  long duite_ = 0;
  bool ouvert_ = false;             // a shed stands and is not reported yet
  std::optional<Instant> rapport_;  // when it will be
  std::multimap<Instant, Geste> gestes_;
};
