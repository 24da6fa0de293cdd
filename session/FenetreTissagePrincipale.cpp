#include "session/FenetreTissagePrincipale.h"

#include <map>
#include <utility>

#include "controls/Palette.h"
#include "session/Commandes.h"

namespace {
constexpr Police kGras{"Arial", 8.25, true, false};

void PlacerSurface(FenetreTissagePrincipale &f) {
  Placer(f.Picture2, 0, 0, kLargeurFenetre, kHauteurFenetre);
  Placer(f.BarreDeplacement, 705, 90, 2730, 390);
  Placer(f.LogoNor, 0, 0, 765, 480);
  Placer(f.BoutonAide, 8865, 45, 675, 480);
  Placer(f.PicTVCentre, 10905, 1800, 675, 540);
  Placer(f.UnInstant, 3345, 4335, 5430, 900);
  Placer(f.ImageMetier, 345, 3705, 1260, 1125);
  Placer(f.Picture3, 240, 750, 1065, 1425);
  Placer(f.Label2, 240, 2175, 1725, 300);
  Placer(f.Label1, 240, 4950, 1365, 450);
  Placer(f.Drapeau[1], 315, 8685, 480, 300);
  Placer(f.Drapeau[2], 975, 8685, 480, 300);
  Placer(f.ShDrapeau, 945, 8655, 540, 360);
  Placer(f.Remarque, 570, 9270, 7695, 255);
  Placer(f.txtTerm, 10935, 7800, 5790, 2115);
  Placer(f.Text1, 2280, 1890, 7320, 885);
  Placer(f.TxtVitessePortSerie, 450, 5415, 480, 330);
  for (int i = 0; i < Commande::Nombre; ++i) {
    const FicheCommande &c = Fiche(i);
    Placer(f.BoutonProgramme[i], c.gauche, c.haut, c.largeur, kHauteurBouton);
  }
}

void PlacerGrille(FenetreTissagePrincipale &f) {
  Placer(f.PicPourTissage, 0, 0, 7725, 4800);
  Placer(f.PicLblIndiqueLigneRendu, 0, 0, 1005, 4890);
  Placer(f.PicPourControle, 300, 0, 8805, 855);
  Placer(f.FondInscritDuite, 150, 435, 7725, 240);
  Placer(f.LblCheminWif, 0, 0, 3390, 225);
  Placer(f.LblDate, 5700, 0, 1110, 225);
  Placer(f.LblNombreLigne, 0, 0, 3000, 225);
  for (int j = 1; j <= kLames; ++j) f.BitEnvoie[j] = {180.0 + 240 * (j - 1), 210, 225, 210};
  for (int r = 1; r <= 20; ++r) {
    Etiquette &e = f.LblIndiqueLigneRendu[r];
    Placer(e, 120, 45 + 225 * (r - 1), 795, 225);
    e.Font = {"Arial", 9.75, true, false};
    e.Alignment = Alignement::Centre;
    e.ForeColor = r == 11 ? Palette::RougeEtiquette : 0;
    e.Serre = true;                  // a tabby's name
    e.Plaque = e.Agrandi = r == 11;  // the pick on the loom, to be read from the bench
  }
  Placer(f.FondEntreDuite, 0, 0, 1290, 510);
  Placer(f.TxtDuite, 720, 90, 495, 330);
}

void PlacerPanneaux(FenetreTissagePrincipale &f) {
  Placer(f.FenetreConfiguration, 0, 0, 4725, 5190);
  for (const FicheChamp &c : LesChamps()) {
    Etiquette &etiquette = f.LblConfiguration[c.numero];
    ListeChoix &liste = f.ComConfiguration[c.numero];
    Placer(etiquette, 495, c.haut + 45, 2150, 240);
    Placer(liste, 2685, c.haut, 1530, 315);
    etiquette.Font = kGras;
    etiquette.Visible = liste.Visible = c.aPart.visible;
    liste.Saisie = c.aPart.saisie;
  }
  Placer(f.LblTabbyA, 495, 4080, 3900, 420);
  Placer(f.LblTabbyB, 495, 4530, 3900, 420);

  Placer(f.PicNor, 1725, 7950, 7065, 2940);
  Placer(f.PicPourControle2, 450, 1110, 4305, 915);
  Placer(f.Indicateur24, 165, 450, 5805, 240);
  Placer(f.LblNomTest, 2550, 720, 1695, 225);
  for (int i = 1; i <= 24; ++i)
    Placer(f.CheckSelenoide[i], 210 + 240 * (i - 1) - (i >= 9 ? 15 : 0), 195, 210, 210);
}

void Vetir(FenetreTissagePrincipale &f) {
  f.Label1.Caption = "Vitesse Lecture         Port:";
  f.Label2.Caption = "Vers. 1.0";
  f.TxtVitessePortSerie.Text = "100";
  for (Etiquette *e : {&f.Label1, &f.Label2, &f.Remarque, &f.LblCheminWif, &f.LblDate, &f.LblNombreLigne,
                       &f.LblTabbyA, &f.LblTabbyB, &f.LblNomTest})
    e->Font = kGras;
  // Dark enough to be read on linen from the bench.
  f.LblCheminWif.ForeColor = f.LblDate.ForeColor = Palette::Rouge;
  f.LblCheminWif.Abreger = true;
  f.LblNombreLigne.ForeColor = Palette::BleuEtiquette;
  f.FenetreConfiguration.BackColor = f.PicNor.BackColor = Palette::Lin;
  f.ShDrapeau.BorderColor = Palette::RougeEtiquette;
  f.ShDrapeau.BorderWidth = 2;
  f.LblNomTest.Alignment = Alignement::Centre;
  f.Text1.Multiligne = f.txtTerm.Multiligne = true;
  for (Controle *c :
       std::initializer_list<Controle *>{&f.PicTVCentre, &f.UnInstant, &f.PicNor, &f.txtTerm, &f.Text1,
                                         &f.Label1, &f.FondEntreDuite, &f.FenetreConfiguration})
    c->Visible = false;
}

// Put together once: the window is visited before a shed leaves.
const std::string &NomIndice(const char *nom, int i) {
  static std::map<std::pair<const char *, int>, std::string> noms;
  std::string &complet = noms[{nom, i}];
  if (complet.empty()) complet = std::string(nom) + "(" + std::to_string(i) + ")";
  return complet;
}
}  // namespace

