#include "platform/qt/miroir/Veilleur.h"

#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>
#include <utility>

#include "platform/qt/natifs/EcranSansPlace.h"
#include "platform/qt/natifs/TexteNatif.h"

namespace {
constexpr int kRangee = 12;  // pixels within which controls stand in one row
}

void Veilleur::Surveiller(Natif &natif) {
  ordre_.push_back(&natif);
  for (QWidget *w : natif.Sources()) {
    natifs_.insert(w, &natif);
    w->setMouseTracking(true);
    w->installEventFilter(this);
  }
}

bool Veilleur::eventFilter(QObject *source, QEvent *e) {
  Natif *natif = natifs_.value(source);
  if (!natif || rejoue_) return false;
  switch (e->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
      return Souris(*natif, static_cast<QMouseEvent &>(*e));
    case QEvent::Leave:
      PointeurParti(*natif);
      return false;
    case QEvent::KeyPress:
      return Enfoncer(*natif, static_cast<QWidget &>(*source), static_cast<QKeyEvent &>(*e));
    case QEvent::KeyRelease:
      return !natif->Saisie();
    case QEvent::InputMethod:
      return Filtrer(*natif, static_cast<QInputMethodEvent &>(*e));
    case QEvent::Wheel:
      return !natif->Saisie() || (natif->ClicPropre() && !natif->Widget()->hasFocus());
    case QEvent::FocusIn: {
      const auto recu = natif->Donnee().GotFocus;
      if (recu) guichet_.Passer(recu);
      return false;
    }
    default:
      return natif == &fenetre_ && Cadre(*e);
  }
}

bool Veilleur::Souris(Natif &natif, QMouseEvent &e) {
  switch (e.type()) {
    case QEvent::MouseButtonRelease:
      if (std::exchange(muette_, false)) return true;
      Relacher(natif, e);
      break;
    case QEvent::MouseMove:
      if (principale_ && !presse_ && fenetre_.Defiler(e.globalPosition().toPoint().y()))
        guichet_.Passer([] {});
      if (const auto bouge = natif.Donnee().MouseMove) {
        // By the screen: the window may have moved since the event was made.
        const QPointF place = natif.Widget()->mapFromGlobal(e.globalPosition());
        guichet_.Passer(
            [&, bouge] { bouge(static_cast<int>(e.buttons()), Twips(place.x()), Twips(place.y())); });
      }
      break;
    default:
      if (!Presser(natif, e)) return true;
      if (e.button() == Qt::LeftButton && natif.Donnee().MousePointer == kPointeurDeplacer &&
          ConfierDeplacement(*natif.Widget()->window()))
        Relacher(natif, e);
  }
  return !natif.Saisie();
}

// A pointer that jumps from a control to something far has passed over what lies around it, even where the
// screen never saw it there: a hover must not outlive it.
void Veilleur::PointeurParti(const Natif &natif) {
  if (presse_ || &natif == &fenetre_ || !natif.Donnee().MouseMove) return;
  const Natif *autour = natifs_.value(natif.Widget()->parentWidget());
  if (!autour || autour == &fenetre_) return;
  if (const auto bouge = autour->Donnee().MouseMove)
    guichet_.Passer([&, bouge] { bouge(0, natif.Donnee().Left, natif.Donnee().Top); });
}

bool Veilleur::Presser(Natif &natif, const QMouseEvent &e) {
  const bool meme = std::exchange(guichet_.Presse, &natif) == &natif;
  muette_ = e.type() == QEvent::MouseButtonDblClick && (!meme || natif.Donnee().ClicUnique);
  if (muette_) return false;
  if (e.button() == Qt::LeftButton) {
    presse_ = &natif;
    lieuPresse_ = QRect(natif.Widget()->mapToGlobal(QPoint(0, 0)), natif.Widget()->size());
  }
  const QPointF place = natif.Widget()->mapFromGlobal(e.globalPosition());
  if (const auto presse = natif.Donnee().MouseDown)
    guichet_.Passer(
        [&, presse] { presse(static_cast<int>(e.button()), Twips(place.x()), Twips(place.y())); });
  return true;
}

