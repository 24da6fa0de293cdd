#include "pattern/LignesFichier.h"

#include <cerrno>

#include "base/ErreurSysteme.h"

namespace {
constexpr std::size_t kTampon = 64 * 1024;  // bytes
}

LignesFichier::LignesFichier(const std::string &chemin) : fichier_(std::fopen(chemin.c_str(), "rb")) {
  if (!fichier_) LeverErreurSysteme(errno);
}

bool LignesFichier::Remplir() {
  tampon_.resize(kTampon);
  tampon_.resize(std::fread(tampon_.data(), 1, kTampon, fichier_.get()));
  place_ = 0;
  if (tampon_.empty() && std::ferror(fichier_.get())) LeverErreurSysteme(errno);
  return !tampon_.empty();
}

bool LignesFichier::Lire(std::string &ligne) {
  ligne.clear();
  for (bool commencee = false;;) {
    if (place_ == tampon_.size() && !Remplir()) return commencee;
    if (retourVu_ && tampon_[place_] == '\n') {
      retourVu_ = false;
      ++place_;
      continue;
    }
    retourVu_ = false;
    commencee = true;
    const auto fin = tampon_.find_first_of("\r\n", place_);
    if (fin == std::string::npos) {
      ligne.append(tampon_, place_);
      place_ = tampon_.size();
      continue;
    }
    ligne.append(tampon_, place_, fin - place_);
    retourVu_ = tampon_[fin] == '\r';
    place_ = fin + 1;
    return true;
  }
}
