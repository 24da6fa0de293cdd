// Draws the cloth of the guide's examples, from the plans that the commands make, and writes its sample lines
// of the journal and of the simulated loom, from a weaving of a sample pattern. Argument: the guide's folder;
// with --verifier it writes nothing and tells whether all of it is still what the program makes.
#include <cstdio>
#include <cstring>
#include <iostream>
#include <sstream>

#include "simulator/Releve.h"
#include "tests/Banc.h"

namespace {
constexpr int kCase = 14, kFils = 24, kLames = 8, kMarge = 30;
constexpr int kXLames = kMarge + kFils * kCase + kCase, kXEtiquette = kXLames + kLames * kCase + 8;
constexpr int kLargeur = kXEtiquette + 34, kYTissu = (kLames + 1) * kCase + 4;
constexpr const char *kEcru = "#efe3cb", *kBleu = "#2b4a80", *kOcre = "#c98a2b", *kNoir = "#1a1a1a",
                     *kRouge = "#a80000", *kVide = "#ffffff";

// A weaver at the bench: the pattern option, COM 1, and an 8-pick twill to open.
class Atelier : public Banc {
 public:
  Atelier() {
    SetUp();
    LancerProgramme();
    Configurer({{1, "COM 1"}, {5, "Pattern"}});
  }
  ~Atelier() override { TearDown(); }
  Atelier(const Atelier &) = delete;
  Atelier &operator=(const Atelier &) = delete;
  void TestBody() override {}

  void OuvrirSerge() {
    Ouvrir(Motif({"1=1,2,3,6", "2=2,3,4,7", "3=3,4,5,8", "4=1,4,5,6", "5=2,5,6,7", "6=3,6,7,8", "7=1,4,7,8",
                  "8=1,2,5,8"}));
  }
  void OuvrirFigure() { Ouvrir(EcrireFichier("Figure24.Wif", Lire(BRANDIS_FIGURE))); }
  using Banc::Ecrits;
  using Banc::LireFichier;
  void Choisir(const std::string &option, int duite) {
    Configurer({{5, option}, {7, std::to_string(duite)}});
  }
  void Tisser(int duites) {
    Commander(Commande::Demarrer);
    Rapports(duites - 1);
  }
  using Banc::Commander;
};

// Squares of one colour are one path each; the texts come on top.
struct Feuille {
  std::map<std::string, std::string> carres;
  std::string textes;

