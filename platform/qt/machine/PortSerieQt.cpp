#include "platform/qt/machine/PortSerieQt.h"

#include <poll.h>

#include <algorithm>
#include <utility>

#include "platform/qt/machine/AppareilPort.h"
#include "platform/qt/machine/RefusPort.h"
#include "platform/qt/machine/ReglagesPort.h"

namespace {
constexpr int kTampon = 1024;    // bytes, received and not yet read
constexpr int kReprise = 10;     // milliseconds; LigneCoupee.cpp counts a second of them
constexpr int kPlafond = 32767;  // of a count
}  // namespace

PortSerieQt::PortSerieQt(std::string dossier, int ronde) : dossier_(std::move(dossier)) {
  port_.setReadBufferSize(kTampon);
  ronde_.setInterval(ronde);
  reprise_.setInterval(kReprise);
  QObject::connect(&ronde_, &QTimer::timeout, &port_, [this] { Tourner(); });
  QObject::connect(&reprise_, &QTimer::timeout, &port_, [this] { Insister(); });
  QObject::connect(&port_, &QSerialPort::errorOccurred, &port_, [this](QSerialPort::SerialPortError erreur) {
    if (erreur == QSerialPort::ResourceError || erreur == QSerialPort::ReadError ||
        erreur == QSerialPort::WriteError)
      Perdre();
  });
}

EtatLigne PortSerieQt::Etat() const {
  return Coupee() ? EtatLigne::Coupee : bloquee_ ? EtatLigne::Bloquee : EtatLigne::Bonne;
}

void PortSerieQt::Dire(EvenementLigne evenement) const {
  if (Evenement) Evenement(evenement);
}

std::string PortSerieQt::Appareil() const { return AppareilSous(nom_); }

void PortSerieQt::CommPort(Entier numero) {
  if (ouvert_) throw ErreurExecution(Erreur::PortDejaOuvert);
  numero_ = numero;
}

void PortSerieQt::Settings(const std::string &reglages) {
  LireReglages(reglages);  // fails before anything is changed
  reglages_ = reglages;
  Regler();
}

void PortSerieQt::Regler() {
  const ReglagesPort r = LireReglages(reglages_);
  emission_.Duree(std::chrono::microseconds(r.DureeOctet()));
  port_.setBaudRate(r.vitesse);
  port_.setParity(r.parite);
  port_.setDataBits(r.bits);
  port_.setStopBits(r.arrets);
  port_.setFlowControl(protocole_ == 0   ? QSerialPort::NoFlowControl
                       : protocole_ == 1 ? QSerialPort::SoftwareControl
                                         : QSerialPort::HardwareControl);
}

void PortSerieQt::PortOpen(bool ouvrir) {
  if (!ouvrir) return Fermer();
  if (ouvert_) throw ErreurExecution(Erreur::PortDejaOuvert);
  Ouvrir();
}

std::string PortSerieQt::Appareil(Entier numero) const {
  const std::string lien = LienDuPort(dossier_, numero);
  return NommerAppareil(lien.empty() ? PortListe(numero) : lien);
}

void PortSerieQt::Ouvrir() {
  const auto parti = partis_.find(numero_);
  const bool attendu = parti != partis_.end();
  nom_ = LienDuPort(dossier_, numero_);
  if (nom_.empty()) nom_ = attendu ? parti->second : PortListe(numero_);
  const bool present = OuvrirAppareil();
  if (!present && !attendu) {
    refus_ = RaisonRefusPort(numero_, nom_);
    throw ErreurExecution(Erreur::PortInutilisable);
  }
  if (present) port_.clear(QSerialPort::Input);  // what came while closed is dropped
  emission_.Vider();
  ouvert_ = true;
  absent_ = !present;
  bloquee_ = false;
  essaisVains_ = 0;
  ronde_.start();
  Dire(present ? EvenementLigne::Ouverte : EvenementLigne::Attendue);
}

