// The window's part, loaded when no verb is given.
#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QLibraryInfo>
#include <QTranslator>

#include "app-motifs/Parties.h"
#include "app-motifs/fenetre/Boiseries.h"
#include "app-motifs/fenetre/FenetreMotifs.h"
#include "app-motifs/fenetre/VueMotif.h"

namespace {
// That of the desktop's theme, or of the folder that the program runs from.
QIcon Icone(const std::string &dossierExecutable) {
  QIcon ici;
  for (const int taille : {16, 22, 24, 32, 48, 64})
    ici.addFile(QStringLiteral("%1/Images/Motifs%2.png")
                    .arg(QFile::decodeName(dossierExecutable.c_str()))
                    .arg(taille));
  return QIcon::fromTheme(QStringLiteral("org.brandis.motifs"), ici);
}
}  // namespace

BRANDIS_PARTIE int brandis_motifs_fenetre(const std::string &dossierExecutable, Langue langue,
                                          const std::vector<std::string> &fichiers) {
  int nombre = 1;
  char nom[] = "brandis-motifs";
  char *mots[] = {nom, nullptr};
  QApplication application(nombre, mots);
  QApplication::setDesktopFileName(QStringLiteral("org.brandis.motifs"));
  QApplication::setWindowIcon(Icone(dossierExecutable));
  QTranslator traducteur;  // the toolkit's own words
  if (langue == Langue::Francais &&
      traducteur.load(QStringLiteral("qtbase_fr"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QApplication::installTranslator(&traducteur);
  Habiller(application);
  InstallerAccesVue();
  FenetreMotifs fenetre(dossierExecutable, langue);
  fenetre.show();
  QStringList chemins;
  for (const std::string &f : fichiers) chemins << QFile::decodeName(f.c_str());
  if (!chemins.isEmpty()) fenetre.Ouvrir(chemins);
  return QApplication::exec();
}
