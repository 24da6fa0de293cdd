#include "platform/Plateforme.h"

namespace {
Plateforme *enVigueur = nullptr;
}

Plateforme &plateforme() { return *enVigueur; }
void InstallerPlateforme(Plateforme *p) { enVigueur = p; }
