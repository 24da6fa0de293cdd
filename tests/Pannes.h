// A layer between the system and its file calls that fails one of them. Linked with --wrap, so only the code
// under test goes through it; the test's own streams do not.
#pragma once

#include <string>

namespace Pannes {
enum class Panne {
  Erreur,     // the n-th call fails, a close with its descriptor closed
  DesLors,    // so do all after it
  Mort,       // the process is killed before the n-th call
  Partielle,  // the n-th call, a write, writes half and the next one fails
  Coupee,     // the same, and the process is killed
  Courte,     // the n-th call, a write, writes half, and nothing fails
};
// Counts calls from 1; n 0 fails none.
void Armer(long n, Panne panne = Panne::Erreur);
// The calls seen since, a letter for each: "w" for a write to a place in a file.
std::string Desarmer();
}  // namespace Pannes
