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
#include "mainwindow/Evenements.h"
#include "mainwindow/FenetreTissagePrincipale.h"
#include "weaving/CommandesProgramme.h"

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
  std::deque<std::string> recus;  // one element per read
  Entier numero;
  std::string reglages = "9600,N,8,1";
  bool ouvert = false, utilisable = true, ecritureEnPanne = false, etatEnPanne = false, rts = true;
  long poignee = 1;
  int evenement = 0, vidages = 0;

  void CommPort(Entier n) override {
    if (ouvert) throw ErreurExecution(Erreur::PortDejaOuvert);
    numero = n;
  }
  void Settings(const std::string &r) override { reglages = r; }
  std::string Settings() const override { return reglages; }
  void PortOpen(bool ouvrir) override {
    if (ouvrir && !utilisable) throw ErreurExecution(Erreur::PortInutilisable);
    ouvert = ouvrir;
    if (!ouvrir) recus.clear();
  }
  bool PortOpen() const override { return ouvert; }
  std::string RaisonRefus() const override { return "COM: why"; }
  void Output(const std::string &octets) override {
    if (!ouvert) throw ErreurExecution(Erreur::PortFerme);
    if (ecritureEnPanne) throw ErreurExecution(Erreur::Peripherique);
    ecrits.push_back(octets);
  }
  std::string Input() override {
    if (!ouvert || recus.empty()) return "";
    std::string s = recus.front();
    recus.pop_front();
    return s;
  }
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
  bool termine = false;
  const Controle *focus = nullptr;

  PortSerie &MSComm1() override { return port; }
  void ShowOpen(DialogueFichier &d) override {
    demande = d;
    if (fichierChoisi.empty() && d.CancelError) throw ErreurExecution(Erreur::DialogueAnnule);
    d.FileName = fichierChoisi;
  }
  void DoEvents() override {
    if (pendant) std::exchange(pendant, nullptr)();
  }
  void Rafraichir() override { ++rafraichis; }
  void RafraichirFenetre(Fenetre &) override { ++rafraichis; }
  void Montrer(Fenetre &f) override { messages.push_back(Textes(f)); }
  void MontrerModal(Fenetre &f) override {
    messages.push_back(Textes(f));
    if (pendantModal) pendantModal(f);
    Decharger(f);
  }
  void DonnerFocus(Controle &c) override { focus = &c; }
  void OuvrirAdresse(const std::string &a) override { adresses.push_back(a); }
  Entier IconeNotification(int action, const std::string &bulle) override {
    icones.emplace_back(action, bulle);
    return iconePossible ? 1 : 0;
  }
  void Beep() override {}
  bool DemanderReprise(const std::string &) override { return reprises-- > 0; }
  void PousserSurDisque(int) override {}
  double Aujourdhui() override { return 45983; }  // 2025-11-22
  Ecran EcranDisponible() override { return {0, 0, 15360, 11520}; }
  const Surface &Picture(const std::string &nom) override;
  const Surface &LoadPicture(const std::string &) override {
    static const Surface dessin(20, 20, Gris(192));
    return dessin;
  }
  std::string DossierProgramme() override { return dossier; }
  void Terminer() override { termine = true; }

  DialogueFichier demande;

 private:
  struct Collecteur : Visiteur {
    std::string textes;
    void Voir(const std::string &, Controle &c, Controle &) override {
      if (c.genre() != Genre::Etiquette || !c.Visible) return;
      const std::string &t = static_cast<Etiquette &>(c).Caption;
      if (!t.empty()) textes += (textes.empty() ? "" : "|") + t;
    }
    void Voir(const std::string &, Minuterie &) override {}
  };
  static std::string Textes(Fenetre &f) {
    Collecteur c;
    f.Visiter(c);
    return c.textes;
  }
};

// Pictures of the right size without their drawing, so that layouts hold.
inline const Surface &PlateformeBanc::Picture(const std::string &nom) {
  static std::map<std::string, Surface> images;
  static const std::map<std::string, std::pair<int, int>> tailles{
      {"Fond8", {131, 320}},        {"Fond12", {194, 320}},      {"Fond16", {259, 320}},
      {"Fond24", {387, 320}},       {"Fond32", {515, 320}},      {"Indicateur8", {131, 16}},
      {"Indicateur12", {194, 16}},  {"Indicateur16", {259, 16}}, {"Indicateur24", {387, 16}},
      {"Indicateur32", {515, 16}},  {"Habillage", {808, 638}},   {"Attente", {547, 186}},
      {"FondRemarque", {542, 165}}, {"UnInstant", {362, 60}},    {"FondMessage", {676, 408}},
      {"PicTVCentre", {45, 36}},    {"Picture3", {71, 95}}};
  auto [place, neuve] = images.try_emplace(nom);
  if (!neuve) return place->second;
  const auto taille = tailles.find(nom);
  auto [l, h] = taille != tailles.end()          ? taille->second
                : nom.rfind("BulleInfo", 0) == 0 ? std::pair(152, 102)
                                                 : std::pair(30, 30);
  place->second = Surface(l, h, Gris(200));
  place->second.PSet(0, 0, 0);
  return place->second;
}

