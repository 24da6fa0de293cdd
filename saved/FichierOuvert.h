// Files under the hand of the system's own calls: opened without following links, every step checked down to
// the flush and the close. All fail with 53, 57, 61, 70, 75 or 76.
#pragma once

#include <optional>
#include <string>

class FichierOuvert {
 public:
  // `mode` as open takes it. A link, a folder, a pipe or a device is refused.
  FichierOuvert(const std::string &chemin, int mode);
  ~FichierOuvert();  // closes and says nothing
  FichierOuvert(const FichierOuvert &) = delete;
  FichierOuvert &operator=(const FichierOuvert &) = delete;

  long Taille() const;  // bytes
  // At most `taille` bytes from `place` on; fewer only at the end of the file.
  std::string Lire(long place, long taille) const;
  void Ecrire(long place, const std::string &octets);
  void Couper(long taille);
  // Down to the disk.
  void Synchroniser();
  // The close whose failure counts.
  void Fermer();

 private:
  int descripteur_;
};

// Whether something of that name stands there, and whether it is a file and no link, folder or device.
bool Existe(const std::string &chemin);
bool EstFichierOrdinaire(const std::string &chemin);
// The whole file; nothing when there is none.
std::optional<std::string> LireContenu(const std::string &chemin);
// Writes beside the file, flushes, and renames over it, keeping the rights of the old one: the file is the
// old or the new one at every moment.
void RemplacerContenu(const std::string &chemin, const std::string &contenu);
// Writes over the file as it stands, which asks for no room that it had not, and flushes; nothing deletes it.
void RemettreContenu(const std::string &chemin, const std::optional<std::string> &contenu);

// A file, and what stands in a folder, down to the disk.
void SynchroniserFichier(const std::string &chemin);
void SynchroniserDossierDe(const std::string &chemin);
void Renommer(const std::string &ancien, const std::string &nouveau);
// A file that is not there is as good as deleted.
void Oter(const std::string &chemin);

// The owner's write bit, which a link does not have. Attributes 0 sets it.
bool EstLectureSeule(const std::string &chemin);
void OterLectureSeule(const std::string &chemin);
