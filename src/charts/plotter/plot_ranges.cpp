#include "charts/plotter/plot_ranges.h"

#include <cmath>
#include <utility>

namespace {

constexpr double dayInMilliseconds = 86400000.0;
constexpr double lastNumber = 1e100;
constexpr double lastDate = 100000.0 * 365.25 * dayInMilliseconds;

} // namespace

PlotRange shownRange(const PlotAxis& axis, bool anyData, double dataFrom, double dataTo)
{
    const bool dates = axis.tickLabels == TickLabels::DateTime;
    const double limit = dates ? lastDate : lastNumber;
    double from = std::isfinite(axis.minimum) ? axis.minimum : dataFrom;
    double to = std::isfinite(axis.maximum) ? axis.maximum : dataTo;
    if (anyData && std::isinf(axis.minimum) && axis.maximum == -axis.minimum) {
        to = qMax(std::abs(dataFrom), std::abs(dataTo));
        from = -to;
    }
    if (!anyData && !std::isfinite(axis.minimum))
        from = std::isfinite(axis.maximum) ? to - 1.0 : 0.0;
    if (!anyData && !std::isfinite(axis.maximum))
        to = std::isfinite(axis.minimum) ? from + 1.0 : 1.0;
    from = qBound(-limit, from, limit);
    to = qBound(-limit, to, limit);
    if (from > to)
        std::swap(from, to);
    const double least = qMax(std::abs(from), std::abs(to)) * 1e-12;
    if (to - from <= least) {
        const double apart = qMax(dates ? 15.0 * dayInMilliseconds : 1.0, least * 1e3);
        from -= apart;
        to += apart;
    }
    return {from, to};
}

PlotRanges shownRanges(const PlotContents& contents)
{
    bool anyPrimary = false, anySecondary = false;
    const QRectF primary = contents.extents(PlotAxisKey::Primary, &anyPrimary);
    const QRectF secondary = contents.extents(PlotAxisKey::Secondary, &anySecondary);
    const QRectF both = !anyPrimary ? secondary
        : !anySecondary             ? primary
                                    : QRectF(QPointF(qMin(primary.left(), secondary.left()), 0.0),
                                             QPointF(qMax(primary.right(), secondary.right()), 0.0));
    PlotRanges ranges;
    ranges.x = shownRange(contents.x, anyPrimary || anySecondary, both.left(), both.right());
    ranges.y = shownRange(contents.y, anyPrimary, primary.top(), primary.bottom());
    ranges.secondaryY = shownRange(contents.secondaryY, anySecondary, secondary.top(), secondary.bottom());
    return ranges;
}
