// The lines that the simulated loom prints, for people or for machines, and the counts behind its last line.
#pragma once

#include <iosfwd>
#include <string>

#include "simulator/LecteurTrames.h"

class Releve {
 public:
  // journal: lines for machines, without time.
  Releve(std::ostream &sortie, int nombreLames, bool journal);

  void Dire(const std::string &ligne);
  // Counts and prints a shed, an error, or another thing heard. A load says nothing: its shed will.
  void Noter(const Trame &trame);
  void Erreur(const std::string &texte);
  // `N sheds, M errors`
  void Conclure();

  long Duites() const { return duites_; }
  long Erreurs() const { return erreurs_; }

 private:
  void NoterDuite(const Trame &trame);

  std::ostream &sortie_;
  int nombreLames_;
  bool journal_;
  long duites_ = 0;
  long erreurs_ = 0;
};
