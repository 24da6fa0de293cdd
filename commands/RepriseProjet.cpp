#include "commands/RepriseProjet.h"

#include <unistd.h>

#include "base/TexteDate.h"
#include "base/TexteNumerique.h"
#include "display/GrilleDuites.h"
#include "display/Voyants.h"
#include "kit/FenetreMessageCourt.h"
#include "kit/FeuilleRemarque.h"
#include "loom/PortMetier.h"
#include "mainwindow/JeuxBoutons.h"
#include "mainwindow/PanneauConfiguration.h"
#include "pattern/LecteurLiftplan.h"
#include "saved/FichierConfiguration.h"
#include "session/Commandes.h"
#include "session/FenetreTissagePrincipale.h"
#include "session/Journal.h"
#include "weaving/PlansTissage.h"

namespace {
std::string CheminReprise(const char *nom) {
  session.NomFichierReprise = nom;
  return CheminData(nom);
}

std::vector<Rubrique> LigneResume(Entier n) {
  return {RubriqueTexte(0, kLongueurRepriseLigne, session.LignesTravail[n])};
}

// Says what the project slot holds, behind a word about the save. The last failure stands below. A message
// that stands already would take this one with it when it closes.
void DireProjetEnregistre(const std::string &debut, bool present, const std::string &raison = "") {
  session.MessageErreur = debut + (present ? Selon("la précédente demeure.", "the save before stands.")
                                           : Selon("aucun projet n'est enregistré.", "no project is saved."));
  if (!raison.empty()) session.MessageErreur += "\r" + raison;
  Decharger(fenetreMessageCourt);
  AfficherMessageCourt(TitreErreur(), session.MessageErreur);
}

// One step of a save after the other; a failed one leaves its message.
struct Sauvegarde {
  bool reussie = true;
  std::string raison;

  template <class F>
  void Etape(F &&etape) {
    etape();
    if (session.Etat == EtatEtape::Reussi) return;
    reussie = false;
    raison = session.MessageErreur;
  }
};

// What stands around the steps fails as they do.
void AutourDesEtapes(void (*travail)()) {
  try {
    travail();
    session.Etat = EtatEtape::Reussi;
  } catch (const ErreurExecution &e) {
    SignalerErreurFichier(e);
  }
}

// Etat is that of the last step.
Sauvegarde EcrireProjet() {
  Sauvegarde s;
  s.Etape([] { AutourDesEtapes(MettreDeCote); });
  if (!s.reussie) return s;
  s.Etape([] { EcrireReprise(1); });
  for (int i = 1; i <= session.NombreDuitesPatron; ++i) s.Etape([i] { EcrireRepriseLigne(i); });
  if (s.reussie) s.Etape([] { AutourDesEtapes(AcheverSauvegarde); });
  return s;
}

void ConclureSauvegarde() {
  ConfirmerSauvegarde();
  session.Etat = EtatEtape::Rien;
  VoirEntrees(true);
  fenetre.BoutonProgramme[Commande::Enregistrer].Visible = false;
  FermerPort();
  if (session.Etat != EtatEtape::Reussi) return;
  session.Etat = EtatEtape::Rien;
  VoyantsArretA();
  VoyantsArretB();
  CacherBoutonsTissage();
}

// Where the copy cannot be put back it stands, and the next start or Resume tries again.
void RevenirAuProjetPrecedent(const std::string &raison) {
  const bool present = ProjetEnregistre();
  try {
    RemettreProjet();
  } catch (const ErreurExecution &) {
  }
  DireProjetEnregistre(Selon("La sauvegarde a échoué: ", "The save failed: "), present, raison);
}

void MontrerProjetRepris() {
  session.Etat = EtatEtape::Rien;
  fenetre.PatronCharge = true;
  NoterReprise(session.NombreDuitesWif, session.DuiteCourante);
  VoyantsArretA();
  MontrerDepartArret();
  AfficherDuites(session.DuiteCourante);
  CacherBitsEnvoi();
  MontrerDepartArret();
  fenetre.UnInstant.Visible = false;
}
}  // namespace

std::vector<Rubrique> ProjetResume() {
  return AvecLesChamps(
      {RubriqueDate(0, session.DateProjet), RubriqueTexte(8, kLongueurCheminWif, session.CheminWif, true),
       RubriqueEntier(263, session.NombreDuitesPatron)},
      &FicheChamp::dansReprise);
}

void EcrireReprise(Entier n) {
  if (n == 0) return;
  try {
    const std::string chemin = CheminReprise(kNomEntete);
    session.Etat = EtatEtape::Rien;
    SupprimerFichier(chemin);
    if (session.Etat == EtatEtape::Echec) return;
    session.Etat = EtatEtape::Rien;
    FichierEnregistrements fichier(chemin, kLongueurReprise);
    fichier.Ecrire(n, ComposerEnregistrement(ProjetResume(), kLongueurReprise));
    fichier.Fermer();
    session.Etat = EtatEtape::Reussi;
  } catch (const ErreurExecution &e) {
    SignalerErreurFichier(e);
  }
}

