#include "app/vues/SansEncre.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <initializer_list>
#include <stdexcept>
#include <utility>
#include <vector>

namespace {
constexpr int kCarre = 1000, kLargeur = 530, kHaut = 900, kBas = 230;  // units of the em square
constexpr int kPremier = 0x20, kDernier = 0x2fff;
const QString kFamille = QStringLiteral("Arial");  // that the windows ask for

// Words of 16 bits as the format has them.
QByteArray Mots(std::initializer_list<int> valeurs) {
  QByteArray octets;
  for (const int v : valeurs) octets += QByteArray{1, static_cast<char>(v >> 8)} + static_cast<char>(v);
  return octets;
}
QByteArray Double(qsizetype v) { return Mots({static_cast<int>(v >> 16), static_cast<int>(v & 0xffff)}); }

QByteArray Noms() {
  QByteArray famille;
  for (const QChar c : kFamille) famille += Mots({c.unicode()});
  const int n = static_cast<int>(famille.size());
  return Mots({0, 1, 18, 3, 1, 0x409, 1, n, 0}) + famille;
}

// Two letters, both empty: the missing one, and the one that every character is.
QByteArray Fichier(bool gras, bool italique) {
  const int style = (gras ? 1 : 0) | (italique ? 2 : 0);
  const int choix = style == 0 ? 0x40 : (italique ? 1 : 0) | (gras ? 0x20 : 0);
  const QByteArray caracteres = Mots({0, 1, 3, 10}) + Double(12) + Mots({13, 0}) + Double(28) + Double(0) +
                                Double(1) + Double(kPremier) + Double(kDernier) + Double(1);
  const std::vector<std::pair<QByteArray, QByteArray>> tables{
      {"OS/2", Mots({4, kLargeur, gras ? 700 : 400, 5}) + QByteArray(54, 0) +
                   Mots({choix, kPremier, kDernier, kHaut, -kBas, 0, kHaut, kBas}) + QByteArray(8, 0) +
                   Mots({520, 720, 0, 32, 1})},
      {"cmap", caracteres},
      {"glyf", QByteArray(4, 0)},
      {"head", Double(0x10000) + Double(0x10000) + Double(0) + Double(0x5f0f3cf5) + Mots({0, kCarre}) +
                   QByteArray(16, 0) + Mots({0, -kBas, kLargeur, kHaut, style, 6, 2, 0, 0})},
      {"hhea", Double(0x10000) + Mots({kHaut, -kBas, 0, kLargeur}) + QByteArray(22, 0) + Mots({1})},
      {"hmtx", Mots({kLargeur, 0, 0})},
      {"loca", Mots({0, 0, 0})},
      {"maxp", Double(0x10000) + Mots({2}) + QByteArray(26, 0)},
      {"name", Noms()},
      {"post", Double(0x30000) + QByteArray(28, 0)}};
  QByteArray liste, contenu;
  const qsizetype debut = 12 + 16 * static_cast<qsizetype>(tables.size());
  for (const auto &[nom, table] : tables) {
    liste += nom + Double(0) + Double(debut + contenu.size()) + Double(table.size());
    contenu += table + QByteArray((4 - table.size() % 4) % 4, 0);
  }
  return Double(0x10000) + Mots({static_cast<int>(tables.size()), 128, 3, 32}) + liste + contenu;
}
}  // namespace

void OublierPolices() {
  const QString vide = QDir::temp().filePath(QStringLiteral("brandis-sans-polices.conf"));
  QFile fichier(vide);
  if (fichier.open(QIODevice::WriteOnly)) fichier.write("<fontconfig></fontconfig>\n");
  qputenv("FONTCONFIG_FILE", QFile::encodeName(vide));
  qputenv("FONTCONFIG_PATH", "");
}

void PrendreSansEncre() {
  for (const auto &[gras, italique] : {std::pair{false, false}, {true, false}, {false, true}, {true, true}})
    if (QFontDatabase::addApplicationFontFromData(Fichier(gras, italique)) < 0)
      throw std::runtime_error("the type without ink was refused");
}
