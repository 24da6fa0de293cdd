// The frame painter: grounds, frames, button faces and titles of every window, on the system's own pixels.
// Sizes are pixels unless told otherwise. Every routine leaves the surface's scale mode as it found it. Those
// that set pictures fail with 481 where one is missing, those that count twips with 6 beyond 16 bits.
#pragma once

#include <string>

#include "base/Entier.h"
#include "base/Table.h"
#include "controls/Controles.h"

// Working values of one paint at a time, set by the routine or the caller that needs them.
struct ReglagesPeinture {
  Echelle EchelleSauvegardee = Echelle::Twips;
  Table<std::string, 100> RampeCouleurs;         // "red/green\blue", decimal
  Entier StyleCadreRemarque;                     // 1 sets the corner pictures into the remark frame
  Booleen BoutonAvecImage;                       // the button bears a picture at its left
  Entier BoutonTexteDecale, BoutonTexteDecale2;  // twips, sideways, first and second line
  Entier DegradeRougeDebut, DegradeRougeFin, DegradeVertDebut, DegradeVertFin, DegradeBleuDebut,
      DegradeBleuFin;
  Booleen DegradeVertical;
  Surface FaceGardee;  // face of the hovered button as it was
};
extern ReglagesPeinture reglages;

// Paints in pixels for as long as it lives, and gives the surface's scale mode back.
class EnPixels {
 public:
  explicit EnPixels(Surface &cible) : cible_(cible), gardee_(cible.ScaleMode) {
    reglages.EchelleSauvegardee = gardee_;
    cible.ScaleMode = Echelle::Pixels;
  }
  ~EnPixels() { cible_.ScaleMode = gardee_; }
  EnPixels(const EnPixels &) = delete;
  EnPixels &operator=(const EnPixels &) = delete;

 private:
  Surface &cible_;
  Echelle gardee_;
};

// "15/13\61" becomes "&H003D0D0F&"; an empty entry leaves `sortie`.
void DecoderCouleur(const std::string &texte, std::string &sortie);
// The colour that such a text stands for; the text is one that DecoderCouleur wrote.
Couleur CouleurDeTexte(const std::string &texte);

// Twips on entry, pixels on return, rounded; fails with 6 beyond 16 bits.
void ConvertirEnPixels(Entier &largeur, Entier &hauteur);

// Makes the surface of a box as large as the box, on its background colour.
void PreparerSurface(BoitePicture &boite);
// Puts a picture of the program on the box, which takes its size.
void ChargerPicture(BoitePicture &boite, const std::string &nom);
// The same with the slip of the harness numbers 1 to `lames`, which are printed so that they stay sharp.
void ChargerIndicateur(BoitePicture &boite, int lames);
// Puts a picture of Dessins Boutons, named without its ending, on a face; its place in twips.
void PeindreDessin(BoitePicture &bouton, const std::string &nom, Entier x, Entier y);
// The plate of the harnesses: a frame on the background colour of its box, a screw in each corner, and from
// each number of `numeros`, which lies on it, a line engraved up to the column that it names.
void EncadrerBande(BoitePicture &bande, const BoitePicture &numeros);

// The whole surface out of 30-pixel tiles.
void PeindreCadreTuiles(Surface &cible);
// The same and the heading band.
void PeindreFenetreMessage(Surface &cible);
// A ground of one colour, or of the picture named, in a frame of lines with a white top and left. Held in
// reserve, for a window without a skin.
void PeindreFondPrincipal(Surface &cible, const std::string &image, Couleur fond);

// Frames of the panels: black outer line, white inner line.
void PeindreFondPanneau(Surface &cible, Couleur fond);
// The same with a title in a tab that stands up from the frame.
void PeindreFondPanneauOnglet(Surface &cible, const std::string &titre, Couleur fond);
// Sunken, for the panels that labels lie in: shade where the light comes from, the white line where it falls.
void PeindreFondPanneauCreux(Surface &cible, Couleur fond);
// A paper tag with a small title, for the pick entry; two of its corners are cut, as on every tag.
void PeindreFondPanneauTitre(Surface &cible, const std::string &titre, Couleur fond);

// Ramp rings: over the whole surface, over a rectangle, and the remark's.
void PeindreFondInformation(Surface &cible);
void PeindreCadreInformation(Surface &cible, Entier gauche, Entier haut, Entier largeur, Entier hauteur);
void PeindreCadreRemarque(Surface &cible, Entier gauche, Entier haut, Entier largeur, Entier hauteur);
// Rounds the corners of a framed window: its two outer lines follow them, and what lies outside takes a
// colour that no window has, for the outline.
void ArrondirCoins(Surface &cible, int rayon, Couleur bord, Couleur dedans);
// The gradient of `reglages`, from row 200 down, or over all columns.
void PeindreDegrade(Surface &cible);

// Raised button faces. The whole surface is painted anew.
void PeindreFaceClaire(Surface &cible);
void PeindreFaceFoncee(Surface &cible);
// The hovered button: keeps its size in the session and its face, adds kGonflement to its width and height
// and paints the larger face around what lies on the one that stands.
void PeindreSurvolCarre(BoitePicture &bouton);
void PeindreSurvolRond(BoitePicture &bouton);
// The end of a hover: size and surface as kept, with what was painted within its edge meanwhile.
void RendreTailleBouton(BoitePicture &bouton);

// Caption of a button in one or two lines; style 0 plain, 1 with shadow. Its centring counts characters, 53
// twips each half. W and H are the button's, in twips.
void EcrireTexteBouton(BoitePicture &bouton, const std::string &ligne1, Booleen avecImage,
                       const std::string &ligne2, Entier style, Couleur couleurTexte, Couleur couleurOmbre);
// Titles, printed as a shadow and a face; a blank text prints nothing. The two red ones are held in
// reserve, for a panel that warns.
void EcrireTitreCadre(Surface &cible, const std::string &texte, Couleur couleurTexte, Couleur couleurOmbre);
void EcrireTitreRouge(Surface &cible, const std::string &texte);
void EcrireTitreRougeHaut(Surface &cible, const std::string &texte);
