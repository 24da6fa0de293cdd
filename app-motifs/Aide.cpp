#include "app-motifs/Vocabulaire.h"

namespace {
const MotOption &Decrite(int code) {
  for (const MotOption &o : LesOptions())
    if (o.code == code) return o;
  return LesOptions().front();
}

std::string Ecrite(const MotOption &o, Langue langue) {
  const std::string nom = o.nom.En(langue);
  return (nom.size() == 1 ? "-" : "--") + nom + (o.valeur.fr ? " " + std::string(o.valeur.En(langue)) : "");
}

std::string Decale(const std::string &texte, const std::string &marge) {
  std::string resultat = marge;
  for (char c : texte) (resultat += c) += c == '\n' ? marge : "";
  return resultat + "\n";
}

std::string Appel(const MotVerbe &v, Langue langue) {
  std::string appel = "  brandis-motifs " + std::string(v.nom.En(langue)) + " " + v.fichiers.En(langue);
  for (int code : v.options) {
    const std::string option = Ecrite(Decrite(code), langue);
    appel += code == 'o' ? " " + option : " [" + option + "]";
  }
  return appel + "\n";
}

// Columns as the eye counts them: a byte that goes on with a character takes none.
std::size_t Colonnes(const std::string &texte) {
  std::size_t n = 0;
  for (char c : texte) n += (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  return n;
}

std::string Rangee(const MotOption &o, Langue langue) {
  const std::string ecrite = Ecrite(o, langue);
  return "  " + ecrite + std::string(Colonnes(ecrite) < 20 ? 20 - Colonnes(ecrite) : 1, ' ') +
         o.texte.En(langue) + "\n";
}
}  // namespace

std::string TexteAide(Langue langue, const MotVerbe *verbe) {
  const auto selon = [langue](const char *fr, const char *en) {
    return std::string(langue == Langue::Francais ? fr : en);
  };
  if (verbe) {
    std::string texte = Appel(*verbe, langue) + Decale(verbe->texte.En(langue), "      ") + "\n";
    for (int code : verbe->options) texte += Rangee(Decrite(code), langue);
    return texte;
  }
  std::string texte = selon(
      "brandis-motifs : les motifs de tout tisserand, prêts pour Brandis.\n\n"
      "  brandis-motifs [FICHIER…]\n      ouvre la fenêtre\n",
      "brandis-motifs: any weaver's patterns, ready for Brandis.\n\n"
      "  brandis-motifs [FILE…]\n      opens the window\n");
  for (const MotVerbe &v : LesVerbes()) texte += Appel(v, langue) + Decale(v.texte.En(langue), "      ");
  texte += "\n";
  for (const MotOption &o : LesOptions()) texte += Rangee(o, langue);
  return texte +
         selon("\nRésultat : 0 bien, 1 le métier ne tissera pas ce qui est dessiné, 2 un fichier refusé.\n",
               "\nExit status: 0 good, 1 the loom will not weave what is drawn, 2 a file was refused.\n");
}
