// Between the toolkit's texts and those of the patterns.
#pragma once

#include <QFile>
#include <QFileInfo>
#include <QString>

#include "motifs/Motif.h"

inline QString Texte(const std::string &t) { return QString::fromStdString(t); }
inline std::string Chemin(const QString &t) { return QFile::encodeName(t).toStdString(); }
inline QString Nom(const Motif &motif) {
  return QFileInfo(QFile::decodeName(motif.chemin.c_str())).fileName();
}
