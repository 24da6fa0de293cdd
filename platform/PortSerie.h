// The serial port control, MSComm1: its members as the loom link needs them, and nothing else.
#pragma once

#include <functional>
#include <string>

#include "base/Entier.h"

// What stands behind a port that is open.
enum class EtatLigne {
  Bonne,
  Coupee,   // the device is away, and is waited for
  Bloquee,  // the device is there and takes nothing
};

// Failures of every implementation: 8002 the port number is not usable, 8005 the port is open already, 8018
// written to while closed. A device that goes away is no failure: the port stays open, nothing arrives, and
// what was written last waits for it. Closing drops what was received; what arrives while closed is dropped
// too.
class PortSerie {
 public:
  virtual ~PortSerie() = default;

  virtual void CommPort(Entier numero) = 0;                // 1 is the first port; 8005 while open
  virtual void Settings(const std::string &reglages) = 0;  // "9600,N,8,1"
  virtual std::string Settings() const = 0;
  virtual void PortOpen(bool ouvrir) = 0;  // 8002, 8005
  virtual bool PortOpen() const = 0;
  // The device behind a number, open or not: "ttyUSB0, USB adapter" in the language in force, empty for none.
  virtual std::string Appareil(Entier numero) const = 0;
  virtual std::string RaisonRefus() const = 0;  // of the last 8002: a sentence in the language in force
  virtual void Output(const std::string &octets) = 0;  // never waits; 8018
  // Where the last write is kept back: True, and `suite` runs when it has been handed over to the line; never
  // where it is dropped.
  virtual bool Retenu(std::function<void()> suite) = 0;
  virtual std::string Input() = 0;                     // all that was received; never waits
  // Length and mode of reading only tell back what was set: 0, the length that is ever set, reads all that is
  // there.
  virtual void InputLen(Entier longueur) = 0;
  virtual Entier InputLen() const = 0;
  virtual void InputMode(long mode) = 0;
  virtual long InputMode() const = 0;
  virtual void OutBufferCount(Entier nombre) = 0;  // 0 discards what waits to go out
  virtual Entier OutBufferCount() const = 0;       // bytes
  virtual Entier OutBufferSize() const = 0;        // bytes
  virtual Entier InBufferCount() = 0;              // bytes
  // 0 none, 1 XON/XOFF, 2 RTS/CTS, 3 both; at once where the port is open.
  virtual void Handshaking(long protocole) = 0;
  virtual long Handshaking() const = 0;
  virtual void RTSEnable(bool etat) = 0;
  virtual bool DTREnable() const = 0;
  virtual Entier SThreshold() const = 0;
  virtual std::string ParityReplace() const = 0;
  virtual Entier CommEvent() const = 0;  // number of the last event of the line, 0 for none
};