void Veilleur::Relacher(Natif &natif, const QMouseEvent &e) {
  constexpr int kMarge = 3;  // a button sinks by a pixel under the press, and may swell
  const bool gauche = e.button() == Qt::LeftButton;
  const bool clic =
      gauche && presse_ == &natif && !natif.ClicPropre() &&
      lieuPresse_.adjusted(-kMarge, -kMarge, kMarge, kMarge).contains(e.globalPosition().toPoint());
  if (gauche) presse_ = nullptr;
  const QPointF place = natif.Widget()->mapFromGlobal(e.globalPosition());
  if (const auto relache = natif.Donnee().MouseUp)
    guichet_.Passer(
        [&, relache] { relache(static_cast<int>(e.button()), Twips(place.x()), Twips(place.y())); });
  // Asked for only now: the record may have been made anew.
  const auto procedure = natif.Donnee().Click;
  if (!clic || !procedure) return;
  guichet_.AuClavier = nullptr;
  guichet_.Passer(procedure);
}

bool Veilleur::Cadre(QEvent &e) {
  switch (e.type()) {
    case QEvent::Close:
      // The main window is left by its own command only.
      static_cast<QCloseEvent &>(e).ignore();
      if (!principale_) guichet_.Passer([this] { Decharger(fenetre_.LaFenetre()); });
      return true;
    case QEvent::Move:
      if (!presse_) fenetre_.Deplacee();
      return false;
    case QEvent::WindowActivate:
      fenetre_.LeverAutres();
      return false;
    case QEvent::WindowStateChange:
      fenetre_.EtatChange();
      return false;
    default:
      return false;
  }
}

QPoint Veilleur::Centre(const Natif &natif) const {
  return natif.Widget()->mapTo(fenetre_.Widget(), natif.Widget()->rect().center());
}

std::vector<Natif *> Veilleur::OrdreLecture() const {
  std::vector<std::pair<QPoint, Natif *>> places;
  for (Natif *n : ordre_)
    if (n != &fenetre_ && n->Atteignable() && (!voletOuvert_ || DansVolet(*n))) places.emplace_back(Centre(*n), n);
  std::stable_sort(places.begin(), places.end(),
                   [](const auto &a, const auto &b) { return a.first.y() < b.first.y(); });
  for (auto debut = places.begin(); debut != places.end();) {
    const auto fin = std::find_if(debut, places.end(),
                                  [&](const auto &p) { return p.first.y() - debut->first.y() > kRangee; });
    std::stable_sort(debut, fin, [](const auto &a, const auto &b) { return a.first.x() < b.first.x(); });
    debut = fin;
  }
  std::vector<Natif *> ordre;
  for (const auto &p : places) ordre.push_back(p.second);
  return ordre;
}

void Veilleur::Parcourir(int pas) {
  const std::vector<Natif *> ordre = OrdreLecture();
  if (ordre.empty()) return;
  const auto nombre = static_cast<std::ptrdiff_t>(ordre.size());
  std::ptrdiff_t rang = pas > 0 ? -1 : nombre;
  if (Natif *tenu = natifs_.value(fenetre_.Widget()->focusWidget()); tenu && tenu != &fenetre_)
    dernier_ = tenu;
  const auto ici = std::find(ordre.begin(), ordre.end(), dernier_);
  if (ici != ordre.end()) {
    rang = ici - ordre.begin();
  } else if (dernier_) {
    // It has gone, as a command that hides itself does: on from where it stood.
    const QPoint place = Centre(*dernier_);
    const auto suivant = std::find_if(ordre.begin(), ordre.end(), [&](Natif *n) {
      const QPoint p = Centre(*n);
      return p.y() > place.y() + kRangee || (p.y() > place.y() - kRangee && p.x() > place.x());
    });
    rang = suivant - ordre.begin() - (pas > 0 ? 1 : 0);
  }
  dernier_ = ordre[static_cast<std::size_t>((rang + pas + nombre) % nombre)];
  dernier_->Widget()->setFocus(pas > 0 ? Qt::TabFocusReason : Qt::BacktabFocusReason);
}
