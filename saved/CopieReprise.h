// The project as it stood before a save: both its files in one copy beside them. While the copy stands the
// save counts for nothing; one rename brings it in, one takes it away, so a process that ends in between
// leaves the old project or the new one. All fail with the numbers of the file.
#pragma once

// Copies both files, present or not, down to the disk. A copy that stands already is that of a save that was
// cut off, and stays.
void MettreDeCote();
// Flushes both files and drops the copy: from here on the new project counts. After a failure the old one
// does.
void AcheverSauvegarde();

enum class EtatCopie { Aucune, Remise, Abimee };
// Puts both files back as the copy has them, and drops it. A copy that is not whole is taken out of the way
// and changes nothing. After a failure it stands.
EtatCopie RemettreProjet();

// Whether what counts, the copy or else the files, holds the header of a project; False where it cannot be
// read.
bool ProjetEnregistre();
