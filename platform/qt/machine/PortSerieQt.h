// The serial port over Qt. A device that goes away is for the program what a pulled cable is on a plain
// serial line: silence. The port stays open, and the device is waited for.
//
// - The device goes: nothing fails. What was written before is forgotten; what had come in is still read.
// - While it is away: `PortOpen` is True, nothing arrives. The writes of the last event that wrote wait, in
//   the place of those before; `OutBufferCount` = 0 empties them. Closing waits for nothing.
// - It comes back: once a second the name under which it was opened is looked at. What opens there as a
//   serial line is the device: settings in force, exclusive as before. `Revenue` is told, then what still
//   waits goes out, once.
// - Opening: a port whose device went away and was not found again since opens all the same, and waits.
// - It takes nothing: when bytes wait and none has moved for a second, the line hangs. The device stays open
//   and is read. A write that has begun to leave goes on to its end; of those behind it the last event's
//   wait. Nothing is dropped by force or repeated; a byte that moves ends it.
#pragma once

#include <QSerialPort>
#include <QTimer>
#include <functional>
#include <map>
#include <string>

#include "platform/PortSerie.h"
#include "platform/qt/machine/Emission.h"

enum class EvenementLigne {
  Ouverte,    // the port opened
  Attendue,   // the port opened, and waits for its device
  Coupee,     // the device went away
  Revenue,    // it is back; what was written meanwhile is not on its way yet
  Bloquee,    // the device is there and takes nothing
  Debloquee,  // it takes again
  Fermee,     // the port closed
};

class PortSerieQt : public PortSerie {
 public:
  // `dossier` holds the folder `Ports` with the links comN. `ronde`: milliseconds between two looks for a
  // device, whether it is still there or back.
  explicit PortSerieQt(std::string dossier, int ronde = 1000);
  ~PortSerieQt() override { Evenement = nullptr; }

  // Told at once, in the middle of the call or of the event in which it happens.
  std::function<void(EvenementLigne)> Evenement;
  EtatLigne Etat() const;
  // A device that is away stays away: nobody is left to answer its return.
  void NePlusAttendre() { ronde_.stop(); }
  // What stands behind the port that was last opened, as "/dev/ttyUSB0"; empty while nothing does.
  std::string Appareil() const;

  void CommPort(Entier numero) override;
  void Settings(const std::string &reglages) override;
  std::string Settings() const override { return reglages_; }
  void PortOpen(bool ouvrir) override;
  bool PortOpen() const override { return ouvert_; }
  std::string Appareil(Entier numero) const override;
  std::string RaisonRefus() const override { return refus_; }
  void Output(const std::string &octets) override;
  bool Retenu(std::function<void()> suite) override { return emission_.Suivre(std::move(suite)); }
  // 1024 bytes are kept from one reading to the next; what comes behind them is dropped.
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
  bool Presente() const { return ouvert_ && !absent_; }
  bool Coupee() const { return ouvert_ && absent_; }
  void Regler();
  void Ouvrir();
  void Fermer();
  void Recevoir();
  void Prendre();
  bool OuvrirAppareil();
  bool Pousser();  // whether a byte has moved
  // The number of the event that runs.
  unsigned Tour();
  // What the device is ready for; marks its loss.
  short Sonder(short attendu);
  void Dire(EvenementLigne evenement) const;

  // In LigneCoupee.cpp.
  void Perdre();
  void Lacher();
  void Tourner();
  void Insister();
  void Bloquer(bool bloquee);

  std::string dossier_, refus_, reglages_ = "9600,N,8,1";
  Entier numero_ = 1, longueurLecture_ = 0;
  long modeLecture_ = 0, protocole_ = 0;
  bool rts_ = true;
  bool ouvert_ = false, absent_ = false, bloquee_ = false;
  static constexpr int kEssaisVains = 100;  // looks, ten milliseconds from one to the next
  int essaisVains_ = 0;                     // since a byte moved
  std::string nom_;                         // under which the device is found
  std::string recus_;                       // bytes taken from the toolkit and not yet read
  std::map<int, std::string> partis_;       // names of devices that went away, by port number
  Emission emission_;
  unsigned tour_ = 0;
  bool tourCompte_ = false;
  QTimer ronde_;      // looks for the device
  QTimer reprise_;    // hands over what the line did not take at once
  QSerialPort port_;  // last: its end tells nothing any more
};
