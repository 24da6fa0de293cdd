// The moving draft: twenty rows around the current pick, which stands on row 11. A redraw while weaving sends
// the pick before it draws. Rows are 1..20, picks 0..7000.
#pragma once

#include "base/Entier.h"

// Draws around `duite` in the descending layout, or goes on to AfficherDuitesHaut when the draft scrolls up.
// Fails with 9 or 5 where a plan line or the bit string is beyond its table, or as the port does.
void AfficherDuites(const Entier &duite);
// Draws around DuiteCourante in the ascending layout.
void AfficherDuitesHaut();
// One of the two: the direction of weaving, not that of scrolling, decides; AfficherDuites goes on by itself
// when the draft scrolls up.
void RedessinerSelonDirection();

// Hides all cells and empties the labels 1 to 20.
void ViderGrille();
// Hides the same cells, empties the labels from NombreLamesGrille to 20 and LblNombreLigne; a failure inside
// is passed over.
void PreparerGrille();
// Gives the cells their places and pictures: black in columns 1 to 24, red on row 11, white boxes behind.
void InitialiserCases();
void CacherBitsEnvoi();

// Empties the labels 1 to 20.
void EffacerIndicateursLigne();
// Held in reserve, for a draft that moves row by row: hide the cells of one row (3 to 20), of rows 12 and 13.
void MasquerRangee(Entier rangee);
void CacherRangee12();
void CacherRangee13();
