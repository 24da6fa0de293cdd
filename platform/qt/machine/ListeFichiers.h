// The list of the dialogue that asks for a file: as wide as what it shows, with a short date, and without the
// column of types, which says of every pattern that it is one.
#pragma once

class QFileDialog;

void DisposerListeFichiers(QFileDialog &choix);
