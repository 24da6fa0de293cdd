// Files of fixed records, and the table of fields that a record is made of. Record n starts at byte
// (n - 1) x length. Integers are 16-bit little-endian, dates 8-byte doubles, strings padded with spaces.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "base/FichiersBrandis.h"
#include "saved/FichierOuvert.h"
#include "session/ChampsConfiguration.h"

// One field: where it stands, how long it is, and how the session gives and takes it.
struct Rubrique {
  int position;  // bytes from the start of the record
  int taille;    // bytes
  std::function<std::string()> donner;
  std::function<void(const std::string &)> prendre;  // exactly `taille` bytes
};

// Fields over a variable of the session. A text is written as it stands or trimmed, cut or padded, and
// trimmed when read.
Rubrique RubriqueEntier(int position, Entier &variable);
Rubrique RubriqueBooleen(int position, Booleen &variable);
Rubrique RubriqueDate(int position, double &variable);
Rubrique RubriqueTexte(int position, int taille, std::string &variable, bool rogne = false);

// These and the fields of the panel, at the places that their rows name for this file.
std::vector<Rubrique> AvecLesChamps(std::vector<Rubrique> rubriques, int FicheChamp::*position);

// The record that the fields make, and the fields taken from a record in their order.
std::string ComposerEnregistrement(std::span<const Rubrique> rubriques, int longueur);
void RepartirEnregistrement(std::span<const Rubrique> rubriques, const std::string &enregistrement);

// Open for reading and writing; a file that is not there is made empty. All fail with 53, 57, 61, 70, 75
// or 76.
class FichierEnregistrements {
 public:
  FichierEnregistrements(const std::string &chemin, int longueur);

  // Whole records in the file.
  long Nombre() const;
  // What the file holds of record n, zeros behind it.
  std::string Lire(long n) const;
  void Ecrire(long n, const std::string &enregistrement);
  // What was written counts only when this has not failed; without it the file is closed with the object.
  void Fermer() { fichier_.Fermer(); }

 private:
  FichierOuvert fichier_;
  int longueur_;  // bytes
};
