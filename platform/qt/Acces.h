// What assistive tools are told of the widgets that the mirror paints: commands are push buttons that can be
// pressed, their lamp is in the description, labels are texts.
#pragma once

// To be called once, when the application object stands. The fields speak for themselves.
void InstallerAcces();
