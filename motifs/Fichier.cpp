#include "motifs/Fichier.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

#include "motifs/Arret.h"

namespace {
class Descripteur {
 public:
  explicit Descripteur(int numero) : numero_(numero) {}
  ~Descripteur() { Fermer(); }
  Descripteur(const Descripteur &) = delete;
  Descripteur &operator=(const Descripteur &) = delete;
  operator int() const { return numero_; }
  bool Fermer() { return numero_ < 0 || close(std::exchange(numero_, -1)) == 0; }

 private:
  int numero_;
};

[[noreturn]] void Refuser(const std::string &chemin, const Phrase &quoi, int erreur) {
  const Phrase raison = RaisonSysteme(erreur);
  throw Refus(chemin, 0, {quoi.fr + " : " + raison.fr + ".", quoi.en + ": " + raison.en + "."});
}

const Phrase kIllisible{"ce fichier ne peut être lu", "this file cannot be read"};
const Phrase kTropGrand{"ce fichier dépasse 32 Mo.", "this file is larger than 32 MB."};
const Phrase kInscriptible{"ce fichier ne peut être écrit", "this file cannot be written"};

void ExigerOrdinaire(const std::string &chemin, mode_t mode) {
  if (S_ISREG(mode)) return;
  if (S_ISDIR(mode))
    throw Refus(chemin, 0, {"c'est un dossier, et non un fichier.", "this is a folder, not a file."});
  throw Refus(chemin, 0, {"ce n'est pas un fichier ordinaire.", "this is not an ordinary file."});
}

// Looks at the bytes as they come, so that nothing is kept of what will be refused.
class Controle {
 public:
  explicit Controle(const std::string &chemin) : chemin_(chemin) {}
  void Voir(std::string_view octets) {
    if (std::memchr(octets.data(), 0, octets.size())) {
      ligne_ += Fins(octets.substr(0, octets.find('\0')));
      throw Refus(chemin_, ligne_,
                  {"un octet nul : ce n'est pas un texte.", "a zero byte: this is no text."});
    }
    total_ += octets.size();
    for (std::size_t debut = 0;;) {
      const auto fin = octets.find_first_of("\r\n", debut);
      longueur_ += (fin == std::string_view::npos ? octets.size() : fin) - debut;
      if (longueur_ > kOctetsLigneMax)
        throw Refus(chemin_, ligne_, {"cette ligne dépasse 1 Mo.", "this line is longer than 1 MB."});
      if (fin == std::string_view::npos) break;
      longueur_ = 0;
      const bool suite = octets[fin] == '\n' && (fin > 0 ? octets[fin - 1] == '\r' : retour_);
      if (!suite) ++ligne_;
      debut = fin + 1;
    }
    retour_ = octets.back() == '\r';
    if (total_ > kOctetsMax) throw Refus(chemin_, ligne_, kTropGrand);
  }

 private:
  static int Fins(std::string_view octets) {
    return static_cast<int>(std::count(octets.begin(), octets.end(), '\n'));
  }
  const std::string &chemin_;
  std::size_t total_ = 0, longueur_ = 0;
  int ligne_ = 1;
  bool retour_ = false;  // the last octet seen was CR: a LF right behind ends no further line
};

void ToutEcrire(int descripteur, std::string_view octets, const std::string &chemin) {
  while (!octets.empty()) {
    const ssize_t n = write(descripteur, octets.data(), octets.size());
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) Refuser(chemin, kInscriptible, errno);
    octets.remove_prefix(static_cast<std::size_t>(n));
  }
}

