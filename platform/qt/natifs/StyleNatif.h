// The look of everything native: fields, letters, and what screen readers are told.
#pragma once

// To be called once, when the application object stands.
void InstallerStyle();
