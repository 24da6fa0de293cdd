#include "platform/qt/machine/AppareilPort.h"

#include <QSerialPortInfo>
#include <filesystem>

#include "platform/qt/machine/ReglagesPort.h"
#include "session/ModuleTissage.h"

std::string NommerAppareil(const std::string &chemin) {
  const std::string appareil = AppareilSous(chemin);
  if (appareil.empty()) return "";
  const std::string nom = std::filesystem::path(appareil).filename();
  const QSerialPortInfo info(QString::fromStdString(nom));
  if (info.hasVendorIdentifier()) return nom + Selon(", adaptateur USB", ", USB adapter");
  if (nom.starts_with("ttyS")) return nom + Selon(", prise de l'ordinateur", ", socket of the computer");
  return nom;
}
