// The machine behind Qt: windows, dialogs, pictures, notification icon, serial port.
#pragma once

#include <QEventLoop>
#include <QPointer>
#include <QScreen>
#include <QSystemTrayIcon>
#include <QThreadPool>
#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Plateforme.h"
#include "platform/qt/machine/DossierProgramme.h"
#include "platform/qt/machine/FinDehors.h"
#include "platform/qt/machine/PortSerieQt.h"
#include "platform/qt/machine/SuiviSession.h"
#include "platform/qt/miroir/Miroir.h"
#include "platform/qt/natifs/MagasinImages.h"

class PlateformeQt : public Plateforme {
 public:
  explicit PlateformeQt(const DossiersProgramme &dossiers);

  Miroir &LeMiroir() { return miroir_; }
  // Receives the message number of a press on the notification icon.
  std::function<void(int message)> MessageIcone;
  // Brings the main window before the others, out of the notification area or the task bar too.
  void Ramener();
  // What happens to the port, told at once in the middle of whatever runs: no place to touch a window.
  std::function<void(EvenementLigne, const std::string &appareil)> LigneVue;
  // How the line stands, told as an event of its own whenever that may have changed.
  std::function<void(EtatLigne)> LigneChangee;
  // The device is back, told as an event, before anything that waited goes out.
  std::function<void()> LigneRevenue;
  // Ends the program as the weaver would: somebody outside wants the end. It comes whatever this leaves open,
  // and no window waits for a reader any more.
  std::function<void()> FinDemandee;
  // Makes of the report of a failure that ends the process what is told of it.
  std::function<std::string(const std::string &rapport)> CompleterRapport;
  // What is left to be done once that report was read. No event comes in any more.
  std::function<void()> ApresRapport;

  PortSerie &MSComm1() override { return port_; }
  void ShowOpen(DialogueFichier &dialogue) override;
  void DoEvents() override;
  void Rafraichir() override;
  void RafraichirFenetre(Fenetre &fenetre) override;
  void Montrer(Fenetre &fenetre) override;
  void MontrerModal(Fenetre &fenetre) override;
  void DonnerFocus(Controle &controle) override { miroir_.DonnerFocus(controle); }
  void OuvrirAdresse(const std::string &adresse) override;
  Entier IconeNotification(int action, const std::string &bulle) override;
  void Beep() override;
  bool DemanderReprise(const std::string &texte) override;
  void PousserSurDisque(int descripteur) override;
  double Aujourdhui() override;
  Ecran EcranDisponible() override;
  const Surface &Picture(const std::string &nom) override { return images_.Picture(nom); }
  const Surface &LoadPicture(const std::string &chemin) override { return images_.LoadPicture(chemin); }
  std::string DossierProgramme() override { return dossiers_.programme; }
  void Terminer() override;

 private:
  struct Modale {
    Fenetre *fenetre;
    QEventLoop *boucle;
  };
  void FinirAttentes();
  void AnnoncerLigne();
  void SuivreLigne(EvenementLigne evenement);
  void FinirSurRapport(const std::string &rapport);
  void FinirDeDehors();
  void CliquerIcone();

  DossiersProgramme dossiers_;
  MagasinImages images_;
  PortSerieQt port_;
  std::vector<Modale> modales_;  // the modal windows, the innermost last
  std::unique_ptr<QSystemTrayIcon> icone_;
  QTimer zoneLa_;            // while the window is hidden there: one that goes away gives it back
  QPointer<QScreen> ecran_;  // on which the window opened; its kept place is there
  std::atomic<bool> pousseeAttendue_ = false;
  QThreadPool disque_;  // one thread, which waits for the disk in the place of the events
  bool terminee_ = false, finDehors_ = false;
  SuiviSession suivi_;
  Miroir miroir_;
  QObject vivante_;  // what is put off dies with the platform
  FinDehors dehors_;
};
