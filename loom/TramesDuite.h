// What one pick is on the wire, and the readers and the manual frame beside it.
#pragma once

// Sends BitsDuite[DuiteCourante] in the protocol of NombreLames, in one write; nothing while PortOuvert is
// False. The slices are cut from 8 bits on, so harnesses 17..24 (9..16 on 16) do not go out. Fails with 9
// above 2500, and as the port does (8018); nothing is caught here.
void EnvoyerDuite();

// Enter in Text1 sends its text as a manual pattern. Fails as the port does.
void Text1_KeyDown(int touche);

// Held in reserve, for looms whose replies must be read more strictly; nothing on the path of a pick calls
// them. The strict escape reply: ESC, "C", CR gives Etat 6, else 0.
void LireReponseMetier();
// Gathers what arrives until it holds "OK" CR LF, letting events run. Reopens a port it finds closed.
void AttendreOK();
