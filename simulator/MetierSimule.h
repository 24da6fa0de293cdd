// The simulated loom itself: line, reader, cycle and printed record, tied together around one poll.
#pragma once

#include <optional>
#include <string>

#include "simulator/CycleMetier.h"
#include "simulator/LecteurTrames.h"
#include "simulator/LigneSimulee.h"
#include "simulator/Reglages.h"
#include "simulator/Releve.h"

class MetierSimule {
 public:
  explicit MetierSimule(const Reglages &reglages);

  // Makes the line; throws EchecLigne.
  void Raccorder();
  // Runs until an end is asked for. arret: descriptor that becomes readable when a signal wants the end.
  void Tourner(int arret);
  // Hears what is still on the line, prints the counts. Returns the exit status.
  int Finir();

 private:
  void Attendre(int arret);
  int DelaiAttente() const;
  void LireCommandes();
  void Commander(const std::string &ligne);
  bool CommanderEcart(const std::string &mot);
  void CommanderDelai(const std::string &mot, const std::string &nombre);
  void Entendre(Instant maintenant);
  void Traiter(const Trame &trame, Instant maintenant);
  void VerifierVitesse();
  void Agir(const Geste &geste);
  void Raccrocher();
  void Revenir();

  Reglages reglages_;
  LigneSimulee ligne_;
  LecteurTrames lecteur_;
  CycleMetier cycle_;
  Releve releve_;
  std::string saisie_;  // a command line not ended yet
  bool ecouteEntree_ = true;
  bool fini_ = false;
  bool duitesAtteintes_ = false;
  bool vitesseVue_ = false;              // the right one, on this line
  std::optional<long> vitesseSignalee_;  // the wrong one last complained of
};
