// The program for patterns: a command line where a verb is given, else a window.
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "app-motifs/Dessinateur.h"
#include "app-motifs/Verbes.h"

namespace {
// The toolkit would end the process instead of saying so.
void ExigerEcran() {
  for (const char *nom : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
    if (const char *valeur = std::getenv(nom); valeur && *valeur) return;
  throw MauvaiseDemande{{"aucun écran pour la fenêtre ; --help nomme ce qui s'en passe.",
                         "no display for the window; --help names what needs none."}};
}

int Lancer(const std::vector<std::string> &mots, Langue langue) {
  const std::string dossier = std::filesystem::read_symlink("/proc/self/exe").parent_path();
  const Demande demande = ComprendreDemande(mots);
  if (demande.verbe == Verbe::Fenetre) {
    ExigerEcran();
    return OuvrirFenetre(dossier, langue, demande.fichiers);
  }
  const int etat = Executer(demande, langue, dossier, std::cout, std::cerr);
  if (!std::cout.flush())
    throw MauvaiseDemande{{"la sortie n'a pas pu être écrite ; le disque est-il plein ?",
                           "the output could not be written; is the disk full?"}};
  return etat;
}
}  // namespace

int main(int nombre, char **mots) {
  const Langue langue = LangueDuBureau();
  try {
    return Lancer({mots + 1, mots + nombre}, langue);
  } catch (const Refus &r) {
    std::cerr << r.En(langue) << "\n";
  } catch (const MauvaiseDemande &d) {
    std::cerr << "brandis-motifs: " << d.texte.En(langue) << "\n";
  } catch (const std::exception &e) {
    std::cerr << "brandis-motifs: " << e.what() << "\n";
  }
  return 2;
}
