// Keeps the machine awake while the loom is at work.
#pragma once

#include <systemd/sd-bus.h>

#include <QSocketNotifier>
#include <memory>
#include <string>

class Inhibiteur {
 public:
  Inhibiteur();
  ~Inhibiteur() { Lacher(); }

  // Asks the login manager to hold back sleep and idling, or lets go. Returns at once, whatever the bus does:
  // the connection itself is made from the event loop. A bus that is not there, refuses or never answers is
  // silence. `raison` is told to whoever asks what holds the machine awake;
  // another one while it is held is asked for anew.
  void Empecher(bool voulu, const std::string &raison);

 private:
  struct Raccrocher {
    void operator()(sd_bus *bus) const { sd_bus_close_unref(bus); }
  };
  static int Recevoir(sd_bus_message *reponse, void *inhibiteur, sd_bus_error *);
  void Demander(const std::string &raison);
  void Suivre();
  void Raccroche();
  void Lacher();

  bool voulu_ = false;
  std::string raison_;
  int verrou_ = -1;                          // the inhibition lasts for as long as this descriptor is open
  std::unique_ptr<sd_bus, Raccrocher> bus_;  // until the login manager has answered
  QSocketNotifier lisible_{QSocketNotifier::Read}, inscriptible_{QSocketNotifier::Write};
};
