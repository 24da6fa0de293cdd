#include "kit/FenetreMessage.h"

#include "base/TexteNumerique.h"
#include "kit/FondFenetre.h"
#include "kit/ProcedureConnexe.h"
#include "platform/Plateforme.h"
#include "session/FenetreTissagePrincipale.h"
#include "session/Journal.h"
#include "session/ModuleTissage.h"

FenetreMessage fenetreMessage;

namespace {
void Fermer() { Decharger(fenetreMessage); }

void Form_KeyDown(int touche, int maj) {
  if (touche == Touche::Echappement || (touche == Touche::LettreO && (maj & Touche::Alt))) Fermer();
}

void Picture2_KeyDown(int touche, int maj) {
  if (touche == Touche::Entree || touche == Touche::Espace)
    Fermer();
  else
    Form_KeyDown(touche, maj);
}

// The tag keeps a second press without a release from moving the button twice.
void Picture2_MouseDown(int, double, double) {
  BoitePicture &b = fenetreMessage.Picture2;
  if (b.Tag == "Vraie") return;
  b.Top += kTwipsParPixel;
  b.Left += kTwipsParPixel;
  b.Tag = "Vraie";
}

void Picture2_MouseUp(int, double, double) {
  BoitePicture &b = fenetreMessage.Picture2;
  if (b.Tag != "Vraie") return;
  b.Top -= kTwipsParPixel;
  b.Left -= kTwipsParPixel;
  b.Tag.clear();
}
}  // namespace

FenetreMessage::FenetreMessage() {
  Message = true;
  Width = 10140;
  Height = 6120;
  Fenetre::Caption = "Brandis";
  Placer(ImageMessage, 1455, 705, 7230, 855);
  Placer(ImageMessageFrancais, 0, 0, 7230, 855);
  Placer(ImageMessageAnglais, 0, 0, 7230, 855);
  ImageMessageFrancais.Picture = "ImageMessageFrancais";
  ImageMessageAnglais.Picture = "ImageMessageAnglais";
  ImageMessageFrancais.Visible = ImageMessageAnglais.Visible = false;
  Placer(FondInformation, 525, 1905, 8910, 1995);
  Placer(Information, 105, 240, 8730, 480);
  Information.Caption = "Information";
  Information.Alignment = Alignement::Centre;
  Information.Font = {"MS Sans Serif", 9.75, true, false};
  Placer(ListeFichierManquant, 180, 750, 8550, 1110);
  ListeFichierManquant.Font = {"Arial", 8.25, true, false};
  Placer(LogoNorvane, 480, 4860, 1800, 360);
  Placer(Picture2, 8805, 4680, 630, 660);
}

void FenetreMessage::Visiter(Visiteur &v) {
  v.Voir("ImageMessageFrancais", ImageMessageFrancais, *this);
  v.Voir("ImageMessageAnglais", ImageMessageAnglais, *this);
  v.Voir("ImageMessage", ImageMessage, *this);
  v.Voir("LogoNorvane", LogoNorvane, *this);
  v.Voir("FondInformation", FondInformation, *this);
  v.Voir("Information", Information, FondInformation);
  v.Voir("ListeFichierManquant", ListeFichierManquant, FondInformation);
  v.Voir("Picture2", Picture2, *this);
}

void FenetreMessage::Load() {
  KeyDown = Form_KeyDown;
  Picture2.Click = Fermer;
  Picture2.KeyDown = Picture2_KeyDown;
  Picture2.MouseDown = Picture2_MouseDown;
  Picture2.MouseUp = Picture2_MouseUp;
  Picture2.NomAccessible = Selon("Fermer", "Close");

  CentrerFenetreEcran(*this);
  Dessin = plateforme().Picture("FondMessage");
  PeindreFondInformation(Dessin);
  Entier l = Arrondir(FondInformation.Width), h = Arrondir(FondInformation.Height);
  ConvertirEnPixels(l, h);
  PreparerSurface(FondInformation);
  PeindreCadreInformation(FondInformation.Dessin, 0, 0, l, h);
  LogoNorvane.Picture = fenetre.LogoNor.Picture;
  LogoNorvane.Height = fenetre.LogoNor.Height;  // else the picture would be cut
  ImageMessage.Picture = session.LangueFrancaise ? ImageMessageFrancais.Picture : ImageMessageAnglais.Picture;
  ChargerPicture(Picture2, "BoutonFermerMessage");
}

void AfficherMessage(const std::string &texte) {
  FenetreMessage &f = Charger(fenetreMessage);
  f.Information.Caption = texte;
  NoterMessage(TitreErreur(), texte);
  plateforme().DonnerFocus(f.Picture2);
  f.Visible = true;
  plateforme().MontrerModal(f);
}
