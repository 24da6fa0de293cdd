// Files of fixed records, and the table of fields that a record is made of. Record n starts at byte
// (n - 1) x length. Integers are 16-bit little-endian, dates 8-byte doubles, strings padded with spaces.
#pragma once

#include <functional>
#include <span>
#include <string>

#include "base/Entier.h"
#include "saved/FichierOuvert.h"

// One field: where it stands, how long it is, and how the session gives and takes it.
struct Champ {
  int position;  // bytes from the start of the record
  int taille;    // bytes
  const char *nom;
  std::function<std::string()> donner;
  std::function<void(const std::string &)> prendre;  // exactly `taille` bytes
};

// Fields over a variable of the session. A text is written as it stands or trimmed, cut or padded, and
// trimmed when read.
Champ ChampEntier(int position, const char *nom, Entier &variable);
Champ ChampDrapeau(int position, const char *nom, Drapeau &variable);
Champ ChampDate(int position, const char *nom, double &variable);
Champ ChampTexte(int position, int taille, const char *nom, std::string &variable, bool rogne = false);

// The record that the fields make, and the fields taken from a record in their order.
std::string ComposerEnregistrement(std::span<const Champ> champs, int longueur);
void RepartirEnregistrement(std::span<const Champ> champs, const std::string &enregistrement);

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
