// Work that a weaver does not have to wait for: done on another thread, with a bar and a Cancel when it takes
// longer than a moment.
#pragma once

#include <QString>
#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

class QWidget;

class Taches {
 public:
  // What is called off goes on unseen; its end is waited for here.
  ~Taches();

  // What `faire` gives, or nothing where the weaver called it off; what it throws comes out. It runs on its
  // own, so it must hold what it uses. The window takes no other work meanwhile.
  template <class F>
  auto Faire(QWidget *fenetre, const QString &texte, const QString &annuler, F faire) {
    using Resultat = decltype(faire());
    struct Ouvrage : Etat {
      std::optional<Resultat> resultat;
    };
    auto etat = std::make_shared<Ouvrage>();
    std::thread fil([etat, faire = std::move(faire)] {
      try {
        etat->resultat.emplace(faire());
      } catch (...) {
        etat->erreur = std::current_exception();
      }
      etat->Finir();
    });
    if (!Attendre(*etat, fenetre, texte, annuler)) {
      abandonnees_.push_back(std::move(fil));
      return std::optional<Resultat>();
    }
    fil.join();
    if (etat->erreur) std::rethrow_exception(etat->erreur);
    return std::move(etat->resultat);
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
  // False when it was called off.
  static bool Attendre(Etat &etat, QWidget *fenetre, const QString &texte, const QString &annuler);

  std::vector<std::thread> abandonnees_;
};
