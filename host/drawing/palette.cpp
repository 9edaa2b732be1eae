#include "palette.h"

#include <array>

namespace {

const PaletteColor kNamed[10] = {{255, 255, 255}, {255, 0, 0},   {255, 255, 0},   {0, 255, 0},     {0, 255, 255},
                                 {0, 0, 255},     {255, 0, 255}, {255, 255, 255}, {128, 128, 128}, {192, 192, 192}};
const int kGreys[6] = {51, 91, 132, 173, 214, 255};

// Brightness of the five pairs of a hue, brightest first; the odd member of
// a pair is half washed out.
const int kLevels[5] = {255, 204, 153, 127, 76};

// Hue h of 24, 15 degrees apart, as shares of 60 degrees of the colour circle.
std::array<double, 3> hueShares(int hue)
{
    const int sector = hue / 4;
    const double part = (hue % 4) / 4.0;
    switch (sector) {
    case 0: return {1.0, part, 0.0};
    case 1: return {1.0 - part, 1.0, 0.0};
    case 2: return {0.0, 1.0, part};
    case 3: return {0.0, 1.0 - part, 1.0};
    case 4: return {part, 0.0, 1.0};
    default: return {1.0, 0.0, 1.0 - part};
    }
}

PaletteColor hueColor(int index)
{
    const int hue = (index - 10) / 10; // of 24 round the circle
    const std::array<double, 3> shares = hueShares(hue);
    const int shade = index % 10;
    const int step = shade / 2; // of brightness
    const double level = kLevels[step];
    const bool washed = shade % 2 == 1;
    const auto channel = [&](double share) { return int(level * (washed ? 0.5 + share / 2.0 : share)); };
    return {channel(shares[0]), channel(shares[1]), channel(shares[2])};
}

int squared(int value) { return value * value; }

} // namespace

PaletteColor paletteColor(int index)
{
    if (index < 10 || index > 255)
        return kNamed[index > 0 && index < 10 ? index : 0];
    if (index >= 250)
        return {kGreys[index - 250], kGreys[index - 250], kGreys[index - 250]};
    return hueColor(index);
}

int nearestPaletteIndex(int red, int green, int blue)
{
    int best = 1, bestDistance = -1;
    for (int index = 1; index <= 255; ++index) {
        const PaletteColor color = paletteColor(index);
        const int distance = squared(color.red - red) + squared(color.green - green) + squared(color.blue - blue);
        if (bestDistance < 0 || distance < bestDistance) {
            best = index;
            bestDistance = distance;
        }
    }
    return best;
}
