// Run-time failures: the one kind of exception in the system.
#pragma once

#include <stdexcept>
#include <string>

// A failure with the number, the source and the description that the handlers show.
class ErreurExecution : public std::runtime_error {
 public:
  explicit ErreurExecution(int numero);
  ErreurExecution(int numero, const std::string &description);

  int Number() const { return numero_; }
  const char *Source() const { return "Brandis"; }
  std::string Description() const { return what(); }
  // "Run-time error '9': Subscript out of range", the report of a failure that nobody caught.
  std::string Rapport() const;

 private:
  int numero_;
};

// Numbers of the failures that the system tells apart.
namespace Erreur {
constexpr int AppelInvalide = 5;
constexpr int Depassement = 6;
constexpr int Indice = 9;
constexpr int DivisionParZero = 11;
constexpr int TypeIncompatible = 13;
constexpr int FichierIntrouvable = 53;
constexpr int Peripherique = 57;
constexpr int DisquePlein = 61;
constexpr int PermissionRefusee = 70;
constexpr int AccesChemin = 75;
constexpr int CheminIntrouvable = 76;
constexpr int ImageInvalide = 481;
constexpr int PortInutilisable = 8002;
constexpr int PortDejaOuvert = 8005;
constexpr int PortFerme = 8018;
constexpr int DialogueAnnule = 32755;
}  // namespace Erreur

// Plain English text of a failure number, as the run-time system words it.
std::string DescriptionErreur(int numero);
