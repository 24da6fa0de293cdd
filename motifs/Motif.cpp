#include "motifs/Motif.h"

#include <bit>

int PlusHaute(Lames lames) { return kLamesMax - std::countl_zero(lames); }

std::string ListeLames(Lames lames) {
  std::string liste;
  for (; lames; lames &= lames - 1) {
    if (!liste.empty()) liste += ',';
    liste += std::to_string(std::countr_zero(lames) + 1);
  }
  return liste;
}

std::string ListeCourte(Lames lames) {
  std::string liste;
  while (lames) {
    const int premiere = std::countr_zero(lames), suite = std::countr_one(lames >> premiere);
    const int pris = suite >= 3 ? suite : 1;
    if (!liste.empty()) liste += ',';
    liste += std::to_string(premiere + 1);
    if (pris > 1) liste += "-" + std::to_string(premiere + pris);
    lames &= ~(LamesJusqua(pris) << premiere);
  }
  return liste;
}

std::string EnGroupes(long long n) {
  std::string texte = std::to_string(n);
  for (auto i = static_cast<int>(texte.size()) - 3; i > 0; i -= 3)
    texte.insert(static_cast<std::size_t>(i), " ");
  return texte;
}

namespace {
// "pick 3", "picks 3 to 9".
Phrase Etendue(const char *fr, const char *frs, const char *en, const char *ens, int premier, int dernier) {
  const std::string a = " " + std::to_string(premier), b = std::to_string(dernier);
  if (premier == dernier) return {fr + a, en + a};
  return {frs + a + " à " + b, ens + a + " to " + b};
}
}  // namespace

Phrase TexteLieu(const Lieu &l) {
  Phrase texte;
  const auto joindre = [&texte](const Phrase &p) {
    const char *avant = texte.en.empty() ? "" : ", ";
    texte.fr += avant + p.fr;
    texte.en += avant + p.en;
  };
  if (l.duite > 0)
    joindre(Etendue("duite", "duites", "pick", "picks", l.duite, l.suite > 0 ? l.suite : l.derniereDuite));
  if (l.suite > 0) joindre({"par-dessus la reprise", "over the seam"});
  if (l.fil > 0) joindre(Etendue("fil", "fils", "end", "ends", l.fil, l.dernierFil));
  if (l.lame > 0) joindre({"lame " + std::to_string(l.lame), "harness " + std::to_string(l.lame)});
  if (l.pedale > 0) joindre({"pédale " + std::to_string(l.pedale), "treadle " + std::to_string(l.pedale)});
  if (l.ligne > 0 && texte.en.empty())
    joindre({"ligne " + std::to_string(l.ligne), "line " + std::to_string(l.ligne)});
  if (l.cote != 0) joindre(l.cote > 0 ? Phrase{"dessus", "above"} : Phrase{"dessous", "below"});
  return texte;
}

Constat::Constat(Genre g, bool f, Phrase t, const Lieu &ou)
    : Lieu(ou), genre(g), faute(f), texte(std::move(t)) {
  if (ligne > 0 || fil > 0 || duite > 0 || lame > 0 || pedale > 0) lieux.push_back(ou);
}

void Recolte::Ajouter(const Lieu &lieu, long long fois) {
  nombre_ += fois;
  if (lieux_.size() < kLieuxMax) lieux_.push_back(lieu);
}

Constat Recolte::Faire(const Phrase &plusieurs) const {
  const Phrase ou = TexteLieu(lieux_.front());
  const Phrase &nom = plusieurs.en.empty() ? phrase_ : plusieurs;
  const std::string n = EnGroupes(nombre_);
  // The line of the file stands before the sentence already.
  const bool ligneSeule =
      lieux_.front().ligne > 0 && ou.en == TexteLieu(Lieu::Ligne(lieux_.front().ligne)).en;
  Phrase texte = lieux_.size() > 1 ? Phrase{nom.fr + " : " + n + ", d'abord " + ou.fr + ".",
                                            nom.en + ": " + n + ", first at " + ou.en + "."}
                 : ligneSeule      ? Phrase{phrase_.fr + ".", phrase_.en + "."}
                              : Phrase{ou.fr + " : " + phrase_.fr + ".", ou.en + ": " + phrase_.en + "."};
  Constat c(genre_, faute_, std::move(texte), lieux_.front());
  c.nombre = nombre_;
  c.lieux = lieux_;
  return c;
}
