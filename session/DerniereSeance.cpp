#include "session/DerniereSeance.h"

#include <sys/stat.h>

#include <algorithm>
#include <fstream>
#include <optional>
#include <string_view>

#include "session/FormatJournal.h"

using namespace FormatJournal;

namespace {
bool Regulier(const std::string &chemin) {
  struct stat infos {};
  return lstat(chemin.c_str(), &infos) == 0 && S_ISREG(infos.st_mode);
}

// The next line that has its end; False where there is none.
bool LigneEntiere(std::ifstream &fichier, std::string &ligne) {
  while (std::getline(fichier, ligne) && !fichier.eof())
    if (!ligne.empty() && !ligne.ends_with(kCoupe)) return true;
  return false;
}

// The last whole line; empty where there is none.
std::string DerniereLigne(const std::string &chemin) {
  constexpr long kFenetre = 8192;  // bytes, more than a line has
  if (!Regulier(chemin)) return "";
  std::ifstream fichier(chemin, std::ios::binary | std::ios::ate);
  const long taille = static_cast<long>(fichier.tellg());
  fichier.seekg(std::max(0L, taille - kFenetre));
  std::string derniere;
  for (std::string ligne; LigneEntiere(fichier, ligne);) derniere = ligne;
  return derniere;
}

// What stands behind this beginning, or before this end, in either language.
std::optional<std::string_view> Apres(std::string_view texte, const Paire &debut) {
  for (const std::string_view mot : {std::string_view(debut.francais), std::string_view(debut.anglais)})
    if (texte.starts_with(mot)) return texte.substr(mot.size());
  return std::nullopt;
}
std::size_t Place(std::string_view texte, const Paire &mot) {
  return std::min(texte.find(mot.francais), texte.find(mot.anglais));
}
bool Contient(std::string_view texte, const Paire &mot) { return Place(texte, mot) != texte.npos; }

// The number at the end of a text, 0 for none.
int NombreFinal(std::string_view texte) {
  const auto debut = texte.find_last_not_of("0123456789") + 1;
  return texte.size() - debut > 5 ? 0 : std::atoi(std::string(texte.substr(debut)).c_str());
}

struct Lecteur {
  DerniereSeance seance;
  std::string motif;  // in force where the reading stands
  DerniereSeance::Plan plan;

  void LirePlan(std::string_view texte) {
    plan = {};
    const auto virgule = texte.find(", ");
    if (virgule == texte.npos) return;
    for (int option : {Option::Patron, Option::Toile, Option::PatronEtToile})
      if (const auto reste = Apres(texte.substr(0, virgule), kNomsOption[option - 1]);
          reste && reste->empty())
        plan.option = option;
    texte.remove_prefix(virgule + 2);
    plan.duites = std::atoi(std::string(texte).c_str());
    (plan.option == Option::Toile ? plan.avantToile : plan.depart) = NombreFinal(texte);
  }

  void LireDuite(std::string_view jour, std::string_view heure, std::string_view texte) {
    const auto fin = texte.find_first_not_of("0123456789");
    const auto cle = Place(texte, kLigne), finCle = texte.rfind(kFinLigne);
    if (fin == 0 || cle == texte.npos || finCle == texte.npos || fin > cle) return;
    const std::string_view dit = texte.substr(fin, cle - fin), apres = texte.substr(cle + 1);
    seance.duite = texte.substr(0, fin);
    seance.jour = jour;
    seance.heure = heure;
    seance.cle = apres.substr(apres.find(' ') + 1, finCle - cle - 1 - apres.find(' ') - 1);
    seance.inverse = Contient(dit, kInverse);
    seance.retrouvable = !Contient(dit, kSansRetour);
    seance.motif = motif;
    seance.plan = plan;
  }

  // Turned round after the last pick. Whether the pick at the edge of the plan is then followed by the right
  // one nobody has looked at.
  void LireSens(std::string_view texte) {
    seance.inverse = Contient(", " + std::string(texte), kInverse);
    const int n = std::atoi(seance.duite.c_str());
    if (seance.plan.depart > 0 && (n <= seance.plan.depart || n >= seance.plan.duites))
      seance.retrouvable = false;
  }

  void Lire(std::string_view ligne) {
    if (ligne.size() < kTexte) return;
    const std::string_view texte = ligne.substr(kTexte);
    if (const auto chemin = Apres(texte, kMotif)) motif = *chemin;
    if (const auto dit = Apres(texte, kPlan)) LirePlan(*dit);
    if (const auto dit = Apres(texte, kSens)) LireSens(*dit);
    if (const auto dit = Apres(texte, kDuite))
      LireDuite(ligne.substr(0, kJour), ligne.substr(kJour + 1, kHeure), *dit);
  }

  void Parcourir(const std::string &chemin) {
    if (!Regulier(chemin)) return;
    std::ifstream fichier(chemin, std::ios::binary);
    for (std::string ligne; LigneEntiere(fichier, ligne);) Lire(ligne);
  }
};
}  // namespace

DerniereSeance LireDerniereSeance() {
  Lecteur lecteur;
  std::string derniere = DerniereLigne(CheminJournal());
  if (derniere.empty()) derniere = DerniereLigne(CheminAncienJournal());
  if (derniere.empty() || (derniere.size() >= kTexte && Apres(derniere.substr(kTexte), kFin))) return {};
  lecteur.Parcourir(CheminAncienJournal());
  lecteur.Parcourir(CheminJournal());
  lecteur.seance.inachevee = true;
  if (lecteur.seance.duite.empty()) lecteur.seance.motif = lecteur.motif;
  return lecteur.seance;
}
