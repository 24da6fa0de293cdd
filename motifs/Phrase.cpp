#include "motifs/Phrase.h"

#include <cstdlib>
#include <string_view>

#include "motifs/Encodage.h"

namespace {
std::string_view Variable(const char *nom) {
  const char *valeur = std::getenv(nom);
  return valeur ? valeur : "";
}
}  // namespace

Langue LangueDuBureau() {
  std::string_view langue = Variable("LC_ALL");
  if (langue.empty()) langue = Variable("LC_MESSAGES");
  if (langue.empty()) langue = Variable("LANG");
  const bool neutre = langue.empty() || langue == "C" || langue == "POSIX" || langue.substr(0, 2) == "C.";
  if (!neutre && !Variable("LANGUAGE").empty()) langue = Variable("LANGUAGE");
  return langue.substr(0, 2) == "fr" ? Langue::Francais : Langue::Anglais;
}

std::string Refus::En(Langue langue) const {
  return EnUtf8(chemin_) + (ligne_ > 0 ? ":" + std::to_string(ligne_) : "") + ": " + phrase_.En(langue);
}
