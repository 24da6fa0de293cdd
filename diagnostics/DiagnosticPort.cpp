#include "diagnostics/DiagnosticPort.h"

#include <cerrno>

#include "base/CodePage.h"
#include "base/ErreurSysteme.h"
#include "base/TexteNumerique.h"
#include "kit/FenetreMessageCourt.h"
#include "kit/ProcedureConnexe.h"
#include "session/FenetreTissagePrincipale.h"

namespace {
constexpr int kTerminalPlein = 16000, kTerminalCoupe = 4096;  // characters

enum class Vers { Evenement, Erreur, Donnees, Rien };
struct LigneEvenement {
  int code;
  Vers vers;
  const char *texte;
};

// The handshaking modes stand first and take 1, 2 and 3 away from the event rows, which are never reached.
constexpr LigneEvenement kEvenements[] = {
    {0, Vers::Evenement, "Pas de protocole de communication"},
    {1, Vers::Evenement, "Protocole de communication XOn/Off"},
    {2, Vers::Evenement, "Protocole de communication RTS/CTS ( Demande pour émettre/Prêt à émettre)"},
    {3, Vers::Evenement, "Protocoles de communication Demande pour émettre et XON/XOFF."},
    {2, Vers::Donnees, ""},
    {1, Vers::Rien, ""},
    {3, Vers::Evenement, "Changement de Prêt à émettre (CTS) détecté"},
    {4, Vers::Evenement, "Changement de Modem prêt (DSR) détecté"},
    {5, Vers::Evenement, "Changement de Détection de porteuse (CD) détecté"},
    {6, Vers::Evenement, "Le téléphone sonne"},
    {7, Vers::Evenement, "Fin de fichier détectée"},
    {1001, Vers::Erreur, "Pause reçue"},
    {1007, Vers::Erreur, "Délai d'attente de Détection de porteuse (CD) expiré"},
    {1002, Vers::Erreur, "Délai d'attente de Prêt à émettre (CTS) expiré"},
    {1011, Vers::Erreur, "Erreur d'extraction de Bloc de contrôle de périphérique (DCB)"},
    {1003, Vers::Erreur, "Délai d'attente de Modem prêt (DSR) expiré"},
    {1004, Vers::Erreur, "Erreur de cadrage"},
    {1006, Vers::Erreur, "Erreur de cadence"},
    {1008, Vers::Erreur, "Dépassement du tampon de réception"},
    {1009, Vers::Erreur, "Erreur de parité"},
    {1010, Vers::Erreur, "Tampon de transmission plein"},
};

// What arrives is one byte a character.
std::string EnTexte(const std::string &octets) {
  std::string texte;
  for (const char o : octets) {
    const char16_t c = Caractere1252(static_cast<unsigned char>(o));
    if (c < 0x80) {
      texte += o;
      continue;
    }
    if (c < 0x800) {
      texte += static_cast<char>(0xC0 | c >> 6);
    } else {
      texte += static_cast<char>(0xE0 | c >> 12);
      texte += static_cast<char>(0x80 | (c >> 6 & 0x3F));
    }
    texte += static_cast<char>(0x80 | (c & 0x3F));
  }
  return texte;
}

void PrendreDonnees() {
  fenetre.DonneesPort = EnTexte(MSComm1().Input());
  AjouterTerminal(fenetre.txtTerm, fenetre.DonneesPort);
}

void SuivreEvenement(int code) {
  for (const LigneEvenement &ligne : kEvenements) {
    if (ligne.code != code) continue;
    if (ligne.vers == Vers::Evenement) fenetre.EvenementPort = ligne.texte;
    if (ligne.vers == Vers::Erreur) fenetre.ErreurPort = ligne.texte;
    if (ligne.vers == Vers::Donnees) PrendreDonnees();
    return;
  }
  fenetre.ErreurPort = "Erreur ou événement inconnus";
}

void Selectionner(ZoneTexte &boite, long debut, long longueur) {
  boite.SelStart = static_cast<int>(debut);
  boite.SelLength = static_cast<int>(longueur);
}

// Selections count characters, texts are bytes.
void RemplacerSelection(ZoneTexte &boite, const std::string &texte) {
  const auto debut = PlaceCaractere(boite.Text, boite.SelStart);
  const auto fin = PlaceCaractere(boite.Text, boite.SelStart + boite.SelLength);
  boite.Text.replace(debut, fin - debut, texte);
  boite.SelStart += NombreCaracteres(texte);
  boite.SelLength = 0;
}

void AppliquerRetours(ZoneTexte &boite, std::string &texte) {
  for (std::size_t p; (p = texte.find('\b')) != std::string::npos;) {
    if (p == 0) {
      if (fenetre.LongueurTerminal > 0)
        Selectionner(boite, fenetre.LongueurTerminal - 1, 1);
      else
        AfficherDescription(ErreurExecution(380, "Invalid property value"));
      texte.erase(0, 1);
    } else {
      const auto avant = PlaceCaractere(texte, NombreCaracteres(std::string_view(texte).substr(0, p)) - 1);
      texte.erase(avant, p + 1 - avant);
    }
  }
}

void NormaliserFins(std::string &texte) {
  std::erase(texte, '\n');
  for (std::size_t p = 0; (p = texte.find('\r', p)) != std::string::npos; p += 2)
    texte.insert(p + 1, 1, '\n');
}

void EcrireJournal(const std::string &texte) {
  while (fenetre.FichierJournal) {
    const bool ecrit = std::fwrite(texte.data(), 1, texte.size(), fenetre.FichierJournal) == texte.size() &&
                       std::fflush(fenetre.FichierJournal) == 0;
    if (ecrit || !plateforme().DemanderReprise(ErreurSysteme(errno).Description())) return;
    std::clearerr(fenetre.FichierJournal);
  }
}
}  // namespace

