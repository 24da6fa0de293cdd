#include "motifs/Sections.h"

#include <algorithm>

#include "motifs/Arret.h"
#include "motifs/Phrase.h"

namespace {
// The mark that some systems put at the end of a text counts as blank.
constexpr std::string_view kBlancs = " \t\v\f\x1a";
constexpr std::string_view kMarqueUtf8 = "\xEF\xBB\xBF";

char Minuscule(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool EstCommentaire(std::string_view rognee) {
  return rognee.empty() || rognee[0] == ';' || rognee[0] == '#';
}

// The name between brackets; nothing for any other line.
bool NomSection(std::string_view ligne, std::string_view &nom) {
  ligne = Rogner(ligne);
  if (ligne.empty() || ligne[0] != '[') return false;
  const auto fin = ligne.find(']');
  if (fin == std::string_view::npos) return false;
  nom = Rogner(ligne.substr(1, fin - 1));
  return EstCommentaire(Rogner(ligne.substr(fin + 1)));
}

// Where the pattern begins: the line "[WIF]", even behind junk on its own line.
std::string_view DepuisEntete(std::string_view texte, int &ligne) {
  Lignes lignes(texte);
  for (std::string_view l, nom; lignes.Suivante(l);) {
    const auto crochet = l.rfind('[');
    if (crochet == std::string_view::npos) continue;
    const std::string_view bout = l.substr(crochet);
    if (!NomSection(bout, nom) || !MemeMot(nom, "WIF")) continue;
    ligne = lignes.Numero();
    return texte.substr(static_cast<std::size_t>(bout.data() - texte.data()));
  }
  ligne = 1;
  return texte.substr(0, kMarqueUtf8.size()) == kMarqueUtf8 ? texte.substr(kMarqueUtf8.size()) : texte;
}
}  // namespace

bool Lignes::Suivante(std::string_view &ligne) {
  if (reste_.empty()) return false;
  Souffler();
  const auto fin = reste_.find_first_of("\r\n");
  ligne = reste_.substr(0, fin);
  ++numero_;
  if (fin == std::string_view::npos)
    reste_ = {};
  else
    reste_.remove_prefix(fin + (reste_.substr(fin, 2) == "\r\n" ? 2 : 1));
  return true;
}

std::vector<Section> CouperSections(std::string_view texte, const std::string &chemin) {
  int premiere = 1;
  texte = DepuisEntete(texte, premiere);
  std::vector<Section> sections;
  Lignes lignes(texte, premiere);
  const char *fin = nullptr;  // of what belongs to the last section
  const auto clore = [&] {
    if (!sections.empty()) {
      std::string_view &t = sections.back().texte;
      t = {t.data(), static_cast<std::size_t>(fin - t.data())};
    }
  };
  const char *debut = texte.data();
  for (std::string_view ligne, nom; lignes.Suivante(ligne); debut = lignes.Reste().data()) {
    if (!NomSection(ligne, nom)) continue;
    if (sections.size() == kSectionsMax)
      throw Refus(chemin, lignes.Numero(), {"plus de 10 000 sections.", "more than 10 000 sections."});
    fin = debut;
    clore();
    const std::string_view reste = lignes.Reste();
    sections.push_back(
        {nom, {reste.data() ? reste.data() : texte.data() + texte.size(), 0}, lignes.Numero()});
  }
  fin = texte.data() + texte.size();
  clore();
  return sections;
}

bool CleSuivante(Lignes &lignes, LigneCle &cle) {
  for (std::string_view ligne; lignes.Suivante(ligne);) {
    const std::string_view rognee = Rogner(ligne);
    if (EstCommentaire(rognee)) continue;
    const auto egal = rognee.find('=');
    cle.egal = egal != std::string_view::npos;
    cle.cle = Rogner(rognee.substr(0, egal));
    cle.brut = cle.egal ? Rogner(rognee.substr(egal + 1)) : std::string_view();
    cle.valeur = Rogner(cle.brut.substr(0, cle.brut.find(';')));
    cle.ligne = lignes.Numero();
    return true;
  }
  return false;
}

std::string_view Rogner(std::string_view texte) {
  const auto debut = texte.find_first_not_of(kBlancs);
  if (debut == std::string_view::npos) return {};
  return texte.substr(debut, texte.find_last_not_of(kBlancs) - debut + 1);
}

bool MemeMot(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                            [](char x, char y) { return Minuscule(x) == Minuscule(y); });
}
