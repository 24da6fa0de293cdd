// The serial layer on a real pseudo-terminal.
#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QTemporaryDir>

#include "platform/qt/PortSerieQt.h"
#include "platform/qt/ReglagesPort.h"
#include "tests/Banc.h"

namespace fs = std::filesystem;

namespace {
constexpr int kPatience = 5000;  // milliseconds after which what should have come never will

class EssaiPortSerie : public testing::Test {
 protected:
  void SetUp() override {
    fs::create_directory(Ports());
    Brancher();
  }
  void TearDown() override { Debrancher(); }
  fs::path Ports() const { return fs::path(dossier.path().toStdString()) / "Ports"; }

  // A new pseudo-terminal behind COM 1.
  void Brancher() {
    maitre = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    ASSERT_GE(maitre, 0);
    ASSERT_EQ(grantpt(maitre) | unlockpt(maitre), 0);
    fs::remove(Ports() / "com1");
    fs::create_symlink(ptsname(maitre), Ports() / "com1");
  }
  void Debrancher() {
    if (maitre >= 0) close(maitre);
    maitre = -1;
  }

  // Bytes that the loom's side receives, as many as wanted, while the event loop runs.
  std::string Lire(std::size_t nombre) {
    std::string recus;
    while (recus.size() < nombre) {
      QCoreApplication::processEvents();
      pollfd etat{maitre, POLLIN, 0};
      char tampon[4096];
      if (poll(&etat, 1, kPatience) <= 0) break;
      const ssize_t n = read(maitre, tampon, sizeof tampon);
      if (n <= 0) break;
      recus.append(tampon, static_cast<std::size_t>(n));
    }
    return recus;
  }

  void Envoyer(const std::string &octets) {
    ASSERT_EQ(write(maitre, octets.data(), octets.size()), static_cast<ssize_t>(octets.size()));
  }

  // What `Input` gives in all, until the wanted number is there.
  std::string Recevoir(std::size_t nombre) {
    std::string recus;
    for (int essai = 0; recus.size() < nombre && essai < kPatience; ++essai) {
      recus += port.Input();
      if (recus.size() < nombre) poll(nullptr, 0, 1);
    }
    return recus;
  }

  QTemporaryDir dossier;
  int maitre = -1;
  PortSerieQt port{dossier.path().toStdString()};
};

TEST_F(EssaiPortSerie, EveryBytePassesBothWays) {
  port.PortOpen(true);
  port.RTSEnable(true);  // a pseudo-terminal has no such line, and that is no failure
  std::string octets;
  for (int i = 0; i < 256; ++i) octets += static_cast<char>(i);
  port.Output(octets);
  EXPECT_EQ(port.OutBufferCount(), 0) << "handed to the system in the call itself";
  EXPECT_EQ(Lire(256), octets);
  EXPECT_EQ(port.Input(), "");
  Envoyer(octets);
  EXPECT_EQ(Recevoir(256), octets);
}

TEST_F(EssaiPortSerie, UnusablePortsAre8002) {
  auto numeroOuverture = [&](int com) {
    port.CommPort(com);
    return Echec([&] { port.PortOpen(true); });
  };
  std::ofstream(Ports() / "com2") << "not a device";
  fs::create_symlink("/dev/null", Ports() / "com3");
  for (const int com : {2, 3, 99, 0}) {
    EXPECT_EQ(numeroOuverture(com), Erreur::PortInutilisable) << com;
    EXPECT_FALSE(port.PortOpen()) << com;
  }
  PortSerieQt autre(dossier.path().toStdString());
  autre.PortOpen(true);
  EXPECT_EQ(numeroOuverture(1), Erreur::PortInutilisable) << "busy";
}

TEST_F(EssaiPortSerie, OpenAndClosedStates) {
  EXPECT_EQ(Echec([&] { port.Output("x"); }), Erreur::PortFerme);
  EXPECT_EQ(port.Input(), "");
  port.PortOpen(true);
  EXPECT_EQ(Echec([&] { port.PortOpen(true); }), Erreur::PortDejaOuvert);
  EXPECT_EQ(Echec([&] { port.CommPort(2); }), Erreur::PortDejaOuvert);
  EXPECT_TRUE(port.PortOpen());
  // The release leaves with the close; what was or comes in meanwhile is dropped.
  Envoyer("old");
  port.Output("\x1bR\r\n");
  port.PortOpen(false);
  EXPECT_EQ(Lire(4), "\x1bR\r\n");
  port.PortOpen(true);
  Envoyer("new");
  EXPECT_EQ(Recevoir(3), "new");
}

TEST_F(EssaiPortSerie, ALoomThatDoesNotReadBlocksNothing) {
  port.PortOpen(true);
  const std::string beaucoup(200000, 'a');
  port.Output(beaucoup);
  EXPECT_GT(port.OutBufferCount(), 0);
  EXPECT_EQ(Echec([&] { port.Output("b"); }), 0);
  EXPECT_EQ(Lire(beaucoup.size() + 1), beaucoup + "b");
}

TEST_F(EssaiPortSerie, AHangUpIsToldOnceAndThePortOpensAgain) {
  const std::function<void()> appels[] = {[&] { port.Input(); }, [&] { port.Output("x"); }};
  for (const bool vuParLaBoucle : {false, true})
    for (const auto &appel : appels) {
      port.PortOpen(true);
      Debrancher();
      if (vuParLaBoucle)
        for (int essai = 0; port.PortOpen() && essai < kPatience; ++essai)
          QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
      EXPECT_EQ(Echec(appel), Erreur::Peripherique);
      EXPECT_FALSE(port.PortOpen());
      EXPECT_EQ(Echec([&] { port.Output("x"); }), Erreur::PortFerme);
      EXPECT_EQ(Echec([&] { port.PortOpen(true); }), Erreur::PortInutilisable);
      Brancher();
      port.PortOpen(true);
      port.Output("back");
      EXPECT_EQ(Lire(4), "back");
      port.PortOpen(false);
    }
}

TEST_F(EssaiPortSerie, SettingsAndOrderOfPorts) {
  EXPECT_EQ(LireReglages("1200,N,8,1").vitesse, 1200);
  EXPECT_EQ(LireReglages("300,e,7,2").parite, QSerialPort::EvenParity);
  for (const char *faux : {"", "9600", "9600,X,8,1", "9600,N,9,1", "0,N,8,1", "9600,N,8,3"})
    EXPECT_EQ(Echec([&] { port.Settings(faux); }), Erreur::AppelInvalide) << faux;
  EXPECT_TRUE(AvantNaturel("/dev/ttyS2", "/dev/ttyS10") && AvantNaturel("/dev/ttyS10", "/dev/ttyUSB0"));
  EXPECT_FALSE(AvantNaturel("/dev/ttyS10", "/dev/ttyS2"));
}
}  // namespace

int main(int nombre, char **mots) {
  QCoreApplication application(nombre, mots);
  testing::InitGoogleTest(&nombre, mots);
  return RUN_ALL_TESTS();
}
