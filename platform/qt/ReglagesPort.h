// The line settings in words, and the order of port names.
#pragma once

#include <QSerialPort>
#include <string>

struct ReglagesPort {
  int vitesse;
  QSerialPort::Parity parite;
  QSerialPort::DataBits bits;
  QSerialPort::StopBits arrets;
};

// Of "9600,N,8,1"; fails with 5 on anything else.
ReglagesPort LireReglages(const std::string &reglages);

// ttyS2 stands before ttyS10.
bool AvantNaturel(const std::string &a, const std::string &b);
