#include "app-motifs/Demande.h"

namespace {
constexpr const char *kFrancais =
    R"(brandis-motifs : les motifs de tout tisserand, prêts pour Brandis.

  brandis-motifs [FICHIER…]                 ouvre la fenêtre
  brandis-motifs convertir FICHIER… [--vers DOSSIER] [--remplacer]
      écrit la forme que Brandis tisse, sans --vers parmi ses motifs
  brandis-motifs verifier FICHIER… [--flotte N] [--json]
      dit ce qui cloche, une constatation par ligne ; flottés de plus de N (7)
  brandis-motifs dessiner FICHIER -o IMAGE.png|.svg|.pdf [--remplacer]
      dessine l'enfilage, l'attachage ou le plan de levée, le pédalage et le tissu ;
      --vue couleurs|structure ; --reprises 2 : deux fois dans chaque sens ;
      --en-haut : la première duite en haut ; --cote 4 : mm par fil en PDF ;
      --duites A-B, --fils A-B : une partie
  brandis-motifs assembler A.wif x2 B.wif x10 … -o C.wif [--separer] [--remplacer]
      met des sections bout à bout ; --separer : une duite vide entre les reprises
  brandis-motifs enfilage FICHIER -o X.wif [--groupe N] [--remplacer]
      fait lever au métier la lame des N (1 à 8) fils suivants à enfiler
  brandis-motifs projet16 FICHIER [--port N] [--vers DOSSIER] [--remplacer]
      fait le projet enregistré avec lequel commence un métier de 16 lames
  brandis-motifs info FICHIER [--json]
      titre, auteur, programme d'origine, tailles

  FICHIER[1-2400] ou --duites 1-2400 : ces duites d'une longue pièce
  --remplacer   écrit sur un fichier qui est déjà là
  --help        ce texte          --version     la version

Résultat : 0 bien, 1 une faute constatée (verifier), 2 un fichier refusé.
)";
constexpr const char *kAnglais =
    R"(brandis-motifs: any weaver's patterns, ready for Brandis.

  brandis-motifs [FILE…]                    opens the window
  brandis-motifs convertir FILE… [--vers DIR] [--remplacer]
      writes the form that Brandis weaves, without --vers among its patterns
  brandis-motifs verifier FILE… [--flotte N] [--json]
      tells what is wrong, one finding a line; floats longer than N (7)
  brandis-motifs dessiner FILE -o PICTURE.png|.svg|.pdf [--remplacer]
      draws threading, tie-up or lift plan, treadling and cloth;
      --vue colours|structure; --reprises 2: twice each way;
      --en-haut: the first pick above; --cote 4: mm a thread in PDF;
      --duites A-B, --fils A-B: a part
  brandis-motifs assembler A.wif x2 B.wif x10 … -o C.wif [--separer] [--remplacer]
      strings sections together; --separer puts an empty pick between repeats
  brandis-motifs enfilage FILE -o X.wif [--groupe N] [--remplacer]
      has the loom raise the harness of the next N (1 to 8) ends to be threaded
  brandis-motifs projet16 FILE [--port N] [--vers DIR] [--remplacer]
      makes the saved project with which a 16-harness loom begins
  brandis-motifs info FILE [--json]
      title, author, source program, sizes

  FILE[1-2400] or --duites 1-2400: these picks of a long piece
  --remplacer   writes over a file that is there
  --help        this text         --version     the version

Exit status: 0 good, 1 a fault was found (verifier), 2 a file was refused.
)";
}  // namespace

std::string TexteAide(Langue langue) { return langue == Langue::Francais ? kFrancais : kAnglais; }
