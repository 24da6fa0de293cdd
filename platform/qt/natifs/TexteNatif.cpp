#include "platform/qt/natifs/TexteNatif.h"

#include <QFontInfo>
#include <QStringDecoder>
#include <cmath>

#include "base/CodePage.h"

namespace {
QString DeWindows1252(const std::string &octets) {
  QString texte;
  texte.reserve(static_cast<qsizetype>(octets.size()));
  for (const char c : octets) texte += QChar(Caractere1252(static_cast<unsigned char>(c)));
  return texte;
}

QString familleChoisie = QStringLiteral("Arial");
}  // namespace

QString Texte(const std::string &octets) {
  QStringDecoder decodeur(QStringDecoder::Utf8, QStringConverter::Flag::Stateless);
  QString texte = decodeur(QByteArrayView(octets.data(), static_cast<qsizetype>(octets.size())));
  if (decodeur.hasError()) texte = DeWindows1252(octets);
  if (texte.contains(u'\r')) texte.replace(u"\r\n"_qs, u"\n"_qs).replace(u'\r', u'\n');
  return texte;
}

std::string Octets(const QString &texte) { return texte.toStdString(); }

int CodeCaractere(QChar caractere) {
  const char16_t c = caractere.unicode();
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return c;
  for (int i = 0; i < 32; ++i)
    if (kSuperieurs1252[i] == c) return 0x80 + i;
  return '?';
}

QString CaractereDeCode(int code) { return DeWindows1252(std::string(1, static_cast<char>(code))); }

QString Filtre(const std::function<int(int)> &filtre, const QString &texte) {
  QString passes;
  for (const QChar c : texte) {
    const int code = CodeCaractere(c), suite = filtre(code);
    if (suite != 0) passes += suite == code ? QString(c) : CaractereDeCode(suite);
  }
  return passes;
}

void ChoisirFamille() { familleChoisie = QFontInfo(Fonte(Police{})).family(); }

QFont Fonte(const Police &police) {
  // Where the desktop has no Arial, it knows the one of the same measures.
  QFont fonte(familleChoisie);
  // In pixels, so that the desktop's own dots per inch change no layout.
  fonte.setPixelSize(std::max(1, qRound(police.Taille * 96 / 72)));
  fonte.setBold(police.Gras);
  fonte.setItalic(police.Italique);
  return fonte;
}

QRect Pixels(double gauche, double haut, double largeur, double hauteur) {
  auto pixel = [](double twips) { return static_cast<int>(std::lround(twips / kTwipsParPixel)); };
  return {pixel(gauche), pixel(haut), std::max(0, pixel(largeur)), std::max(0, pixel(hauteur))};
}
