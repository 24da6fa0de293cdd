// The record of every view: compares those in the tree with the views as they are, or writes them anew.
//   releves <program's folder> <folder of the records> [--ecrire]
#include <QApplication>
#include <QLoggingCategory>
#include <cstdio>
#include <cstring>

#include "app/vues/Registre.h"
#include "app/vues/SansEncre.h"
#include "platform/qt/natifs/StyleNatif.h"

int main(int nombre, char **mots) {
  if (nombre < 3)
    return std::fprintf(stderr, "releves <program's folder> <folder of the records> [--ecrire]\n"), 2;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qunsetenv("QT_SCALE_FACTOR");
  OublierPolices();
  QApplication application(nombre, mots);
  QApplication::setQuitOnLastWindowClosed(false);
  QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
  PrendreSansEncre();
  InstallerStyle();

  Registre registre;
  std::vector<std::string> ordre;
  Vues *vues = nullptr;
  Vues source(mots[1], [&](const std::string &nom, Fenetre &f) {
    registre[nom] = Relever(*vues, f);
    ordre.push_back(nom);
  });
  vues = &source;
  for (const bool francais : {true, false}) vues->Parcourir(francais);
  if (nombre > 3 && std::strcmp(mots[3], "--ecrire") == 0)
    return EcrireRegistre(mots[2], registre, ordre) ? 0 : 1;

  const std::vector<std::string> differences = Differences(LireRegistre(mots[2]), registre);
  if (differences.empty()) return 0;
  for (const std::string &phrase : differences) std::printf("%s\n", phrase.c_str());
  std::printf("\nIf that is what was meant, write the records anew: cmake --build build --target releves\n");
  return 1;
}
