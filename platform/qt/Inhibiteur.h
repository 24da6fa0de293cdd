// Keeps the machine awake while the loom is at work.
#pragma once

#include <QDBusConnection>
#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <memory>
#include <string>

class Inhibiteur {
 public:
  Inhibiteur();
  ~Inhibiteur();

  // Asks the login manager to hold back sleep and idling, or lets go. Returns at once, whatever the bus does;
  // a bus that is not there, refuses or never answers is silence. `raison` is told to whoever asks what holds
  // the machine awake.
  void Empecher(bool voulu, const std::string &raison);
  // The login manager has given its word.
  bool Tenue() const { return descripteur_.isValid(); }
  // The bus took the connection and then said nothing: it would also hold up an orderly end of the process.
  bool BusMuet() const;

 private:
  struct Liaison;
  void Relier();
  void Demander(const QDBusConnection &bus);

  bool voulu_ = false, demandee_ = false;
  std::string raison_;
  QDBusUnixFileDescriptor descripteur_;  // the inhibition lasts for as long as it is open
  std::shared_ptr<Liaison> liaison_;
  QObject vivante_;
};
