#include "platform/qt/Inhibiteur.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <mutex>
#include <thread>

#include "platform/qt/TexteNatif.h"

namespace {
const auto kNom = QStringLiteral("brandis-veille");
}

// What the thread that connects shares with its owner.
struct Inhibiteur::Liaison {
  std::mutex garde;
  Inhibiteur *proprietaire = nullptr;  // null once that is gone
  bool enCours = false;
};

Inhibiteur::Inhibiteur() : liaison_(std::make_shared<Liaison>()) { liaison_->proprietaire = this; }

Inhibiteur::~Inhibiteur() {
  const std::lock_guard tour(liaison_->garde);
  liaison_->proprietaire = nullptr;
}

bool Inhibiteur::BusMuet() const {
  const std::lock_guard tour(liaison_->garde);
  return liaison_->enCours;
}

void Inhibiteur::Empecher(bool voulu, const std::string &raison) {
  if (voulu == voulu_) return;
  voulu_ = voulu;
  raison_ = raison;
  if (!voulu)
    descripteur_ = {};
  else if (!demandee_)
    Relier();
}

// A bus that has hung holds back whoever connects to it, and a pick must not wait: a thread does it.
void Inhibiteur::Relier() {
  demandee_ = true;
  {
    const std::lock_guard tour(liaison_->garde);
    liaison_->enCours = true;
  }
  std::thread([liaison = liaison_] {
    QDBusConnection bus = QDBusConnection(kNom);
    if (!bus.isConnected()) {
      QDBusConnection::disconnectFromBus(kNom);
      bus = QDBusConnection::connectToBus(QDBusConnection::SystemBus, kNom);
    }
    const std::lock_guard tour(liaison->garde);
    liaison->enCours = false;
    if (Inhibiteur *moi = liaison->proprietaire)
      QMetaObject::invokeMethod(
          &moi->vivante_, [moi, bus] { moi->Demander(bus); }, Qt::QueuedConnection);
  }).detach();
}

void Inhibiteur::Demander(const QDBusConnection &bus) {
  if (!voulu_ || !bus.isConnected()) {
    demandee_ = false;
    return;
  }
  QDBusMessage appel = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
      QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("Inhibit"));
  appel << QStringLiteral("sleep:idle") << QStringLiteral("Brandis") << Texte(raison_)
        << QStringLiteral("block");
  auto *attente = new QDBusPendingCallWatcher(bus.asyncCall(appel), &vivante_);
  QObject::connect(attente, &QDBusPendingCallWatcher::finished, &vivante_, [this, attente] {
    const QDBusPendingReply<QDBusUnixFileDescriptor> reponse = *attente;
    demandee_ = false;
    if (voulu_ && reponse.isValid()) descripteur_ = reponse.value();
    // The answer holds a descriptor of its own. Not deleteLater: inside a nested run of events that may be
    // put off until somebody posts an event again.
    QMetaObject::invokeMethod(
        &vivante_, [attente] { delete attente; }, Qt::QueuedConnection);
  });
}
