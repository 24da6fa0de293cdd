// Beside the other programs of a desktop: a second start, the machine that would fall asleep.
#include <fcntl.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QTest>

#include "platform/qt/machine/Catalogue.h"
#include "platform/qt/machine/InstanceUnique.h"
#include "tests/BoutEnBout.h"

namespace {
constexpr int kPatience = 30000;  // milliseconds after which what should have come never will

// A bus of the test's own, for this process and its children.
class Bureau : public BoutEnBout {
 protected:
  void SetUp() override {
    BoutEnBout::SetUp();
    demon = std::make_unique<Processus>(
        QStringList{"dbus-daemon", "--session", "--nofork", "--nosyslog", "--print-address"});
    const QByteArray adresse = demon->Ligne().c_str();
    qputenv("DBUS_SESSION_BUS_ADDRESS", adresse);
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", adresse);
    bus = QDBusConnection::connectToBus(QString(adresse), "essai");
    ASSERT_TRUE(bus.isConnected());
  }
  void TearDown() override {
    BoutEnBout::TearDown();
    QDBusConnection::disconnectFromBus("essai");
    demon->kill();
    demon->waitForFinished();
  }
  QDBusMessage Demander(const char *service, const char *objet, const char *interface, const char *methode) {
    return bus.call(QDBusMessage::createMethodCall(service, objet, interface, methode));
  }
  QStringList Noms() {
    return Demander("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "ListNames")
        .arguments()
        .value(0)
        .toStringList();
  }
  // "what who why mode" of each inhibitor that the login manager knows.
  QStringList Inhibiteurs() {
    const QDBusMessage reponse = Demander("org.freedesktop.login1", "/org/freedesktop/login1",
                                          "org.freedesktop.login1.Manager", "ListInhibitors");
    QStringList liste;
    const auto tableau = reponse.arguments().value(0).value<QDBusArgument>();
    for (tableau.beginArray(); !tableau.atEnd();) {
      QString quoi, qui, pourquoi, mode;
      quint32 utilisateur, processus;
      tableau.beginStructure();
      tableau >> quoi >> qui >> pourquoi >> mode >> utilisateur >> processus;
      tableau.endStructure();
      liste << QStringList{quoi, qui, pourquoi, mode}.join(' ');
    }
    tableau.endArray();
    return liste;
  }
  std::unique_ptr<Processus> demon;
  QDBusConnection bus{""};
};

// The program itself, in a folder of its own.
class Demarrages : public Bureau {
 protected:
  void SetUp() override {
    Bureau::SetUp();
    fs::copy_file(BRANDIS_PROGRAMME "/brandis", dossier + "/brandis");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_RUNTIME_DIR", temporaire.path().toUtf8());  // where no bus is
  }
  std::unique_ptr<QProcess> Lancer() {
    auto p = std::make_unique<QProcess>();
    p->start(QString::fromStdString(dossier + "/brandis"), QStringList());
    return p;
  }
  bool Repond() {
    return QTest::qWaitFor([&] { return !Noms().filter("org.brandis.Tissage.").isEmpty(); }, kPatience);
  }
};
}  // namespace

TEST_F(Bureau, TheMachineStaysAwakeForAsLongAsTheLoomWeaves) {
  Processus gestionnaire({"/usr/bin/python3", "-m", "dbusmock", "--template", "logind"});
  ASSERT_TRUE(QTest::qWaitFor([&] { return Noms().contains("org.freedesktop.login1"); }, kPatience));
  DemarrerMetier();
  for (const char *langue : {"Weaving", "Tissage en cours"}) {
    if (programme)
      Faire("clic Drapeau(1)");
    else
      Tisser();
    if (langue[0] == 'T') Cliquer(Commande::Demarrer);
    const QStringList voulus{QStringLiteral("sleep:idle Brandis %1 block").arg(langue)};
    EXPECT_TRUE(QTest::qWaitFor([&] { return Inhibiteurs() == voulus; }, kPatience)) << langue;
    Cliquer(Commande::Arreter);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Inhibiteurs().isEmpty(); }, kPatience)) << langue;
  }
  gestionnaire.kill();
  gestionnaire.waitForFinished();
}

TEST_F(Bureau, ABusThatNeverAnswersHoldsUpNoPickAndNoEnd) {
  const std::string chemin = dossier + "/bus";
  const int muet = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_un place{AF_UNIX, {}};
  chemin.copy(place.sun_path, sizeof place.sun_path - 1);
  ASSERT_EQ(bind(muet, reinterpret_cast<sockaddr *>(&place), sizeof place) | listen(muet, 5), 0);
  qputenv("DBUS_SYSTEM_BUS_ADDRESS", QByteArray("unix:path=") + chemin.c_str());
  DemarrerMetier();
  Tisser();
  for (int n = 1; n <= 13; ++n) ASSERT_EQ(Shed(), Attendu(n));
  Quitter();
  close(muet);
}

