#include "motifs/FormeTissable.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <map>

#include "motifs/LectureMotif.h"

namespace {
constexpr const char *kPlan[] = {"TIEUP", "TREADLING", "LIFTPLAN", "WEAVING", "CONTENTS"};
constexpr const char *kTrame[] = {"WEFT",           "WEFT COLORS",       "WEFT SPACING",
                                  "WEFT THICKNESS", "WEFT SPACING ZOOM", "WEFT THICKNESS ZOOM",
                                  "WEFT SYMBOLS",   "COLOR PALETTE",     "COLOR TABLE",
                                  "WARP COLORS"};

template <class T>
bool Parmi(std::string_view nom, const T &noms) {
  return std::any_of(std::begin(noms), std::end(noms), [nom](const char *n) { return MemeMot(n, nom); });
}

std::string Capitales(std::string_view nom) {
  std::string resultat(nom);
  for (char &c : resultat)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return resultat;
}

void AjouterNombre(std::string &texte, int n) {
  char tampon[16];
  texte.append(tampon, std::to_chars(tampon, tampon + sizeof tampon, n).ptr);
}

// A lone number would raise nothing, so it stands twice.
void AjouterLigne(std::string &texte, int duite, Lames lames) {
  AjouterNombre(texte, duite);
  if (lames == 0) texte += "=0,0";
  if (std::has_single_bit(lames)) {
    texte += '=';
    AjouterNombre(texte, PlusHaute(lames));
    texte += ',';
    AjouterNombre(texte, PlusHaute(lames));
    return;
  }
  for (char avant = '='; lames; lames &= lames - 1, avant = ',') {
    texte += avant;
    AjouterNombre(texte, std::countr_zero(lames) + 1);
  }
}

class Ecrivain {
 public:
  explicit Ecrivain(std::size_t octets) { texte_.reserve(octets); }

  void Ligne(std::string_view ligne) { (texte_ += ligne) += "\r\n"; }
  void Cle(std::string_view cle, std::string_view valeur) {
    ((((texte_ += cle) += '=') += valeur) += "\r\n");
  }
  void Section(std::string_view nom) { ((texte_ += '[') += nom) += "]\r\n"; }
  void Fin() { texte_ += "\r\n"; }

  void Foules(const std::vector<Lames> &foules) {
    Section("LIFTPLAN");
    for (std::size_t i = 0; i < foules.size(); ++i) {
      AjouterLigne(texte_, static_cast<int>(i) + 1, foules[i]);
      texte_ += "\r\n";
    }
  }
  std::string Prendre() { return std::move(texte_); }

