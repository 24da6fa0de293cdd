// The keys of a window.
#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <map>

#include "platform/qt/miroir/Veilleur.h"
#include "platform/qt/natifs/TexteNatif.h"

namespace {
constexpr int kMaj = 1, kControle = 2;

// Letters, digits and the space have their own code in the toolkit as in the system.
int CodeTouche(const QKeyEvent &e) {
  static const std::map<int, int> codes = {{Qt::Key_Backspace, Touche::Retour},
                                           {Qt::Key_Return, Touche::Entree},
                                           {Qt::Key_Enter, Touche::Entree},
                                           {Qt::Key_Tab, 9},
                                           {Qt::Key_Shift, 16},
                                           {Qt::Key_Control, 17},
                                           {Qt::Key_Alt, 18},
                                           {Qt::Key_Escape, Touche::Echappement},
                                           {Qt::Key_PageUp, 33},
                                           {Qt::Key_PageDown, 34},
                                           {Qt::Key_End, 35},
                                           {Qt::Key_Home, 36},
                                           {Qt::Key_Left, 37},
                                           {Qt::Key_Up, 38},
                                           {Qt::Key_Right, 39},
                                           {Qt::Key_Down, 40},
                                           {Qt::Key_Insert, 45},
                                           {Qt::Key_Delete, 46}};
  const auto place = codes.find(e.key());
  if (place != codes.end()) return place->second;
  if (e.key() >= Qt::Key_F1 && e.key() <= Qt::Key_F16) return 112 + e.key() - Qt::Key_F1;
  const bool propre = e.key() == Qt::Key_Space || (e.key() >= Qt::Key_0 && e.key() <= Qt::Key_9) ||
                      (e.key() >= Qt::Key_A && e.key() <= Qt::Key_Z);
  constexpr int kAutre = 255;  // any other key is a key too
  return propre ? e.key() : kAutre;
}

int EtatMaj(const QKeyEvent &e) {
  const auto m = e.modifiers();
  return (m & Qt::ShiftModifier ? kMaj : 0) | (m & Qt::ControlModifier ? kControle : 0) |
         (m & Qt::AltModifier ? Touche::Alt : 0);
}
}  // namespace

bool Veilleur::Avertir(const Controle &controle, int code, int maj) {
  const auto procedure = controle.KeyDown;
  if (!procedure) return false;
  guichet_.Passer([&] { procedure(code, maj); });
  return true;
}

bool Veilleur::Enfoncer(Natif &natif, QWidget &source, QKeyEvent &e) {
  // A key that its field did not want climbs to the parents; it is no key of theirs.
  QWidget *tenu = source.window()->focusWidget();
  if (tenu && natifs_.value(tenu, &natif) != &natif) return true;
  const int code = CodeTouche(e), maj = EtatMaj(e);
  if (e.key() == Qt::Key_Tab || e.key() == Qt::Key_Backtab) {
    // Where there is nowhere to go it is a key like any other.
    if (OrdreLecture().size() > 1 || !Avertir(fenetre_.Donnee(), 9, maj))
      Parcourir(e.key() == Qt::Key_Tab ? 1 : -1);
    return true;
  }
  const bool champ = natif.Saisie() && natif.Donnee().genre() != Genre::Case;
  const bool presse = code == Touche::Espace || code == Touche::Entree;
  const bool repetee = guichet_.Touches.Repetee(e);
  if (code == Touche::Echappement || (presse && !champ)) {
    if (repetee) return true;  // one press does one thing, however long it lasts
    if (guichet_.Repondre()) return true;
  }
  const bool pourFenetre = code == Touche::Echappement || ((maj & Touche::Alt) && code >= '0' && code <= 'Z');
  if (pourFenetre && Avertir(fenetre_.Donnee(), code, maj)) return true;
  if (natif.Saisie()) return Saisir(natif, e, repetee);
  return Commander(natif, code, maj);
}

bool Veilleur::Commander(Natif &natif, int code, int maj) {
  if (Avertir(natif.Donnee(), code, maj)) return true;
  if ((code == Touche::Espace || code == Touche::Entree) && natif.Bouton()) {
    natif.Presser();
  } else {
    Avertir(fenetre_.Donnee(), code, maj);
  }
  return true;
}

bool Veilleur::Saisir(Natif &natif, QKeyEvent &e, bool repetee) {
  const int code = CodeTouche(e), maj = EtatMaj(e);
  const bool uneLigne =
      natif.Donnee().genre() == Genre::Texte && !static_cast<const ZoneTexte &>(natif.Donnee()).Multiligne;
  if (code == Touche::Entree && uneLigne && repetee) return true;  // it may still be the press that opened it
  if (Avertir(natif.Donnee(), code, maj) && !natif.Widget()->isVisible()) return true;
  if (natif.Ecriture() && Filtrer(natif, e)) return true;
  if (code != Touche::Entree || !uneLigne) return false;
  if (!natif.Donnee().KeyDown) Avertir(fenetre_.Donnee(), code, maj);
  return true;
}

// True when the key was dropped or replaced.
bool Veilleur::Filtrer(Natif &natif, QKeyEvent &e) {
  const auto filtre = natif.Donnee().KeyPress;
  if (!filtre || (e.modifiers() & (Qt::ControlModifier | Qt::MetaModifier))) return false;
  const bool retour = e.key() == Qt::Key_Backspace;
  const QString texte = retour ? QString(QChar(Touche::Retour)) : e.text();
  if (texte.isEmpty() || (!retour && !texte[0].isPrint())) return false;
  QString suite;
  guichet_.Passer([&] { suite = Filtre(filtre, texte); });
  if (suite == texte) return false;
  if (!suite.isEmpty()) {
    QKeyEvent remplace(QEvent::KeyPress, 0, Qt::NoModifier, suite);
    rejoue_ = true;
    QCoreApplication::sendEvent(natif.Widget(), &remplace);
    rejoue_ = false;
  }
  return true;
}

// Characters that come composed pass the same filter.
bool Veilleur::Filtrer(Natif &natif, QInputMethodEvent &e) {
  const auto filtre = natif.Donnee().KeyPress;
  if (!filtre || !natif.Ecriture() || e.commitString().isEmpty()) return false;
  QString suite;
  guichet_.Passer([&] { suite = Filtre(filtre, e.commitString()); });
  if (suite == e.commitString()) return false;
  QInputMethodEvent remplace(e.preeditString(), e.attributes());
  remplace.setCommitString(suite, e.replacementStart(), e.replacementLength());
  rejoue_ = true;
  QCoreApplication::sendEvent(natif.Widget(), &remplace);
  rejoue_ = false;
  return true;
}
