#include "platform/qt/miroir/Miroir.h"

Miroir::Miroir(MagasinImages &images, std::function<void(const std::string &)> rapporter)
    : guichet_(images, std::move(rapporter)) {
  guichet_.Refleter = [this] { Refleter(); };
}

Miroir::~Miroir() {
  Fermer();
  while (!fenetres_.empty()) fenetres_.pop_back();  // the main window's native holds the others
}

void Miroir::Ajouter(Fenetre &fenetre) {
  if (Trouver(fenetre)) return;
  FenetreNative *principale = fenetres_.empty() ? nullptr : fenetres_.front().get();
  fenetres_.push_back(std::make_unique<FenetreNative>(fenetre, principale, guichet_));
}

void Miroir::Refleter() {
  if (avantReflet_) avantReflet_();
  guichet_.Ecrire([this] {
    for (const auto &f : fenetres_) f->Refleter();
  });
  AccorderFocus();
}

void Miroir::Repeindre() {
  for (const auto &f : fenetres_) f->Repeindre();
}

void Miroir::RefleterEtRepeindre(Fenetre &fenetre) {
  FenetreNative *f = Trouver(fenetre);
  if (!f) return;
  guichet_.Ecrire([f] { f->Refleter(); });
  f->Repeindre();
}

void Miroir::MettreDevant() {
  if (!fenetres_.empty()) fenetres_.front()->Cadre().MettreDevant();
}

void Miroir::Modale(Fenetre &fenetre, bool modale) {
  if (FenetreNative *f = Trouver(fenetre)) f->Cadre().Modale(modale);
}

void Miroir::DonnerFocus(Controle &controle) {
  focusVoulu_ = &controle;
  Refleter();
}

void Miroir::AccorderFocus() {
  for (const auto &f : fenetres_) {
    Natif *natif = focusVoulu_ ? f->Trouver(*focusVoulu_) : nullptr;
    if (!natif || !natif->Widget()->isVisible()) continue;
    focusVoulu_ = nullptr;
    natif->Widget()->window()->activateWindow();
    natif->Widget()->setFocus(Qt::OtherFocusReason);
  }
}

QWidget *Miroir::Widget(const Controle &controle) const {
  for (const auto &f : fenetres_)
    if (Natif *natif = f->Trouver(controle)) return natif->Widget();
  return nullptr;
}

QWidget *Miroir::Principale() const {
  return fenetres_.empty() ? nullptr : Widget(fenetres_.front()->Donnee());
}

FenetreNative *Miroir::Trouver(const Fenetre &fenetre) const {
  for (const auto &f : fenetres_)
    if (&f->Donnee() == &fenetre) return f.get();
  return nullptr;
}
