#include "tests/Banc.h"

void PortBanc::PortOpen(bool ouvrir) {
  if (ouvrir && !utilisable) throw ErreurExecution(Erreur::PortInutilisable);
  ouvert = ouvrir;
  if (!ouvrir) recus.clear();
}

void PortBanc::Output(const std::string &octets) {
  if (!ouvert) throw ErreurExecution(Erreur::PortFerme);
  if (ecritureEnPanne) throw ErreurExecution(Erreur::Peripherique);
  if (enEcrivant) enEcrivant();
  ecrits.push_back(octets);
}

std::string PortBanc::Input() {
  if (!ouvert || recus.empty()) return "";
  std::string s = recus.front();
  recus.pop_front();
  return s;
}

namespace {
struct Collecteur : Visiteur {
  std::string textes;
  void Voir(const std::string &, Controle &c, Controle &) override {
    if (c.genre() != Genre::Etiquette || !c.Visible) return;
    const std::string &t = static_cast<Etiquette &>(c).Caption;
    if (!t.empty()) textes += (textes.empty() ? "" : "|") + t;
  }
  void Voir(const std::string &, Minuterie &) override {}
};

std::string Textes(Fenetre &f) {
  Collecteur c;
  f.Visiter(c);
  return c.textes;
}
}  // namespace

void PlateformeBanc::ShowOpen(DialogueFichier &d) {
  demande = d;
  if (fichierChoisi.empty() && d.CancelError) throw ErreurExecution(Erreur::DialogueAnnule);
  d.FileName = fichierChoisi;
}

void PlateformeBanc::Montrer(Fenetre &f) { messages.push_back(Textes(f)); }

void PlateformeBanc::MontrerModal(Fenetre &f) {
  messages.push_back(Textes(f));
  if (pendantModal) pendantModal(f);
  Decharger(f);
}

const Surface &PlateformeBanc::LoadPicture(const std::string &) {
  static const Surface dessin(20, 20, Gris(192));
  return dessin;
}

const Surface &PlateformeBanc::Picture(const std::string &nom) {
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

std::set<int> LamesDe(const std::string &ligne) {
  std::set<int> lames;
  std::stringstream liste(ligne.substr(ligne.find('=') + 1));
  for (std::string n; std::getline(liste, n, ',');) lames.insert(std::atoi(n.c_str()));
  return lames;
}

std::string Cadre24(const std::set<int> &lames) {
  int octets[2] = {0, 0};
  for (int l : lames)
    if (l >= 1 && l <= 16) octets[(l - 1) / 8] |= 1 << (l - 1) % 8;
  const char a = static_cast<char>(octets[0]), b = static_cast<char>(octets[1]);
  return kLiberer + "\033I" + a + b + a + '\0' + "\r\n\033E\r\n";
}

std::string Cadre24(const std::string &ligne) {
  return Cadre24(ligne.find(',') == std::string::npos ? std::set<int>() : LamesDe(ligne));
}

std::string Hexa(const std::string &octets) {
  static const char *c = "0123456789ABCDEF";
  std::string s;
  for (char octet : octets) {
    const auto o = static_cast<unsigned char>(octet);
    (s += c[o / 16]) += c[o % 16];
  }
  return s;
}

std::string Mots(std::initializer_list<int> valeurs) {
  std::string s;
  for (int v : valeurs) (s += static_cast<char>(v & 255)) += static_cast<char>(v >> 8 & 255);
  return s;
}

void Banc::SetUp() {
  char modele[] = "/tmp/banc-XXXXXX";
  pf.dossier = mkdtemp(modele);
  std::filesystem::create_directory(pf.dossier + "/Data");
  InstallerPlateforme(&pf);
  Recommencer();
}

void Banc::Recommencer() {
  const auto aNeuf = [](auto &...objets) { ((objets = std::decay_t<decltype(objets)>()), ...); };
  aNeuf(session, fenetre, attente, reglages, port, pf.messages, feuilleRemarque, feuilleAPropos);
  aNeuf(fenetreMessageCourt, fenetreMessage, fenetreMessageErreur, fenetreRappel);
  aNeuf(bulleInfoBasGauche, bulleInfoHautDroit, bulleInfoHautGauche, bulleInfoBasDroit);
  LierEvenements();
}

V Banc::Lignes(int n) {
  V lignes;
  for (int i = 1; i <= n; ++i)
    lignes.push_back(std::to_string(i) + "=" + std::to_string(1 + i % 16) + "," +
                     std::to_string(1 + (i / 16 + 2 * i + 3) % 16));
  return lignes;
}

void Banc::Configurer(const std::map<int, std::string> &choix) {
  Commander(Commande::Configurer);
  for (const auto &[i, texte] : choix) fenetre.ComConfiguration[i].Text = texte;
  Commander(Commande::SortirConfiguration);
}

std::string Banc::Motif(const V &lignes, const std::string &nom) const {
  std::string texte = "[WIF]\r\nVersion=1.1\r\n[LIFTPLAN]\r\n";
  for (const std::string &l : lignes) texte += l + "\r\n";
  return EcrireFichier(nom, texte + "[WEAVING]\r\nShafts=24\r\n");
}
