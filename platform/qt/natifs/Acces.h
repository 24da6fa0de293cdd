// What assistive tools are told of the widgets that the mirror paints: commands are push buttons that can be
// pressed, their lamp is in the description, labels are texts; list fields bear their label.
#pragma once

// To be called once, when the application object stands. The other fields speak for themselves.
void InstallerAcces();