// 0, or the errno of the failure.
int Deplacer(const std::string &provisoire, const std::string &chemin, bool remplacer) {
  if (remplacer) return rename(provisoire.c_str(), chemin.c_str()) == 0 ? 0 : errno;
  if (renameat2(AT_FDCWD, provisoire.c_str(), AT_FDCWD, chemin.c_str(), RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS) return errno;
  // A file system that cannot refuse in the move can refuse to link.
  return link(provisoire.c_str(), chemin.c_str()) == 0 ? 0 : errno;
}

template <class F>
std::string Lire(const std::string &chemin, F &&voir) {
  // A pipe without a writer would hold the opening up for ever.
  const Descripteur fichier(open(chemin.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  struct stat infos {};
  if (fichier < 0 || fstat(fichier, &infos) != 0) Refuser(chemin, kIllisible, errno);
  ExigerOrdinaire(chemin, infos.st_mode);

  std::string octets;
  octets.reserve(std::min(static_cast<std::size_t>(infos.st_size), kOctetsMax) + 1);
  for (char tampon[64 * 1024];;) {
    const ssize_t n = read(fichier, tampon, sizeof tampon);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) Refuser(chemin, kIllisible, errno);
    if (n == 0) return octets;
    Souffler();
    const std::string_view lus(tampon, static_cast<std::size_t>(n));
    voir(lus);
    octets += lus;
  }
}

// Removes the file beside the target whatever happens.
struct Provisoire {
  std::string chemin;
  ~Provisoire() { unlink(chemin.c_str()); }
};
}  // namespace

Phrase RaisonSysteme(int errnoValeur) {
  switch (errnoValeur) {
    case ENOENT:
      return {"il n'existe pas, ou son dossier", "there is no such file or folder"};
    case EACCES:
    case EPERM:
      return {"les droits manquent", "permission is denied"};
    case ENOSPC:
      return {"le disque est plein", "the disk is full"};
    case EROFS:
      return {"le disque n'accepte aucune écriture", "the disk takes no writing"};
    case ENAMETOOLONG:
      return {"son nom est trop long", "its name is too long"};
    case ENXIO:
      return {"personne n'est à l'autre bout", "nobody is at the other end"};
    default:
      break;
  }
  const std::string texte = std::generic_category().message(errnoValeur);
  return {texte, texte};
}

DejaLa::DejaLa(const std::string &chemin)
    : Refus(chemin, 0,
            {"ce fichier existe déjà (--remplacer pour le remplacer).",
             "this file is there already (--replace writes over it)."}) {}

std::string LireFichier(const std::string &chemin) {
  Controle controle(chemin);
  return Lire(chemin, [&](std::string_view octets) { controle.Voir(octets); });
}

std::string LireBrut(const std::string &chemin) {
  std::size_t total = 0;
  return Lire(chemin, [&](std::string_view octets) {
    if ((total += octets.size()) > kOctetsMax) throw Refus(chemin, 0, kTropGrand);
  });
}

void VerifierCible(const std::string &chemin, bool remplacer) {
  struct stat infos {};
  if (lstat(chemin.c_str(), &infos) != 0) {
    if (errno != ENOENT) Refuser(chemin, kInscriptible, errno);
    return;
  }
  if (!S_ISLNK(infos.st_mode)) ExigerOrdinaire(chemin, infos.st_mode);
  if (!remplacer) throw DejaLa(chemin);
}

void ExigerAutreFichier(const std::string &source, const std::string &cible) {
  struct stat a {
  }, b{};
  if (stat(source.c_str(), &a) != 0 || stat(cible.c_str(), &b) != 0) return;
  if (a.st_dev == b.st_dev && a.st_ino == b.st_ino)
    throw Refus(cible, 0,
                {"c'est le fichier lu ; son attachage et son pédalage seraient perdus. Écrire ailleurs.",
                 "this is the file that is read; its tie-up and treadling would be lost. Write elsewhere."});
}

void EcrireFichier(const std::string &chemin, std::string_view octets, bool remplacer) {
  VerifierCible(chemin, remplacer);
  const std::filesystem::path cible(chemin);
  const std::string dossier = cible.has_parent_path() ? cible.parent_path().string() : ".";
  std::string modele = dossier + "/.motif-XXXXXX";
  Descripteur fichier(mkostemp(modele.data(), O_CLOEXEC));
  if (fichier < 0) Refuser(chemin, kInscriptible, errno);
  const Provisoire provisoire{modele};

  ToutEcrire(fichier, octets, chemin);
  const mode_t masque = umask(0);
  umask(masque);
  if (fchmod(fichier, 0666 & ~masque) != 0 || fsync(fichier) != 0 || !fichier.Fermer())
    Refuser(chemin, kInscriptible, errno);
  if (const int erreur = Deplacer(modele, chemin, remplacer); erreur == EEXIST)
    throw DejaLa(chemin);
  else if (erreur != 0)
    Refuser(chemin, kInscriptible, erreur);
  // The name has to outlive a power cut too; where a folder cannot be synced, the file system does it.
  const Descripteur parent(open(dossier.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (parent >= 0) fsync(parent);
}
