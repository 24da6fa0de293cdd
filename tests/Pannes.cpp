#include "tests/Pannes.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>

namespace {
bool arme = false;
std::string vus;
std::size_t voulu = 0;
Pannes::Panne panne;
bool moitieEcrite = false;  // the next call is the one that fails

using Pannes::Panne;

// Whether this call fails.
bool Tombe(char lettre = '.') {
  if (!arme) return false;
  vus += lettre;
  const bool ici = vus.size() == voulu;
  if (ici && panne == Panne::Mort) raise(SIGKILL);
  const bool tombe = ici || (panne == Panne::DesLors && voulu > 0 && vus.size() > voulu);
  if (tombe) errno = vus.size() % 2 ? EIO : ENOSPC;
  return tombe;
}
}  // namespace

void Pannes::Armer(long n, Panne g) {
  arme = true;
  moitieEcrite = false;
  vus.clear();
  voulu = static_cast<std::size_t>(n);
  panne = g;
}

std::string Pannes::Desarmer() {
  arme = false;
  return vus;
}

#define APPEL(nom, parametres, arguments) \
  int __real_##nom parametres;            \
  int __wrap_##nom parametres { return Tombe() ? -1 : __real_##nom arguments; }

extern "C" {
APPEL(stat, (const char *chemin, struct stat *infos), (chemin, infos))
APPEL(lstat, (const char *chemin, struct stat *infos), (chemin, infos))
APPEL(fstat, (int d, struct stat *infos), (d, infos))
APPEL(ftruncate, (int d, off_t taille), (d, taille))
APPEL(rename, (const char *ancien, const char *nouveau), (ancien, nouveau))
APPEL(unlink, (const char *chemin), (chemin))
APPEL(chmod, (const char *chemin, mode_t droits), (chemin, droits))

// Nothing here outlives the machine, so nothing need reach the disk, which may be busy.
int __wrap_fsync(int) { return Tombe() ? -1 : 0; }

APPEL(fchmod, (int d, mode_t droits), (d, droits))
APPEL(mkostemp, (char *modele, int mode), (modele, mode))
APPEL(renameat2, (int a, const char *ancien, int b, const char *nouveau, unsigned drapeaux),
      (a, ancien, b, nouveau, drapeaux))

int __real_open(const char *chemin, int mode, ...);
int __wrap_open(const char *chemin, int mode, ...) {
  va_list reste;
  va_start(reste, mode);
  const mode_t droits = mode & O_CREAT ? va_arg(reste, mode_t) : 0;
  va_end(reste);
  return Tombe() ? -1 : __real_open(chemin, mode, droits);
}

int __real_close(int d);
int __wrap_close(int d) {
  const bool tombe = Tombe();
  const int erreur = errno, resultat = __real_close(d);
  errno = erreur;
  return tombe ? -1 : resultat;
}

ssize_t __real_pread(int d, void *octets, std::size_t taille, off_t place);
ssize_t __wrap_pread(int d, void *octets, std::size_t taille, off_t place) {
  return Tombe() ? -1 : __real_pread(d, octets, taille, place);
}

// Whether this write is the one that is cut in half, and the half of it.
bool CoupeIci() {
  const bool coupe = panne == Panne::Partielle || panne == Panne::Coupee || panne == Panne::Courte;
  return arme && coupe && !moitieEcrite && vus.size() + 1 == voulu;
}
ssize_t Moitie(ssize_t ecrits) {
  if (panne == Panne::Coupee) raise(SIGKILL);
  moitieEcrite = true;
  vus += 'w';
  voulu = panne == Panne::Courte ? 0 : voulu + 1;
  return ecrits;
}

ssize_t __real_pwrite(int d, const void *octets, std::size_t taille, off_t place);
ssize_t __wrap_pwrite(int d, const void *octets, std::size_t taille, off_t place) {
  if (CoupeIci()) return Moitie(__real_pwrite(d, octets, (taille + 1) / 2, place));
  return Tombe('w') ? -1 : __real_pwrite(d, octets, taille, place);
}

ssize_t __real_write(int d, const void *octets, std::size_t taille);
ssize_t __wrap_write(int d, const void *octets, std::size_t taille) {
  if (CoupeIci()) return Moitie(__real_write(d, octets, (taille + 1) / 2));
  return Tombe() ? -1 : __real_write(d, octets, taille);
}
}
