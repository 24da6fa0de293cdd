// The serial layer on a real pseudo-terminal.
#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <termios.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdarg>

#include "platform/qt/machine/PortSerieQt.h"
#include "platform/qt/machine/RefusPort.h"
#include "platform/qt/machine/ReglagesPort.h"
#include "tests/Banc.h"

namespace fs = std::filesystem;

// While set, every descriptor is an adapter that says at once that it has nothing left.
static bool adaptateur = false;
extern "C" int ioctl(int fd, unsigned long demande, ...) noexcept {
  va_list suite;
  va_start(suite, demande);
  void *reponse = va_arg(suite, void *);
  va_end(suite);
  if (adaptateur && (demande == TIOCMGET || demande == TIOCOUTQ || demande == TIOCSERGETLSR)) {
    *static_cast<int *>(reponse) = demande == TIOCSERGETLSR ? TIOCSER_TEMT : 0;
    return 0;
  }
  return static_cast<int>(syscall(SYS_ioctl, fd, demande, reponse));
}

// A serial line of the system behind which there is no chip opens, and answers nothing.
bool sansPuce = false;
extern "C" int __real_tcgetattr(int descripteur, termios *etat);
extern "C" int __wrap_tcgetattr(int descripteur, termios *etat) {
  if (!sansPuce) return __real_tcgetattr(descripteur, etat);
  errno = EIO;
  return -1;
}

