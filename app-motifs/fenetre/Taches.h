// Work that a weaver does not have to wait for: done on another thread, with a bar and a Cancel when it takes
// longer than a moment.
#pragma once

#include <QString>
#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>
#include <vector>

#include "motifs/Arret.h"

class QWidget;

class Taches {
 public:
  // What `faire` gives, or nothing where the weaver called it off; what it throws comes out. It must hold
  // what it uses: called off, it ends where it next looks whether it is wanted, and nobody waits for that but
  // the end of this object. The window takes no other work meanwhile.
  template <class F>
  auto Faire(QWidget *fenetre, const QString &texte, const QString &annuler, F faire) {
    using Resultat = decltype(faire());
    struct Ouvrage : Etat {
      std::optional<Resultat> resultat;
    };
    auto etat = std::make_shared<Ouvrage>();
    std::jthread fil([etat, faire = std::move(faire)](std::stop_token jeton) {
      PouvoirArreter(std::move(jeton));
      try {
        etat->resultat.emplace(faire());
      } catch (const Arrete &) {
      } catch (...) {
        etat->erreur = std::current_exception();
      }
      etat->Finir();
    });
    if (!Attendre(*etat, fenetre, texte, annuler)) {
      fil.request_stop();
      abandonnees_.push_back(std::move(fil));
      return std::optional<Resultat>();
    }
    fil.join();
    if (etat->erreur) std::rethrow_exception(etat->erreur);
    return std::move(etat->resultat);
  }

  // The same for work that is not to be left half done: without a Cancel, to its end.
  template <class F>
  auto Achever(QWidget *fenetre, const QString &texte, F faire) {
    return *Faire(fenetre, texte, {}, std::move(faire));
  }

 private:
  struct Etat {
    std::mutex verrou;
    std::condition_variable change;
    bool fini = false;
    std::exception_ptr erreur;
    void Finir();
    bool Fini(int millisecondes);  // waits at most so long
  };
  // False when it was called off, which an empty `annuler` does not allow.
  static bool Attendre(Etat &etat, QWidget *fenetre, const QString &texte, const QString &annuler);

  std::vector<std::jthread> abandonnees_;
};