// The descriptor is free before the name can stand for a new device.
bool PortSerieQt::OuvrirAppareil() {
  port_.close();
  const std::string appareil = AppareilSous(nom_);
  if (appareil.empty()) return false;
  port_.setPortName(QString::fromStdString(appareil));
  Regler();
  if (!port_.open(QIODevice::ReadWrite)) return false;
  if (protocole_ == 0) port_.setRequestToSend(rts_);
  partis_.erase(numero_);
  return true;
}

// Closing puts back the speed that the device had before, which would garble a release that is still on its
// way out, so the bytes may leave first.
void PortSerieQt::Fermer() {
  if (!ouvert_) return;
  if (Presente()) emission_.LaisserPartir(port_.handle());
  ouvert_ = absent_ = bloquee_ = false;
  ronde_.stop();
  reprise_.stop();
  emission_.Vider();
  recus_.clear();
  port_.close();
  Dire(EvenementLigne::Fermee);
}

short PortSerieQt::Sonder(short attendu) {
  pollfd etat{port_.handle(), attendu, 0};
  if (poll(&etat, 1, 0) < 0) return 0;
  if (etat.revents & (POLLHUP | POLLERR | POLLNVAL)) Perdre();
  return etat.revents;
}

void PortSerieQt::Output(const std::string &octets) {
  if (!ouvert_) throw ErreurExecution(Erreur::PortFerme);
  if (Presente()) Sonder(0);
  const bool presente = Presente();
  emission_.Ajouter(octets, Tour());
  Pousser();
  if (presente && absent_) emission_.Ajouter(octets, Tour());  // the write that found the loss waits too
  if (absent_ || bloquee_) emission_.GarderTour(Tour());
}

unsigned PortSerieQt::Tour() {
  if (!std::exchange(tourCompte_, true))
    QMetaObject::invokeMethod(
        &port_,
        [this] {
          ++tour_;
          tourCompte_ = false;
        },
        Qt::QueuedConnection);
  return tour_;
}

bool PortSerieQt::Pousser() {
  if (!Presente()) return false;
  const Remise remise = emission_.Pousser(port_.handle());
  if (remise == Remise::Echec) {
    Perdre();
    return false;
  }
  if (emission_.Vide())
    reprise_.stop();
  else if (!reprise_.isActive())
    reprise_.start();
  if (remise == Remise::Rien) return false;
  essaisVains_ = 0;
  Bloquer(false);
  return true;
}

void PortSerieQt::Recevoir() {
  if (Presente() && (Sonder(POLLIN) & POLLIN) && Presente()) port_.waitForReadyRead(0);
}

std::string PortSerieQt::Input() {
  Recevoir();
  Prendre();
  const auto voulus = longueurLecture_ > 0 ? static_cast<std::size_t>(int{longueurLecture_}) : recus_.size();
  const std::string lus = recus_.substr(0, voulus);
  recus_.erase(0, voulus);
  return lus;
}

// From the toolkit, which stops reading when it holds as much as there is room for. What the system took in
// meanwhile found no room.
void PortSerieQt::Prendre() {
  if (!port_.isOpen()) return;
  const bool plein = port_.bytesAvailable() >= kTampon;
  recus_ += port_.readAll().toStdString();
  recus_.resize(std::min<std::size_t>(recus_.size(), kTampon));
  if (plein && Presente()) port_.clear(QSerialPort::Input);
}

Entier PortSerieQt::InBufferCount() {
  Recevoir();
  return static_cast<int>(recus_.size()) + static_cast<int>(port_.isOpen() ? port_.bytesAvailable() : 0);
}

void PortSerieQt::OutBufferCount(Entier nombre) {
  if (nombre != 0) return;
  emission_.Vider();
  if (Presente()) port_.clear(QSerialPort::Output);
}

Entier PortSerieQt::OutBufferCount() const {
  const auto detenus = static_cast<std::size_t>(Presente() ? OctetsDetenus(port_.handle()) : 0);
  return static_cast<int>(std::min<std::size_t>(emission_.Restent() + detenus, kPlafond));
}

void PortSerieQt::Handshaking(long protocole) {
  protocole_ = protocole;
  Regler();
}

void PortSerieQt::RTSEnable(bool etat) {
  rts_ = etat;
  if (Presente()) port_.setRequestToSend(etat);
}
