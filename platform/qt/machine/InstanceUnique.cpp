#include "platform/qt/machine/InstanceUnique.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QFile>
#include <QLocale>
#include <QThread>
#include <cerrno>

#include "base/FichiersBrandis.h"

namespace {
constexpr int kPatience = 2000;  // milliseconds
constexpr auto kInterface = "org.brandis.Tissage";

// Without one at hand the bus library would start a bus of its own.
bool BusPresent() {
  return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
         (!qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR") &&
          QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus")));
}
}  // namespace

// Takes every call as the wish to see the window.
class InstanceUnique::Sonnette : public QDBusVirtualObject {
 public:
  explicit Sonnette(std::function<void()> montrer) : montrer_(std::move(montrer)) {}
  QString introspect(const QString &) const override { return {}; }
  bool handleMessage(const QDBusMessage &appel, const QDBusConnection &bus) override {
    if (appel.interface() != QLatin1String(kInterface)) return false;
    bus.send(appel.createReply());
    montrer_();
    return true;
  }

 private:
  std::function<void()> montrer_;
};

InstanceUnique::InstanceUnique(const std::string &dossier) {
  const std::string chemin = dossier + "/" + kData + "/" + kNomVerrou;
  descripteur_ = open(chemin.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600);
  struct stat fichier {};
  if (descripteur_ < 0 || fstat(descripteur_, &fichier) != 0) return;
  nom_ = QStringLiteral("%1.d%2i%3").arg(QLatin1String(kInterface)).arg(fichier.st_dev).arg(fichier.st_ino);
  premiere_ = flock(descripteur_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

InstanceUnique::~InstanceUnique() {
  if (descripteur_ >= 0) close(descripteur_);
}

void InstanceUnique::Ecouter(std::function<void()> montrer) {
  if (nom_.isEmpty() || !BusPresent()) return;
  QDBusConnection bus = QDBusConnection::sessionBus();
  sonnette_ = std::make_unique<Sonnette>(std::move(montrer));
  if (bus.registerVirtualObject(QStringLiteral("/"), sonnette_.get())) bus.registerService(nom_);
}

bool InstanceUnique::AppelerPremiere() const {
  if (nom_.isEmpty() || !BusPresent()) return false;
  const QDBusConnection bus = QDBusConnection::sessionBus();
  QDBusMessage appel = QDBusMessage::createMethodCall(nom_, QStringLiteral("/"), QLatin1String(kInterface),
                                                      QStringLiteral("Montrer"));
  appel.setAutoStartService(false);
  QElapsedTimer depuis;
  for (depuis.start(); bus.isConnected() && depuis.elapsed() < kPatience; QThread::msleep(50)) {
    const QDBusMessage reponse = bus.call(appel, QDBus::Block, kPatience);
    if (reponse.type() == QDBusMessage::ReplyMessage) return true;
    // Still unknown to the bus, under either name of that: the first of two quick starts is about to come up.
    const QString erreur = reponse.errorName();
    if (!erreur.endsWith(u".NameHasNoOwner") && !erreur.endsWith(u".ServiceUnknown")) return false;
  }
  return false;
}

std::string TexteDejaOuvert(const std::string &dossier) {
  return QLocale::system().language() == QLocale::French ? "Brandis est déjà ouvert dans " + dossier + "."
                                                         : "Brandis is already open in " + dossier + ".";
}
