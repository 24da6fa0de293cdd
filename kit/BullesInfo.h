// The help bubbles: four shaped windows, one for each corner in which the tail points, and their texts.
#pragma once

// Empties the status line and unloads every bubble that stands.
void FermerBulles();
