#include "base/ErreurExecution.h"

#include <iterator>

namespace {
struct Texte {
  int numero;
  const char *texte;
};
constexpr Texte kTextes[] = {
    {Erreur::AppelInvalide, "Invalid procedure call or argument"},
    {Erreur::Depassement, "Overflow"},
    {Erreur::Indice, "Subscript out of range"},
    {Erreur::DivisionParZero, "Division by zero"},
    {Erreur::TypeIncompatible, "Type mismatch"},
    {Erreur::FichierIntrouvable, "File not found"},
    {Erreur::Peripherique, "Device I/O error"},
    {Erreur::DisquePlein, "Disk full"},
    {Erreur::PermissionRefusee, "Permission denied"},
    {Erreur::AccesChemin, "Path/File access error"},
    {Erreur::CheminIntrouvable, "Path not found"},
    {Erreur::ImageInvalide, "Invalid picture"},
    {Erreur::PortInutilisable, "Invalid port number"},
    {Erreur::PortDejaOuvert, "Port already open"},
    {Erreur::PortFerme, "Operation valid only when the port is open"},
    {Erreur::DialogueAnnule, "Cancel was selected."},
};
}  // namespace

std::string DescriptionErreur(int numero) {
  for (const Texte &t : kTextes)
    if (t.numero == numero) return t.texte;
  return "Application-defined or object-defined error";
}

ErreurExecution::ErreurExecution(int numero) : ErreurExecution(numero, DescriptionErreur(numero)) {}

ErreurExecution::ErreurExecution(int numero, const std::string &description)
    : std::runtime_error(description), numero_(numero) {}

std::string ErreurExecution::Rapport() const {
  return "Run-time error '" + std::to_string(numero_) + "': " + what();
}
