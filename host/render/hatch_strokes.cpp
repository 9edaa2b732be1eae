// Strokes of a pattern inside of a shape.
#include "hatch_pattern.h"

#include <algorithm>
#include <cmath>

namespace {

// Strokes of one family inside of loops.
class StrokeMaker {
public:
    StrokeMaker(const PatternLine& line, double scale, const std::vector<QPolygonF>& loops, size_t most,
                std::vector<QPolygonF>& strokes)
        : line_(line),
          scale_(scale),
          loops_(loops),
          most_(most),
          strokes_(strokes),
          origin_(line.origin),
          direction_(std::cos(line.angle), std::sin(line.angle)),
          normal_(-direction_.y(), direction_.x())
    { }

    // False when there would be too many.
    bool make()
    {
        const double step = line_.across * scale_;
        double least = INFINITY, greatest = -INFINITY;
        for (const QPolygonF& loop : loops_)
            for (const QPointF& p : loop) {
                const double across = QPointF::dotProduct(p - scale_ * origin_, normal_) / step;
                least = std::min(least, across);
                greatest = std::max(greatest, across);
            }
        // Far from the origin steps cannot be counted.
        if (!(greatest - least < double(most_)) || !(std::fabs(least) < 1e15 && std::fabs(greatest) < 1e15))
            return false;
        for (long k = long(std::ceil(least)); k <= long(std::floor(greatest)); ++k)
            if (!makeLine(k))
                return false;
        return true;
    }

private:
    bool makeLine(long k)
    {
        const QPointF origin = scale_ * (origin_ + double(k) * (line_.along * direction_ + line_.across * normal_));
        std::vector<double> crossings;
        for (const QPolygonF& loop : loops_)
            for (int i = 0; i < loop.size(); ++i)
                addCrossing(origin, loop[i], loop[(i + 1) % loop.size()], crossings);
        std::sort(crossings.begin(), crossings.end());
        for (size_t i = 0; i + 1 < crossings.size(); i += 2)
            addSpan(origin, crossings[i], crossings[i + 1]);
        return strokes_.size() <= most_;
    }

    // Half-open at the edge's ends, so that a corner counts once.
    void addCrossing(const QPointF& origin, const QPointF& a, const QPointF& b, std::vector<double>& crossings) const
    {
        const double first = QPointF::dotProduct(a - origin, normal_),
                     second = QPointF::dotProduct(b - origin, normal_);
        if ((first < 0.0) == (second < 0.0))
            return;
        const QPointF p = a + (b - a) * (first / (first - second));
        crossings.push_back(QPointF::dotProduct(p - origin, direction_));
    }

    void addSpan(const QPointF& origin, double from, double to)
    {
        double period = 0.0;
        for (const double dash : line_.dashes)
            period += std::fabs(dash) * scale_;
        if (period <= 0.0)
            return addStroke(origin, from, to);
        if ((to - from) / period > double(most_))
            return;
        for (double start = std::floor(from / period) * period; start < to; start += period) {
            double at = start;
            for (const double dash : line_.dashes) {
                const double end = at + std::fabs(dash) * scale_;
                if (dash >= 0.0 && end >= from && at <= to)
                    addStroke(origin, std::max(at, from), std::min(end, to));
                at = end;
            }
        }
    }

    void addStroke(const QPointF& origin, double from, double to)
    {
        strokes_.push_back(QPolygonF(QVector<QPointF>{origin + from * direction_, origin + to * direction_}));
    }

    const PatternLine& line_;
    const double scale_;
    const std::vector<QPolygonF>& loops_;
    const size_t most_;
    std::vector<QPolygonF>& strokes_;
    const QPointF origin_, direction_, normal_;
};

} // namespace

std::vector<QPolygonF> patternStrokes(const LinePattern& pattern, double scale, const std::vector<QPolygonF>& loops,
                                      size_t most)
{
    std::vector<QPolygonF> strokes;
    if (scale <= 0.0)
        return strokes;
    for (const PatternLine& line : pattern.lines)
        if (!StrokeMaker(line, scale, loops, most, strokes).make())
            return {};
    return strokes;
}
