#include "platform/qt/machine/Inhibiteur.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <utility>

Inhibiteur::Inhibiteur() {
  for (QSocketNotifier *n : {&lisible_, &inscriptible_})
    QObject::connect(n, &QSocketNotifier::activated, n, [this] { Suivre(); });
}

void Inhibiteur::Empecher(bool voulu, const std::string &raison) {
  if (voulu == voulu_ && (!voulu || raison == raison_)) return;
  voulu_ = voulu;
  raison_ = raison;
  Lacher();
  if (voulu) Demander(raison);
}

void Inhibiteur::Demander(const std::string &raison) {
  sd_bus *bus = nullptr;
  if (sd_bus_open_system(&bus) < 0) return;
  bus_.reset(bus);
  if (sd_bus_call_method_async(bus, nullptr, "org.freedesktop.login1", "/org/freedesktop/login1",
                               "org.freedesktop.login1.Manager", "Inhibit", Recevoir, this, "ssss",
                               "sleep:idle", "Brandis", raison.c_str(), "block") < 0)
    return Raccroche();
  for (QSocketNotifier *n : {&lisible_, &inscriptible_}) n->setSocket(sd_bus_get_fd(bus));
  Suivre();
}

// Goes on as far as the bus lets it, then waits for what the bus waits for.
void Inhibiteur::Suivre() {
  int etat;
  do etat = sd_bus_process(bus_.get(), nullptr);
  while (etat > 0 && verrou_ < 0);
  const int attendus = sd_bus_get_events(bus_.get());
  if (etat < 0 || attendus < 0 || verrou_ >= 0) return Raccroche();
  lisible_.setEnabled(attendus & POLLIN);
  inscriptible_.setEnabled(attendus & POLLOUT);
}

// A refusal has no descriptor either.
int Inhibiteur::Recevoir(sd_bus_message *reponse, void *inhibiteur, sd_bus_error *) {
  int prete = -1;  // the message's own
  if (sd_bus_message_read(reponse, "h", &prete) > 0)
    static_cast<Inhibiteur *>(inhibiteur)->verrou_ = fcntl(prete, F_DUPFD_CLOEXEC, 0);
  return 0;
}

void Inhibiteur::Raccroche() {
  lisible_.setEnabled(false);
  inscriptible_.setEnabled(false);
  bus_.reset();
}

void Inhibiteur::Lacher() {
  Raccroche();
  if (verrou_ >= 0) close(std::exchange(verrou_, -1));
}
