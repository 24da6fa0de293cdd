// Texts, fonts, colours and places of the system in the words of the toolkit, and back.
#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>
#include <string>

#include "controls/Controles.h"

// Bytes are UTF-8, and Windows-1252 where they are not valid UTF-8. Line ends become LF.
QString Texte(const std::string &octets);
std::string Octets(const QString &texte);

// The one-byte code of a typed character, 63 ("?") where it has none; and the character of a code.
int CodeCaractere(QChar caractere);
QString CaractereDeCode(int code);
// What a key filter makes of a text, character by character: each goes on as the code it gives, or not at all
// for 0.
QString Filtre(const std::function<int(int)> &filtre, const QString &texte);

// In the family that stands for Arial, which is the one of both families of the system.
QFont Fonte(const Police &police);
// Asks for that family once, when the application object stands: the toolkit would look for it at every size
// and weight.
void ChoisirFamille();
inline QColor Teinte(Couleur c) { return QColor::fromRgb(c | 0xff000000u); }

// Place and size, each rounded by itself: the size must be that of the surface painted for the control. Never
// below 0.
QRect Pixels(double gauche, double haut, double largeur, double hauteur);
inline QRect Pixels(const Controle &c) { return Pixels(c.Left, c.Top, c.Width, c.Height); }
inline double Twips(double pixels) { return pixels * kTwipsParPixel; }
