// What the files of a weaver are called, how long their records are, and in which folder they lie: one word
// for the loom's program, for its companion and for the simulated loom.
#pragma once

#include <cstddef>
#include <string>

constexpr const char *kData = "Data", *kPorts = "Ports";  // in the folder

// In `Data`. The copy of a project stands while a save is under way, and goes under the last name when it
// ends.
constexpr const char *kNomConfiguration = "Configuration.Con", *kNomTaille = "Taille.txt";
constexpr const char *kNomEntete = "Resume.Trm", *kNomLignes = "Resume2.Trm";
constexpr const char *kNomCopie = "Reprise.Avant", *kNomEcartee = "Reprise.Ecartee";
constexpr const char *kNomVerrou = "Brandis.verrou";  // held by whoever writes there
constexpr const char *kNomJournal = "Journal.txt", *kNomAncienJournal = "Journal.1.txt";
// Bytes; the path stands inside the header.
constexpr std::size_t kLongueurConfiguration = 20, kLongueurReprise = 281, kLongueurRepriseLigne = 70;
constexpr std::size_t kLongueurCheminWif = 255;

// Whether a folder holds `Data` and can be written, and so is a program's own.
bool EstPortable(const std::string &dossier);
// The user's folder, there or not; empty where the environment names neither XDG_DATA_HOME nor HOME in full.
std::string DossierUtilisateur();
// The folder with the executable where that is portable, else the user's.
std::string DossierBrandis(const std::string &dossierExecutable);

// Where the link of serial port "COM n" stands in a folder.
std::string LienCom(const std::string &dossier, int numero);
