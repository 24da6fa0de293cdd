// The window: patterns at the left, the drawing in the middle, findings at the right, the verbs as keys
// below.
#pragma once

#include <QMainWindow>
#include <memory>
#include <string>
#include <vector>

#include "motifs/Constats.h"

class QLabel;
class QListWidget;
class QPushButton;
class QSpinBox;
class VueMotif;

class FenetreMotifs : public QMainWindow {
  Q_OBJECT

 public:
  // `dossierExecutable` is where the program lies; the user's Brandis folder is found from it.
  FenetreMotifs(std::string dossierExecutable, Langue langue);

  // Adds patterns to the list and shows the last; one that is there is read again. Tells all that are refused
  // in one message.
  void Ouvrir(const QStringList &chemins);

 protected:
  void dragEnterEvent(QDragEnterEvent *evenement) override;
  void dropEvent(QDropEvent *evenement) override;

 private:
  using MotifOuvert = std::shared_ptr<const Motif>;

  QString Selon(const char *fr, const char *en) const;
  void Composer();
  QWidget *ComposerListe();
  QWidget *ComposerConstats();
  QWidget *ComposerTouches();
  QPushButton *Touche(const char *nom, const QString &texte, const QString &explication,
                      void (FenetreMotifs::*faire)());

  MotifOuvert Courant() const;
  void MontrerCourant();
  void MontrerConstats();
  void MontrerLieu();

  // The keys.
  void ChoisirFichiers();
  void MettreDansBrandis();
  void EnregistrerImage();
  void EcrireEnfilage();
  void AssemblerSections();
  void FaireProjet();
  void Fermer();

  // Runs a step that writes; a file that is there is written over only when the weaver agrees. Shows what is
  // refused.
  template <class F>
  void Ecrire(F &&faire);
  void Refuser(const QString &texte);
  // A name to write to, asked of the weaver; the dialog asks before it gives one that is there.
  QString DemanderCible(const QString &titre, const QString &propose, const QString &filtre);

  const std::string dossierExecutable_;
  const Langue langue_;
  std::vector<MotifOuvert> motifs_;
  std::vector<Constat> constats_;
  QListWidget *liste_ = nullptr, *listeConstats_ = nullptr;
  QLabel *titre_ = nullptr;
  QSpinBox *flotte_ = nullptr;
  VueMotif *vue_ = nullptr;
  std::vector<QPushButton *> touches_;  // those that need a pattern
};
