// The look of native fields, the same under every desktop.
#pragma once

// To be called once, when the application object stands.
void InstallerStyle();
