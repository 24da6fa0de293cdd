#include "pattern/LecteurLiftplan.h"

#include <filesystem>
#include <string>
#include <utility>

#include "base/FichiersBrandis.h"
#include "base/TexteNumerique.h"
#include "display/GrilleDuites.h"
#include "kit/FenetreMessage.h"
#include "kit/FenetreMessageCourt.h"
#include "pattern/LignesFichier.h"
#include "session/FenetreTissagePrincipale.h"

namespace {
// The two readers differ in what they do with a kept line and with a blank one.
enum class Lecture { Ouverture, Relecture };

bool FichierExiste(const std::string &chemin) {
  std::error_code erreur;
  return !chemin.empty() && std::filesystem::is_regular_file(chemin, erreur);
}

void SuivreSection(const std::string &ligne) {
  if (ligne == "[WEAVING]" || ligne == "[TREADLING]") fenetre.DansLiftplan = false;
  if (ligne == "[LIFTPLAN]") fenetre.DansLiftplan = true;
}

// False when the reading has to stop.
bool GarderLigne(std::string &ligne, Lecture lecture) {
  const bool blanche = LTrim(ligne).empty();
  ++session.NombreDuites;
  ++session.NombreDuitesPatron;
  session.LignesWif[session.NombreDuites] = ligne;
  if (lecture == Lecture::Ouverture) session.LignesTravail[session.NombreDuitesPatron] = std::move(ligne);
  if (blanche) {
    --session.NombreDuites;
    if (lecture == Lecture::Ouverture) --session.NombreDuitesPatron;
  }
  return session.NombreDuites <= kLignesWif;
}

// False when the reader has to leave at once, Etat as it was.
bool LireLignes(Lecture lecture) {
  session.NombreDuites = -1;
  session.NombreDuitesPatron = -1;
  fenetre.LblCheminWif.Caption = Trim(session.CheminWif);
  LignesFichier fichier(session.CheminWif);
  for (std::string ligne; fichier.Lire(ligne);) {
    SuivreSection(ligne);
    if (fenetre.DansLiftplan && !GarderLigne(ligne, lecture)) return false;
  }
  return true;
}

void ChoisirFichier() {
  DialogueFichier &dialogue = fenetre.CommonDialog1;
  dialogue.CancelError = true;
  CalculerCheminApplication();
  dialogue.FileName = session.CheminApplication + kData + "/*.Wif";
  dialogue.Filter = "Fichier Wif (*.WIF)|*.wif";
  dialogue.Flags = 0;
  plateforme().ShowOpen(dialogue);
  plateforme().Rafraichir();
  session.CheminWif = std::string(LTrim(dialogue.FileName));
  fenetre.LblCheminWif.Caption.clear();
}

// False when there is no plan, which it has told.
bool ConclureCompte() {
  session.NombreDuitesWif = session.NombreDuites;
  session.Etat = session.NombreDuites < 1 ? EtatEtape::Echec : EtatEtape::Reussi;
  if (session.Etat == EtatEtape::Echec)
    AfficherSansLiftplan();
  else
    EcrireNombreLigne();
  return session.Etat == EtatEtape::Reussi;
}

void ConclureOuverture() {
  if (!ConclureCompte()) return;
  session.DuiteCourante = session.NombreDuites;
  AfficherDuites(session.DuiteCourante);
}

void ConclureRelecture() {
  if (session.NombreLames == kLamesDepart) {
    ConclureCompte();
    return;
  }
  session.MessageErreur = Selon("  Erreur 16 lames seulement", "  Error 16 Harnesses only");
  AfficherMessageCourt(TitreErreur(), session.MessageErreur);
  session.Etat = EtatEtape::Echec;
}

void SignalerEchec(const ErreurExecution &e) {
  if (e.Number() != Erreur::DialogueAnnule) AfficherErreurNumerotee(e);
  session.Etat = EtatEtape::Echec;
}
}  // namespace

void OuvrirFichierWif() {
  try {
    InitialiserPatron();
    ChoisirFichier();
    if (FichierExiste(session.CheminWif) && !LireLignes(Lecture::Ouverture)) return;
    ConclureOuverture();
  } catch (const ErreurExecution &e) {
    SignalerEchec(e);
  }
}

void RelireFichierWif() {
  try {
    session.NombreDuites = 0;
    for (int i = 1; i <= kLignesWif; ++i) {
      session.LignesWif[i].clear();
      session.LignesTravail[i].clear();
    }
    ViderMatrice(1, kLignesWif);
    if (FichierExiste(session.CheminWif) && !LireLignes(Lecture::Relecture)) return;
    ConclureRelecture();
  } catch (const ErreurExecution &e) {
    SignalerEchec(e);
  }
}

void AfficherSansLiftplan() {
  // The file's name is no part of the text: the quotation marks close around nothing.
  session.MessageErreur = Selon("\r\n Le Fichier : «» n'est pas sauvé\r\n dans le mode Liftplan.",
                                "\r\n This file : \r\n does not have a lift plan.");
  AfficherMessage(session.MessageErreur);
}

void EcrireNombreLigne() {
  if (!fenetre.LblNombreLigne.Visible) return;
  fenetre.LblNombreLigne.Caption = Selon("Nombre de duites / patron: ", "Number of picks / pattern: ") +
                                   Str(int{session.NombreDuitesPatron});
}
