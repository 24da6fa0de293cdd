// Configuration.Con: the settings and the current pick, one fixed record of 20 bytes.
#pragma once

#include <string>
#include <vector>

#include "base/ErreurExecution.h"
#include "saved/FichierEnregistrements.h"

// The record, ConfigurationMetier, over the session's variables.
std::vector<Rubrique> ConfigurationMetier();

// Reads the record into the session; a missing file is made empty and gives zeros. NombreLames is 24
// afterwards whatever the file says. Etat 1, or 0 after a failure that it has shown.
void LireConfiguration();
// Writes the record; the file is the old one or the new one at every moment. NombreLames is 24 from here on,
// in the file and in the running session. Etat as above.
void EcrireConfiguration();

// Makes sure that a file can be written: `resultat` 2 when a read-only mark was taken off, else 1. A failing
// step is shown and the next one runs; for a missing file that is three messages and the result 2.
void LeverLectureSeule(const std::string &chemin, Entier &resultat);

// Shows "L'erreur # n a été générée par source" CR description, and sets Etat 0.
void SignalerErreurFichier(const ErreurExecution &e);

// Full name of a file of the folder Data; recomputes CheminApplication.
std::string CheminData(const std::string &nom);
