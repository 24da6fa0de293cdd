// The look of the toolkit's own fields, lists, boxes and dialogs, the same in both programs and on every
// desktop.
#pragma once

// Style and palette of the application, and of each kind of widget to which a desktop gives colours of its
// own. To be called once, when the application object stands, before any widget does.
void InstallerChamps();
