// What assistive tools are told of the widgets that the mirror paints: commands are push buttons that can be
// pressed, their lamp is in the description, labels are texts; list fields bear their label.
#pragma once

#include <QString>

class QWidget;

// To be called once, when the application object stands. The other fields speak for themselves.
void InstallerAcces();

// Has a text read out at once, without taking the keyboard; nothing where no such tool listens.
void AnnoncerTexte(QWidget *widget, const QString &texte);