  void Carre(int x, int y, const char *couleur) {
    carres[couleur] += "M" + std::to_string(x) + " " + std::to_string(y) + "h14v14h-14z";
  }
  void Texte(int x, int y, const char *ancre, const std::string &texte, const char *couleur) {
    textes += "<text x=\"" + std::to_string(x) + "\" y=\"" + std::to_string(y) + "\" text-anchor=\"" + ancre +
              "\" fill=\"" + couleur + "\">" + texte + "</text>\n";
  }
  std::string Svg(int hauteur) const {
    const std::string l = std::to_string(kLargeur), h = std::to_string(hauteur);
    std::string s = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " + l + " " + h + "\" width=\"" +
                    l + "\" height=\"" + h +
                    "\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"11\">\n";
    for (const auto &[couleur, chemin] : carres)
      s += "<path fill=\"" + couleur + "\" stroke=\"#b9ab90\" stroke-width=\".5\" d=\"" + chemin + "\"/>\n";
    return s + textes + "</svg>\n";
  }
};

// What the window writes beside the row: the number in the pattern, or the letter of the tabby.
std::string Etiquette(const std::string &ligne) {
  const std::string cle = ligne.substr(0, ligne.find('='));
  return cle == "TabbyA" ? "A" : cle == "TabbyB" ? "B" : cle;
}

// One row of the drawing: pick n of the plan, its top at y.
void Rang(Feuille &f, int n, int y, bool enCours) {
  const std::string &ligne = session.LignesTravail[n];
  const bool toile = ligne.rfind("Tabby", 0) == 0;
  const char *encre = enCours ? kRouge : kNoir;
  f.Texte(kMarge - 6, y + 11, "end", std::to_string(n), encre);
  for (int fil = 0; fil < kFils; ++fil)
    f.Carre(kMarge + fil * kCase, y,
            session.MatriceLames(n, fil % kLames + 1) == 1 ? kEcru
            : toile                                        ? kOcre
                                                           : kBleu);
  for (int lame = 1; lame <= kLames; ++lame)
    f.Carre(kXLames + (lame - 1) * kCase, y, session.MatriceLames(n, lame) == 1 ? encre : kVide);
  f.Texte(kXEtiquette, y + 11, "start", Etiquette(ligne), encre);
}

void Enfilage(Feuille &f) {
  for (int lame = 1; lame <= kLames; ++lame) {
    for (int fil = 0; fil < kFils; ++fil)
      f.Carre(kMarge + fil * kCase, (kLames - lame) * kCase + 2, fil % kLames + 1 == lame ? kNoir : kVide);
    f.Texte(kXLames + (lame - 1) * kCase + kCase / 2, kYTissu - 5, "middle", std::to_string(lame), kNoir);
  }
}

// The plan in force from pick 1 at the bottom, and as many picks of its next round, behind a dashed line. The
// current pick is red where it is asked for.
std::string Dessin(int reprise, bool montrerEnCours) {
  const int rangs = session.NombreDuites + reprise;
  Feuille f;
  Enfilage(f);
  for (int i = 0; i < rangs; ++i) {
    const int y = kYTissu + (rangs - 1 - i) * kCase, n = i % session.NombreDuites + 1;
    Rang(f, n, y, montrerEnCours && i < session.NombreDuites && n == session.DuiteCourante);
  }
  if (reprise > 0)
    f.textes += "<path d=\"M4 " + std::to_string(kYTissu + reprise * kCase) + "H" +
                std::to_string(kLargeur - 4) +
                "\" stroke=\"#a80000\" stroke-width=\"1.5\" stroke-dasharray=\"6 4\"/>\n";
  return f.Svg(kYTissu + rangs * kCase + 6);
}

std::map<std::string, std::string> Dessiner() {
  std::map<std::string, std::string> dessins;
  {
    Atelier a;
    a.OuvrirSerge();
    dessins["patron"] = Dessin(6, false);
    a.Tisser(5);
    a.Commander(Commande::TisserToile);
    a.Commander(Commande::TisserPatronEtToile);
    dessins["retour-toile"] = Dessin(0, true);
  }
  {
    Atelier a;
    a.OuvrirSerge();
    a.Choisir("Pattern and Tabby", 1);
    dessins["patron-toile"] = Dessin(4, false);
    a.Choisir("Tabby", 1);
    session.NombreDuites = 12;  // the first of its forty
    dessins["toile"] = Dessin(0, false);
  }
  Atelier a;
  a.Choisir("Pattern and Tabby", 1);
  a.OuvrirSerge();
  dessins["ouvert-patron-toile"] = Dessin(0, true);
  return dessins;
}

// The journal's line of the 28th pick, on a day that stays.
std::string LigneJournal(bool francais) {
  Atelier a;
  session.LangueFrancaise = francais;
  a.OuvrirFigure();
  a.Tisser(28);
  std::string journal = a.LireFichier("Journal.txt");
  journal.pop_back();  // the last line's own end
  return "2026-11-23 08:31:07" + journal.substr(journal.rfind('\n') + 1).substr(19);
}

// What the simulated loom prints of the first shed, without the time and the bytes.
std::string LigneMetier() {
  Atelier a;
  a.OuvrirFigure();
  a.Ecrits();
  a.Tisser(1);
  std::ostringstream dit;
  Releve releve(dit, 24, false);
  LecteurTrames lecteur(24);
  for (const std::string &ecrit : a.Ecrits())
    for (const char c : ecrit)
      for (const Trame &trame : lecteur.Lire(static_cast<std::uint8_t>(c))) releve.Noter(trame);
  const std::string ligne = dit.str().substr(dit.str().find("shed"));
  return ligne.substr(0, ligne.find("  ")) + "  …";
}

// The page with its samples, each between the marks of its place.
std::string AvecExemples(std::string page, const std::map<std::string, std::string> &exemples) {
  for (const auto &[place, texte] : exemples) {
    const std::string debut = "<pre id=\"" + place + "\"><code>";
    const std::size_t p = page.find(debut);
    if (p == std::string::npos) continue;
    const std::size_t d = p + debut.size();
    page.replace(d, page.find("</code>", d) - d, texte);
  }
  return page;
}

std::string Lire(const std::string &chemin) {
  std::ifstream f(chemin, std::ios::binary);
  return {std::istreambuf_iterator<char>(f), {}};
}
}  // namespace

int main(int nombre, char **mots) {
  if (nombre < 2) return 2;
  const std::string dossier = mots[1];
  const bool verifier = nombre > 2 && std::strcmp(mots[2], "--verifier") == 0;
  std::map<std::string, std::string> fichiers;
  for (const auto &[nom, svg] : Dessiner()) fichiers[dossier + "/dessins/" + nom + ".svg"] = svg;
  for (const bool francais : {false, true}) {
    const std::string page = dossier + (francais ? "/fr.html" : "/en.html");
    fichiers[page] = AvecExemples(
        Lire(page), {{"exemple-journal", LigneJournal(francais)}, {"exemple-metier", LigneMetier()}});
  }
  int ecarts = 0;
  for (const auto &[chemin, contenu] : fichiers) {
    if (Lire(chemin) == contenu) continue;
    if (!verifier) {
      std::ofstream(chemin, std::ios::binary) << contenu;
    } else {
      std::cout << chemin << " is not what the program makes; run the target dessins-guide\n";
      ecarts = 1;
    }
  }
  return ecarts;
}
