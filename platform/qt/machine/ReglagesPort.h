// The line settings in words, and where the ports of the machine are.
#pragma once

#include <QSerialPort>
#include <string>

struct ReglagesPort {
  int vitesse;
  QSerialPort::Parity parite;
  QSerialPort::DataBits bits;
  QSerialPort::StopBits arrets;

  // Microseconds that one character takes on the line, its start bit counted.
  long DureeOctet() const;
};

// Of "9600,N,8,1"; fails with 5 on anything else.
ReglagesPort LireReglages(const std::string &reglages);

// ttyS2 stands before ttyS10.
bool AvantNaturel(const std::string &a, const std::string &b);

// The link `Ports/comN` of the folder, whether it leads somewhere or not: one that leads nowhere is an
// unusable port, not a reason to take another device. Empty where there is none.
std::string LienDuPort(const std::string &dossier, int numero);
// The Nth serial port that the system lists; empty for none.
std::string PortListe(int numero);
// The device that stands under a name now; empty where nothing stands, or nothing that could be a serial
// line, so that nobody waits in the opening of a pipe.
std::string AppareilSous(const std::string &nom);