namespace {
constexpr int kPatience = 5000;  // milliseconds after which what should have come never will

class EssaiPortSerie : public testing::Test {
 protected:
  void SetUp() override {
    fs::create_directory(Ports());
    Brancher();
    port.Evenement = [this](EvenementLigne e) { evenements += "oacrbdf"[static_cast<int>(e)]; };
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

  // Lets events run until it is so.
  static bool Devient(const std::function<bool()> &condition) {
    for (int essai = 0; essai < kPatience; ++essai) {
      QCoreApplication::processEvents();
      if (condition()) return true;
      poll(nullptr, 0, 1);
    }
    return false;
  }

  bool Coupe() const { return port.Etat() == EtatLigne::Coupee; }

  // Bytes that the loom's side receives, as many as wanted; fewer when no more come.
  std::string Lire(std::size_t nombre) {
    std::string recus;
    Devient([&] {
      char tampon[4096];
      const ssize_t n = read(maitre, tampon, sizeof tampon);
      if (n > 0) recus.append(tampon, static_cast<std::size_t>(n));
      return recus.size() >= nombre || (n < 0 && errno == EIO);
    });
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
  std::string evenements;  // a letter each, as they were told
  PortSerieQt port{dossier.path().toStdString(), 1};
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
  fs::create_symlink("nowhere", Ports() / "com4");
  for (const auto &[com, raison] :
       std::map<int, std::string>{{2, "this is not a serial line."},
                                  {3, "COM 3 (/dev/null): this is not a serial line."},
                                  {4, "COM 4: no such port; is the cable plugged in?"},
                                  {99, "COM 99: no such port; is the cable plugged in?"},
                                  {0, "no such port; is the cable plugged in?"}}) {
    EXPECT_EQ(numeroOuverture(com), Erreur::PortInutilisable) << com;
    EXPECT_FALSE(port.PortOpen()) << com;
    EXPECT_TRUE(port.RaisonRefus().ends_with(raison)) << port.RaisonRefus();
  }
  const std::string debut = "COM 1 (" + std::string(ptsname(maitre)) + ")";
  sansPuce = true;
  EXPECT_EQ(RaisonRefusPort(1, Ports() / "com1"), debut + ": this is not a serial line.");
  sansPuce = false;
  {
    PortSerieQt autre(dossier.path().toStdString());
    autre.PortOpen(true);
    EXPECT_EQ(numeroOuverture(1), Erreur::PortInutilisable) << "busy";
    EXPECT_EQ(port.RaisonRefus(),
              debut + ": another program uses it: essai_port_seri (" + std::to_string(getpid()) + ").");
  }
  chmod(ptsname(maitre), 0);
  chmod(dossier.path().toUtf8(), 0755);
  const bool racine = geteuid() == 0 && seteuid(65534) == 0;  // the superuser may open anything
  session.LangueFrancaise = true;
  EXPECT_EQ(numeroOuverture(1), Erreur::PortInutilisable);
  EXPECT_EQ(port.RaisonRefus(), debut + " : vous n'avez pas le droit de l'employer.");
  session.LangueFrancaise = false;
  EXPECT_TRUE(!racine || seteuid(0) == 0);
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

TEST_F(EssaiPortSerie, ALostLineIsSilence) {
  const std::function<void()> decouvertes[] = {
      [&] { EXPECT_TRUE(Devient([&] { return Coupe(); })); },
      [&] { EXPECT_EQ(Echec([&] { port.Output("x"); }), 0); },
      [&] { EXPECT_EQ(port.Input(), ""); },
  };
  for (const auto &decouvrir : decouvertes) {
    port.PortOpen(true);
    EXPECT_FALSE(port.Retenu({}));
    Debrancher();
    decouvrir();
    EXPECT_TRUE(Coupe() && port.PortOpen());
    // Whatever the frames of both looms do to a port.
    EXPECT_EQ(Echec([&] {
                port.OutBufferCount(0);
                port.RTSEnable(false);
                port.Handshaking(0);
                port.Settings("1200,N,8,1");
                port.Output("x");
              }),
              0);
    EXPECT_EQ(port.Input(), "");
    EXPECT_EQ(port.InBufferCount(), 0);
    port.PortOpen(false);
    EXPECT_EQ(Echec([&] { port.Output("x"); }), Erreur::PortFerme);
    Brancher();
  }
  // What came in before the loss is not lost.
  port.PortOpen(true);
  Envoyer(kRapport);
  ASSERT_TRUE(Devient([&] { return port.InBufferCount() == 3; }));
  Debrancher();
  ASSERT_TRUE(Devient([&] { return Coupe(); }));
  EXPECT_EQ(port.Input(), kRapport);
}

TEST_F(EssaiPortSerie, OnlyWhatIsWrittenWhileTheDeviceIsAwayWaitsForIt) {
  const auto couper = [&] {
    Debrancher();
    ASSERT_TRUE(Devient([&] { return Coupe(); }));
  };
  const auto revenir = [&] {
    Brancher();
    ASSERT_TRUE(Devient([&] { return !Coupe(); }));
  };
  // A second of line each: the line is cut in the middle of them.
  port.Settings("300,N,8,1");
  port.PortOpen(true);
  const auto poignees = [] { return std::distance(fs::directory_iterator("/proc/self/fd"), {}); };
  const auto ouvertes = poignees();
  port.Output(std::string(30, 'a'));
  port.Output(std::string(30, 'b'));
  couper();
  revenir();
  port.Output(".");
  EXPECT_EQ(Lire(1), ".") << "what the line had taken is nobody's to repeat";

  couper();
  port.Output("old");
  QCoreApplication::processEvents();
  port.Output("ne");
  port.Output("w");
  revenir();
  port.Output(".");
  EXPECT_EQ(Lire(4), "new.") << "the last event's, once";
  couper();
  port.Output("none");
  port.OutBufferCount(0);
  revenir();
  port.Output("after");
  EXPECT_EQ(Lire(5), "after");
  Debrancher();
  port.Output("found");  // this write finds the loss
  ASSERT_TRUE(Coupe());
  revenir();
  port.Output(".");
  EXPECT_EQ(Lire(6), "found.");

  // Closed while away, and opened while still away.
  couper();
  port.Output("lost");
  port.PortOpen(false);
  EXPECT_EQ(Echec([&] { port.PortOpen(true); }), 0);
  EXPECT_TRUE(Coupe());
  port.Output("start");
  revenir();
  port.Output(".");
  EXPECT_EQ(Lire(6), "start.");
  EXPECT_EQ(evenements, "ocrcrcrcrcfar");
  EXPECT_EQ(poignees(), ouvertes) << "nothing stays open behind a device that comes back";

  // Whoever hears of the return comes before what waited, and may empty it.
  couper();
  port.Output("waits");
  const auto noter = std::exchange(port.Evenement, nullptr);
  port.Evenement = [&](EvenementLigne e) {
    if (e != EvenementLigne::Revenue) return;
    port.OutBufferCount(0);
    port.Output("answer");
  };
  revenir();
  port.Output(".");
  EXPECT_EQ(Lire(7), "answer.");
  port.Evenement = noter;
  // Found again, it is a device like any other: gone while closed, it cannot be opened.
  port.PortOpen(false);
  Debrancher();
  EXPECT_EQ(Echec([&] { port.PortOpen(true); }), Erreur::PortInutilisable);
}

TEST_F(EssaiPortSerie, ALineThatTakesNothingKeepsTheLastEventsWrites) {
  port.PortOpen(true);
  int ligne = open(ptsname(maitre), O_RDWR | O_NOCTTY);
  const auto tenir = [&](int comment) { ASSERT_EQ(tcflow(ligne, comment), 0); };
  tenir(TCOOFF);
  std::string partis;  // of what was kept back
  const auto ecrire = [&](const std::string &octets, bool autreEvenement = true) {
    if (autreEvenement) QCoreApplication::processEvents();
    port.Output(octets);
    EXPECT_TRUE(port.Retenu([&partis, octets] { partis += octets + "."; }))
        << "written, and not with the system";
  };
  ecrire("first");
  ecrire("second");
  EXPECT_EQ(port.Etat(), EtatLigne::Bonne) << "it has had no second yet";
  ASSERT_TRUE(Devient([&] { return port.Etat() == EtatLigne::Bloquee; }));
  Envoyer(kRapport);
  EXPECT_EQ(Recevoir(3), kRapport) << "it is read all the same";
  ecrire("th");
  ecrire("ird", false);
  EXPECT_EQ(port.OutBufferCount(), 5);
  tenir(TCOON);
  EXPECT_EQ(Lire(5), "third");
  ASSERT_TRUE(Devient([&] { return port.Etat() == EtatLigne::Bonne; }));
  EXPECT_EQ(evenements, "obd");
  EXPECT_EQ(partis, "th.ird.") << "those that were dropped never left";
  // A write that has begun to leave goes on to its end.
  const std::string longue(200000, 'a');
  port.Output(longue);
  QCoreApplication::processEvents();
  port.Output("old");
  QCoreApplication::processEvents();
  port.Output("new");
  ASSERT_TRUE(Devient([&] { return port.Etat() == EtatLigne::Bloquee; }));
  EXPECT_EQ(Lire(longue.size() + 3), longue + "new");
  // Closing gives up on a line that stays stuck.
  tenir(TCOOFF);
  port.Output("shed");
  port.Output("release");
  port.PortOpen(false);
  tenir(TCOON);
  port.PortOpen(true);
  port.Output(".");
  EXPECT_EQ(Lire(1), ".");
  // Lost while it hangs, and back to hang again.
  for (int fois = 0; fois < 2; ++fois) {
    tenir(TCOOFF);
    port.Output("shed");
    ASSERT_TRUE(Devient([&] { return port.Etat() == EtatLigne::Bloquee; }));
    close(ligne);
    Debrancher();
    ASSERT_TRUE(Devient([&] { return Coupe(); }));
    Brancher();
    ligne = open(ptsname(maitre), O_RDWR | O_NOCTTY);
    ASSERT_TRUE(Devient([&] { return !Coupe(); }));
  }
  close(ligne);
}

TEST_F(EssaiPortSerie, ReleasedBytesHaveTheirTimeOnTheLineWhateverAnAdapterSays) {
  port.Settings("1200,N,8,1");
  port.PortOpen(true);
  const auto debut = std::chrono::steady_clock::now();
  port.Output(kLiberer);
  adaptateur = true;
  port.PortOpen(false);
  adaptateur = false;
  // Four characters of ten bits; an adapter's word is up to 16 milliseconds old.
  EXPECT_GE(std::chrono::steady_clock::now() - debut,
            std::chrono::microseconds(4 * 10'000'000 / 1200 + 16'000));
  EXPECT_EQ(Lire(4), kLiberer);
}

TEST_F(EssaiPortSerie, WhatIsNoSerialLineIsStillWaitedFor) {
  port.PortOpen(true);
  Debrancher();
  ASSERT_TRUE(Devient([&] { return Coupe(); }));
  const fs::path autre = Ports() / "autre";
  const std::function<void()> intrus[] = {
      [&] { mkfifo(autre.c_str(), 0600); }, [&] { fs::create_directory(autre); },
      [&] { std::ofstream(autre) << "a file"; }, [&] { fs::create_symlink("/dev/null", autre); }};
  for (const auto &poser : intrus) {
    fs::remove(autre);
    poser();
    fs::remove(Ports() / "com1");
    fs::create_symlink(autre, Ports() / "com1");
    // Two looks at least; each ends at once, a pipe that nobody reads included.
    int regards = 0;
    QTimer compteur;
    QObject::connect(&compteur, &QTimer::timeout, [&] { ++regards; });
    compteur.start(2);
    ASSERT_TRUE(Devient([&] { return regards > 2; }));
    EXPECT_TRUE(Coupe());
  }
  Brancher();
  EXPECT_TRUE(Devient([&] { return !Coupe(); }));
}

TEST_F(EssaiPortSerie, AFloodLeavesItsFirst1024Bytes) {
  port.PortOpen(true);
  std::string crue;
  for (int i = 0; i < 3000; ++i) crue += static_cast<char>('A' + i / 1000);
  Envoyer(crue);
  ASSERT_TRUE(Devient([&] { return port.InBufferCount() == 1024; }));
  EXPECT_EQ(port.Input(), crue.substr(0, 1024));
  EXPECT_EQ(port.Input(), "");
  Envoyer("next");
  EXPECT_EQ(Recevoir(4), "next");
}

TEST_F(EssaiPortSerie, TheReleaseIsTheLastOnALineThatDoesNotTakeIt) {
  port.PortOpen(true);
  port.Output(std::string(200000, 'a'));
  port.Output("shed");
  port.Output("\x1bR\r\n");
  port.PortOpen(false);
  std::string recus = Lire(200000);
  EXPECT_LT(recus.size(), 200000U);
  EXPECT_EQ(recus.substr(recus.size() - 5), "a\x1bR\r\n");
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
