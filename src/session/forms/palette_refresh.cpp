#include "session/forms/palette_refresh.h"

#include <utility>

namespace {

PaletteRefresh installed;

} // namespace

void setPaletteRefresh(PaletteRefresh refresh) { installed = std::move(refresh); }

void refreshPalettes()
{
    if (installed.all)
        installed.all();
}

void refreshProjectExplorer()
{
    if (installed.explorer)
        installed.explorer();
}
