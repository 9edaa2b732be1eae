#include "analysis/profiles/section_view.h"

#include "base/placeholders.h"
#include "base/text.h"

#include <algorithm>
#include <cmath>

const std::vector<ScaleChoice>& sectionScales()
{
    static const std::vector<ScaleChoice> scales = {
        {"1:500", 2.0},   {"1:1000", 1.0}, {"1:2000", 0.5}, {"1:5000", 0.2},
        {"1:10000", 0.1}, {"1:50", 20.0},  {"1:100", 10.0}, {"1:200", 5.0},
    };
    return scales;
}

const std::vector<ScaleChoice>& epureScales()
{
    static const std::vector<ScaleChoice> scales = [] {
        std::vector<ScaleChoice> ordered = sectionScales();
        std::sort(ordered.begin(), ordered.end(),
                  [](const ScaleChoice& a, const ScaleChoice& b) { return a.factor > b.factor; });
        return ordered;
    }();
    return scales;
}

QString scaleText(double factor)
{
    if (!(factor > 0.0) || !std::isfinite(factor))
        return QStringLiteral("--");
    return fill("1:%1", general(1000.0 / factor));
}

const std::vector<PicketStep>& picketSteps()
{
    static const std::vector<PicketStep> steps = {
        {"100 м.", 100.0}, {"200 м.", 200.0}, {"500 м.", 500.0}, {"1000 м.", 1000.0}};
    return steps;
}
