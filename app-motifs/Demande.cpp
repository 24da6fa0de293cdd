#include "app-motifs/Demande.h"

#include <getopt.h>

#include <algorithm>
#include <charconv>
#include <optional>

#include "motifs/Constats.h"

namespace {
enum Option {
  Vers = 256,
  Remplacer,
  Json,
  Separer,
  Flotte,
  Groupe,
  Port,
  Duites,
  Fils,
  Vue,
  Reprises,
  EnHaut,
  Cote,
  Aide,
  VersionProgramme
};

const option kOptions[] = {{"vers", required_argument, nullptr, Vers},
                           {"remplacer", no_argument, nullptr, Remplacer},
                           {"json", no_argument, nullptr, Json},
                           {"separer", no_argument, nullptr, Separer},
                           {"flotte", required_argument, nullptr, Flotte},
                           {"groupe", required_argument, nullptr, Groupe},
                           {"port", required_argument, nullptr, Port},
                           {"duites", required_argument, nullptr, Duites},
                           {"fils", required_argument, nullptr, Fils},
                           {"vue", required_argument, nullptr, Vue},
                           {"reprises", required_argument, nullptr, Reprises},
                           {"en-haut", no_argument, nullptr, EnHaut},
                           {"cote", required_argument, nullptr, Cote},
                           {"help", no_argument, nullptr, Aide},
                           {"aide", no_argument, nullptr, Aide},
                           {"version", no_argument, nullptr, VersionProgramme},
                           {nullptr, 0, nullptr, 0}};

struct Regle {
  const char *nom;
  Verbe verbe;
  std::vector<int> options;
  std::size_t fichiersMax;
  bool sortie;  // -o has to be there
};

const std::vector<Regle> &Regles() {
  constexpr std::size_t kTous = SIZE_MAX;
  static const std::vector<Regle> regles{
      {"convertir", Verbe::Convertir, {Vers, Remplacer, Duites}, kTous, false},
      {"verifier", Verbe::Verifier, {Json, Flotte}, kTous, false},
      {"dessiner", Verbe::Dessiner, {Remplacer, Duites, Fils, Vue, Reprises, EnHaut, Cote, 'o'}, 1, true},
      {"assembler", Verbe::Assembler, {Remplacer, Separer, Duites, 'o'}, kTous, true},
      {"enfilage", Verbe::Enfilage, {Remplacer, Groupe, 'o'}, 1, true},
      {"projet16", Verbe::Projet16, {Vers, Remplacer, Port}, 1, false},
      {"info", Verbe::Info, {Json}, 1, false}};
  return regles;
}

[[noreturn]] void Refuser(const std::string &fr, const std::string &en) { throw MauvaiseDemande{{fr, en}}; }

int Nombre(const std::string &option, const std::string &texte, int premier, int dernier) {
  int n = 0;
  const auto [fin, erreur] = std::from_chars(texte.data(), texte.data() + texte.size(), n);
  if (erreur == std::errc() && fin == texte.data() + texte.size() && n >= premier && n <= dernier) return n;
  const std::string bornes[] = {std::to_string(premier), std::to_string(dernier)};
  Refuser(option + " : un nombre de " + bornes[0] + " à " + bornes[1] + ", et non « " + texte + " ».",
          option + ": a number from " + bornes[0] + " to " + bornes[1] + ", not \"" + texte + "\".");
}

Etendue Partie(const std::string &option, const std::string &texte) {
  if (const auto e = LireEtendue(texte)) return *e;
  Refuser(option + " : de quel nombre à quel nombre, « 1-2400 », et non « " + texte + " ».",
          option + ": from which to which number, \"1-2400\", not \"" + texte + "\".");
}

bool Structure(const std::string &texte) {
  if (texte == "structure") return true;
  if (texte == "couleurs" || texte == "colours" || texte == "colors") return false;
  Refuser("--vue : « couleurs » ou « structure », et non « " + texte + " ».",
          "--vue: \"colours\" or \"structure\", not \"" + texte + "\".");
}

// Millimetres, with a point or a comma.
double Millimetres(std::string texte) {
  std::replace(texte.begin(), texte.end(), ',', '.');
  double mm = 0;
  const auto [fin, erreur] = std::from_chars(texte.data(), texte.data() + texte.size(), mm);
  if (erreur == std::errc() && fin == texte.data() + texte.size() && mm >= kCoteMin && mm <= kCoteMax)
    return mm;
  Refuser("--cote : de 0,5 à 20 mm par fil, et non « " + texte + " ».",
          "--cote: from 0.5 to 20 mm a thread, not \"" + texte + "\".");
}

// "x12" behind a file says how often it repeats.
std::optional<int> Repetition(const std::string &mot) {
  if (mot.size() < 2 || mot[0] != 'x' || mot.find_first_not_of("0123456789", 1) != std::string::npos)
    return {};
  return Nombre(mot, mot.substr(1), 1, 2500);
}

void Prendre(Demande &d, int option, const std::string &valeur) {
  switch (option) {
    case 'o':
      d.sortie = valeur;
      break;
    case Vers:
      d.vers = valeur;
      break;
    case Remplacer:
      d.remplacer = true;
      break;
    case Json:
      d.json = true;
      break;
    case Separer:
      d.separer = true;
      break;
    case Flotte:
      d.flotte = Nombre("--flotte", valeur, 1, kFilsMax);
      break;
    case Groupe:
      d.groupe = Nombre("--groupe", valeur, 1, 8);
      break;
    case Port:
      d.port = Nombre("--port", valeur, 1, 4);
      break;
    case Duites:
      d.duites = d.dessin.planche.duites = Partie("--duites", valeur);
      break;
    case Fils:
      d.dessin.planche.fils = Partie("--fils", valeur);
      break;
    case Vue:
      d.structure = Structure(valeur);
      break;
    case Reprises:
      d.dessin.planche.reprises = Nombre("--reprises", valeur, 1, 2);
      break;
    case EnHaut:
      d.dessin.planche.enHaut = true;
      break;
    case Cote:
      d.dessin.cote = Millimetres(valeur);
      break;
    default:
      break;
  }
}

void PrendreFichier(Demande &d, const std::string &mot) {
  const auto fois = d.verbe == Verbe::Assembler && !d.fichiers.empty() ? Repetition(mot) : std::nullopt;
  if (fois) {
    d.fois.back() = *fois;
    return;
  }
  d.fichiers.push_back(mot);
  d.fois.push_back(1);
}

void LireOptions(Demande &d, const Regle *regle, std::vector<std::string> mots) {
  std::vector<char *> arguments{nullptr};
  for (std::string &m : mots) arguments.push_back(m.data());
  const int nombre = static_cast<int>(arguments.size());
  arguments.push_back(nullptr);
  optind = 0;
  // "-" gives plain words back in their order, as option 1.
  for (int o; (o = getopt_long(nombre, arguments.data(), "-:ho:", kOptions, nullptr)) != -1;) {
    const std::string valeur = optarg ? optarg : "";
    const std::string mot =
        optind > 0 && optind <= nombre ? arguments[static_cast<std::size_t>(optind - 1)] : "";
    if (o == ':') Refuser(mot + " : la valeur manque.", mot + ": its value is missing.");
    if (o == 1) {
      PrendreFichier(d, valeur);
    } else if (o == 'h' || o == Aide || o == VersionProgramme) {
      d.verbe = o == VersionProgramme ? Verbe::Version : Verbe::Aide;
      return;
    } else if (o == '?' || !regle || std::count(regle->options.begin(), regle->options.end(), o) == 0) {
      Refuser("« " + mot + " » : option inconnue ici ; --help les nomme.",
              "\"" + mot + "\": no option here; --help names them.");
    } else {
      Prendre(d, o, valeur);
    }
  }
  for (int i = optind; i < nombre; ++i) PrendreFichier(d, arguments[static_cast<std::size_t>(i)]);
}
}  // namespace

Demande ComprendreDemande(const std::vector<std::string> &mots) {
  Demande d;
  d.flotte = kFlotteMax;
  const Regle *regle = nullptr;
  if (!mots.empty())
    for (const Regle &r : Regles())
      if (mots[0] == r.nom) regle = &r;
  if (regle) d.verbe = regle->verbe;
  LireOptions(d, regle, {mots.begin() + (regle ? 1 : 0), mots.end()});
  if (!regle || d.verbe == Verbe::Aide || d.verbe == Verbe::Version) return d;
  const std::string nom = regle->nom;
  if (d.fichiers.empty()) Refuser(nom + " : le fichier manque.", nom + ": the file is missing.");
  if (d.fichiers.size() > regle->fichiersMax)
    Refuser(nom + " : un seul fichier, et non « " + d.fichiers[1] + " » en plus.",
            nom + ": one file only, not \"" + d.fichiers[1] + "\" as well.");
  if (regle->sortie && d.sortie.empty())
    Refuser(nom + " : -o FICHIER manque.", nom + ": -o FILE is missing.");
  return d;
}
