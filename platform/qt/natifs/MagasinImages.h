// The pictures of the program and the picture files, each read once.
#pragma once

#include <QImage>
#include <map>
#include <string>
#include <vector>

#include "controls/Surface.h"

class MagasinImages {
 public:
  // Folders that hold `Images/NAME.bmp` or `.png` and picture files; the first that has the picture counts.
  explicit MagasinImages(std::vector<std::string> dossiers) : dossiers_(std::move(dossiers)) {}

  // A picture of the program, read anew and not kept; null when there is none.
  QImage Cherchee(const std::string &nom) const;
  // A picture of the program with its transparency, for what the mirror shows by name; fails with 481.
  const QImage &Nommee(const std::string &nom);
  // The same, null when there is none.
  const QImage &SiTrouvee(const std::string &nom);
  // The same as plain pixels.
  const Surface &Picture(const std::string &nom);
  // The drawing of a picture at twice its size, told so to painters; null when there is none, or when the
  // picture is not the one that it was made beside: a weaver may replace pictures. Read when it is first
  // asked for, and never for a screen of one pixel to each of ours (`echelle` 1).
  QImage Fine(const std::string &nom, double echelle);
  // The same of a picture of Dessins Boutons.
  QImage FineDessin(const std::string &nom, double echelle);
  // The same for pixels that are still those of a picture, nothing drawn upon them.
  QImage FinePour(const Surface &surface, double echelle);
  // A picture file; one that is not in the first folder is looked for at the same place of the others. Fails
  // with 53 or 481. A file that failed is looked at again.
  const Surface &LoadPicture(const std::string &chemin);

 private:
  QImage Prendre(const std::string &nom);
  // Of the first of these files that is there, each named from the folder on.
  QImage ChercherFine(const std::string &nom, const std::vector<std::string> &places) const;
  // The file itself, or where it lies.
  std::string Trouve(const std::string &chemin) const;

  std::vector<std::string> dossiers_;
  std::map<std::string, QImage> nommees_, fines_;
  std::map<std::string, Surface> surfaces_, fichiers_;
};
