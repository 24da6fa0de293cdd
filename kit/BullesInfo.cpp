#include "kit/BullesInfo.h"

#include "mainwindow/FenetreTissagePrincipale.h"

void FermerBulles() { fenetre.Remarque.Caption.clear(); }
