// The frames of the two protocols: what one pick is on the wire.
#pragma once

#include <string>

#include "base/Entier.h"

inline const std::string kExecuter24 =
    "\x1B"
    "E\r\n";

// ESC "I", the four data bytes, CR LF. Each value 0..255.
std::string TrameCharger24(int a, int b, int c, int d);
// "SET PATTERN 0x", the hexadecimal of B and A, LF, "PUSH PATTERN" LF.
std::string TrameMotif16(const std::string &hexaB, const std::string &hexaA);
// Readies the transmit side for a 16-harness frame: what waits is thrown away, RTS off, no handshaking.
void PreparerEnvoi16();

// Sends BitsDuite[DuiteCourante] in the protocol of NombreLames, in one write; nothing while PortOuvert is
// False, nothing on other counts than 16 and 24. The slices are cut from 8 bits on, so harnesses 17..24
// (9..16 on 16) do not go out. Fails with 9 above 2500, and as the port does (8018, 57); nothing is caught
// here.
void EnvoyerDuite();

// Enter in Text1 sends its text as a manual pattern. Fails as the port does.
void Text1_KeyDown(int touche);

// Readers held in reserve; nothing on the path of a pick calls them.
// The strict escape reply: ESC, "C", CR gives Etat 6, else 0.
void LireReponseMetier();
// Gathers what arrives until it holds "OK" CR LF, letting events run. Reopens a port it finds closed.
void AttendreOK();
