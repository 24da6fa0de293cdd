// The bench: a platform and a serial port that record and reply, and a fresh session before every test.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "commands/CommandesProgramme.h"
#include "events/Evenements.h"
#include "kit/Attente.h"
#include "kit/BullesInfo.h"
#include "kit/FenetreMessage.h"
#include "kit/FenetreMessageCourt.h"
#include "kit/FenetreMessageErreur.h"
#include "kit/FenetreRappel.h"
#include "kit/FeuilleAPropos.h"
#include "kit/FeuilleRemarque.h"
#include "kit/FondFenetre.h"
#include "mainwindow/CompositionFenetre.h"
#include "session/Commandes.h"
#include "session/FenetreTissagePrincipale.h"

using V = std::vector<std::string>;

inline const std::string kA = "TabbyA=1,3,5,7,9,11,13,15,17,19,21,23",
                         kB = "TabbyB=2,4,6,8,10,12,14,16,18,20,22,24";
inline const std::string kLiberer = "\033R\r\n", kRapport = "\033C\r";
inline const std::string kInutilisable = "Error|Erreur numéro: 8002; Description: Invalid port number",
                         kSansPlan = "\r\n This file : \r\n does not have a lift plan.";

// Records every write as one element and fails on demand.
class PortBanc : public PortSerie {
 public:
  V ecrits;
  std::deque<std::string> recus;     // one element per read
  std::function<void()> enEcrivant;  // runs before a write is taken
  std::function<void()> partie;      // what waits for the last write that was kept back
  Entier numero;
  std::string reglages = "9600,N,8,1";
  bool ouvert = false, utilisable = true, ecritureEnPanne = false, etatEnPanne = false, rts = true,
       retenu = false;
  long poignee = 1;
  int evenement = 0, vidages = 0;

  void CommPort(Entier n) override {
    if (ouvert) throw ErreurExecution(Erreur::PortDejaOuvert);
    numero = n;
  }
  void Settings(const std::string &r) override { reglages = r; }
  std::string Settings() const override { return reglages; }
  void PortOpen(bool ouvrir) override;
  bool PortOpen() const override { return ouvert; }
  std::string Appareil(Entier n) const override { return n == 2 ? "ttyUSB0, USB adapter" : ""; }
  std::string RaisonRefus() const override { return "COM: why"; }
  void Output(const std::string &octets) override;
  bool Retenu(std::function<void()> suite) override {
    if (retenu) partie = std::move(suite);
    return retenu;
  }
  std::string Input() override;
  void InputLen(Entier) override {}
  Entier InputLen() const override { return 0; }
  void InputMode(long) override {}
  long InputMode() const override { return 0; }
  void OutBufferCount(Entier) override { ++vidages; }
  Entier OutBufferCount() const override { return 0; }
  Entier OutBufferSize() const override { return 512; }
  Entier InBufferCount() override { return 0; }
  void Handshaking(long protocole) override { poignee = protocole; }
  long Handshaking() const override { return poignee; }
  void RTSEnable(bool etat) override { rts = etat; }
  bool DTREnable() const override { return true; }
  Entier SThreshold() const override {
    if (etatEnPanne) throw ErreurExecution(Erreur::Peripherique);
    return 0;
  }
  std::string ParityReplace() const override { return "?"; }
  Entier CommEvent() const override { return evenement; }
};

class PlateformeBanc : public Plateforme {
 public:
  PortBanc port;
  std::string dossier, fichierChoisi;  // an empty choice is a cancelled dialog
  V messages;                          // one text per window shown: title and lines, joined by "|"
  V adresses;
  std::vector<std::pair<int, std::string>> icones;
  bool iconePossible = true;
  std::function<void()> pendant;  // runs inside DoEvents
  std::function<void(Fenetre &)> pendantModal;
  int rafraichis = 0, reprises = 0;
  std::vector<std::size_t> poussees;  // frames written before each push to the disk
  bool termine = false;
  const Controle *focus = nullptr;

