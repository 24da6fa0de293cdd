#include "saved/TailleFenetre.h"

#include <algorithm>
#include <iterator>

#include "base/ErreurExecution.h"
#include "base/FichiersBrandis.h"
#include "saved/FichierOuvert.h"
#include "session/FenetreTissagePrincipale.h"

namespace {
constexpr int kLargeur = static_cast<int>(kLargeurFenetre) / kTwipsParPixel;
constexpr int kHauteur = static_cast<int>(kHauteurFenetre) / kTwipsParPixel;

std::string Chemin(const std::string &dossier) { return dossier + "/" + kData + "/" + kNomTaille; }
}  // namespace

int LireTailleFenetre(const std::string &dossier) {
  try {
    const std::string contenu = LireContenu(Chemin(dossier)).value_or("");
    for (const int taille : kTaillesFenetre)
      if (contenu == std::to_string(taille) + "\n") return taille;
  } catch (const ErreurExecution &) {  // a wish; the window opens all the same
  }
  return kTaillesFenetre[0];
}

void GarderTailleFenetre(const std::string &dossier, int taille) {
  RemplacerContenu(Chemin(dossier), std::to_string(taille) + "\n");
}

int TailleTenue(int voulue, int largeurEcran, int hauteurEcran) {
  int tenue = kTaillesFenetre[0];
  for (const int taille : kTaillesFenetre)
    if (taille <= voulue && kLargeur * taille <= largeurEcran * 100 &&
        kHauteur * taille <= hauteurEcran * 100)
      tenue = taille;
  return tenue;
}

int TailleVoisine(int taille, int sens) {
  const auto ici = std::ranges::find(kTaillesFenetre, taille);
  if (ici == std::end(kTaillesFenetre)) return kTaillesFenetre[0];
  if (sens > 0) return std::next(ici) == std::end(kTaillesFenetre) ? taille : *std::next(ici);
  return ici == std::begin(kTaillesFenetre) ? taille : *std::prev(ici);
}
