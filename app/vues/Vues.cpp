#include "app/vues/Vues.h"

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <QApplication>
#include <filesystem>
#include <stdexcept>

#include "app/Montage.h"
#include "base/TexteNumerique.h"
#include "commands/CommandesProgramme.h"
#include "display/Voyants.h"
#include "events/EvenementsFenetre.h"
#include "events/EvenementsSurvol.h"
#include "kit/Attente.h"
#include "kit/BullesInfo.h"
#include "kit/FenetreLigne.h"
#include "kit/FenetreMessage.h"
#include "kit/FenetreMessageCourt.h"
#include "kit/FenetreMessageErreur.h"
#include "kit/FenetreRappel.h"
#include "kit/FeuilleAPropos.h"
#include "kit/FeuilleRemarque.h"
#include "session/Commandes.h"
#include "session/FenetreTissagePrincipale.h"
#include "weaving/SequenceurDuites.h"

namespace fs = std::filesystem;

// A modal window is taken while it stands, and closed at once.
class Vues::Machine : public PlateformeQt {
 public:
  using PlateformeQt::PlateformeQt;
  void MontrerModal(Fenetre &f) override {
    Montrer(f);
    PendantModal(f);
    Decharger(f);
    Rafraichir();
  }
  void ShowOpen(DialogueFichier &d) override { d.FileName = DossierProgramme() + "/Data/" + Motif; }
  double Aujourdhui() override { return 46349; }  // 2026-11-23
  std::function<void(Fenetre &)> PendantModal;
  std::string Motif;
};

Vues::Vues(const std::string &programme, Prise prendre) : prendre_(std::move(prendre)) {
  const fs::path base = dossier_.path().toStdString();
  fs::create_directory(base / "Ports");
  fs::copy(programme + "/Dessins Boutons", base / "Dessins Boutons");
  fs::create_directory(base / "Data");
  for (const auto &f : fs::directory_iterator(programme + "/Data"))
    if (f.path().extension() == ".Wif") fs::copy(f.path(), base / "Data");
  fs::create_directory_symlink(programme + "/Images", base / "Images");
  ligne_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
  if (ligne_ < 0 || grantpt(ligne_) != 0 || unlockpt(ligne_) != 0)
    throw std::runtime_error("no pseudo-terminal");
  fs::create_symlink(ptsname(ligne_), base / "Ports" / "com1");
  machine_ = std::make_unique<Machine>(DossiersProgramme{base, {base, programme}});
  machine_->PendantModal = [this](Fenetre &f) { Prendre(nom_, f); };
}

Vues::~Vues() { close(ligne_); }

QWidget *Vues::Natif(const Controle &c) const { return machine_->LeMiroir().Widget(c); }

void Vues::Faire(const std::function<void()> &procedure) { machine_->LeMiroir().Passer(procedure); }

void Vues::Prendre(const std::string &nom, Fenetre &f) {
  machine_->Rafraichir();
  QCoreApplication::sendPostedEvents();
  prendre_(std::string(session.LangueFrancaise ? "fr-" : "en-") + nom, f);
}

void Vues::Voir(const std::string &nom, Fenetre &f, const std::function<void()> &lever) {
  nom_ = nom;
  Faire(lever);
  if (f.Visible) Prendre(nom, f);
}

void Vues::Parcourir(bool francais) {
  LancerProgramme(francais);
  VoirDebut();
  VoirPanneaux();
  VoirTissage();
  VoirBulles();
  VoirMessages();
  for (Fenetre *f : ToutesFenetres()) Decharger(*f);
  machine_->Rafraichir();
}

void Vues::LancerProgramme(bool francais) {
  for (Fenetre *f : ToutesFenetres()) Decharger(*f);
  machine_->Rafraichir();
  fs::remove(fs::path(dossier_.path().toStdString()) / "Data" / "Configuration.Con");
  session = {};
  fenetre = FenetreTissagePrincipale();
  Monter(*machine_);
  Faire([] { Decharger(fenetreRappel); });
  session.IntervalleMessageCourt = 30000;
  session.PortMetier = 1;
  Faire([&] { Drapeau_Click(francais ? 1 : 2); });
}

void Vues::Ouvrir(const char *motif) {
  machine_->Motif = motif;
  Faire([] { BoutonProgramme_Click(Commande::OuvrirMotif); });
}

void Vues::VoirDebut() {
  Prendre("message-premier-depart", fenetreMessageCourt);
  Faire([] { Decharger(fenetreMessageCourt); });
  Prendre("depart", fenetre);
  QApplication::setActiveWindow(Natif(fenetre));  // else nothing has the keyboard
  Natif(fenetre.BoutonProgramme[Commande::OuvrirMotif])->setFocus(Qt::TabFocusReason);
  Prendre("touche-tab", fenetre);
  Natif(fenetre)->setFocus();
  QApplication::setActiveWindow(nullptr);
  Voir("deplacee", fenetre, [] {
    fenetre.BoutonProgramme[Commande::BasculerBulles].Visible = false;
    fenetre.PicTVCentre.Visible = true;
    PicTVCentre_MouseMove();
  });
  Faire([] {
    fenetre.PicTVCentre.Visible = false;
    fenetre.BoutonProgramme[Commande::BasculerBulles].Visible = true;
    AccorderRemarque();
  });
  Voir("un-instant", fenetre, [] { fenetre.UnInstant.Visible = true; });
  Faire([] { fenetre.UnInstant.Visible = false; });
  Voir("a-propos", feuilleAPropos, [] { BoutonAide_Click(); });
  Voir("attente", attente, [] {
    attente.Montrer(true);
    attente.EcrirePourcent(57);
  });
  Faire([] { attente.Montrer(false); });
}

