// Asks which patterns stand one behind the other, and how often each.
#pragma once

#include <QDialog>
#include <memory>
#include <vector>

#include "motifs/Assemblage.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;
class QSpinBox;

class DialogueSections : public QDialog {
  Q_OBJECT

 public:
  // Begins with the pattern of that rank.
  DialogueSections(const std::vector<std::shared_ptr<const Motif>> &motifs, int rang, Langue langue,
                   QWidget *parent);

  std::vector<Piece> Pieces() const;
  bool Separer() const;

 private:
  QString Selon(const char *fr, const char *en) const;
  void Ajouter(int rang, int fois);
  void Deplacer(int pas);
  void Compter();

  const std::vector<std::shared_ptr<const Motif>> &motifs_;
  const Langue langue_;
  QComboBox *choix_;
  QSpinBox *fois_;
  QListWidget *sections_;
  QCheckBox *separer_;
  QLabel *total_;
  QPushButton *accepter_;
};
