// Makes the rasters of the pictures from their vector sources, and keeps the manifest that holds the two
// together.
//
//   dessins-outil <assets>              remakes every raster and the manifest
//   dessins-outil <assets> <name>...    remakes the rasters of these names only, for a look at them
//   dessins-outil <assets> --verifier   writes nothing; fails when a source or a raster has drifted
//
// What is shown whole, and not drawn upon, is there twice as large too, for screens with finer pixels: in
// `fines`, with the fingerprint of the file that it stands for.
#include <QCryptographicHash>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QSet>
#include <QSvgRenderer>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <stdexcept>
#include <utility>

namespace {
// Qt Svg draws every shape antialiased and passes over shape-rendering. A crisp shape is therefore
// a layer of its own, drawn three times as large and taken back by the middle of each pixel.
constexpr int kAgrandissement = 3;

struct Source {
  QString nom;
  QByteArray octets;
  QSize taille;
  bool alpha = false;
  QList<int> coucheDeForme;  // layer of each shape outside defs, in document order
  QList<bool> coucheNette;   // per layer
};

const QSet<QString> kFormes = {"path", "rect", "circle", "ellipse", "line", "polyline", "polygon", "use"};
const QSet<QString> kAutres = {"svg", "g", "defs", "linearGradient", "radialGradient", "stop", "title"};
QString avertissementQt;

[[noreturn]] void Echouer(const QString &nom, const QString &raison) {
  throw std::runtime_error((nom + ": " + raison).toStdString());
}

QByteArray LireFichier(const QString &chemin) {
  QFile fichier(chemin);
  if (!fichier.open(QIODevice::ReadOnly)) Echouer(chemin, "cannot be read");
  return fichier.readAll();
}

QStringList LireLignes(const QString &chemin) {
  return QString::fromUtf8(LireFichier(chemin)).split('\n', Qt::SkipEmptyParts);
}

QString Empreinte(const QByteArray &octets) {
  return QCryptographicHash::hash(octets, QCryptographicHash::Sha256).toHex();
}

// Four bytes a pixel, so that no row ends in padding.
QByteArray PixelsDe(const QImage &image) {
  const QImage copie = image.convertToFormat(QImage::Format_RGBA8888);
  return QByteArray(reinterpret_cast<const char *>(copie.constBits()), copie.sizeInBytes());
}

QString CheminImage(const QString &nom) {
  static const QRegularExpression bouton("^IMG[0-9]{3}$");
  if (bouton.match(nom).hasMatch()) return "Dessins Boutons/" + nom + ".BMP";
  static const QRegularExpression icone("^(Brandis|Motifs)[0-9]+$");
  if (icone.match(nom).hasMatch()) return "icones/" + nom + ".png";
  // Those that every start reads: plain pixels are there in half the time.
  static const QSet<QString> aLire = {
      "Attente",   "BITMAP101",   "BoutonAide",   "Drapeau1", "Drapeau2",    "FondCompteur", "Fond24",
      "Habillage", "ImageMetier", "Indicateur24", "LogoNor",  "PicTVCentre", "Picture3",     "UnInstant"};
  return nom + (aLire.contains(nom) ? ".bmp" : ".png");
}

// The toolkit writes bitmaps with three bytes a pixel. With four, and the top row first, the pixels lie in
// the file as they lie in memory, and are read at one go.
bool EcrireDuHaut(const QString &chemin, const QImage &image) {
  constexpr quint32 kPixels = 128, kRgb = 40, kMasques = 108;  // bytes: their place, and the two headers
  const bool alpha = image.hasAlphaChannel();
  const QImage droite = image.convertToFormat(alpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
  QFile fichier(chemin);
  if (!fichier.open(QIODevice::WriteOnly | QIODevice::Truncate)) return false;
  QDataStream flux(&fichier);
  flux.setByteOrder(QDataStream::LittleEndian);
  flux.writeRawData("BM", 2);
  flux << quint32(kPixels + droite.sizeInBytes()) << quint32(0) << kPixels;
  flux << (alpha ? kMasques : kRgb) << qint32(droite.width()) << qint32(-droite.height()) << quint16(1)
       << quint16(32) << quint32(alpha ? 3 : 0);
  for (int reste = 0; reste < 5; ++reste) flux << quint32(0);
  if (alpha) flux << quint32(0xff0000) << quint32(0xff00) << quint32(0xff) << quint32(0xff000000);
  while (fichier.pos() < kPixels) flux << quint8(0);
  for (int y = 0; y < droite.height(); ++y)
    for (int x = 0; x < droite.width(); ++x) flux << quint32(droite.pixel(x, y));
  return flux.status() == QDataStream::Ok && fichier.flush();
}

// Whether the program shows it as it is, or lays it on a key: the rest goes into faces and frames that are
// made pixel by pixel.
bool EstFine(const QString &nom) {
  static const QRegularExpression entieres(
      "^(IMG[0-9]{3}|Habillage|Picture3|PicTVCentre|UnInstant|Attente|LogoNor|BoutonAide|ImageMetier|Drapeau["
      "12]|"
      "BITMAP101|"
      "BITMAP119|BITMAP27[89]|BITMAP28[01]|Image1APropos|ImageMessage.*|Fond(8|12|16|24|32|Compteur|Ligne)|"
      "Indicateur.*|GorgeCompteur|RubanCompteur|Signe.*|BulleInfo.*|BoutonAnnuler|BoutonFermerMessage|"
      "BoutonModifierIngredientDirectement)$");
  return entieres.match(nom).hasMatch();
}
QString CheminFine(const QString &nom) { return "fines/" + nom + ".png"; }
const QString kOriginal = QStringLiteral("Original");  // key of the fingerprint

bool Ecrire(const QString &chemin, const QImage &image) {
  return chemin.endsWith(".bmp") ? EcrireDuHaut(chemin, image) : image.save(chemin);
}

// What Qt Svg would pass over in silence, and every colour from elsewhere, is refused.
void VerifierElement(const QString &nom, const QXmlStreamReader &element, bool net,
                     const QSet<QString> &palette) {
  static const QSet<QString> porteurs = {"fill", "stroke", "stop-color", "color"};
  const QString genre = element.name().toString();
  if (!kFormes.contains(genre) && !kAutres.contains(genre)) Echouer(nom, "element " + genre);
  for (const QXmlStreamAttribute &attribut : element.attributes()) {
    const QString valeur = attribut.value().toString().trimmed().toLower();
    if (attribut.name() == QLatin1String("style")) Echouer(nom, "style attribute");
    if (net && attribut.name().endsWith(QLatin1String("opacity"))) Echouer(nom, "opacity on a crisp shape");
    if (porteurs.contains(attribut.name().toString()) && valeur != "none" && !valeur.startsWith("url(#") &&
        !palette.contains(valeur))
      Echouer(nom, "colour " + valeur + " is not in palette.txt");
  }
}

Source LireSource(const QDir &assets, const QString &nom, const QSet<QString> &palette) {
  Source source;
  source.nom = nom;
  source.octets = LireFichier(assets.filePath("sources/" + nom + ".svg"));
  QList<bool> nets = {false};
  QXmlStreamReader lecteur(source.octets);
  for (int defs = 0; !lecteur.atEnd();) {
    const auto jeton = lecteur.readNext();
    const bool estDefs = lecteur.name() == QLatin1String("defs");
    if (jeton == QXmlStreamReader::EndElement) nets.removeLast(), defs -= estDefs;
    if (jeton != QXmlStreamReader::StartElement) continue;
    const QXmlStreamAttributes attributs = lecteur.attributes();
    const auto rendu = attributs.value("shape-rendering");
    nets << (rendu.isEmpty() ? nets.last() : rendu == QLatin1String("crispEdges"));
    defs += estDefs;
    VerifierElement(nom, lecteur, nets.last(), palette);
    if (lecteur.name() == QLatin1String("svg")) {
      source.taille = QSize(attributs.value("width").toInt(), attributs.value("height").toInt());
      if (source.taille.isEmpty()) Echouer(nom, "width and height are not whole pixels");
      if (attributs.value("viewBox") !=
          QString("0 0 %1 %2").arg(source.taille.width()).arg(source.taille.height()))
        Echouer(nom, "viewBox is not the size in pixels");
      source.alpha = attributs.value("data-alpha") == QLatin1String("1");
    }
    if (defs > 0 || !kFormes.contains(lecteur.name().toString())) continue;
    if (source.coucheNette.isEmpty() || nets.last() || source.coucheNette.last())
      source.coucheNette << nets.last();
    source.coucheDeForme << int(source.coucheNette.size()) - 1;
  }
  if (lecteur.hasError()) Echouer(nom, lecteur.errorString());
  return source;
}

// The source with the shapes of one layer only; groups and defs stay.
QByteArray ExtraireCouche(const Source &source, int couche) {
  QByteArray sortie;
  QXmlStreamReader lecteur(source.octets);
  QXmlStreamWriter ecrivain(&sortie);
  for (int forme = 0, defs = 0; !lecteur.atEnd();) {
    const auto jeton = lecteur.readNext();
    if (jeton != QXmlStreamReader::StartElement && jeton != QXmlStreamReader::EndElement) continue;
    const bool debut = jeton == QXmlStreamReader::StartElement;
    if (lecteur.name() == QLatin1String("defs")) defs += debut ? 1 : -1;
    if (debut && defs == 0 && kFormes.contains(lecteur.name().toString()) &&
        source.coucheDeForme[forme++] != couche)
      lecteur.skipCurrentElement();
    else
      ecrivain.writeCurrentToken(lecteur);
  }
  return sortie;
}

QImage RendreCouche(const Source &source, int couche, int facteur) {
  const bool nette = source.coucheNette[couche];
  const int echelle = nette ? kAgrandissement : 1;
  QSvgRenderer rendu(ExtraireCouche(source, couche));
  // Sixteen bits a channel: a sample on an edge must give back its very colour.
  const auto format =
      echelle == 1 ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGBA64_Premultiplied;
  QImage grande(source.taille * facteur * echelle, format);
  grande.fill(Qt::transparent);
  QPainter peintre(&grande);
  rendu.render(&peintre, QRectF(grande.rect()));
  peintre.end();
  if (!rendu.isValid() || !avertissementQt.isEmpty())
    Echouer(source.nom, "is not understood: " + avertissementQt);
  if (echelle == 1) return grande;
  QImage image(source.taille * facteur, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (const QColor milieu = grande.pixelColor(x * echelle + 1, y * echelle + 1); milieu.alpha() >= 128)
        image.setPixel(x, y, milieu.rgb());
  return image;
}

// `facteur` times as large as the drawing says.
QImage RendreSource(const Source &source, int facteur = 1) {
  QImage image(source.taille * facteur, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  for (int couche = 0; couche < source.coucheNette.size(); ++couche) {
    const QImage dessus = RendreCouche(source, couche, facteur);
    // A soft edge over a key colour would leave a coloured rim around the window's outline.
    const QRgb coin = image.pixel(0, 0);
    const bool cle = coin == 0xff0000ffU || coin == 0xffff00ffU;
    for (int y = 0; cle && y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        if (qAlpha(dessus.pixel(x, y)) % 255 != 0 && image.pixel(x, y) == coin)
          Echouer(source.nom, QString("soft edge over the key colour at %1, %2").arg(x).arg(y));
    QPainter(&image).drawImage(0, 0, dessus);
  }
  const QByteArray pixels = PixelsDe(image);
  for (qsizetype i = 3; !source.alpha && i < pixels.size(); i += 4)
    if (pixels[i] != '\xff') Echouer(source.nom, QString("pixel %1 is not opaque").arg(i / 4));
  return image.convertToFormat(source.alpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
}

// The one twice as large; its fingerprint is that of the file beside it, as it stands.
QString TraiterFine(const QDir &assets, const Source &source, bool dessiner) {
  const QString chemin = assets.filePath(CheminFine(source.nom));
  const QString original = Empreinte(LireFichier(assets.filePath(CheminImage(source.nom))));
  QImage image(chemin);
  if (dessiner) {
    const QImage ancienne = std::exchange(image, RendreSource(source, 2));
    const bool pareille = ancienne.size() == image.size() && PixelsDe(ancienne) == PixelsDe(image);
    image.setText(kOriginal, original);
    if ((!pareille || ancienne.text(kOriginal) != original) && !image.save(chemin))
      Echouer(chemin, "cannot be written");
  }
  if (image.size() != source.taille * 2 || image.text(kOriginal) != original)
    Echouer(chemin, "is missing or stands for another picture");
  return " " + Empreinte(PixelsDe(image));
}

// One manifest line per name; a raster is written only where its pixels have changed.
QStringList Traiter(const QDir &assets, const QStringList &noms, bool dessiner) {
  QSet<QString> palette;
  for (const QString &ligne : LireLignes(assets.filePath("palette.txt")))
    palette << ligne.section(' ', 1, 1).toLower();
  QStringList lignes;
  for (const QString &nom : noms) {
    const Source source = LireSource(assets, nom, palette);
    const QString chemin = assets.filePath(CheminImage(nom));
    QImage image(chemin);
    if (dessiner) {
      const QImage ancienne = std::exchange(image, RendreSource(source));
      const bool pareille = ancienne.size() == image.size() && PixelsDe(ancienne) == PixelsDe(image);
      if (!pareille && !Ecrire(chemin, image)) Echouer(chemin, "cannot be written");
    }
    if (image.size() != source.taille) Echouer(chemin, "is missing or has not the size of its source");
    lignes << QString("%1 %2x%3 %4 %5")
                  .arg(nom)
                  .arg(image.width())
                  .arg(image.height())
                  .arg(Empreinte(source.octets), Empreinte(PixelsDe(image)));
    if (EstFine(nom)) lignes.last() += TraiterFine(assets, source, dessiner);
  }
  return lignes;
}

void Verifier(const QDir &assets, const QStringList &noms) {
  QStringList images, manifeste = LireLignes(assets.filePath("manifeste.txt"));
  for (const QString &nom : noms) {
    images << CheminImage(nom);
    if (EstFine(nom)) images << CheminFine(nom);
  }
  for (const QString &ligne : Traiter(assets, noms, false))
    if (!manifeste.removeOne(ligne))
      Echouer(ligne.section(' ', 0, 0), "source or raster differs from the manifest");
  if (!manifeste.isEmpty())
    Echouer(manifeste.first().section(' ', 0, 0), "is in the manifest and has no source");
  for (const QString dossier : {"", "Dessins Boutons/", "icones/", "fines/"})
    for (const QString &fichier : QDir(assets.filePath(dossier)).entryList({"*.png", "*.bmp"}, QDir::Files))
      if (!images.contains(dossier + fichier)) Echouer(dossier + fichier, "has no source");
}
}  // namespace

int main(int argc, char **argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  QStringList arguments = application.arguments().mid(1);
  if (arguments.isEmpty()) return qCritical("dessins-outil <assets> [--verifier | name...]"), 2;
  const auto journal = qInstallMessageHandler(
      [](QtMsgType, const QMessageLogContext &, const QString &texte) { avertissementQt = texte; });
  try {
    const QDir assets(arguments.takeFirst());
    QStringList noms;
    for (const QString &fichier : QDir(assets.filePath("sources")).entryList({"*.svg"}, QDir::Files))
      noms << fichier.chopped(4);
    noms.sort();
    if (arguments.contains("--verifier")) return Verifier(assets, noms), 0;
    const QStringList lignes = Traiter(assets, arguments.isEmpty() ? noms : arguments, true);
    QFile manifeste(assets.filePath("manifeste.txt"));
    if (!arguments.isEmpty()) return 0;
    if (!manifeste.open(QIODevice::WriteOnly | QIODevice::Truncate))
      Echouer(manifeste.fileName(), "cannot be written");
    manifeste.write((lignes.join('\n') + '\n').toUtf8());
    return 0;
  } catch (const std::exception &echec) {
    qInstallMessageHandler(journal);
    return qCritical("%s", echec.what()), 1;
  }
}
