#include "app-motifs/dessin/Dessin.h"

#include <filesystem>

#include "app-motifs/dessin/ImagePng.h"
#include "app-motifs/dessin/Papier.h"

std::string Dessiner(const Motif &motif, const std::string &nom, const ReglagesDessin &reglages,
                     Langue langue) {
  const std::string fin = std::filesystem::path(nom).extension();
  if (MemeMot(fin, ".png")) return EnPng(Planche(motif, reglages.planche));
  if (MemeMot(fin, ".svg")) return EnSvg(Planche(motif, reglages.planche), langue);
  if (MemeMot(fin, ".pdf")) return EnPdf(Planche(motif, reglages.planche), reglages.cote, langue);
  throw Refus(nom, 0, {"une image finit en .png, .svg ou .pdf.", "a picture ends in .png, .svg or .pdf."});
}

void ExigerPixels(const Motif &motif, long long largeur, long long hauteur) {
  if (largeur * hauteur <= kPixelsImageMax) return;
  const std::string n = std::to_string((largeur * hauteur + 999'999) / 1'000'000);
  throw Refus(
      motif.chemin, 0,
      {n + " millions de cases : une image en a 40 au plus ; --duites et --fils en dessinent une partie.",
       n + " million cells: a picture has at most 40; --picks and --ends draw a part."});
}
