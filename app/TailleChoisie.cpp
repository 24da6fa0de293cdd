#include "app/TailleChoisie.h"

#include <unistd.h>

#include <QGuiApplication>
#include <QScreen>

#include "kit/FenetreMessageCourt.h"
#include "platform/qt/machine/PlateformeQt.h"
#include "saved/TailleFenetre.h"

namespace {
constexpr const char *kFacteur = "QT_SCALE_FACTOR";  // what the toolkit reads, once
constexpr const char *kReprise = "BRANDIS_TAILLE";   // percent, of a program that starts over

std::string Ecrite(int taille) {
  const std::string entiers = std::to_string(taille / 100);
  if (taille % 100 == 0) return entiers;
  const std::string reste = std::to_string(taille % 100);
  return entiers + Selon(",", ".") + (reste.back() == '0' ? reste.substr(0, 1) : reste);
}

std::string Titre() { return Selon("Taille de la fenêtre", "Size of the window"); }

void Dire(int taille, bool refusee) {
  const std::string ecrite = Ecrite(taille);
  if (refusee)
    AfficherMessageCourt(Titre(), Selon("Pas plus grand que " + ecrite + " sur cet écran.",
                                        "No larger than " + ecrite + " on this screen."));
  else
    AfficherMessageCourt(Titre(), Selon("Taille " + ecrite + " au prochain départ de Brandis.",
                                        "Size " + ecrite + " when Brandis starts next."));
}
}  // namespace

TailleChoisie::TailleChoisie(const std::string &dossier) : dossier_(dossier) {
  if (!qEnvironmentVariableIsEmpty(kFacteur)) {  // whoever starts the program so has said it
    facteur_ = std::max(qEnvironmentVariable(kFacteur).toDouble(), 0.1);
    return;
  }
  const bool reprise = !qEnvironmentVariableIsEmpty(kReprise);
  const int taille = reprise ? qEnvironmentVariableIntValue(kReprise) : LireTailleFenetre(dossier_);
  qunsetenv(kReprise);
  if (taille <= kTaillesFenetre[0]) return;
  notre_ = true;
  facteur_ = taille / 100.0;
  qputenv(kFacteur, QByteArray::number(facteur_));
}

int TailleChoisie::Tenue(int voulue) const {
  const QScreen *ecran = QGuiApplication::primaryScreen();
  if (!ecran) return kTaillesFenetre[0];
  const QSizeF place = QSizeF(ecran->availableSize()) * facteur_;
  return TailleTenue(voulue, qRound(place.width()), qRound(place.height()));
}

void TailleChoisie::TenirDansEcran(char **mots) const {
  if (!notre_) return;
  qunsetenv(kFacteur);  // or the guide's browser took it over
  const int voulue = qRound(facteur_ * 100), tenue = Tenue(voulue);
  if (tenue == voulue) return;
  qputenv(kReprise, QByteArray::number(tenue));
  execv("/proc/self/exe", mots);
  qunsetenv(kReprise);  // too large is better than not at all
}

void TailleChoisie::Changer(PlateformeQt &machine, int sens) const {
  machine.LeMiroir().Passer([&] {
    // A message that stands is to be read first.
    if (fenetreMessageCourt.Visible && fenetreMessageCourt.LblTitre.Caption != Titre()) return;
    const int avant = LireTailleFenetre(dossier_), voulue = TailleVoisine(avant, sens), tenue = Tenue(voulue);
    try {
      GarderTailleFenetre(dossier_, tenue);
    } catch (const ErreurExecution &) {
      return AfficherMessageCourt(Titre(),
                                  Selon("La taille n'a pas pu être gardée.", "The size could not be kept."));
    }
    Dire(tenue, sens > 0 && tenue <= avant);
  });
}
