// The one project slot: Resume.Trm with the header and Resume2.Trm with the plan lines.
#pragma once

#include <string>
#include <vector>

#include "base/Entier.h"
#include "saved/CopieReprise.h"
#include "saved/FichierEnregistrements.h"

// The header record, ProjetResume, over the session's variables.
std::vector<Rubrique> ProjetResume();

// Each does one record, n from 1; 0 does nothing. Etat 1, or 0 after a failure that it has shown.
// The header is written only over one that was there: the old file is deleted first, and where that fails
// nothing is written.
void EcrireReprise(Entier n);
void EcrireRepriseLigne(Entier n);
// A record that is not there is no failure: Etat and the session stay as they are. A missing file is made
// empty. LireReprise is False when there was no record; after a failure the caller goes on like after a
// header.
bool LireReprise(Entier n);
void LireRepriseLigne(Entier n);

// Tells in the timed note that the project is saved, and waits for it to close.
void ConfirmerSauvegarde();

// Deletes a file: Etat 1; 0 and a message without text on a failure, a missing file included.
void SupprimerFichier(const std::string &nom);
void DetruireFichier(const std::string &chemin, std::string &message, Entier &resultat);

// Puts back what a save that was cut off has left aside, and says so. False after a failure that it has
// shown: the files are not to be read then.
bool RetablirProjet();

// The commands Save and Resume. A save counts only when every step has worked; else the project before it is
// put back once all messages are told, and that is the last of them.
void EnregistrerProjet();
void ReprendreProjet();
