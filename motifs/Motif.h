// A pattern as a weaver sees it: ends on harnesses, the shed of each pick, colours, and what is odd about the
// file.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "motifs/Phrase.h"
#include "motifs/Sections.h"

constexpr int kFilsMax = 32767;                           // ends, picks and treadles that are read
constexpr int kLamesMax = 64;                             // harnesses that are read
constexpr int kLamesMetier = 24, kLamesPetitMetier = 16;  // of the two looms
constexpr int kDuitesMetier = 2500;                       // picks that Open takes

// Harnesses or treadles of one thread: bit n - 1 for number n.
using Lames = std::uint64_t;
constexpr Lames Lame(int n) { return Lames{1} << (n - 1); }
// Numbers 1 to n.
constexpr Lames LamesJusqua(int n) { return n >= kLamesMax ? ~Lames{0} : Lame(n + 1) - 1; }
// The highest number of a set, 0 for none.
int PlusHaute(Lames lames);
// "1,3,16", empty for none.
std::string ListeLames(Lames lames);

using Couleur = std::uint32_t;  // 0xRRGGBB

// What the weaver should know. Places count from 1, `dernier` included; 0 stands for no place of that kind.
struct Constat {
  enum Genre {
    SansEntete,
    CleDouble,
    FormesDifferentes,
    ComptesDifferents,
    LamesAuDela16,
    LamesAuDela24,
    TropDeDuites,
    DuiteVide,
    DuiteRepetee,
    FilSansLame,
    LameJamaisLevee,
    FlotteChaine,
    FlotteTrame,
    SansEnfilage,
    EnfilagesDifferents,
    Autres
  };
  Genre genre;
  bool faute;  // else a remark
  Phrase texte;
  int ligne = 0;  // of the file
  int fil = 0, dernierFil = 0, duite = 0, derniereDuite = 0, lame = 0;
  int longueur = 0;  // of a float, in threads
};

struct Motif {
  std::string chemin;
  std::shared_ptr<const std::string> octets;  // the file as it was read; the sections look into it
  std::vector<Section> sections;

  std::string titre, auteur, programme, version;  // UTF-8
  int lames = 0;                                  // declared or used, the larger
  int pedales = 0;                                // the same
  bool liftplan = false;
  bool baissante = false;              // the file tells the harnesses that sink
  std::vector<Lames> enfilage;         // harnesses of each end, from end 1; empty when the file has none
  std::vector<Lames> foules;           // harnesses that rise, from pick 1
  std::vector<Lames> attaches;         // harnesses that rise with each treadle; empty for a lift plan alone
  std::vector<Lames> pedalage;         // treadles of each pick; empty for a lift plan or beyond 64 treadles
  std::vector<Couleur> chaine, trame;  // of each end and each pick
  bool extrait = false;                // a part: title and weft are no longer those of the sections
  std::vector<Constat> constats;       // what reading found

  // Every key of every section of that name, in the order of the file.
  template <class F>
  void PourChaqueCle(std::string_view nom, F &&faire) const {
    for (const Section &s : sections) {
      if (!MemeMot(s.nom, nom)) continue;
      Lignes lignes(s.texte, s.ligne + 1);
      for (LigneCle cle; CleSuivante(lignes, cle);) faire(cle);
    }
  }
  int Fils() const { return static_cast<int>(enfilage.size()); }
  int Duites() const { return static_cast<int>(foules.size()); }
  bool FilLeve(int fil, int duite) const {  // from 0
    return (enfilage[static_cast<std::size_t>(fil)] & foules[static_cast<std::size_t>(duite)]) != 0;
  }
};
