#include "platform/qt/Rapport.h"

#include <QApplication>
#include <QMessageBox>
#include <cstdio>
#include <cstdlib>

#include "platform/qt/TexteNatif.h"

namespace {
bool EcranOccupe() {
  if (!qobject_cast<QApplication *>(QCoreApplication::instance())) return false;
  const QString nom = QGuiApplication::platformName();
  return nom != u"offscreen" && nom != u"minimal" && !qEnvironmentVariableIsSet("CI");
}
}  // namespace

void RapporterEtFinir(const std::string &rapport) {
  std::fprintf(stderr, "%s\n", rapport.c_str());
  std::fflush(nullptr);
  if (EcranOccupe()) QMessageBox::critical(nullptr, QStringLiteral("Brandis"), Texte(rapport));
  std::_Exit(1);
}
