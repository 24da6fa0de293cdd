#include "platform/qt/natifs/Guichet.h"

#include "platform/Garde.h"

Guichet::Guichet(MagasinImages &images, std::function<void(const std::string &)> rapporter)
    : Images(images), rapporter_(std::move(rapporter)) {}

void Guichet::Passer(const std::function<void()> &procedure) {
  if (!Ouverte()) return;
  SousGarde(
      [&] {
        procedure();
        if (Refleter) Refleter();
      },
      rapporter_);
  if (Apres) Apres();
}

bool Guichet::Repondre() {
  bool pris = false;
  if (MessageRepond) Passer([&] { pris = MessageRepond(); });
  return pris;
}

void Guichet::Ecrire(const std::function<void()> &travail) {
  struct Marque {
    bool &drapeau;
    const bool avant;
    ~Marque() { drapeau = avant; }
  } marque{ecrit_, ecrit_};
  ecrit_ = true;
  travail();
}
