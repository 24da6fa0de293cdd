#include "platform/qt/machine/ReglagesPort.h"

#include <QSerialPortInfo>
#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <vector>

#include "base/ErreurExecution.h"
#include "base/FichiersBrandis.h"

namespace fs = std::filesystem;

namespace {
QSerialPort::Parity Parite(char lettre) {
  switch (std::toupper(static_cast<unsigned char>(lettre))) {
    case 'N':
      return QSerialPort::NoParity;
    case 'E':
      return QSerialPort::EvenParity;
    case 'O':
      return QSerialPort::OddParity;
    case 'M':
      return QSerialPort::MarkParity;
    case 'S':
      return QSerialPort::SpaceParity;
    default:
      throw ErreurExecution(Erreur::AppelInvalide);
  }
}

QSerialPort::StopBits Arrets(const std::string &texte) {
  if (texte == "1") return QSerialPort::OneStop;
  if (texte == "1.5") return QSerialPort::OneAndHalfStop;
  if (texte == "2") return QSerialPort::TwoStop;
  throw ErreurExecution(Erreur::AppelInvalide);
}

bool Chiffre(char c) { return c >= '0' && c <= '9'; }

// The number at the place, which moves behind it.
std::string Nombre(const std::string &texte, std::size_t &place) {
  const std::size_t debut = place;
  while (place < texte.size() && Chiffre(texte[place])) ++place;
  return texte.substr(debut, place - debut);
}
}  // namespace

ReglagesPort LireReglages(const std::string &reglages) {
  int vitesse = 0, bits = 0;
  char parite = 0, arrets[4] = "";
  if (std::sscanf(reglages.c_str(), "%d,%c,%d,%3s", &vitesse, &parite, &bits, arrets) != 4 || vitesse <= 0 ||
      bits < 5 || bits > 8)
    throw ErreurExecution(Erreur::AppelInvalide);
  return {vitesse, Parite(parite), static_cast<QSerialPort::DataBits>(bits), Arrets(arrets)};
}

bool AvantNaturel(const std::string &a, const std::string &b) {
  std::size_t i = 0, j = 0;
  while (i < a.size() && j < b.size()) {
    if (!Chiffre(a[i]) || !Chiffre(b[j])) {
      if (a[i] != b[j]) return a[i] < b[j];
      ++i, ++j;
      continue;
    }
    const std::string m = Nombre(a, i), n = Nombre(b, j);
    if (m.size() != n.size()) return m.size() < n.size();
    if (m != n) return m < n;
  }
  return a.size() - i < b.size() - j;
}

long ReglagesPort::DureeOctet() const {
  const int bitsOctet =
      1 + bits + (parite != QSerialPort::NoParity) + (arrets == QSerialPort::OneStop ? 1 : 2);
  return bitsOctet * 1'000'000L / vitesse;
}

std::string LienDuPort(const std::string &dossier, int numero) {
  std::error_code erreur;
  const std::string lien = LienCom(dossier, numero);
  return fs::exists(fs::symlink_status(lien, erreur)) ? lien : "";
}

std::string PortListe(int numero) {
  std::vector<std::string> noms;
  for (const QSerialPortInfo &info : QSerialPortInfo::availablePorts())
    noms.push_back(info.systemLocation().toStdString());
  std::sort(noms.begin(), noms.end(), AvantNaturel);
  const int rang = numero - 1;
  return rang >= 0 && static_cast<std::size_t>(rang) < noms.size() ? noms[static_cast<std::size_t>(rang)]
                                                                   : "";
}

std::string AppareilSous(const std::string &nom) {
  std::error_code erreur;
  const fs::path appareil = fs::canonical(nom, erreur);
  return !erreur && fs::is_character_file(appareil, erreur) ? appareil.string() : "";
}
