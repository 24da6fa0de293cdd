#include "simulator/LecteurTrames.h"

#include <array>
#include <string_view>
#include <utility>

namespace {
constexpr char kEchap = 27;
constexpr std::string_view kMotCharger = "SET PATTERN";
constexpr std::size_t kTailleMotif = 4;

// Lines of the text protocol that have only one form.
constexpr std::array<std::string_view, 6> kLignesFixes = {"RELEASE\n",      "RELEASE\r", "PUSH PATTERN\n",
                                                          "PUSH PATTERN\r", "TEST\r",    "\x1BR\r\n"};

// A whole one of these words is enough to be in step again, even in the middle of a line: a frame may follow
// one that was cut off.
constexpr std::array<std::string_view, 4> kMotsTexte = {"RELEASE", kMotCharger, "PUSH PATTERN", "TEST"};

bool Commence(std::string_view texte, std::string_view debut) {
  return texte.substr(0, debut.size()) == debut;
}

bool Finit(std::string_view texte, std::string_view fin) {
  return texte.size() >= fin.size() && texte.substr(texte.size() - fin.size()) == fin;
}

bool Hexadecimal(char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F'); }

std::uint32_t ValeurHexadecimale(std::string_view chiffres) {
  std::uint32_t valeur = 0;
  for (const char c : chiffres) {
    const int chiffre = c <= '9' ? c - '0' : c - 'A' + 10;
    valeur = valeur * 16 + static_cast<std::uint32_t>(chiffre);
  }
  return valeur;
}

// `suite` is what stands behind SET PATTERN and a blank: 0x, then 0, 2 or 4 digits, then LF.
bool MotifPermis(std::string_view suite) {
  constexpr std::string_view kPrefixe = "0x";
  if (suite.size() <= kPrefixe.size()) return Commence(kPrefixe, suite);
  if (!Commence(suite, kPrefixe)) return false;
  const std::string_view chiffres = suite.substr(kPrefixe.size(), suite.size() - 3);
  if (suite.back() == '\n') return chiffres.size() % 2 == 0;
  return chiffres.size() < kTailleMotif && Hexadecimal(suite.back());
}

// `suite` is what stands behind SET PATTERN: a blank makes it a pick frame, anything else a line typed by
// hand, which ends in CR.
bool SuitePermise(std::string_view suite) {
  if (suite.front() == ' ') return MotifPermis(suite.substr(1));
  const auto dernier = static_cast<unsigned char>(suite.back());
  return dernier == '\r' || dernier >= ' ';
}
}  // namespace

LecteurTrames::LecteurTrames(int nombreLames) : nombreLames_(nombreLames) {}

std::vector<Trame> LecteurTrames::Lire(std::uint8_t octet) {
  std::vector<Trame> suites;
  recus_.push_back(octet);
  if (perdu_) {
    if (Retrouver(octet)) {
      Trame rejet;
      rejet.genre = GenreTrame::Rejet;
      rejet.position = rejetes_.size();
      if (rejet.position > 0) suites.push_back(std::move(rejet));
      rejetes_.clear();
      perdu_ = false;
    }
  } else if (Permis(octet)) {
    trame_ += static_cast<char>(octet);
    if (Complete()) Conclure(suites);
  } else {
    Rejeter(octet, suites);
  }
  ++position_;
  return suites;
}

std::vector<Trame> LecteurTrames::Terminer() {
  if (perdu_ && rejetes_.size() > 1) return {{GenreTrame::Rejet, 0, {}, {}, rejetes_.size() - 1, 0}};
  if (trame_.empty()) return {};
  Trame faute;
  faute.texte = "frame unfinished at the end";
  faute.position = position_ - 1;
  faute.valeur = static_cast<std::uint8_t>(trame_.back());
  trame_.clear();
  return {faute};
}

void LecteurTrames::Oublier() {
  trame_.clear();
  recus_.clear();
  rejetes_.clear();
  perdu_ = false;
  charge_ = false;
}

bool LecteurTrames::Permis(std::uint8_t octet) const {
  return nombreLames_ == 16 ? Permis16(octet) : Permis24(octet);
}

bool LecteurTrames::Permis24(std::uint8_t octet) const {
  const char c = static_cast<char>(octet);
  const std::size_t place = trame_.size();
  if (place == 0) return c == kEchap;
  if (place == 1) return c == 'R' || c == 'I' || c == 'E';
  // Data bytes stand as they are: CR, LF, ESC and 0 among them mean nothing.
  const std::size_t fin = trame_[1] == 'I' ? 2 + kTailleMotif : 2;
  if (place < fin) return true;
  return c == (place == fin ? '\r' : '\n');
}

bool LecteurTrames::Permis16(std::uint8_t octet) const {
  const std::string essai = trame_ + static_cast<char>(octet);
  for (const std::string_view ligne : kLignesFixes)
    if (Commence(ligne, essai)) return true;
  if (essai.size() <= kMotCharger.size()) return Commence(kMotCharger, essai);
  return Commence(essai, kMotCharger) && SuitePermise(std::string_view(essai).substr(kMotCharger.size()));
}

bool LecteurTrames::Complete() const {
  if (nombreLames_ != 16) {
    if (trame_.size() < 2) return false;
    return trame_.size() == (trame_[1] == 'I' ? 4 + kTailleMotif : 4);
  }
  if (trame_.front() == kEchap) return trame_.back() == '\n';
  return trame_.back() == '\n' || trame_.back() == '\r';
}

// The byte itself may be where the next frame begins.
void LecteurTrames::Rejeter(std::uint8_t octet, std::vector<Trame> &suites) {
  suites.push_back(Faute(octet, trame_.empty() ? "no frame begins so" : "not allowed in this frame"));
  const bool debutSeul = trame_.empty();
  trame_.clear();
  perdu_ = true;
  rejetes_.clear();
  if (!debutSeul && octet == static_cast<std::uint8_t>(kEchap)) {
    trame_ = kEchap;
    perdu_ = false;
    return;
  }
  if (nombreLames_ == 16 && (octet == '\n' || octet == '\r')) {
    perdu_ = false;
    return;
  }
  // Counted by its own fault, so not among the bytes passed over; but it may be the first letter of a word.
  rejetes_ += static_cast<char>(octet);
}

// True when the reader is in step again; `trame_` then holds the begun frame and `rejetes_` the bytes passed
// over behind the faulty one.
bool LecteurTrames::Retrouver(std::uint8_t octet) {
  rejetes_ += static_cast<char>(octet);
  std::string_view debut;
  bool finLigne = false;
  if (octet == static_cast<std::uint8_t>(kEchap)) {
    debut = "\x1B";
  } else if (nombreLames_ == 16) {
    finLigne = octet == '\n' || octet == '\r';
    for (const std::string_view mot : kMotsTexte)
      if (Finit(rejetes_, mot)) debut = mot;
  }
  if (debut.empty() && !finLigne) return false;
  trame_ = debut;
  rejetes_.resize(rejetes_.size() - debut.size());
  if (!rejetes_.empty()) rejetes_.erase(0, 1);
  return true;
}

void LecteurTrames::Conclure(std::vector<Trame> &suites) {
  if (nombreLames_ == 16)
    Conclure16(suites);
  else
    Conclure24(suites);
  trame_.clear();
}

void LecteurTrames::Conclure24(std::vector<Trame> &suites) {
  if (trame_[1] == 'E') return Executer(suites);
  if (trame_[1] == 'R') {
    charge_ = false;
    suites.push_back({GenreTrame::Relache, 0, {}, {}, position_, 0});
    return;
  }
  // Three solenoid groups of eight, lowest first; the fourth byte is spare.
  std::uint32_t lames = 0;
  for (std::size_t i = 0; i < 3; ++i)
    lames |= static_cast<std::uint32_t>(static_cast<unsigned char>(trame_[2 + i])) << (8 * i);
  Charger(lames, suites);
}

void LecteurTrames::Conclure16(std::vector<Trame> &suites) {
  const std::string_view ligne(trame_.data(), trame_.size() - 1);
  if (trame_.front() == kEchap || ligne == "RELEASE") {
    charge_ = false;
    suites.push_back({GenreTrame::Relache, 0, {}, {}, position_, 0});
  } else if (ligne == "TEST") {
    suites.push_back({GenreTrame::Essai, 0, {}, {}, position_, 0});
  } else if (trame_.back() == '\r') {
    suites.push_back({GenreTrame::Manuel, 0, {}, std::string(ligne), position_, 0});
  } else if (Commence(ligne, kMotCharger)) {
    Charger(ValeurHexadecimale(ligne.substr(kMotCharger.size() + 3)), suites);
  } else {
    Executer(suites);
  }
}

void LecteurTrames::Charger(std::uint32_t lames, std::vector<Trame> &suites) {
  lames_ = lames;
  charge_ = true;
  suites.push_back({GenreTrame::Chargement, lames, {}, {}, position_, 0});
}

// An execute takes the pattern: a second one without a new load has nothing to apply.
void LecteurTrames::Executer(std::vector<Trame> &suites) {
  if (!charge_) {
    suites.push_back(Faute(static_cast<std::uint8_t>(trame_.back()), "execute without a loaded pattern"));
    return;
  }
  charge_ = false;
  suites.push_back({GenreTrame::Duite, lames_, std::exchange(recus_, {}), {}, position_, 0});
}

Trame LecteurTrames::Faute(std::uint8_t octet, std::string texte) const {
  return {GenreTrame::Faute, 0, {}, std::move(texte), position_, octet};
}
