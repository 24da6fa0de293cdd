// The records of all views in a folder, a file each, and what differs between two sets of them.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "app/vues/Releve.h"

using Registre = std::map<std::string, Releve>;

// Pixels that a control has shown in an earlier view of `ordre` are told once. Files of views that are no
// more are taken away. False where one cannot be written.
bool EcrireRegistre(const std::string &dossier, const Registre &registre,
                    const std::vector<std::string> &ordre);
Registre LireRegistre(const std::string &dossier);

// A sentence each, with the views that it holds in.
std::vector<std::string> Differences(const Registre &avant, const Registre &maintenant);
