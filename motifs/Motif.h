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
constexpr int kDuitesPourLiaison = 1250;                  // picks from which pattern and tabby does not fit
constexpr std::size_t kLieuxMax = 100;                    // places that are kept of one kind

// Harnesses or treadles of one thread: bit n - 1 for number n.
using Lames = std::uint64_t;
constexpr Lames Lame(int n) { return Lames{1} << (n - 1); }
// Numbers 1 to n.
constexpr Lames LamesJusqua(int n) { return n >= kLamesMax ? ~Lames{0} : Lame(n + 1) - 1; }
// The highest number of a set, 0 for none.
int PlusHaute(Lames lames);
// "1,3,16", empty for none.
std::string ListeLames(Lames lames);
// "2-5,10,12": three and more in a row are drawn together.
std::string ListeCourte(Lames lames);

using Couleur = std::uint32_t;  // 0xRRGGBB

// A place in the file or in the cloth. Numbers count from 1, `dernier` included; 0 stands for no place of
// that kind.
struct Lieu {
  int ligne = 0;  // of the file
  int fil = 0, dernierFil = 0, duite = 0, derniereDuite = 0, lame = 0, pedale = 0;
  int suite = 0;  // the pick of the next repeat at which a float over the seam ends
  int cote = 0;   // of a float: 1 above, -1 below

  static Lieu Ligne(int n) { return Avec(&Lieu::ligne, n); }
  static Lieu UneLame(int n) { return Avec(&Lieu::lame, n); }
  static Lieu Duites(int a, int b) {
    Lieu l = Avec(&Lieu::duite, a);
    l.derniereDuite = b;
    return l;
  }
  static Lieu Fils(int a, int b) {
    Lieu l = Avec(&Lieu::fil, a);
    l.dernierFil = b;
    return l;
  }

 private:
  static Lieu Avec(int Lieu::*ou, int n) {
    Lieu l;
    l.*ou = n;
    return l;
  }
};
// "pick 5, ends 2 to 12, above"; the line of the file is left out where there is another place.
Phrase TexteLieu(const Lieu &lieu);

// What the weaver should know: one for each kind of thing, with the first of the places where it is.
struct Constat : Lieu {
  enum Genre {
    SansEntete,
    CleDouble,
    SansEgal,
    ValeurOmise,
    FormesDifferentes,
    ComptesDifferents,
    AuDelaDuCompte,
    PedaleSansAttache,
    TelQuelAutrement,
    LeveAutrement16,
    LeveAutrement24,
    LamesAuDela16,
    LamesAuDela24,
    TropDeDuites,
    TropPourLiaison,
    DuiteAbsente,
    DuiteVide,
    DuiteRepetee,
    FilSansLame,
    LameJamaisLevee,
    FlotteSansFin,
    FlotteChaine,
    FlotteTrame,
    SansEnfilage,
    ToileReunie,
    ToileAReprendre,
    EnfilagesDifferents,
    NonJuge
  };
  Genre genre;
  bool faute;  // comes off the loom otherwise than drawn, or cannot be woven; else a remark
  Phrase texte;
  int longueur = 0;         // of a float, in threads
  long long nombre = 1;     // of them in the pattern
  std::vector<Lieu> lieux;  // the first hundred; none where the whole file is meant

  Constat(Genre g, bool f, Phrase t, const Lieu &ou = {});
};

// Gathers one kind of thing as it is found.
class Recolte {
 public:
  Recolte(Constat::Genre genre, bool faute, Phrase phrase)
      : genre_(genre), faute_(faute), phrase_(std::move(phrase)) {}
  // `fois` of them, in one place.
  void Ajouter(const Lieu &lieu, long long fois = 1);
  bool Vide() const { return nombre_ == 0; }
  // "pick 5: the sentence."; for several places "the sentence: 12, first at pick 5.". `plusieurs` replaces
  // the sentence there.
  Constat Faire(const Phrase &plusieurs = {}) const;

 private:
  Constat::Genre genre_;
  bool faute_;
  Phrase phrase_;
  long long nombre_ = 0;
  std::vector<Lieu> lieux_;
};

// A whole number as it is read: "54 570".
std::string EnGroupes(long long n);

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
  std::vector<Lieu> absentes;          // picks between others that no line names; nothing is lifted there
  std::vector<int> separations;        // empty picks that this program put between repeats, in order
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
