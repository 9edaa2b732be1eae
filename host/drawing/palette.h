// The 255 colours that a drawing's colour indexes name.
#pragma once

#include <nrx/types.h>

struct PaletteColor {
    int red, green, blue;
};

// 1..255; other indexes give white. Colours 1 to 9 are the named ones, 250 to
// 255 greys, and the rest 24 hues of ten shades each.
NRX_API PaletteColor paletteColor(int index);
// The index nearest in plain distance; the lowest of several.
NRX_API int nearestPaletteIndex(int red, int green, int blue);