FenetreTissagePrincipale::FenetreTissagePrincipale() {
  Width = kLargeurFenetre;
  Height = kHauteurFenetre;
  Fenetre::Caption = "Brandis";
  PlacerSurface(*this);
  PlacerGrille(*this);
  PlacerPanneaux(*this);
  Vetir(*this);
}

FenetreTissagePrincipale fenetre;

void FenetreTissagePrincipale::Visiter(Visiteur &v) {
  auto voirTable = [&v](const char *nom, auto &table, Controle &parent, int premier) {
    for (int i = premier; i <= table.Dernier(); ++i) v.Voir(NomIndice(nom, i), table[i], parent);
  };
  v.Voir("Picture2", Picture2, *this);
  v.Voir("BarreDeplacement", BarreDeplacement, Picture2);
  v.Voir("BoutonAide", BoutonAide, Picture2);
  v.Voir("LogoNor", LogoNor, Picture2);
  v.Voir("ImageMetier", ImageMetier, Picture2);
  v.Voir("Picture3", Picture3, Picture2);
  v.Voir("Label2", Label2, Picture2);
  v.Voir("Label1", Label1, Picture2);
  v.Voir("Remarque", Remarque, Picture2);
  voirTable("Drapeau", Drapeau, Picture2, 1);
  v.Voir("ShDrapeau", ShDrapeau, Picture2);
  v.Voir("TxtVitessePortSerie", TxtVitessePortSerie, Picture2);
  v.Voir("Compteur", Compteur, Picture2);
  Compteur.Visiter(v);
  v.Voir("LblCheminWif", LblCheminWif, Picture2);
  v.Voir("LblDate", LblDate, Picture2);
  v.Voir("LblNombreLigne", LblNombreLigne, Picture2);
  v.Voir("PicPourControle", PicPourControle, Picture2);
  v.Voir("FondInscritDuite", FondInscritDuite, PicPourControle);
  v.Voir("PicPourTissage", PicPourTissage, Picture2);
  v.Voir("PicLblIndiqueLigneRendu", PicLblIndiqueLigneRendu, Picture2);
  voirTable("LblIndiqueLigneRendu", LblIndiqueLigneRendu, PicLblIndiqueLigneRendu, 1);
  v.Voir("UnInstant", UnInstant, Picture2);  // over the draft, under the panels
  v.Voir("FenetreConfiguration", FenetreConfiguration, Picture2);
  voirTable("LblConfiguration", LblConfiguration, FenetreConfiguration, 1);
  voirTable("ComConfiguration", ComConfiguration, FenetreConfiguration, 1);
  v.Voir("LblTabbyA", LblTabbyA, FenetreConfiguration);
  v.Voir("LblTabbyB", LblTabbyB, FenetreConfiguration);
  v.Voir("PicNor", PicNor, Picture2);
  v.Voir("PicPourControle2", PicPourControle2, PicNor);
  v.Voir("Indicateur24", Indicateur24, PicPourControle2);
  voirTable("CheckSelenoide", CheckSelenoide, PicPourControle2, 1);
  v.Voir("LblNomTest", LblNomTest, PicNor);
  const auto voirBouton = [&](int i) {
    const JeuBoutons jeu = Fiche(i).jeu;
    Controle &parent = jeu == JeuBoutons::Configuration ? FenetreConfiguration
                       : jeu == JeuBoutons::Diagnostic  ? PicNor
                                                        : Picture2;
    const std::string &nom = NomIndice("BoutonProgramme", i);
    v.Voir(nom, BoutonProgramme[i], parent);
  };
  for (int i = 0; i < Commande::Nombre; ++i) {
    if (i == Commande::Enregistrer) continue;
    voirBouton(i);
    if (i == Commande::Reprendre)
      voirBouton(Commande::Enregistrer);  // Save lies above it, whose place it takes
  }
  v.Voir("PicTVCentre", PicTVCentre, Picture2);
  v.Voir("Text1", Text1, Picture2);
  v.Voir("txtTerm", txtTerm, Picture2);
  v.Voir("FondEntreDuite", FondEntreDuite, Picture2);
  v.Voir("TxtDuite", TxtDuite, FondEntreDuite);
  v.Voir("Timer1", Timer1);
  v.Voir("Timer2", Timer2);
  v.Voir("Timer3", Timer3);
}
