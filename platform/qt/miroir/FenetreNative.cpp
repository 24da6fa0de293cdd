#include "platform/qt/miroir/FenetreNative.h"

#include <QCoreApplication>
#include <QEvent>

namespace {
// A tick that lets events run may meet the next one inside itself; without an end to that a loom that never
// stops talking would fill the stack.
constexpr int kTicsEmboites = 2;
}  // namespace

FenetreNative::FenetreNative(Fenetre &donnee, FenetreNative *principale, Guichet &guichet)
    : donnee_(donnee), principale_(principale), guichet_(guichet) {}

FenetreNative::~FenetreNative() {
  // The widgets go first: they hold connections into the natives.
  minuteries_.clear();
  veilleur_.reset();
  peint_.reset();
}

NatifCadre &FenetreNative::Cadre() {
  if (cadre_) return *cadre_;
  QWidget *dessous = principale_ ? principale_->Cadre().Widget() : nullptr;
  peint_ = std::make_unique<PeintDessin>(dessous);
  Qt::WindowFlags drapeaux = (dessous ? Qt::Dialog : Qt::Window) | Qt::FramelessWindowHint;
  if (donnee_.SansSouris) drapeaux |= Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus;
  peint_->setWindowFlags(drapeaux);
  cadre_ = std::make_unique<NatifCadre>(peint_.get(), donnee_, !dessous, guichet_);
  veilleur_ = std::make_unique<Veilleur>(*cadre_, !dessous, guichet_);
  veilleur_->Surveiller(*cadre_);
  return *cadre_;
}

void FenetreNative::Refleter() {
  if (!donnee_.Chargee) return Retirer();
  Cadre();
  ++passage_;
  adresses_.clear();
  enrichis_.clear();
  adresses_.emplace(&donnee_, cadre_.get());
  donnee_.Suivre();
  donnee_.Visiter(*this);
  CacherAbsents();
  cadre_->Refleter();  // last, so that the window appears complete
  veilleur_->SuivreVolet();
}

void FenetreNative::Retirer() {
  if (cadre_) cadre_->Refleter();
  for (auto &[nom, m] : minuteries_) {
    m.horloge.stop();
    m.montree.Oublier();
  }
}

void FenetreNative::Voir(const std::string &nom, Controle &controle, Controle &parent) {
  const auto dessous = adresses_.find(&parent);
  if (dessous == adresses_.end()) return;  // in a panel that was never open
  QWidget *support = dessous->second->Widget();
  auto connue = places_.find(nom);
  if (connue == places_.end()) {
    // Half of all controls stay unseen at the start, which is to be short.
    if (!controle.Visible || !donnee_.Visible) return;
    connue = places_.emplace(nom, Place{CreerNatif(controle, support, guichet_)}).first;
    veilleur_->Surveiller(*connue->second.natif);
    enrichis_.insert(support);
  } else if (enrichis_.contains(support)) {
    connue->second.natif->Widget()->raise();  // a newcomer below it came in on top
  }
  Place &place = connue->second;
  place.passage = passage_;
  place.natif->Relier(controle);
  adresses_.emplace(&controle, place.natif.get());
  place.natif->Refleter();
}

void FenetreNative::Voir(const std::string &nom, Minuterie &minuterie) {
  MinuterieNative &m = minuteries_[nom];
  if (!m.donnee) {
    m.horloge.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m.horloge, &QTimer::timeout, &m.horloge, [this, &m] {
      const auto tic = m.donnee->Timer;
      if (!tic || m.tics >= kTicsEmboites) return;
      ++m.tics;
      guichet_.Passer(tic);
      --m.tics;
    });
  }
  m.donnee = &minuterie;
  m.passage = passage_;
  m.montree.Suivre(guichet_, {minuterie.Interval(), minuterie.Depart()}, [&](const auto &) {
    if (minuterie.Interval() > 0)
      m.horloge.start(minuterie.Interval());
    else
      m.horloge.stop();
  });
}

void FenetreNative::CacherAbsents() {
  for (auto &[nom, place] : places_)
    if (place.passage != passage_ && !place.natif->Widget()->isHidden()) place.natif->Cacher();
}

void FenetreNative::Repeindre() {
  if (!cadre_ || !peint_->isVisible()) return;
  QEvent demande(QEvent::UpdateRequest);
  QCoreApplication::sendEvent(peint_.get(), &demande);
}

Natif *FenetreNative::Trouver(const Controle &controle) const {
  const auto place = adresses_.find(&controle);
  return place == adresses_.end() ? nullptr : place->second;
}
