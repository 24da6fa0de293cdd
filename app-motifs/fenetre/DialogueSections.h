// Asks which patterns stand one behind the other, and how often each.
#pragma once

#include <QDialog>
#include <memory>
#include <vector>

#include "motifs/Assemblage.h"
#include "motifs/Extrait.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;
class QSpinBox;

class DialogueSections : public QDialog {
  Q_OBJECT

 public:
  // Begins with the pattern of that rank, from 0. Looks into `motifs`, which has to outlive it and must not
  // change meanwhile.
  DialogueSections(const std::vector<std::shared_ptr<const Motif>> &motifs, int rang, Langue langue,
                   QWidget *parent);

  // What was chosen, first woven first; never empty once the dialogue is accepted, which it can be only with
  // a total that the loom takes.
  std::vector<Piece> Pieces() const;
  // Whether an empty pick stands between two repeats.
  bool Separer() const;

 private:
  QString Selon(const char *fr, const char *en) const;
  void Borner();  // the picks that the chosen pattern has
  void Ajouter(int rang, Etendue duites, int fois);
  void Deplacer(int pas);  // -1 up, 1 down
  void Compter();          // the total, in picks, and whether it can be accepted

  const std::vector<std::shared_ptr<const Motif>> &motifs_;
  const Langue langue_;
  QComboBox *choix_;
  QSpinBox *fois_, *de_, *a_;
  QListWidget *sections_;
  QCheckBox *separer_;
  QLabel *total_;
  QPushButton *accepter_;
};
