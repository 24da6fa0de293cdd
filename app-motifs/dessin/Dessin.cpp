#include "app-motifs/dessin/Dessin.h"

#include <filesystem>

#include "app-motifs/dessin/ImagePng.h"
#include "app-motifs/dessin/Papier.h"

std::string Dessiner(const Motif &motif, const std::string &nom, Langue langue) {
  const std::string fin = std::filesystem::path(nom).extension();
  if (MemeMot(fin, ".png")) return EnPng(Planche(motif));
  if (MemeMot(fin, ".svg")) return EnSvg(motif, langue);
  if (MemeMot(fin, ".pdf")) return EnPdf(motif, langue);
  throw Refus(nom, 0, {"une image finit en .png, .svg ou .pdf.", "a picture ends in .png, .svg or .pdf."});
}
