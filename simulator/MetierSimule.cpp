#include "simulator/MetierSimule.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <iostream>

#include "base/FichiersBrandis.h"

MetierSimule::MetierSimule(const Reglages &reglages)
    : reglages_(reglages),
      ligne_(LienCom(reglages.dossier, reglages.port), reglages.baud),
      lecteur_(reglages.lames),
      cycle_(reglages.lames, reglages.cadence, reglages.entree, reglages.fautes),
      releve_(std::cout, reglages.lames, reglages.journal) {}

void MetierSimule::Raccorder() {
  ligne_.Brancher();
  releve_.Dire("loom: " + std::to_string(reglages_.lames) + " harnesses on " + ligne_.Esclave() +
               ", linked as " + ligne_.Lien());
}

void MetierSimule::Tourner(int arret) {
  while (!fini_ && std::cout) {
    Attendre(arret);
    const Instant maintenant = Horloge::now();
    Entendre(maintenant);
    if (fini_) break;
    for (const Geste &geste : cycle_.GestesEchus(maintenant, ligne_)) Agir(geste);
  }
}

// What is under way at the end is heard at once; a frame that stays unfinished then is the program's fault.
int MetierSimule::Finir() {
  if (!duitesAtteintes_) {
    for (const std::uint8_t octet : ligne_.Vider())
      for (const Trame &trame : lecteur_.Lire(octet)) releve_.Noter(trame);
    for (const Trame &trame : lecteur_.Terminer()) releve_.Noter(trame);
  }
  ligne_.Couper();
  releve_.Conclure();
  return releve_.Erreurs() == 0 ? 0 : 1;
}

void MetierSimule::Attendre(int arret) {
  std::array<pollfd, 3> attentes{};
  attentes[0] = {arret, POLLIN, 0};
  attentes[1] = {ecouteEntree_ ? STDIN_FILENO : -1, POLLIN, 0};
  attentes[2] = {ligne_.AttendreLecture().value_or(-1), POLLIN, 0};
  if (poll(attentes.data(), attentes.size(), DelaiAttente()) <= 0) return;
  if (attentes[0].revents != 0) fini_ = true;
  if (attentes[2].revents != 0) {
    ligne_.OctetsEnVue(Horloge::now());
    VerifierVitesse();
  }
  if (attentes[1].revents != 0) LireCommandes();
}