void Vues::VoirPanneaux() {
  Voir("configuration", fenetre, [] { BoutonProgramme_Click(Commande::Configurer); });
  Faire([] {
    fenetre.ComConfiguration[5].Text = Selon("Patron", "Pattern");
    BoutonProgramme_Click(Commande::SortirConfiguration);
  });
  Faire([] { BoutonProgramme_Click(Commande::Diagnostiquer); });
  Voir("diagnostic-24", fenetre, [] {
    for (int i : {1, 4, 5, 13, 24}) fenetre.CheckSelenoide[i].Value = true;
    ChangerVoyant(Commande::DebuterTest, true);
    fenetre.Text1.Text = "0\r\n0 : 1 4 5 13 24\r\n";
  });
  Faire([] { BoutonProgramme_Click(Commande::QuitterDiagnostic); });
}

void Vues::VoirTissage() {
  Ouvrir("Figure24.Wif");
  Prendre("patron-24", fenetre);
  Voir("configuration-patron", fenetre, [] { BoutonProgramme_Click(Commande::Configurer); });
  Faire([] { BoutonProgramme_Click(Commande::AnnulerConfiguration); });
  Voir("survol-fonce", fenetre, [] { BoutonProgramme_MouseMove(Commande::Configurer); });
  Faire(Picture2_MouseMove);
  Faire([] { BoutonProgramme_Click(Commande::Demarrer); });
  for (int i = 0; i < 26; ++i) Faire(DuiteSuivante);
  Prendre("tissage-24", fenetre);
  Voir("survol-clair", fenetre, [] { BoutonProgramme_MouseMove(Commande::ChoisirDuite); });
  Faire(Picture2_MouseMove);
  Voir("entree-duite", fenetre, [] { BoutonProgramme_Click(Commande::ChoisirDuite); });
  Faire([] { fenetre.FondEntreDuite.Visible = false; });
  Voir("toile", fenetre, [] { BoutonProgramme_Click(Commande::TisserToile); });
  Voir("arret", fenetre, [] { BoutonProgramme_Click(Commande::Arreter); });
  Voir("sauvegarde", feuilleRemarque, [] { BoutonProgramme_Click(Commande::Enregistrer); });
  Faire([] { BoutonProgramme_Click(Commande::Configurer); });
  Faire([] {
    fenetre.ComConfiguration[2].Text = "16";
    BoutonProgramme_Click(Commande::SortirConfiguration);
  });
  Prendre("patron-16", fenetre);
  Voir("diagnostic-16", fenetre, [] { BoutonProgramme_Click(Commande::Diagnostiquer); });
  Faire([] { BoutonProgramme_Click(Commande::QuitterDiagnostic); });
}

void Vues::VoirBulles() {
  session.BullesActives = true;
  auto bulle = [this](const std::string &nom, const std::function<void()> &lever) {
    Faire(lever);
    for (BulleInfo *b : std::initializer_list<BulleInfo *>{&bulleInfoBasGauche, &bulleInfoHautDroit,
                                                           &bulleInfoHautGauche, &bulleInfoBasDroit})
      if (b->Visible) Prendre("bulle-" + nom, *b);
    Faire(FermerBulles);
  };
  for (int i = 0; i < Commande::Nombre; ++i)
    bulle((i < 10 ? "0" : "") + std::to_string(i), [i] { AfficherBulleBouton(i); });
  bulle("aide", AfficherBulleAide);
  bulle("barre", AfficherBulleBarre);
  bulle("drapeau-1", [] { AfficherBulleDrapeau(1); });
  bulle("drapeau-2", [] { AfficherBulleDrapeau(2); });
  bulle("logo", AfficherBulleLogo);
  session.BullesActives = false;
}

void Vues::VoirMessages() {
  machine_->Motif = "Pedales8.Wif";
  Voir("ligne-coupee", fenetreLigne, [] { MontrerEtatLigne(EtatLigne::Coupee); });
  Voir("ligne-bloquee", fenetreLigne, [] { MontrerEtatLigne(EtatLigne::Bloquee); });
  Faire([] { MontrerEtatLigne(EtatLigne::Bonne); });
  Voir("rappel", fenetreRappel, [] {
    AfficherRappel({true,
                    "/home/weaver/Data/Figure24.Wif",
                    "227",
                    "2026-11-23",
                    "08:15:30",
                    "122",
                    true,
                    true,
                    {Option::PatronEtToile, 385, 17, 0}});
  });
  Faire([] { Decharger(fenetreRappel); });
  Voir("message-sans-liftplan", fenetreMessage, [] { BoutonProgramme_Click(Commande::OuvrirMotif); });
  for (const int genre : {0, 1, 16, 32, 48, 64}) {
    Voir("message-court-" + std::to_string(genre), fenetreMessageCourt, [genre] {
      session.Etat = genre;
      const Entier numero = 8002;
      AfficherMessageCourt(TitreErreur(),
                           "Erreur numéro:" + Str(numero) + "; Description: Invalid port number");
    });
    Faire([] { Decharger(fenetreMessageCourt); });
  }
  for (const int genre : {8, 16, 32, 48, 64})
    Voir("message-erreur-" + std::to_string(genre), fenetreMessageErreur, [genre] {
      session.Etat = genre;
      FenetreMessageErreur &f = Charger(fenetreMessageErreur);
      plateforme().MontrerModal(f);
    });
  session.Etat = EtatEtape::Echec;
}