TEST_F(Demarrages, ASizeThatTheScreenDoesNotHoldStartsOverWithOneThatItHolds) {
  std::ofstream(dossier + "/Data/Taille.txt") << "200\n";  // the screen here is 800 pixels high
  const auto premier = Lancer();
  ASSERT_TRUE(Repond());
  std::ifstream f("/proc/" + std::to_string(premier->processId()) + "/environ", std::ios::binary);
  const std::string environnement{std::istreambuf_iterator<char>(f), {}};
  EXPECT_NE(environnement.find("BRANDIS_TAILLE=100"), std::string::npos);
  EXPECT_EQ(environnement.find("QT_SCALE_FACTOR"), std::string::npos)
      << "who is started by it would be scaled";
  premier->kill();
  premier->waitForFinished();
  ASSERT_TRUE(QTest::qWaitFor([&] { return Noms().filter("org.brandis").isEmpty(); }, kPatience));
}

TEST_F(Demarrages, ASecondStartCallsTheFirst) {
  const auto premier = Lancer();
  ASSERT_TRUE(Repond());
  const auto second = Lancer();
  ASSERT_TRUE(second->waitForFinished());
  EXPECT_EQ(second->exitCode(), 0);
  EXPECT_EQ(second->readAllStandardError(), "");
  EXPECT_EQ(premier->state(), QProcess::Running);

  premier->kill();
  premier->waitForFinished();
  ASSERT_TRUE(QTest::qWaitFor([&] { return Noms().filter("org.brandis").isEmpty(); }, kPatience));
  const auto troisieme = Lancer();
  EXPECT_TRUE(Repond()) << "a program that was killed leaves no lock behind";

  // Without a bus the first cannot be called.
  qunsetenv("DBUS_SESSION_BUS_ADDRESS");
  for (const char *langue : {"fr_FR.UTF-8", "en_GB.UTF-8"}) {
    qputenv("LC_ALL", langue);
    const auto autre = Lancer();
    ASSERT_TRUE(autre->waitForFinished());
    EXPECT_EQ(autre->readAllStandardError().toStdString(),
              (langue[0] == 'f' ? "Brandis est déjà ouvert dans " : "Brandis is already open in ") + dossier +
                  ".\n");
  }
  qunsetenv("LC_ALL");
  troisieme->kill();
  troisieme->waitForFinished();
}

// The first has its lock, and its name not yet.
TEST_F(Demarrages, ASecondStartWaitsForTheNameOfTheFirst) {
  struct : QDBusVirtualObject {
    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &appel, const QDBusConnection &c) override {
      return appels += appel.member(), c.send(appel.createReply());
    }
    QStringList appels;
  } premiere;
  const InstanceUnique verrou(dossier);
  Processus temoin({"dbus-monitor", "--address", qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"),
                    "destination=org.freedesktop.DBus,member=Hello", "interface=org.brandis.Tissage"});
  ASSERT_TRUE(bus.registerVirtualObject("/", &premiere));
  const auto seconde = Lancer();
  std::string vu;
  do vu = temoin.LigneQuiCommence("method call");
  while (!vu.empty() && vu.find("member=Montrer") == std::string::npos);
  const auto debut = vu.find("org.brandis");
  ASSERT_NE(debut, std::string::npos) << "it has called in vain";
  ASSERT_TRUE(bus.registerService(QString::fromStdString(vu.substr(debut, vu.find(' ', debut) - debut))));
  EXPECT_TRUE(QTest::qWaitFor([&] { return seconde->state() == QProcess::NotRunning; }, kPatience));
  EXPECT_EQ(seconde->readAllStandardError(), "");
  EXPECT_EQ(premiere.appels, QStringList{"Montrer"});
  temoin.kill();
  temoin.waitForFinished();
}

TEST(VerrouDossier, EachFolderHasItsOwnAndNoneIsNeededToStart) {
  const QTemporaryDir un, deux;
  const auto data = [](const QTemporaryDir &d) { return d.path().toStdString() + "/Data"; };
  fs::create_directory(data(un));
  fs::create_directory(data(deux));
  const InstanceUnique premiere(un.path().toStdString());
  EXPECT_TRUE(premiere.Premiere());
  EXPECT_FALSE(InstanceUnique(un.path().toStdString()).Premiere());
  EXPECT_TRUE(InstanceUnique(deux.path().toStdString()).Premiere());
  EXPECT_TRUE(InstanceUnique(deux.path().toStdString()).Premiere()) << "given back";

  fs::remove(data(deux) + "/Brandis.verrou");
  fs::create_directory(data(deux) + "/Brandis.verrou");
  EXPECT_TRUE(InstanceUnique(deux.path().toStdString()).Premiere()) << "a folder that cannot hold the lock";
  EXPECT_TRUE(InstanceUnique("/nowhere").Premiere());
}

TEST(Catalogue, TheToolkitSpeaksTheLanguageInForce) {
  const auto ouvrir = [] { return QCoreApplication::translate("QFileDialog", "&Open"); };
  Catalogue catalogue;
  EXPECT_EQ(ouvrir(), "&Open");
  catalogue.Suivre(true);
  EXPECT_EQ(ouvrir(), "&Ouvrir");
  catalogue.Suivre(false);
  EXPECT_EQ(ouvrir(), "&Open");
}
