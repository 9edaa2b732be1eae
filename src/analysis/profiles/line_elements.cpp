#include "analysis/profiles/line_elements.h"

Statement boxCondition(const ProfileLine& line, double tolerance)
{
    constexpr int kDecimals = 2;
    constexpr double kRounding = 0.01; // of the bounds
    const geometry::Box3 box = line.box();
    const double more = tolerance + kRounding;
    return compose("(x between %1 and %2) and (y between %3 and %4) ", Numeral(box.minimum.x - more, kDecimals),
                   Numeral(box.maximum.x + more, kDecimals), Numeral(box.minimum.y - more, kDecimals),
                   Numeral(box.maximum.y + more, kDecimals));
}
