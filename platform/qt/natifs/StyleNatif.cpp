#include "platform/qt/natifs/StyleNatif.h"

#include <QApplication>

#include "platform/qt/champs/StyleChamps.h"
#include "platform/qt/natifs/Acces.h"
#include "platform/qt/natifs/TexteNatif.h"

void InstallerStyle() {
  InstallerChamps();
  ChoisirFamille();
  QApplication::setFont(Fonte(Police{}));
  InstallerAcces();
}
