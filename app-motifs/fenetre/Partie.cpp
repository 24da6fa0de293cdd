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

BRANDIS_PARTIE int brandis_motifs_fenetre(const std::string &dossierExecutable, Langue langue,
                                          const std::vector<std::string> &fichiers) {
  int nombre = 1;
  char nom[] = "brandis-motifs";
  char *mots[] = {nom, nullptr};
  QApplication application(nombre, mots);
  QApplication::setDesktopFileName(QStringLiteral("org.brandis.motifs"));
  QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("org.brandis.brandis")));
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
