// One program at a time for one folder.
#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <string>

class InstanceUnique {
 public:
  // Takes the lock `Data/Brandis.verrou` of the program's folder. The system drops it with its process,
  // however that ends, so none is ever left behind. A folder that cannot hold a lock is free for all.
  explicit InstanceUnique(const std::string &dossier);
  ~InstanceUnique();
  InstanceUnique(const InstanceUnique &) = delete;
  InstanceUnique &operator=(const InstanceUnique &) = delete;

  // False when another program works in the folder.
  bool Premiere() const { return premiere_; }
  // The first answers on the session bus from now on: `montrer` runs, from the event loop, when another start
  // calls. Without a bus nothing happens.
  void Ecouter(std::function<void()> montrer);
  // Another start calls the first; false when that has not answered within some two seconds.
  bool AppelerPremiere() const;

 private:
  class Sonnette;
  int descripteur_ = -1;
  bool premiere_ = true;
  QString nom_;  // of the first on the session bus, its own for each folder
  std::unique_ptr<Sonnette> sonnette_;
};

// What a second start says when the first cannot be called, in the desktop's language.
std::string TexteDejaOuvert(const std::string &dossier);
