#include "platform/qt/machine/Catalogue.h"

#include <QCoreApplication>
#include <QLibraryInfo>

void Catalogue::Suivre(bool francais) {
  if (francais == francais_) return;
  francais_ = francais;
  if (!francais)
    QCoreApplication::removeTranslator(&mots_);
  else if (!mots_.isEmpty() ||
           mots_.load(QStringLiteral("qtbase_fr"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(&mots_);
}
