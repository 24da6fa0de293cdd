#include "platform/qt/machine/Rapport.h"

#include <QApplication>
#include <QMessageBox>
#include <cstdio>
#include <cstdlib>

#include "platform/qt/natifs/TexteNatif.h"

namespace {
bool EcranOccupe() {
  if (!qobject_cast<QApplication *>(QCoreApplication::instance())) return false;
  const QString nom = QGuiApplication::platformName();
  return nom != u"offscreen" && nom != u"minimal" && !qEnvironmentVariableIsSet("CI");
}

void Dire(const std::string &texte, QMessageBox::Icon icone) {
  std::fprintf(stderr, "%s\n", texte.c_str());
  std::fflush(nullptr);
  if (EcranOccupe()) QMessageBox(icone, QStringLiteral("Brandis"), Texte(texte)).exec();
}
}  // namespace

void Annoncer(const std::string &texte) { Dire(texte, QMessageBox::Information); }

void RapporterEtFinir(const std::string &rapport, const std::function<void()> &ensuite) {
  Dire(rapport, QMessageBox::Critical);
  if (ensuite) ensuite();
  std::_Exit(1);
}
