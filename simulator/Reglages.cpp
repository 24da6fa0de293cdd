#include "simulator/Reglages.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

const char *const kTexteAide =
    R"(Usage: metier-simule [OPTION]...
Stands in for a dobby loom: makes a pseudo-terminal, points the link Ports/comN of
the program's folder at it, prints each shed, and reports cycle complete.

  --dossier DIR   the program's folder (default: the folder of this executable, or
                  the user's where that holds no Data or cannot be written)
  --port N        number of the port, comN (default 1)
  --lames 16|24   harnesses, and with them the protocol (default 24)
  --baud N        pace of the line both ways, 10 bits a byte; 0 is at once
                  (default 1200 for 24 harnesses, 9600 for 16)
  --cadence MS    report cycle complete that long after each execute (default 1000)
  --entree        report only when Enter comes on standard input
  --duites N      stop after N sheds
  --fautes LIST   misbehave at the report of the sheds named, such as
                  3:scinder,5:doubler,7:perdre,9:retarder=500,11:bruit,13:raccrocher=1000
                  (raccrocher: come back after that many ms; without a number, not)
  --journal       lines for machines: no time, no row of harnesses
  --help          this text

Lines on standard input:
  (empty)         cycle complete now
  scinder         next report split in two writes 150 ms apart
  doubler         next report twice in one write
  perdre          next report dropped
  retarder MS     next report that much later
  bruit           bytes that mean nothing before the next report
  raccrocher      close the line and remove the link
  revenir         make a new line and the link again
  cadence MS      change the pace of the cycles
  quitter         end

The end of standard input ends nothing, but with --entree it does.

A byte that no frame allows at its place is an error, one for each loss of step;
so is a line that the program has set to another speed than 1200 (24 harnesses) or
9600 (16). The last line tells the count of sheds and errors.

Exit status: 0 without errors, 1 with errors, 2 when it could not start.
)";

namespace {
constexpr std::array<std::string_view, 7> kOptionsValeur = {"--dossier", "--port",   "--lames", "--baud",
                                                            "--cadence", "--duites", "--fautes"};

void ExigerSansValeur(const std::string &nom, const std::optional<std::string> &valeur) {
  if (valeur) throw ErreurUsage(nom + " takes no value");
}

long Nombre(const std::string &nom, std::string_view texte, long minimum) {
  const std::optional<long> nombre = LireNombre(texte, minimum);
  if (!nombre) throw ErreurUsage("bad number for " + nom + ": " + std::string(texte));
  return *nombre;
}

void AjouterFaute(const std::string &nom, const std::optional<Delai> &valeur, Ecart &ecart) {
  const bool admetValeur = nom == "retarder" || nom == "raccrocher";
  if (valeur && !admetValeur) throw ErreurUsage(nom + " takes no number");
  if (nom == "scinder") {
    ecart.scinder = true;
  } else if (nom == "doubler") {
    ecart.doubler = true;
  } else if (nom == "perdre") {
    ecart.perdre = true;
  } else if (nom == "bruit") {
    ecart.bruit = true;
  } else if (nom == "raccrocher") {
    ecart.raccrocher = true;
    ecart.retour = valeur;
  } else if (nom == "retarder" && valeur) {
    ecart.retard += *valeur;
  } else {
    throw ErreurUsage(nom == "retarder" ? "retarder needs a number" : "unknown misbehaviour: " + nom);
  }
}

// One element of the list: shed, colon, name, and for some an equals sign and ms.
void LireFaute(const std::string &element, Scenario &fautes) {
  const std::size_t deuxPoints = element.find(':');
  if (deuxPoints == std::string::npos) throw ErreurUsage("misbehaviour without a shed: " + element);
  const long duite = Nombre("--fautes", element.substr(0, deuxPoints), 1);
  const std::size_t egal = element.find('=', deuxPoints);
  std::optional<Delai> valeur;
  if (egal != std::string::npos) valeur = Delai(Nombre("--fautes", element.substr(egal + 1), 0));
  const std::size_t longueur = egal == std::string::npos ? egal : egal - deuxPoints - 1;
  AjouterFaute(element.substr(deuxPoints + 1, longueur), valeur, fautes[duite]);
}

Scenario LireFautes(const std::string &liste) {
  Scenario fautes;
  std::size_t debut = 0;
  while (debut <= liste.size()) {
    const std::size_t virgule = std::min(liste.find(',', debut), liste.size());
    LireFaute(liste.substr(debut, virgule - debut), fautes);
    debut = virgule + 1;
  }
  return fautes;
}

// True when the option is one that stands alone.
bool LireDrapeau(const std::string &nom, Reglages &reglages) {
  if (nom == "--entree") return reglages.entree = true;
  if (nom == "--journal") return reglages.journal = true;
  if (nom == "--help") return reglages.aide = true;
  return false;
}

bool PrendValeur(const std::string &nom) {
  return std::find(kOptionsValeur.begin(), kOptionsValeur.end(), nom) != kOptionsValeur.end();
}

void LireValeur(const std::string &nom, const std::string &valeur, Reglages &reglages,
                std::optional<long> &baud) {
  if (nom == "--dossier") {
    reglages.dossier = valeur;
  } else if (nom == "--port") {
    reglages.port = static_cast<int>(Nombre(nom, valeur, 1));
  } else if (nom == "--lames") {
    if (valeur != "16" && valeur != "24") throw ErreurUsage("--lames is 16 or 24, not " + valeur);
    reglages.lames = valeur == "16" ? 16 : 24;
  } else if (nom == "--baud") {
    baud = Nombre(nom, valeur, 0);
  } else if (nom == "--cadence") {
    reglages.cadence = Delai(Nombre(nom, valeur, 0));
  } else if (nom == "--duites") {
    reglages.duites = Nombre(nom, valeur, 1);
  } else if (nom == "--fautes") {
    reglages.fautes = LireFautes(valeur);
  }
}
}  // namespace

Reglages LireReglages(const std::vector<std::string> &arguments, std::string dossier) {
  Reglages reglages;
  reglages.dossier = std::move(dossier);
  std::optional<long> baud;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::size_t egal = arguments[i].find('=');
    const std::string nom = arguments[i].substr(0, egal);
    std::optional<std::string> valeur;
    if (egal != std::string::npos) valeur = arguments[i].substr(egal + 1);
    if (LireDrapeau(nom, reglages)) {
      ExigerSansValeur(nom, valeur);
      continue;
    }
    if (!PrendValeur(nom)) throw ErreurUsage("unknown option: " + arguments[i]);
    if (!valeur && i + 1 < arguments.size()) valeur = arguments[++i];
    if (!valeur) throw ErreurUsage(nom + " needs a value");
    LireValeur(nom, *valeur, reglages, baud);
  }
  reglages.baud = baud.value_or(VitesseAttendue(reglages.lames));
  return reglages;
}

std::optional<long> LireNombre(std::string_view texte, long minimum) {
  constexpr long kMaximum = 1'000'000'000;
  long nombre = 0;
  const char *fin = texte.data() + texte.size();
  const auto [arret, erreur] = std::from_chars(texte.data(), fin, nombre);
  if (erreur != std::errc() || arret != fin || nombre < minimum || nombre > kMaximum) return std::nullopt;
  return nombre;
}

long VitesseAttendue(int lames) { return lames == 16 ? 9600 : 1200; }