void EcrirePort(const std::string &texte) {
  if (!MSComm1().PortOpen() || !fenetre.PortOuvert) {
    session.Etat = EtatEtape::Echec;
    return;
  }
  MSComm1().Output(texte);
  AfficherEtatPort();
  MSComm1().PortOpen(false);
  session.Etat = EtatEtape::Reussi;
}

void AfficherEtatPort() {
  SuivreEvenement(MSComm1().CommEvent());
  if (!fenetre.EvenementPort.empty()) {  // never emptied: after a first event no error is shown any more
    fenetre.Remarque.Caption = "État: " + fenetre.EvenementPort;
    fenetre.Text1.Text = fenetre.EvenementPort;
  } else if (!fenetre.ErreurPort.empty()) {
    plateforme().Beep();
    session.MessageErreur = fenetre.ErreurPort;
    AfficherMessageCourt(TitreErreur(), session.MessageErreur);
    if (fenetre.ReponsePort == 2) MSComm1().PortOpen(false);
  }
}

void AjouterTerminal(ZoneTexte &boite, std::string &texte) {
  if (NombreCaracteres(boite.Text) > kTerminalPlein)
    boite.Text.erase(0, PlaceCaractere(boite.Text, kTerminalCoupe));
  fenetre.LongueurTerminal = NombreCaracteres(boite.Text);
  Selectionner(boite, fenetre.LongueurTerminal, 0);
  AppliquerRetours(boite, texte);
  NormaliserFins(texte);
  RemplacerSelection(boite, texte);
  EcrireJournal(texte);
  Selectionner(boite, NombreCaracteres(boite.Text), 0);
}

void TxtVitessePortSerie_KeyDown(int touche) {
  if (touche == Touche::Entree) fenetre.IntervalleEcoute = Arrondir(Val(fenetre.TxtVitessePortSerie.Text));
}

int TxtVitessePortSerie_KeyPress(int code) { return FiltreTouchesNumeriques(code); }