  PortSerie &MSComm1() override { return port; }
  void ShowOpen(DialogueFichier &d) override;
  void DoEvents() override {
    if (pendant) std::exchange(pendant, nullptr)();
  }
  void Rafraichir() override { ++rafraichis; }
  void RafraichirFenetre(Fenetre &) override { ++rafraichis; }
  void Montrer(Fenetre &f) override;
  void MontrerModal(Fenetre &f) override;
  void DonnerFocus(Controle &c) override { focus = &c; }
  void OuvrirAdresse(const std::string &a) override { adresses.push_back(a); }
  Entier IconeNotification(int action, const std::string &bulle) override {
    icones.emplace_back(action, bulle);
    return iconePossible ? 1 : 0;
  }
  void Beep() override {}
  bool DemanderReprise(const std::string &) override { return reprises-- > 0; }
  void PousserSurDisque(int) override { poussees.push_back(port.ecrits.size()); }
  double Aujourdhui() override { return 45983; }  // 2025-11-22
  Ecran EcranDisponible() override { return {0, 0, 15360, 11520}; }
  // Of the right size without its drawing, so that layouts hold.
  const Surface &Picture(const std::string &nom) override;
  const Surface &LoadPicture(const std::string &) override;
  std::string DossierProgramme() override { return dossier; }
  void Terminer() override { termine = true; }

  DialogueFichier demande;
};

// The harnesses of a plan line, read without the system's help.
std::set<int> LamesDe(const std::string &ligne);
// The 24-harness frame of these harnesses, from the wire format alone: 17 to 24 do not go out, 1 to 8 do
// twice.
std::string Cadre24(const std::set<int> &lames);
// That of a plan line; a lone number raises nothing.
std::string Cadre24(const std::string &ligne);
// A fresh session in a fresh folder with the folders of the program.
class Banc : public ::testing::Test {
 protected:
  PlateformeBanc pf;
  PortBanc &port = pf.port;

  void SetUp() override;
  void TearDown() override { std::filesystem::remove_all(pf.dossier); }

  // What a new process starts with.
  void Recommencer();
  // A new process that has come up.
  void LancerProgramme() {
    Recommencer();
    Form_Load();
    fenetre.Visible = true;
    pf.messages.clear();
  }

  static void Commander(Commande::Index i) {
    ASSERT_TRUE(fenetre.BoutonProgramme[i].Visible) << "button " << i << " is hidden";
    BoutonProgramme_Click(i);
  }
  std::string Data(const std::string &nom) const { return pf.dossier + "/Data/" + nom; }
  std::string EcrireFichier(const std::string &nom, const std::string &contenu) const {
    std::ofstream(Data(nom), std::ios::binary) << contenu;
    return Data(nom);
  }
  static std::string Lire(const std::string &chemin) {
    std::ifstream f(chemin, std::ios::binary);
    return {std::istreambuf_iterator<char>(f), {}};
  }
  std::string LireFichier(const std::string &nom) const { return Lire(Data(nom)); }
  // A pattern of these lift plan lines, closed as real files are.
  std::string Motif(const V &lignes, const std::string &nom = "motif.wif") const;
  // n picks "i=a,b", each with its own pair of harnesses among 1..16.
  static V Lignes(int n);
  void Ouvrir(const std::string &chemin) {
    pf.fichierChoisi = chemin;
    Commander(Commande::OuvrirMotif);
  }
  // Sets fields of the panel the way the weaver does, and leaves it with Exit.
  static void Configurer(const std::map<int, std::string> &choix);
  // What the loom sends, and the tick that finds it; a closed port drops it.
  void Rapport(const std::string &octets = kRapport) {
    if (port.ouvert) port.recus.push_back(octets);
    fenetre.Timer3.Timer();
  }
  void Rapports(int n) {
    for (int i = 0; i < n; ++i) Rapport();
  }
  // What went over the line since the last look, one text for each write.
  V Ecrits() { return std::exchange(port.ecrits, {}); }
  // What the windows told since the last look.
  V Messages() { return std::exchange(pf.messages, {}); }
};

// A program that has come up, set to the pattern option, and a pattern to open.
class BancConfigure : public Banc {
 protected:
  void SetUp() override {
    Banc::SetUp();
    LancerProgramme();
    Configurer({{1, "COM 1"}, {5, "Pattern"}});
  }
  void OuvrirLignes(const V &l) { Ouvrir(Motif(lignes = l)); }
  const std::string &Wif(int i) const { return lignes.at(static_cast<std::size_t>(i - 1)); }
  // The frame of pick i.
  std::string Duite(int i) const { return Cadre24(Wif(i)); }
  V lignes;
};

std::string Hexa(const std::string &octets);
// The number of the failure that comes out, 0 for none.
template <class F>
int Echec(F &&f) {
  try {
    f();
  } catch (const ErreurExecution &e) {
    return e.Number();
  }
  return 0;
}

// 16-bit little-endian integers as they stand in the files.
std::string Mots(std::initializer_list<int> valeurs);