void EcrireRepriseLigne(Entier n) {
  if (n == 0) return;
  try {
    const std::string chemin = CheminReprise(kNomLignes);
    LeverLectureSeule(chemin, session.Etat);
    session.Etat = EtatEtape::Rien;
    FichierEnregistrements fichier(chemin, kLongueurRepriseLigne);
    fichier.Ecrire(n, ComposerEnregistrement(LigneResume(n), kLongueurRepriseLigne));
    fichier.Fermer();
    session.Etat = EtatEtape::Reussi;
  } catch (const ErreurExecution &e) {
    SignalerErreurFichier(e);
  }
}

bool LireReprise(Entier n) {
  if (n == 0) return false;
  try {
    FichierEnregistrements fichier(CheminReprise(kNomEntete), kLongueurReprise);
    if (n > fichier.Nombre()) return false;
    RepartirEnregistrement(ProjetResume(), fichier.Lire(n));
    session.NombreDuites = session.NombreDuitesWif = session.NombreDuitesPatron;
    session.Etat = EtatEtape::Reussi;
    return true;
  } catch (const ErreurExecution &e) {
    SignalerErreurFichier(e);
    return true;
  }
}

void LireRepriseLigne(Entier n) {
  if (n == 0) return;
  try {
    FichierEnregistrements fichier(CheminReprise(kNomLignes), kLongueurRepriseLigne);
    if (n > fichier.Nombre()) return;
    RepartirEnregistrement(LigneResume(n), fichier.Lire(n));
    session.Etat = EtatEtape::Reussi;
  } catch (const ErreurExecution &e) {
    SignalerErreurFichier(e);
  }
}

void ConfirmerSauvegarde() {
  session.LignesRemarque[1] = TexteDate(plateforme().Aujourdhui());
  session.LignesRemarque[2] = session.CheminWif;
  session.LignesRemarque[3] = "Sauvegarde dans le fichier: " + session.NomFichierReprise;
  session.LignesRemarque[4] = "Ligne Rendu: " + Str(int{session.DuiteCourante});
  session.LignesRemarque[5] = session.LignesRemarque[6] = " ";
  session.NombreLignesRemarque = 6;
  session.DelaiRemarque = 6;
  AfficherRemarque("Enregistrer le projet");
}

void SupprimerFichier(const std::string &nom) {
  DetruireFichier(Trim(nom), session.MessageErreur, session.Etat);
}

void DetruireFichier(const std::string &chemin, std::string &message, Entier &resultat) {
  resultat = unlink(chemin.c_str()) == 0 ? EtatEtape::Reussi : EtatEtape::Echec;
  if (resultat == EtatEtape::Reussi) return;
  message.clear();
  AfficherMessageCourt(TitreErreur(), message);
}

void EnregistrerProjet() {
  ChangerVoyant(Commande::Enregistrer, true);
  fenetre.TissageEnCours = false;
  CacherBitsEnvoi();
  session.DateProjet = plateforme().Aujourdhui();
  const Sauvegarde s = EcrireProjet();
  if (session.Etat == EtatEtape::Reussi) ConclureSauvegarde();
  if (!s.reussie) RevenirAuProjetPrecedent(s.raison);
}

bool RetablirProjet() {
  try {
    const EtatCopie etat = RemettreProjet();
    if (etat == EtatCopie::Remise)
      DireProjetEnregistre(Selon("La dernière sauvegarde a été coupée: ", "The last save was cut off: "),
                           ProjetEnregistre());
    if (etat == EtatCopie::Abimee) {
      session.MessageErreur = Selon("La copie de la sauvegarde précédente est abîmée: elle est ignorée.",
                                    "The copy of the save before is damaged: it is left out.");
      AfficherMessageCourt(TitreErreur(), session.MessageErreur);
    }
    return true;
  } catch (const ErreurExecution &e) {
    SignalerErreurFichier(e);
    return false;
  }
}

void ReprendreProjet() {
  if (!RetablirProjet()) return;
  fenetre.UnInstant.Visible = true;
  ChangerVoyant(Commande::Reprendre, false);
  plateforme().Rafraichir();
  InitialiserPatron();
  if (!LireReprise(1)) {
    fenetre.UnInstant.Visible = false;
    ChangerVoyant(Commande::Reprendre, false);
    return;
  }
  RelireFichierWif();
  for (int i = 1; i <= session.NombreDuitesPatron; ++i) LireRepriseLigne(i);
  NoterMotif(session.CheminWif);
  DessinerConfiguration();
  AppliquerConfiguration();
  LireLiaisons();
  if (session.Etat == EtatEtape::Reussi) MontrerProjetRepris();
  ChangerVoyant(Commande::Reprendre, false);
}
