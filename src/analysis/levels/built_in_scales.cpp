#include "analysis/levels/built_in_scales.h"

#include <array>

namespace {

struct Rgb {
    int red, green, blue;
};

// From cold to warm; deformations go on beyond the temperatures' last colour.
const std::array<Rgb, 16> kColors = {{
    {130, 100, 180},
    {170, 170, 220},
    {10, 120, 220},
    {60, 160, 250},
    {100, 200, 250},
    {50, 220, 240},
    {80, 250, 250},
    {200, 250, 250},
    {250, 250, 100},
    {250, 220, 50},
    {250, 170, 80},
    {250, 130, 70},
    {250, 100, 100},
    {250, 50, 50},
    {250, 130, 200},
    {250, 50, 250},
}};

// Degrees Celsius.
const std::array<double, 15> kTemperatureBounds = {-20, -15, -10, -7, -5, -3, -1.5, -0.5, 0, 0.5, 1.5, 3, 5, 7, 10};

// Millimetres.
const std::array<double, 17> kDeformationBounds = {-100, -50, -20, -10, -5, -2, -1, -0.5, 0,
                                                   0.5,  1,   2,   5,   10, 20, 50, 100};

template <size_t N>
std::vector<LevelRange> scale(const std::array<double, N>& bounds)
{
    static_assert(N - 1 <= kColors.size(), "a range needs a colour");
    std::vector<LevelRange> ranges;
    for (size_t i = 0; i + 1 < N; ++i)
        ranges.push_back(
            {bounds[i], bounds[i + 1], NcCmColor::fromRGB(kColors[i].red, kColors[i].green, kColors[i].blue)});
    return ranges;
}

} // namespace

std::vector<LevelRange> builtInScale(int id)
{
    switch (id) {
    case LevelMap::Temperature: return scale(kTemperatureBounds);
    case LevelMap::Deformation: return scale(kDeformationBounds);
    default: return {};
    }
}
