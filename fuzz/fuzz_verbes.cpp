// Any pattern under any verb: what the verbs reckon of it, write of it and draw of it holds beside the
// pattern. The last bytes of the input choose the verb and its settings, so that every pattern file is an
// input.
#include <fuzzer/FuzzedDataProvider.h>

#include "app-motifs/Demande.h"
#include "app-motifs/dessin/Dessin.h"
#include "fuzz/Relecture.h"
#include "motifs/Assemblage.h"
#include "motifs/Constats.h"
#include "motifs/CouleursTrame.h"
#include "motifs/Flottes.h"
#include "motifs/Projet16.h"
#include "motifs/Ramener.h"

namespace {
class Epreuve {
 public:
  Epreuve(FuzzedDataProvider &choix, const Motif &motif)
      : c_(choix), m_(motif), lames_(choix.ConsumeBool() ? kLamesMetier : kLamesPetitMetier) {}

  void Faire() {
    switch (c_.ConsumeIntegralInRange(0, 7)) {
      case 0:
        return Convertir();
      case 1:
        return Verifier();
      case 2:
        return Dessiner();
      case 3:
        return Assembler();
      case 4:
        return Enfilage();
      case 5:
        return Ramener();
      case 6:
        return Projet16();
      case 7:
        return Lire();
    }
  }

 private:
  int De(int premier, int dernier) { return c_.ConsumeIntegralInRange(premier, dernier); }
  Langue UneLangue() { return c_.ConsumeBool() ? Langue::Francais : Langue::Anglais; }

  void Convertir() { Relire(FormeTissable(m_), m_.foules); }

  void Verifier() {
    const auto tout = ::Verifier(m_, De(1, 40), lames_), fautes = Fautes(m_, lames_);
    // What is said before writing is what the whole check calls faults.
    Exiger(ContientFaute(tout) == !fautes.empty());
    for (const Constat &c : tout) {
      Exiger(!c.texte.fr.empty() && !c.texte.en.empty() && c.nombre >= 1);
      NomGenre(c.genre);
      for (const Lieu &l : c.lieux) {
        TexteLieu(l);
        Exiger(l.duite <= kFilsMax && l.fil <= m_.Fils());
      }
    }
    TexteToile(ToileDe(m_));
    TexteReprise(m_);
  }

  void Dessiner() {
    ReglagesDessin r;
    r.planche.structure = c_.ConsumeBool() || CouleursMuettes(m_);
    r.planche.enHaut = c_.ConsumeBool();
    r.planche.reprises = De(1, 2);
    if (c_.ConsumeBool()) r.planche.fils = {De(1, 20), De(20, 60)};
    r.cote = De(1, 40) / 2.0;
    const Planche planche(m_, r.planche);
    // Drawing takes its time with the size alone.
    if (planche.Largeur() > 150 || planche.Hauteur() > 150) return;
    for (const char *nom : {"a.png", "a.svg"}) Exiger(!::Dessiner(m_, nom, r, UneLangue()).empty());
    if (De(0, 7) == 0) Exiger(!::Dessiner(m_, "a.pdf", r, UneLangue()).empty());
  }

  void Assembler() {
    std::vector<Piece> pieces;
    std::vector<Lames> foules;
    const bool separer = c_.ConsumeBool();
    for (int n = De(1, 3); n > 0; --n) {
      const int debut = De(1, std::max(1, m_.Duites()));
      pieces.push_back({Extraire(m_, {debut, De(debut, kFilsMax)}), De(1, 3)});
      for (int i = 0; i < pieces.back().fois; ++i) {
        if (separer && !foules.empty()) foules.push_back(0);
        foules.insert(foules.end(), m_.foules.begin() + debut - 1,
                      m_.foules.begin() + debut - 1 + pieces.back().motif.Duites());
      }
    }
    ComparerChaines(pieces);
    Exiger(Relire(::Assembler(pieces, separer), foules).enfilage == m_.enfilage);
  }