// Rounded up, so that what was waited for is due on return.
int MetierSimule::DelaiAttente() const {
  std::optional<Instant> echeance = cycle_.Echeance();
  const std::optional<Instant> arrivee = ligne_.Echeance();
  if (arrivee && (!echeance || *arrivee < *echeance)) echeance = arrivee;
  if (!echeance) return -1;
  const auto reste = std::chrono::ceil<std::chrono::milliseconds>(*echeance - Horloge::now());
  return static_cast<int>(std::clamp<long long>(reste.count(), 0, 60'000));
}

void MetierSimule::LireCommandes() {
  std::array<char, 4096> tampon{};
  const ssize_t lus = read(STDIN_FILENO, tampon.data(), tampon.size());
  if (lus < 0 && (errno == EINTR || errno == EAGAIN)) return;
  if (lus <= 0) {
    ecouteEntree_ = false;
    if (reglages_.entree) fini_ = true;
    return;
  }
  saisie_.append(tampon.data(), static_cast<std::size_t>(lus));
  for (std::size_t fin = saisie_.find('\n'); fin != std::string::npos && !fini_; fin = saisie_.find('\n')) {
    const std::string ligne = saisie_.substr(0, fin);
    saisie_.erase(0, fin + 1);
    Commander(ligne);
  }
}

void MetierSimule::Commander(const std::string &ligne) {
  const std::size_t blanc = ligne.find(' ');
  const std::string mot = ligne.substr(0, blanc);
  const std::string reste = blanc == std::string::npos ? "" : ligne.substr(blanc + 1);
  if (mot == "retarder" || mot == "cadence") {
    CommanderDelai(mot, reste);
  } else if (blanc != std::string::npos) {
    std::cerr << "metier-simule: unknown command: " << ligne << std::endl;
  } else if (mot.empty()) {
    cycle_.Completer(Horloge::now());
  } else if (mot == "raccrocher") {
    Raccrocher();
  } else if (mot == "revenir") {
    Revenir();
  } else if (mot == "quitter") {
    fini_ = true;
  } else if (!CommanderEcart(mot)) {
    std::cerr << "metier-simule: unknown command: " << ligne << std::endl;
  }
}

bool MetierSimule::CommanderEcart(const std::string &mot) {
  Ecart &ecart = cycle_.Prochain();
  if (mot == "scinder") return ecart.scinder = true;
  if (mot == "doubler") return ecart.doubler = true;
  if (mot == "perdre") return ecart.perdre = true;
  if (mot == "bruit") return ecart.bruit = true;
  return false;
}

void MetierSimule::CommanderDelai(const std::string &mot, const std::string &nombre) {
  const std::optional<long> delai = LireNombre(nombre, 0);
  if (!delai)
    std::cerr << "metier-simule: " << mot << " needs a number of ms" << std::endl;
  else if (mot == "cadence")
    cycle_.ChangerCadence(Delai(*delai));
  else
    cycle_.Retarder(Delai(*delai));
}

void MetierSimule::Entendre(Instant maintenant) {
  for (const std::uint8_t octet : ligne_.Lire(maintenant)) {
    for (const Trame &trame : lecteur_.Lire(octet)) Traiter(trame, maintenant);
    if (duitesAtteintes_) return;
  }
}

void MetierSimule::Traiter(const Trame &trame, Instant maintenant) {
  if (trame.genre == GenreTrame::Chargement) VerifierVitesse();
  releve_.Noter(trame);
  if (trame.genre == GenreTrame::Relache) cycle_.Relacher();
  if (trame.genre != GenreTrame::Duite) return;
  cycle_.Commencer(releve_.Duites(), maintenant);
  if (reglages_.duites && releve_.Duites() >= *reglages_.duites) fini_ = duitesAtteintes_ = true;
}

// A serial layer puts the old settings back when it closes the port, and its last bytes may be heard only
// then: so no speed of the program's own is complained of only where the right one was never seen.
void MetierSimule::VerifierVitesse() {
  const long attendue = VitesseAttendue(reglages_.lames);
  const std::optional<long> vitesse = ligne_.Vitesse();
  if (vitesse == attendue) {
    vitesseVue_ = true;
    vitesseSignalee_.reset();
    return;
  }
  if (!vitesse && vitesseVue_) return;
  const long constatee = vitesse.value_or(-1);
  if (vitesseSignalee_ == constatee) return;
  vitesseSignalee_ = constatee;
  releve_.Erreur("speed " + (vitesse ? std::to_string(*vitesse) : "never set") + ", not " +
                 std::to_string(attendue));
}

void MetierSimule::Agir(const Geste &geste) {
  switch (geste.genre) {
    case Geste::Genre::Ecrire:
      if (!ligne_.Ecrire(geste.octets)) releve_.Dire("report not taken: nobody reads the line");
      break;
    case Geste::Genre::Annoncer:
      releve_.Dire("report" + geste.mention);
      break;
    case Geste::Genre::Raccrocher:
      Raccrocher();
      break;
    case Geste::Genre::Revenir:
      Revenir();
      break;
  }
}

void MetierSimule::Raccrocher() {
  if (!ligne_.Branchee()) return;
  ligne_.Couper();
  lecteur_.Oublier();
  cycle_.Couper();
  vitesseVue_ = false;
  vitesseSignalee_.reset();
  releve_.Dire("hangup");
}

void MetierSimule::Revenir() {
  if (ligne_.Branchee()) return;
  try {
    ligne_.Brancher();
    releve_.Dire("back on " + ligne_.Esclave());
  } catch (const EchecLigne &echec) {
    releve_.Erreur(echec.what());
  }
}
