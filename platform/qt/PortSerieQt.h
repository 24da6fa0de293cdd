// The serial port over Qt.
#pragma once

#include <QSerialPort>
#include <string>

#include "loom/PortSerie.h"

class PortSerieQt : public PortSerie {
 public:
  // `dossier` holds the folder `Ports` with the links comN.
  explicit PortSerieQt(std::string dossier);

  void CommPort(Entier numero) override;
  void Settings(const std::string &reglages) override;
  std::string Settings() const override { return reglages_; }
  void PortOpen(bool ouvrir) override;
  bool PortOpen() const override { return port_.isOpen() && !enPanne_; }
  void Output(const std::string &octets) override;
  std::string Input() override;
  void InputLen(Entier longueur) override { longueurLecture_ = longueur; }
  Entier InputLen() const override { return longueurLecture_; }
  void InputMode(long mode) override { modeLecture_ = mode; }
  long InputMode() const override { return modeLecture_; }
  void OutBufferCount(Entier nombre) override;
  Entier OutBufferCount() const override;
  Entier OutBufferSize() const override { return 512; }
  Entier InBufferCount() override;
  void Handshaking(long protocole) override;
  long Handshaking() const override { return protocole_; }
  void RTSEnable(bool etat) override;
  bool DTREnable() const override { return true; }
  Entier SThreshold() const override { return 0; }
  std::string ParityReplace() const override { return "?"; }
  Entier CommEvent() const override { return 0; }

 private:
  void Ouvrir();
  void Fermer();
  void Regler();
  void Noter(QSerialPort::SerialPortError erreur);
  // Fails with 57, once, when the device has failed; leaves the port closed then.
  void DirePanne();
  // What the device is ready for; marks its failure.
  short Sonder(short attendu);
  void Recevoir();
  void Pousser();
  void LaisserPartir();
  std::string Peripherique() const;

  std::string dossier_, reglages_ = "9600,N,8,1";
  Entier numero_ = 1, longueurLecture_ = 0;
  long modeLecture_ = 0, protocole_ = 0;
  bool rts_ = true;
  bool enPanne_ = false;  // failed and not yet told
  QSerialPort port_;
};