 private:
  std::string texte_;
};

// Lines of a section as they were, without those of the key `sauf`, and without the blank lines at its end.
void Recopier(Ecrivain &e, const Section &section, std::string_view sauf = {}) {
  Lignes lignes(section.texte);
  int vides = 0;
  for (std::string_view ligne; lignes.Suivante(ligne);) {
    const std::string_view rognee = Rogner(ligne);
    if (!sauf.empty() && MemeMot(Rogner(rognee.substr(0, rognee.find('='))), sauf)) continue;
    if (rognee.empty()) {
      ++vides;
      continue;
    }
    for (; vides > 0; --vides) e.Fin();
    e.Ligne(ligne);
  }
  e.Fin();
}

struct Forme {
  const Motif &motif;
  const std::vector<Lames> &foules;
  int lames;
  const std::string *titre = nullptr;              // a new one
  const std::vector<Couleur> *couleurs = nullptr;  // of a new weft
  const std::vector<int> *separations = nullptr;   // of that weft
  const std::vector<Lames> *enfilage = nullptr;    // a new one
};

bool Reste(const Forme &f, const Section &s) {
  return !MemeMot(s.nom, "WIF") && !Parmi(s.nom, kPlan) && !(f.couleurs && Parmi(s.nom, kTrame)) &&
         !(f.separations && MemeMot(s.nom, kSectionSeparations)) &&
         !(f.enfilage && MemeMot(s.nom, "THREADING"));
}

// Nothing but blank lines.
bool Vide(const Section &s) {
  return Rogner(s.texte).find_first_not_of("\r\n \t\v\f\x1a") == std::string_view::npos;
}

// What stands in sections "[WIF]", be they several, in one.
void EcrireEntete(Ecrivain &e, const Motif &motif) {
  bool entete = false, version = false;
  motif.PourChaqueCle("WIF", [&](const LigneCle &c) {
    entete = true;
    version = version || MemeMot(c.cle, "Version");
  });
  e.Section("WIF");
  if (!version) e.Cle("Version", "1.1");
  if (!entete) {
    e.Cle("Date", "April 20, 1997");
    e.Cle("Developers", "Brandis");
    e.Cle("Source Program", "Brandis");
    return e.Fin();
  }
  for (const Section &s : motif.sections)
    if (MemeMot(s.nom, "WIF") && !Vide(s)) Recopier(e, s);
}

// The sections that will follow, each once.
std::vector<std::string> Noms(const Forme &f) {
  std::vector<std::string> noms;
  const auto ajouter = [&](std::string nom) {
    if (std::find(noms.begin(), noms.end(), nom) == noms.end()) noms.push_back(std::move(nom));
  };
  for (const Section &s : f.motif.sections)
    if (Reste(f, s)) ajouter(Capitales(s.nom));
  if (f.couleurs)
    for (const char *nom : {"COLOR PALETTE", "COLOR TABLE", "WARP COLORS", "WEFT COLORS"}) ajouter(nom);
  if (f.separations && !f.separations->empty()) ajouter(kSectionSeparations);
  if (f.enfilage) ajouter("THREADING");
  for (const char *nom : {"WEFT", "LIFTPLAN", "WEAVING"}) ajouter(nom);
  return noms;
}

void EcrireTitre(Ecrivain &e, const Forme &f) {
  if (f.titre) e.Cle("Title", *f.titre);
}

void EcrireReste(Ecrivain &e, const Forme &f) {
  bool texte = false, trame = false;
  for (const Section &s : f.motif.sections) {
    if (!Reste(f, s)) continue;
    e.Section(Capitales(s.nom));
    const bool titre = f.titre && MemeMot(s.nom, "TEXT");
    const bool duites = MemeMot(s.nom, "WEFT");
    if (titre && !texte) EcrireTitre(e, f);
    if (duites && !trame) e.Cle("Threads", std::to_string(f.foules.size()));
    texte = texte || titre;
    trame = trame || duites;
    Recopier(e, s, titre ? "Title" : duites ? "Threads" : "");
  }
  if (f.titre && !texte) {
    e.Section("TEXT");
    EcrireTitre(e, f);
    e.Fin();
  }
  if (trame) return;
  e.Section("WEFT");
  e.Cle("Threads", std::to_string(f.foules.size()));
  e.Fin();
}

// One table for warp and weft, and a reference to it for each thread.
void EcrireCouleurs(Ecrivain &e, const Forme &f) {
  std::map<Couleur, int> places;
  for (const auto *fils : {&f.motif.chaine, f.couleurs})
    for (Couleur c : *fils) places.emplace(c, 0);
  int place = 0;
  e.Section("COLOR PALETTE");
  e.Cle("Entries", std::to_string(places.size()));
  e.Cle("Form", "RGB");
  e.Cle("Range", "0,255");
  e.Fin();
  e.Section("COLOR TABLE");
  for (auto &[couleur, numero] : places) {
    numero = ++place;
    e.Cle(std::to_string(place), std::to_string(couleur >> 16) + "," + std::to_string(couleur >> 8 & 255) +
                                     "," + std::to_string(couleur & 255));
  }
  e.Fin();
  const auto fils = [&](const char *nom, const std::vector<Couleur> &couleurs) {
    e.Section(nom);
    for (std::size_t i = 0; i < couleurs.size(); ++i)
      e.Cle(std::to_string(i + 1), std::to_string(places[couleurs[i]]));
    e.Fin();
  };
  fils("WARP COLORS", f.motif.chaine);
  fils("WEFT COLORS", *f.couleurs);
}

void EcrireSeparations(Ecrivain &e, const std::vector<int> &duites) {
  if (duites.empty()) return;
  std::string liste;
  for (int d : duites) liste += (liste.empty() ? "" : ",") + std::to_string(d);
  e.Section(kSectionSeparations);
  e.Cle(kCleSeparations, liste);
  e.Fin();
}

void EcrireEnfilage(Ecrivain &e, const std::vector<Lames> &enfilage) {
  e.Section("THREADING");
  for (std::size_t i = 0; i < enfilage.size(); ++i) e.Cle(std::to_string(i + 1), ListeLames(enfilage[i]));
  e.Fin();
}

std::string Ecrire(const Forme &f) {
  ExigerTissable(f.motif, f.foules);
  Ecrivain e(f.motif.octets->size() + f.foules.size() * 24 + 1024);
  EcrireEntete(e, f.motif);
  e.Section("CONTENTS");
  for (const std::string &nom : Noms(f)) e.Cle(nom, "true");
  e.Fin();
  EcrireReste(e, f);
  if (f.couleurs) EcrireCouleurs(e, f);
  if (f.separations) EcrireSeparations(e, *f.separations);
  if (f.enfilage) EcrireEnfilage(e, *f.enfilage);
  e.Foules(f.foules);
  e.Section("WEAVING");
  e.Cle("Rising Shed", "true");
  e.Cle("Shafts", std::to_string(f.lames));
  e.Cle("Treadles", "0");
  return e.Prendre();
}
}  // namespace

void ExigerTissable(const Motif &motif, const std::vector<Lames> &foules) {
  Lames toutes = 0;
  for (Lames l : foules) toutes |= l;
  if (const int lame = PlusHaute(toutes); lame > kLamesMetier) {
    const std::string n = std::to_string(lame);
    throw Refus(motif.chemin, 0,
                {"la lame " + n + " est levée, et le plus grand métier en a 24.",
                 "harness " + n + " is raised, and the larger loom has 24."});
  }
  if (foules.size() <= static_cast<std::size_t>(kDuitesMetier)) return;
  const std::string n = std::to_string(foules.size());
  throw Refus(motif.chemin, 0,
              {n + " duites, et Brandis en prend 2500 ; FICHIER[1-2500] en prend une partie.",
               n + " picks, and Brandis takes 2500; FILE[1-2500] takes a part."});
}

std::string LignePlan(int duite, Lames lames) {
  std::string ligne;
  AjouterLigne(ligne, duite, lames);
  return ligne;
}

std::string FormeTissable(const Motif &motif) {
  return motif.extrait ? FormeTissable(motif, motif.titre, motif.foules, motif.trame, motif.separations)
                       : Ecrire({motif, motif.foules, motif.lames});
}

std::string FormeTissable(const Motif &motif, const std::string &titre, const std::vector<Lames> &foules,
                          const std::vector<Couleur> &couleurs, const std::vector<int> &separations) {
  return Ecrire({motif, foules, motif.lames, &titre, &couleurs, &separations});
}

std::string FormeSurEnfilage(const Motif &motif, const std::vector<Lames> &enfilage,
                             const std::vector<Lames> &foules, int lames) {
  const bool partie = motif.extrait;
  return Ecrire({motif, foules, lames, partie ? &motif.titre : nullptr, partie ? &motif.trame : nullptr,
                 partie ? &motif.separations : nullptr, &enfilage});
}
