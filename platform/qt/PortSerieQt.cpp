#include "platform/qt/PortSerieQt.h"

#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>

#include <QSerialPortInfo>
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <thread>

#include "platform/qt/ReglagesPort.h"

namespace fs = std::filesystem;

PortSerieQt::PortSerieQt(std::string dossier) : dossier_(std::move(dossier)) {
  QObject::connect(&port_, &QSerialPort::errorOccurred, &port_,
                   [this](QSerialPort::SerialPortError erreur) { Noter(erreur); });
}

void PortSerieQt::CommPort(Entier numero) {
  if (PortOpen()) throw ErreurExecution(Erreur::PortDejaOuvert);
  numero_ = numero;
}

void PortSerieQt::Settings(const std::string &reglages) {
  LireReglages(reglages);  // fails before anything is changed
  reglages_ = reglages;
  Regler();
}

void PortSerieQt::Regler() {
  const ReglagesPort r = LireReglages(reglages_);
  port_.setBaudRate(r.vitesse);
  port_.setParity(r.parite);
  port_.setDataBits(r.bits);
  port_.setStopBits(r.arrets);
  port_.setFlowControl(protocole_ == 0   ? QSerialPort::NoFlowControl
                       : protocole_ == 1 ? QSerialPort::SoftwareControl
                                         : QSerialPort::HardwareControl);
}

std::string PortSerieQt::Peripherique() const {
  std::error_code erreur;
  const fs::path lien = fs::path(dossier_) / "Ports" / ("com" + std::to_string(int{numero_}));
  // A link that leads nowhere is an unusable port, not a reason to take another device.
  if (fs::exists(fs::symlink_status(lien, erreur))) return fs::canonical(lien, erreur);
  std::vector<std::string> noms;
  for (const QSerialPortInfo &info : QSerialPortInfo::availablePorts())
    noms.push_back(info.systemLocation().toStdString());
  std::sort(noms.begin(), noms.end(), AvantNaturel);
  const int rang = numero_ - 1;
  return rang >= 0 && static_cast<std::size_t>(rang) < noms.size() ? noms[static_cast<std::size_t>(rang)]
                                                                   : "";
}

void PortSerieQt::PortOpen(bool ouvrir) {
  if (!ouvrir) return Fermer();
  if (PortOpen()) throw ErreurExecution(Erreur::PortDejaOuvert);
  Fermer();
  Ouvrir();
}

void PortSerieQt::Ouvrir() {
  const std::string chemin = Peripherique();
  if (chemin.empty()) throw ErreurExecution(Erreur::PortInutilisable);
  port_.setPortName(QString::fromStdString(chemin));
  Regler();
  const bool ouvert = port_.open(QIODevice::ReadWrite);
  enPanne_ = false;
  if (!ouvert) throw ErreurExecution(Erreur::PortInutilisable);
  port_.clear(QSerialPort::Input);  // what came while closed is dropped
  if (protocole_ == 0) port_.setRequestToSend(rts_);
}

void PortSerieQt::Fermer() {
  if (port_.isOpen()) {
    if (!enPanne_) LaisserPartir();
    port_.close();
  }
  enPanne_ = false;
}

// Closing puts back the speed that the device had before, which would garble a release that is still on its
// way out. So the bytes that the system holds may leave first, half a second at most.
void PortSerieQt::LaisserPartir() {
  using namespace std::chrono;
  const auto fin = steady_clock::now() + milliseconds(500);
  int restent = 0;
  while (ioctl(port_.handle(), TIOCOUTQ, &restent) == 0) {
    if (restent == 0) {
      tcdrain(port_.handle());
      return;
    }
    if (steady_clock::now() > fin) return;
    std::this_thread::sleep_for(milliseconds(1));
  }
}

void PortSerieQt::Noter(QSerialPort::SerialPortError erreur) {
  if (!port_.isOpen()) return;
  if (erreur == QSerialPort::ResourceError || erreur == QSerialPort::ReadError ||
      erreur == QSerialPort::WriteError)
    enPanne_ = true;
  if (enPanne_)  // not inside the toolkit's own reading or writing
    QMetaObject::invokeMethod(
        &port_,
        [this] {
          if (enPanne_) port_.close();
        },
        Qt::QueuedConnection);
}

void PortSerieQt::DirePanne() {
  if (!enPanne_) return;
  port_.close();
  enPanne_ = false;
  throw ErreurExecution(Erreur::Peripherique);
}

short PortSerieQt::Sonder(short attendu) {
  pollfd etat{port_.handle(), attendu, 0};
  if (poll(&etat, 1, 0) < 0) return 0;
  if (etat.revents & (POLLHUP | POLLERR | POLLNVAL)) enPanne_ = true;
  return etat.revents;
}

void PortSerieQt::Output(const std::string &octets) {
  DirePanne();
  if (!port_.isOpen()) throw ErreurExecution(Erreur::PortFerme);
  if (port_.write(octets.data(), static_cast<qint64>(octets.size())) < 0) enPanne_ = true;
  Pousser();
  DirePanne();
}

void PortSerieQt::Pousser() {
  // What the system does not take now goes out from the event loop. A full line is asked for first, since the
  // toolkit takes it for a failure.
  qint64 avant = -1;
  while (!enPanne_ && port_.bytesToWrite() > 0 && port_.bytesToWrite() != avant &&
         (Sonder(POLLOUT) & POLLOUT)) {
    avant = port_.bytesToWrite();
    port_.flush();
  }
}

void PortSerieQt::Recevoir() {
  DirePanne();
  if (port_.isOpen() && (Sonder(POLLIN) & POLLIN)) port_.waitForReadyRead(0);
  DirePanne();
}

std::string PortSerieQt::Input() {
  Recevoir();
  if (!port_.isOpen()) return {};
  const QByteArray recus = longueurLecture_ > 0 ? port_.read(longueurLecture_) : port_.readAll();
  return recus.toStdString();
}

Entier PortSerieQt::InBufferCount() {
  Recevoir();
  return port_.isOpen() ? static_cast<int>(std::min<qint64>(port_.bytesAvailable(), 32767)) : 0;
}

void PortSerieQt::OutBufferCount(Entier nombre) {
  if (nombre == 0 && PortOpen()) port_.clear(QSerialPort::Output);
}

Entier PortSerieQt::OutBufferCount() const {
  return PortOpen() ? static_cast<int>(std::min<qint64>(port_.bytesToWrite(), 32767)) : 0;
}

void PortSerieQt::Handshaking(long protocole) {
  protocole_ = protocole;
  Regler();
}

void PortSerieQt::RTSEnable(bool etat) {
  rts_ = etat;
  if (PortOpen()) port_.setRequestToSend(etat);
}