  void Enfilage() {
    const int groupe = De(1, 8);
    std::vector<Lames> foules(static_cast<std::size_t>((m_.Fils() + groupe - 1) / groupe));
    for (int f = 0; f < m_.Fils(); ++f)
      foules[static_cast<std::size_t>(f / groupe)] |= m_.enfilage[static_cast<std::size_t>(f)];
    Relire(EnfilageTissable(m_, groupe, UneLangue()), foules);
  }

  // The cloth of the new file as the loom raises it, told here by what a harness moves with: not by the
  // program's own reckoning.
  void Ramener() {
    const bool empeche = !EmpechementARamener(m_, lames_).en.empty();
    const Ramene r = ::Ramener(m_, lames_);
    Exiger(!r.change || !empeche);
    const Motif neuf = Relire(FormeSurEnfilage(m_, r.enfilage, r.foules, r.lames), r.foules);
    Exiger(neuf.enfilage == r.enfilage && neuf.Fils() == m_.Fils());
    const int sortent = lames_ - 8;
    for (int d = 0; d < m_.Duites(); ++d)
      for (int f = 0; f < m_.Fils() && m_.FilLeve(f, d) != neuf.FilLeve(f, d); ++f) std::abort();
    for (Lames foule : neuf.foules) {
      Lames levees = 0;
      for (int l = 1; l <= lames_; ++l)
        if (foule & Lame(l > sortent ? l - sortent : l)) levees |= Lame(l);
      Exiger((levees & LamesEnUsage(neuf)) == (foule & LamesEnUsage(neuf)));
    }
  }

  void Projet16() {
    const ReglagesProjet r{De(0, 4), De(1, 3), De(1, kDuitesMetier)};
    const auto projet =
        ComposerProjet16(m_, "/data/a.wif", 45000, c_.ConsumeBytesAsString(c_.ConsumeBool() ? 20 : 0), r);
    Exiger(projet.entete.size() == 281 && projet.lignes.size() == 70 * static_cast<std::size_t>(m_.Duites()));
  }

  // What else is told of a pattern, and words of a command line.
  void Lire() {
    FeuilleCouleurs(m_, UneLangue());
    static const char *const mots[] = {"convert",   "verifier",    "dessiner", "join",     "fit",
                                       "projet16",  "colours",     "-o",       "--to",     "--picks",
                                       "1-24",      "--option=3",  "--lames",  "16",       "--view",
                                       "structure", "--help",      "--",       "x3",       "-x",
                                       "--json",    "a.wif[2-5]",  "--cote",   "2,5",      "--float=9",
                                       "--ends",    "--repeats=2", "--on-top", "--pick=7", "--group"};
    std::vector<std::string> ligne;
    for (int n = De(0, 6); n > 0; --n)
      ligne.push_back(c_.ConsumeBool() ? c_.PickValueInArray(mots) : c_.ConsumeRandomLengthString(12));
    try {
      const Demande d = ComprendreDemande(ligne);
      Exiger(!TexteAide(UneLangue(), d.aide).empty());
    } catch (const MauvaiseDemande &m) {
      Exiger(!m.texte.fr.empty() && !m.texte.en.empty());
    }
  }

  FuzzedDataProvider &c_;
  const Motif &m_;
  const int lames_;
};
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *octets, std::size_t nombre) {
  constexpr std::size_t kChoix = 24;
  const std::size_t texte = nombre > kChoix ? nombre - kChoix : nombre;
  FuzzedDataProvider choix(octets + texte, nombre - texte);
  try {
    const Motif motif = ComprendreMotif({reinterpret_cast<const char *>(octets), texte}, "motif.wif");
    Epreuve(choix, motif).Faire();
  } catch (const Refus &r) {
    Exiger(!r.Texte().fr.empty() && !r.Texte().en.empty());
  }
  return 0;
}
