#include "saved/FichierOuvert.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "base/ErreurSysteme.h"

namespace {
constexpr int kSansDetour = O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;  // a pipe must not be waited for
constexpr mode_t kDroits = 0666;

std::string Dossier(const std::string &chemin) {
  const auto barre = chemin.rfind('/');
  return barre == std::string::npos ? "." : chemin.substr(0, barre);
}

// A folder that is missing, rather than the file in it, is told as such.
[[noreturn]] void LeverPourChemin(const std::string &chemin, int erreur) {
  struct stat infos {};
  if (erreur == ENOENT && stat(Dossier(chemin).c_str(), &infos) != 0) LeverErreurSysteme(ENOTDIR);
  LeverErreurSysteme(erreur);
}

void Exiger(int resultat) {
  if (resultat != 0) LeverErreurSysteme(errno);
}

mode_t Droits(const std::string &chemin) {
  struct stat infos {};
  if (lstat(chemin.c_str(), &infos) != 0) LeverPourChemin(chemin, errno);
  return infos.st_mode;
}

// Some file systems cannot flush a folder, and need not.
void SynchroniserDescripteur(int descripteur) {
  if (fsync(descripteur) != 0 && errno != EINVAL && errno != ENOTSUP) LeverErreurSysteme(errno);
}

void EcrireNeuf(const std::string &chemin, const std::string &contenu, mode_t droits) {
  Oter(chemin);
  FichierOuvert neuf(chemin, O_WRONLY | O_CREAT | O_EXCL);
  // Where rights are not to be had, the contents count.
  static_cast<void>(droits == 0 ? 0 : chmod(chemin.c_str(), droits));
  neuf.Ecrire(0, contenu);
  neuf.Synchroniser();
  neuf.Fermer();
}
}  // namespace

FichierOuvert::FichierOuvert(const std::string &chemin, int mode)
    : descripteur_(open(chemin.c_str(), mode | kSansDetour, kDroits)) {
  if (descripteur_ < 0) LeverPourChemin(chemin, errno);
  struct stat infos {};
  const int erreur = fstat(descripteur_, &infos) != 0 ? errno : S_ISREG(infos.st_mode) ? 0 : EISDIR;
  if (erreur == 0) return;
  close(descripteur_);
  LeverErreurSysteme(erreur);
}

FichierOuvert::~FichierOuvert() {
  if (descripteur_ >= 0) close(descripteur_);
}

long FichierOuvert::Taille() const {
  struct stat infos {};
  Exiger(fstat(descripteur_, &infos));
  return static_cast<long>(infos.st_size);
}

std::string FichierOuvert::Lire(long place, long taille) const {
  std::string octets(static_cast<std::size_t>(taille), '\0');
  std::size_t lus = 0;
  while (lus < octets.size()) {
    const ssize_t r =
        pread(descripteur_, octets.data() + lus, octets.size() - lus, place + static_cast<off_t>(lus));
    if (r < 0 && errno == EINTR) continue;
    if (r < 0) LeverErreurSysteme(errno);
    if (r == 0) break;
    lus += static_cast<std::size_t>(r);
  }
  octets.resize(lus);
  return octets;
}

void FichierOuvert::Ecrire(long place, const std::string &octets) {
  std::size_t ecrits = 0;
  while (ecrits < octets.size()) {
    const ssize_t r = pwrite(descripteur_, octets.data() + ecrits, octets.size() - ecrits,
                             place + static_cast<off_t>(ecrits));
    if (r < 0 && errno == EINTR) continue;
    if (r <= 0) LeverErreurSysteme(r < 0 ? errno : ENOSPC);
    ecrits += static_cast<std::size_t>(r);
  }
}

void FichierOuvert::Couper(long taille) { Exiger(ftruncate(descripteur_, taille)); }

void FichierOuvert::Synchroniser() { SynchroniserDescripteur(descripteur_); }

void FichierOuvert::Fermer() {
  const int descripteur = descripteur_;
  descripteur_ = -1;  // whatever the close says, it is not to be closed again
  if (close(descripteur) != 0 && errno != EINTR) LeverErreurSysteme(errno);
}

bool Existe(const std::string &chemin) {
  struct stat infos {};
  if (lstat(chemin.c_str(), &infos) == 0) return true;
  if (errno == ENOENT || errno == ENOTDIR) return false;
  LeverErreurSysteme(errno);
}

bool EstFichierOrdinaire(const std::string &chemin) { return S_ISREG(Droits(chemin)); }

std::optional<std::string> LireContenu(const std::string &chemin) {
  if (!Existe(chemin)) return std::nullopt;
  const FichierOuvert fichier(chemin, O_RDONLY);
  return fichier.Lire(0, fichier.Taille());
}

void RemplacerContenu(const std::string &chemin, const std::string &contenu) {
  const std::string neuf = chemin + ".neuf";
  try {
    EcrireNeuf(neuf, contenu, Existe(chemin) ? Droits(chemin) & 07777 : 0);
    Renommer(neuf, chemin);
  } catch (...) {
    unlink(neuf.c_str());
    throw;
  }
  SynchroniserDossierDe(chemin);
}

void RemettreContenu(const std::string &chemin, const std::optional<std::string> &contenu) {
  if (!contenu) return Oter(chemin);
  if (Existe(chemin) && EstLectureSeule(chemin)) OterLectureSeule(chemin);
  FichierOuvert fichier(chemin, O_WRONLY | O_CREAT);
  fichier.Ecrire(0, *contenu);
  fichier.Couper(static_cast<long>(contenu->size()));
  fichier.Synchroniser();
  fichier.Fermer();
}

void SynchroniserFichier(const std::string &chemin) {
  FichierOuvert fichier(chemin, O_RDONLY);
  fichier.Synchroniser();
  fichier.Fermer();
}

void SynchroniserDossierDe(const std::string &chemin) {
  const int descripteur = open(Dossier(chemin).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descripteur < 0) LeverErreurSysteme(errno);
  try {
    SynchroniserDescripteur(descripteur);
  } catch (...) {
    close(descripteur);
    throw;
  }
  Exiger(close(descripteur));
}

void Renommer(const std::string &ancien, const std::string &nouveau) {
  Exiger(rename(ancien.c_str(), nouveau.c_str()));
}

void Oter(const std::string &chemin) {
  if (unlink(chemin.c_str()) != 0 && errno != ENOENT) LeverErreurSysteme(errno);
}

bool EstLectureSeule(const std::string &chemin) { return (Droits(chemin) & S_IWUSR) == 0; }

void OterLectureSeule(const std::string &chemin) {
  const mode_t droits = Droits(chemin);
  if (S_ISLNK(droits)) LeverErreurSysteme(ELOOP);
  Exiger(chmod(chemin.c_str(), (droits | S_IWUSR) & 07777));
}
