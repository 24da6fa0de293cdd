// The weaving session: one process-wide record that every room reads and writes directly.
#pragma once

#include <optional>
#include <string>

#include "base/Entier.h"
#include "base/Table.h"

// Results that steps leave in Etat, and kinds that the message windows find there.
namespace EtatEtape {
constexpr int Echec = 0;
constexpr int Rien = 0;  // nothing yet: before a step, and once its success was taken note of
constexpr int Reussi = 1;
constexpr int LectureSeuleLevee = 2;
constexpr int CycleComplet = 6;
}  // namespace EtatEtape

namespace Option {
constexpr int Patron = 1;
constexpr int Toile = 2;
constexpr int PatronEtToile = 3;
}  // namespace Option

// Limits that the rooms rely on.
constexpr int kLignesWif = 2500;
constexpr int kLignesTravail = 7000;
constexpr int kLames = 32;
// What every start and every settings file comes back to, and what alone a project is resumed with.
constexpr int kLamesDepart = 24;

struct Session {
  Booleen BullesActives;                 // help bubbles wanted
  Entier OptionTissage;                  // 1 pattern, 2 tabby, 3 both; 0 before the first configuration
  Booleen LangueFrancaise;               // True French, False English, read when a text is shown
  Booleen DirectionDeroulement;          // True up, False down
  Booleen DirectionTissage;              // False forward, True reverse
  Entier DuitesActives;                  // chosen, shown and saved; no weaving step reads it
  Entier DuiteCourante;                  // the pick on the loom, 1..NombreDuites; 0 is reachable
  Entier NombreDuitesPatron;             // lines of the lift plan as read and as saved
  Booleen ToileDepart;                   // True tabby A; colours the labels only
  std::string ToileA, ToileB;            // "TabbyA=1,3,..." and "TabbyB=2,4,..."
  std::string NomFichierReprise;         // resume file last touched, without folder
  std::string CheminWif;                 // full path of the open pattern, empty for none
  Table<std::string, 8> LignesRemarque;  // 1..8
  Entier NombreLignesRemarque;
  double DelaiRemarque = 0;                             // seconds
  Entier NombreLames;                                   // harnesses; 16 and 24 have a protocol
  Entier NombreLamesGrille;                             // the copy that the draft is drawn with
  Table<std::string, kLignesWif> LignesWif;             // [0] is "[LIFTPLAN]", [n] the line of pick n
  Table<std::string, kLignesTravail> LignesTravail;     // the plan in force: key, "=", harnesses
  Table2<Entier, kLignesTravail, kLames> MatriceLames;  // (pick, harness) is 1 when it rises
  Entier NombreDuites;                         // lines of the plan in force, the wrap of the sequencer
  Entier NombreDuitesWif;                      // lines of the lift plan
  double DateProjet = 0;                       // days since 30 December 1899
  Entier PortMetier;                           // 1..4, 0 before the first configuration
  Entier Etat;                                 // result of the last step
  std::string CheminApplication;               // the program's folder, with its separator
  std::string MessageErreur;                   // text of the last reported error
  std::optional<Entier> DerniereDuiteEnvoyee;  // that went to the line in this process
  Entier DepartPlan;  // cursor at which the plan of pattern and tabby was built, 0 for the other plans
  Entier IntervalleMessageCourt;  // milliseconds between ticks of the short message, 0 before the first

  // Hover of the main window's buttons.
  Entier BoutonSurvole;                               // index of the button under the pointer
  Booleen SurvolActif;                                // a button is drawn hovered
  Entier LargeurBoutonSurvole, HauteurBoutonSurvole;  // its size before, twips
  Booleen BoutonEnfonce;                              // some picture button is shown pressed
};

extern Session session;

// Empties the pattern: path, plan lines 1..2500 and matrix cells (1..2500, 1..32). Lines and rows above, the
// cursor and the bit strings stay as they were; the plan builders clear wider.
void InitialiserPatron();

// Zeroes the matrix cells 1..32 of picks premier..dernier.
void ViderMatrice(int premier, int dernier);

// Recomputes CheminApplication: the program's folder, with one separator behind it.
void CalculerCheminApplication();

// "Erreur" or "Error", the title of every failure.
std::string TitreErreur();
// One of two texts, by the language in force.
std::string Selon(const std::string &francais, const std::string &anglais);

// What differs by language, for tables. A further language is one more column here and one more argument of
// Selon; the compiler then finds every row that lacks it.
template <class T>
struct EnLangues {
  T francais, anglais;
  // That of the language in force.
  constexpr const T &EnVigueur() const { return session.LangueFrancaise ? francais : anglais; }
};
using Paire = EnLangues<const char *>;

// The ways of weaving as the panel lists them: that of option n at [n - 1].
constexpr Paire kNomsOption[3] = {
    {"Patron", "Pattern"}, {"Toile", "Tabby"}, {"Patron et Toile", "Pattern and Tabby"}};
// That of an option in the language in force; "aucun" or "none" for any other number.
std::string NomOption(int option);

// The label beside a row of the draft, by the key of its plan line: the number at its head, or the name of
// the tabby in the language in force; empty for any other key. Fails with 6 on a number above 32767.
std::string IndicateurDeCle(const std::string &cle);
