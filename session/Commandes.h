// The 22 commands: one row of one table tells of each what it is called, how its button looks, where it
// stands, when its lamp is lit, and what the help says. The procedure that a command runs stands in the
// dispatcher, commands/CommandesProgramme.cpp, above everything that it calls.
#pragma once

#include "session/ModuleTissage.h"
#include "session/RangeeBulle.h"

namespace Commande {
// Index of the command's button and of its lamp.
enum Index : int {
  Quitter = 0,
  OuvrirMotif = 1,
  Enregistrer = 2,
  Reprendre = 3,
  TisserToile = 4,
  TisserPatron = 5,
  Avancer = 6,
  Inverser = 7,
  ChoisirDuite = 8,
  Arreter = 9,
  Demarrer = 10,
  BasculerBulles = 11,
  Minimiser = 12,
  SortirConfiguration = 13,
  Configurer = 14,
  AnnulerConfiguration = 15,
  Rafraichir = 16,
  TisserPatronEtToile = 17,
  Diagnostiquer = 18,
  QuitterDiagnostic = 19,
  DebuterTest = 20,
  FinirTest = 21,
};
constexpr int Nombre = 22;
}  // namespace Commande

// Sizes of every button, in twips: at rest, and what a hovered one gains in both directions.
constexpr int kHauteurBouton = 435, kGonflement = 80;

// Light buttons lie square on the window; dark ones are the round ones of the project and the window.
enum class Face { Claire, Foncee };

// The buttons that come and go together.
enum class JeuBoutons {
  Permanent,
  Principal,      // given way to the panels, and back
  Entree,         // the same, and given way to weaving: the ways to a pattern and into the panels
  Projet,         // Save: given way with them, and brought back only by what has something to save
  DepartArret,    // once a pattern was loaded
  Tissage,        // while weaving
  Configuration,  // in the configuration panel
  Diagnostic,     // in the diagnostic panel
};

// What a lamp shows when its button is painted anew; every other change is a command's.
enum class RegleVoyant { Rouge, Option, Tissage, Bulles };

struct FicheCommande {
  Commande::Index index;
  Paire legende;
  Paire legende2 = {"", ""};  // the second line, where there is one
  const char *dessin = "";    // picture in Dessins Boutons, without its ending; empty for none
  int x = 60, y = 60;         // twips, of the picture on the face
  Face face = Face::Claire;
  JeuBoutons jeu = JeuBoutons::Principal;
  int largeur;               // twips; caption and picture fit in both languages
  int gauche = 0, haut = 0;  // twips, where the place is not counted from other buttons
  // Twips, sideways: captions stand a little aside, clear of picture and lamp.
  EnLangues<int> decalage = {0, 0};
  int decalage2 = -100;
  RegleVoyant voyant = RegleVoyant::Rouge;
  bool bagueEtroite = false;  // a caption comes near the lamp: the ring around it is a pixel smaller
  int option = 0;             // the weave option that lights it
  RangeeBulle bulle;
};

// The row of a command, 0..21; fails with 9 beyond.
const FicheCommande &Fiche(int index);
