// What assistive tools are told of the widgets that the mirror paints: commands are push buttons that can be
// pressed and take the keyboard, their lamp is whether they are checked, labels are texts; list fields bear
// their label.
#pragma once

#include <QString>

class QWidget;

// To be called once, when the application object stands. The other fields speak for themselves.
void InstallerAcces();

// The lines of a message as one text; empty while it is hidden, or nobody listens.
QString MotsDuMessage(const QWidget &cadre);
// A lamp went on or off.
void AnnoncerMarche(QWidget *widget);
// Has a text read out at once, without taking the keyboard; nothing where no such tool listens.
void AnnoncerTexte(QWidget *widget, const QString &texte);
