// The protocols of the looms: one row for each harness count that has its own, and one for all others. The
// words and frames of the line stand here and nowhere else.
#pragma once

#include <string>

// ESC "R" CR LF. A port says it before it closes, whichever the loom.
constexpr char kLiberer24[] = "\x1BR\r\n";

// What goes out, eight bits each or fewer, the lowest harness at the right-hand end.
struct Tranches {
  std::string a, b, c, d;
};

// How the solenoids are tried: one after the other by the system, by the loom itself, or not at all.
enum class Essai { Aucun, Marche, DuMetier };

// Every procedure writes to the port as it stands and fails as it does; null where nothing goes out.
struct Protocole {
  int lames;               // 0 stands for every other count
  double largeurBande;     // twips, of the strip with a box for each solenoid
  const char *reglages;    // of the line; null leaves them as they are
  const char *rapport;     // what the loom says when its cycle is complete
  bool rapportParLecture;  // one advance for a read, however often the report stands in it; else one for each
  bool rouvre;             // a pick and a release open a port that they find closed
  bool relacherAvantFermer;  // Stop releases before it closes; closing alone releases the others
  Essai essai;
  void (*EnvoyerDuite)(const Tranches &);  // a pick: one write
  void (*EnvoyerCases)(const Tranches &);  // solenoids by hand or one by one: a write for each word
  void (*EnvoyerEssai)();                  // starts the loom's own test
  void (*Relacher)();
};

// That of NombreLames.
const Protocole &LeProtocole();
