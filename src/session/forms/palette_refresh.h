#pragma once
// Palettes show what the session holds; whoever changes it asks for a refresh
// here without knowing which palettes exist.

#include <functional>

struct PaletteRefresh {
    std::function<void()> all;      ///< every palette set that was opened
    std::function<void()> explorer; ///< the project explorer alone
};

/// The owner of the palettes says how they are refreshed.
void setPaletteRefresh(PaletteRefresh refresh);

void refreshPalettes();        ///< after another project, connection or settings
void refreshProjectExplorer(); ///< after a change of cycles
