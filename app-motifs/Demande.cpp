#include "app-motifs/Demande.h"

#include <getopt.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <optional>

#include "app-motifs/Vocabulaire.h"
#include "motifs/Constats.h"
#include "motifs/Encodage.h"

namespace {
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

bool Structure(const std::string &nom, const std::string &texte) {
  if (texte == "structure") return true;
  if (texte == "couleurs" || texte == "colours" || texte == "colors") return false;
  Refuser(nom + " : « couleurs » ou « structure », et non « " + texte + " ».",
          nom + ": \"colours\" or \"structure\", not \"" + texte + "\".");
}

// Millimetres, with a point or a comma.
double Millimetres(const std::string &nom, std::string texte) {
  std::replace(texte.begin(), texte.end(), ',', '.');
  double mm = 0;
  const auto [fin, erreur] = std::from_chars(texte.data(), texte.data() + texte.size(), mm);
  if (erreur == std::errc() && fin == texte.data() + texte.size() && mm >= kCoteMin && mm <= kCoteMax)
    return mm;
  Refuser(nom + " : de 0,5 à 20 mm par fil, et non « " + texte + " ».",
          nom + ": from 0.5 to 20 mm a thread, not \"" + texte + "\".");
}

// "x12" behind a file says how often it repeats.
std::optional<int> Repetition(const std::string &mot) {
  if (mot.size() < 2 || mot[0] != 'x' || mot.find_first_not_of("0123456789", 1) != std::string::npos)
    return {};
  return Nombre(mot, mot.substr(1), 1, 2500);
}

void Prendre(Demande &d, int option, const std::string &nom, const std::string &valeur) {
  switch (option) {
    case 'o':
      d.sortie = valeur;
      break;
    case Option::Vers:
      d.vers = valeur;
      break;
    case Option::Remplacer:
      d.remplacer = true;
      break;
    case Option::Json:
      d.json = true;
      break;
    case Option::Separer:
      d.separer = true;
      break;
    case Option::Lieux:
      d.lieux = true;
      break;
    case Option::Flotte:
      d.flotte = Nombre(nom, valeur, 1, kFilsMax);
      break;
    case Option::Groupe:
      d.groupe = Nombre(nom, valeur, 1, 8);
      break;
    case Option::Port:
      d.projet.port = Nombre(nom, valeur, 1, 4);
      break;
    case Option::Tissage:
      d.projet.option = Nombre(nom, valeur, 1, 3);
      break;
    case Option::Duite:
      d.projet.duite = Nombre(nom, valeur, 1, kDuitesMetier);
      break;
    case Option::LamesDuMetier:
      d.lames = Nombre(nom, valeur, kLamesPetitMetier, kLamesMetier);
      if (d.lames != kLamesPetitMetier && d.lames != kLamesMetier)
        Refuser(nom + " : 16 ou 24.", nom + ": 16 or 24.");
      break;
    case Option::Duites:
      d.duites = d.dessin.planche.duites = Partie(nom, valeur);
      break;
    case Option::Fils:
      d.dessin.planche.fils = Partie(nom, valeur);
      break;
    case Option::Vue:
      d.structure = Structure(nom, valeur);
      break;
    case Option::Reprises:
      d.dessin.planche.reprises = Nombre(nom, valeur, 1, 2);
      break;
    case Option::EnHaut:
      d.dessin.planche.enHaut = true;
      break;
    case Option::Cote:
      d.dessin.cote = Millimetres(nom, valeur);
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

// Every option under both its names.
std::vector<option> OptionsLongues() {
  std::vector<option> longues;
  for (const MotOption &o : LesOptions()) {
    if (std::strlen(o.nom.fr) == 1) continue;
    const int valeur = o.valeur.fr ? required_argument : no_argument;
    longues.push_back({o.nom.fr, valeur, nullptr, o.code});
    if (std::strcmp(o.nom.fr, o.nom.en) != 0) longues.push_back({o.nom.en, valeur, nullptr, o.code});
  }
  longues.push_back({nullptr, 0, nullptr, 0});
  return longues;
}

void LireOptions(Demande &d, const MotVerbe *verbe, std::vector<std::string> mots) {
  static const std::vector<option> longues = OptionsLongues();
  char programme[] = "brandis-motifs";
  std::vector<char *> arguments{programme};
  for (std::string &m : mots) arguments.push_back(m.data());
  const int nombre = static_cast<int>(arguments.size());
  arguments.push_back(nullptr);
  optind = 0;
  optopt = 0;
  // "-" gives plain words back in their order, as option 1.
  for (int rang = -1, o; (o = getopt_long(nombre, arguments.data(), "-:ho:", longues.data(), &rang)) != -1;
       rang = -1, optopt = 0) {
    const std::string valeur = optarg ? optarg : "";
    // As it was written; a letter may stand behind others in one word.
    const std::string mot = rang >= 0 ? "--" + std::string(longues[static_cast<std::size_t>(rang)].name)
                            : o == 'o' || (optopt > 0 && optopt < 256)
                                ? std::string("-") + static_cast<char>(o == 'o' ? o : optopt)
                                : arguments[static_cast<std::size_t>(std::clamp(optind - 1, 0, nombre - 1))];
    if (o == ':') Refuser(mot + " : la valeur manque.", mot + ": its value is missing.");
    if (o == 1) {
      PrendreFichier(d, valeur);
    } else if (o == 'h' || o == Option::Aide || o == Option::VersionProgramme) {
      d.verbe = o == Option::VersionProgramme ? Verbe::Version : Verbe::Aide;
      d.aide = verbe;
      return;
    } else if (o == '?' || !verbe || std::count(verbe->options.begin(), verbe->options.end(), o) == 0) {
      const std::string cite = Citer(mot);
      Refuser("« " + cite + " » : option inconnue ici ; --help les nomme.",
              "\"" + cite + "\": no option here; --help names them.");
    } else {
      Prendre(d, o, mot, valeur);
    }
  }
  for (int i = optind; i < nombre; ++i) PrendreFichier(d, arguments[static_cast<std::size_t>(i)]);
}

// A first word that is neither: a verb with a slip, more often than a file that is gone.
void ExigerFichierOuVerbe(const std::string &mot) {
  std::error_code erreur;
  if (mot.empty() || mot[0] == '-' || std::filesystem::exists(mot, erreur)) return;
  const std::string cite = Citer(mot);
  const Phrase proche = VerbeLePlusProche(mot);
  const std::string suite = proche.fr.empty() ? "" : " " + proche.fr + " ?",
                    suiteEn = proche.en.empty() ? "" : " " + proche.en + "?";
  Refuser("« " + cite + " » : ni un fichier qui est là, ni un verbe ; --help les nomme." + suite,
          "\"" + cite + "\": neither a file that is there nor a verb; --help names them." + suiteEn);
}
}  // namespace

Demande ComprendreDemande(const std::vector<std::string> &mots) {
  Demande d;
  d.flotte = kFlotteMax;
  const MotVerbe *verbe = mots.empty() ? nullptr : TrouverVerbe(mots[0]);
  if (verbe)
    d.verbe = verbe->verbe;
  else if (!mots.empty())
    ExigerFichierOuVerbe(mots[0]);
  LireOptions(d, verbe, {mots.begin() + (verbe ? 1 : 0), mots.end()});
  if (!verbe || d.verbe == Verbe::Aide || d.verbe == Verbe::Version) return d;
  const std::string nom = mots[0];
  if (d.fichiers.empty()) Refuser(nom + " : le fichier manque.", nom + ": the file is missing.");
  if (d.fichiers.size() > verbe->fichiersMax) {
    const std::string cite = Citer(d.fichiers[1]);
    Refuser(nom + " : un seul fichier, et non « " + cite + " » en plus.",
            nom + ": one file only, not \"" + cite + "\" as well.");
  }
  if (std::count(verbe->options.begin(), verbe->options.end(), 'o') != 0 && d.sortie.empty())
    Refuser(nom + " : -o FICHIER manque.", nom + ": -o FILE is missing.");
  return d;
}
