// The window: patterns at the left, the drawing in the middle, findings at the right, the verbs as keys
// below.
#pragma once

#include <QMainWindow>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app-motifs/fenetre/Taches.h"
#include "motifs/Constats.h"
#include "motifs/Planche.h"

class Elidee;
class VueConstats;
class QListWidget;
class QPushButton;
class QSpinBox;
class QSplitter;
class VueMotif;
struct DessinPret;

class FenetreMotifs : public QMainWindow {
  Q_OBJECT

 public:
  // `dossierExecutable` is where the program lies; the user's Brandis folder is found from it. Place, size
  // and last folder are those of the last time, within the screen.
  FenetreMotifs(std::string dossierExecutable, Langue langue);

  // Adds patterns to the list and shows the last; one that is there is read again. Tells all that are refused
  // in one message.
  void Ouvrir(const QStringList &chemins);

 protected:
  void dragEnterEvent(QDragEnterEvent *evenement) override;
  void dropEvent(QDropEvent *evenement) override;
  void closeEvent(QCloseEvent *evenement) override;

 private:
  using MotifOuvert = std::shared_ptr<const Motif>;
  // A kind of file that can be written: how the list names it, and its ending.
  struct Genre {
    const char *nom, *fin;
  };

  QString Selon(const char *fr, const char *en) const;
  void Composer();
  QWidget *ComposerChateau();
  QWidget *ComposerListe();
  QWidget *ComposerDessin();
  QWidget *ComposerConstats();
  QWidget *ComposerTouches();
  QPushButton *Touche(const char *nom, const QString &texte, const QString &explication,
                      void (FenetreMotifs::*faire)());
  QPushButton *Bascule(const char *nom, const QString &texte, const QString &explication,
                       void (FenetreMotifs::*faire)());
  void Placer();

  MotifOuvert Courant() const;
  ReglagesPlanche Reglages() const;
  void MontrerCourant();
  void MontrerDessin(bool garder);
  void MontrerConstats();
  void Dire(const QString &texte);  // stays until the next deed
  // Runs work on another thread; nothing where the weaver called it off.
  template <class F>
  auto Travailler(F faire);

  // The keys.
  void ChoisirFichiers();
  void MettreDansBrandis();
  void EnregistrerImage();
  void EcrireEnfilage();
  void AssemblerSections();
  void MontrerCouleurs();
  void RamenerLames();
  void FaireProjet();
  void MontrerGuide();
  void Fermer();
  void ChoisirVue();
  void Tourner();

  // Runs a step that writes, on another thread and to its end; a file that is there is written over only when
  // the weaver agrees. Shows what is refused. Whether it was written.
  template <class F>
  bool Ecrire(F &&faire);
  // Runs a step and shows what it is refused for.
  template <class F>
  void Refusant(F &&faire);
  bool EcrireOctets(const QString &cible, const std::string &octets, const QString &ensuite = {});
  // The same for the form that `composer` gives: what it raises otherwise is said first.
  template <class F>
  bool EcrireForme(const QString &cible, F composer, const QString &ensuite = {});
  // Whether the weaver goes on in spite of faults; asks only where there are any.
  bool Malgre(const std::vector<Constat> &fautes);
  void Refuser(const QString &texte);
  // A name to write to, asked of the weaver, with the ending of the chosen kind where it has none of them;
  // empty for none. Whether a file is there already is asked when it is written.
  QString DemanderCible(const QString &titre, const QString &propose, const std::vector<Genre> &genres);

  const std::string dossierExecutable_;
  const Langue langue_;
  Taches taches_;
  std::vector<MotifOuvert> motifs_;
  std::optional<bool> structure_;  // as the weaver chose; else the view that shows more
  bool enHaut_ = false, deuxFois_ = false;
  double cote_ = 4;  // millimetres a thread on paper, as asked last
  QString dossier_;  // that files were last opened from or written to
  QListWidget *liste_ = nullptr;
  VueConstats *constats_ = nullptr;
  QSplitter *volets_ = nullptr;
  Elidee *titre_ = nullptr, *tailles_ = nullptr, *dit_ = nullptr, *place_ = nullptr;
  QSpinBox *flotte_ = nullptr;
  VueMotif *vue_ = nullptr;
  QPushButton *toucheStructure_ = nullptr, *toucheDeux_ = nullptr, *toucheHaut_ = nullptr;
  std::vector<QPushButton *> touches_;  // those that need a pattern
};
