// The weft's colour changes, to be read and printed.
#pragma once

#include <QDialog>

#include "motifs/Motif.h"

class DialogueCouleurs : public QDialog {
  Q_OBJECT

 public:
  DialogueCouleurs(const Motif &motif, Langue langue, QWidget *parent);

 private:
  void Imprimer();
  const Langue langue_;
  QString texte_;
};