// The harnesses of a plan line, read without the system's help.
inline std::set<int> LamesDe(const std::string &ligne) {
  std::set<int> lames;
  std::stringstream liste(ligne.substr(ligne.find('=') + 1));
  for (std::string n; std::getline(liste, n, ',');) lames.insert(std::atoi(n.c_str()));
  return lames;
}

// The 24-harness frame of these harnesses, from the wire format alone: 17 to 24 do not go out, 1 to 8 do
// twice.
inline std::string Cadre24(const std::set<int> &lames) {
  int octets[2] = {0, 0};
  for (int l : lames)
    if (l >= 1 && l <= 16) octets[(l - 1) / 8] |= 1 << (l - 1) % 8;
  const char a = static_cast<char>(octets[0]), b = static_cast<char>(octets[1]);
  return kLiberer + "\033I" + a + b + a + '\0' + "\r\n\033E\r\n";
}
// That of a plan line; a lone number raises nothing.
inline std::string Cadre24(const std::string &ligne) {
  return Cadre24(ligne.find(',') == std::string::npos ? std::set<int>() : LamesDe(ligne));
}

// A fresh session in a fresh folder with the folders of the program.
class Banc : public ::testing::Test {
 protected:
  PlateformeBanc pf;
  PortBanc &port = pf.port;

  void SetUp() override {
    char modele[] = "/tmp/banc-XXXXXX";
    pf.dossier = mkdtemp(modele);
    std::filesystem::create_directory(pf.dossier + "/Data");
    InstallerPlateforme(&pf);
    Recommencer();
  }
  void TearDown() override { std::filesystem::remove_all(pf.dossier); }

  // What a new process starts with.
  void Recommencer() {
    const auto aNeuf = [](auto &...objets) { ((objets = std::decay_t<decltype(objets)>()), ...); };
    aNeuf(session, fenetre, attente, reglages, port, pf.messages, feuilleRemarque, feuilleAPropos);
    aNeuf(fenetreMessageCourt, fenetreMessage, fenetreMessageErreur, fenetreRappel);
    aNeuf(bulleInfoBasGauche, bulleInfoHautDroit, bulleInfoHautGauche, bulleInfoBasDroit);
    LierEvenements();
  }
  // A new process that has come up.
  void Demarrer() {
    Recommencer();
    Form_Load();
    fenetre.Visible = true;
    pf.messages.clear();
  }

  static void Commande(int i) {
    ASSERT_TRUE(fenetre.BoutonProgramme[i].Visible) << "button " << i << " is hidden";
    BoutonProgramme_Click(i);
  }
  std::string Data(const std::string &nom) const { return pf.dossier + "/Data/" + nom; }
  std::string EcrireFichier(const std::string &nom, const std::string &contenu) const {
    std::ofstream(Data(nom), std::ios::binary) << contenu;
    return Data(nom);
  }
  std::string LireFichier(const std::string &nom) const {
    std::ifstream f(Data(nom), std::ios::binary);
    return {std::istreambuf_iterator<char>(f), {}};
  }
  // A pattern of these lift plan lines, closed as real files are.
  std::string Motif(const V &lignes, const std::string &nom = "motif.wif") const {
    std::string texte = "[WIF]\r\nVersion=1.1\r\n[LIFTPLAN]\r\n";
    for (const std::string &l : lignes) texte += l + "\r\n";
    return EcrireFichier(nom, texte + "[WEAVING]\r\nShafts=24\r\n");
  }
  // n picks "i=a,b", each with its own pair of harnesses among 1..16.
  static V Lignes(int n) {
    V lignes;
    for (int i = 1; i <= n; ++i)
      lignes.push_back(std::to_string(i) + "=" + std::to_string(1 + i % 16) + "," +
                       std::to_string(1 + (i / 16 + 2 * i + 3) % 16));
    return lignes;
  }
  void Ouvrir(const std::string &chemin) {
    pf.fichierChoisi = chemin;
    Commande(1);
  }
  // Sets fields of the panel the way the weaver does, and leaves it with Exit.
  static void Configurer(const std::map<int, std::string> &choix) {
    Commande(14);
    for (const auto &[i, texte] : choix) fenetre.ComConfiguration[i].Text = texte;
    Commande(13);
  }
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
    Demarrer();
    Configurer({{1, "COM 1"}, {5, "Pattern"}});
  }
  void OuvrirLignes(const V &l) { Ouvrir(Motif(lignes = l)); }
  const std::string &Wif(int i) const { return lignes.at(static_cast<std::size_t>(i - 1)); }
  // The frame of pick i.
  std::string Duite(int i) const { return Cadre24(Wif(i)); }
  V lignes;
};

inline std::string Hexa(const std::string &octets) {
  static const char *c = "0123456789ABCDEF";
  std::string s;
  for (unsigned char o : octets) (s += c[o / 16]) += c[o % 16];
  return s;
}

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
inline std::string Mots(std::initializer_list<int> valeurs) {
  std::string s;
  for (int v : valeurs) (s += static_cast<char>(v & 255)) += static_cast<char>(v >> 8 & 255);
  return s;
}
