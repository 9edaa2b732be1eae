#include "hatch_edges.h"

#include "fields.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kStepsOfTurn = 64;
// No boundary that people draw has more; a damaged count must not cost memory.
constexpr int kMostEdges = 1000000;

} // namespace

double HatchLoopReader::real(int code) { return is(code) ? realOf(groups_[at_++].value) : 0.0; }

int HatchLoopReader::integer(int code) { return is(code) ? integerOf(groups_[at_++].value) : 0; }

NcGePoint2d HatchLoopReader::point(int code)
{
    const double x = real(code);
    return {x, real(code + 10)};
}

void HatchLoopReader::add(const NcGePoint2d& p, double bulge)
{
    loop_.points.push_back(p);
    loop_.bulges.push_back(bulge);
}

NcDbHatch::Loop HatchLoopReader::next()
{
    loop_ = {};
    const int type = integer(92);
    if (type & NcDbHatch::kPolyline) {
        readPolyline();
    } else {
        const int edges = std::min(integer(93), kMostEdges);
        for (int i = 0; i < edges && is(72); ++i)
            readEdge();
    }
    loop_.type = type | NcDbHatch::kPolyline;
    readSources();
    return loop_;
}

void HatchLoopReader::readPolyline()
{
    integer(72);
    integer(73);
    const int count = std::min(integer(93), kMostEdges);
    for (int i = 0; i < count && is(10); ++i) {
        const NcGePoint2d p = point(10);
        add(p, real(42));
    }
}

void HatchLoopReader::readSources()
{
    sourceCount_ = std::min(kMostEdges, std::max(0, sourceCount_)) + std::min(kMostEdges, std::max(0, integer(97)));
    while (is(330))
        sources_.push_back(handleOf(groups_[at_++].value));
}

void HatchLoopReader::readEdge()
{
    switch (integer(72)) {
    case 1: readLine(); break;
    case 2: readArc(); break;
    case 3: readEllipse(); break;
    case 4: readSpline(); break;
    default: break;
    }
}

void HatchLoopReader::readLine()
{
    add(point(10));
    point(11);
}

void HatchLoopReader::readArc()
{
    const NcGePoint2d center = point(10);
    const double radius = real(40);
    const double start = real(50) * M_PI / 180.0, end = real(51) * M_PI / 180.0;
    const double side = integer(73) ? 1.0 : -1.0;
    double sweep = end - start;
    if (sweep <= 0.0)
        sweep += 2.0 * M_PI;
    // Half a turn is the most that a bulge says well.
    const int pieces = sweep > M_PI ? 2 : 1;
    for (int i = 0; i < pieces; ++i) {
        const double angle = side * (start + sweep * i / pieces);
        add({center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)},
            side * std::tan(sweep / pieces / 4.0));
    }
}

void HatchLoopReader::readEllipse()
{
    const NcGePoint2d center = point(10), major = point(11);
    const double ratio = real(40);
    const double start = real(50) * M_PI / 180.0, end = real(51) * M_PI / 180.0;
    const double side = integer(73) ? 1.0 : -1.0;
    double sweep = end - start;
    if (sweep <= 0.0)
        sweep += 2.0 * M_PI;
    const int steps = int(qBound(2.0, std::ceil(kStepsOfTurn * sweep / (2.0 * M_PI)), double(kStepsOfTurn)));
    for (int i = 0; i < steps; ++i) {
        const double angle = side * (start + sweep * i / steps);
        const double along = std::cos(angle), across = ratio * std::sin(angle);
        add({center.x + major.x * along - major.y * across, center.y + major.y * along + major.x * across});
    }
}

void HatchLoopReader::readSpline()
{
    for (int code : {94, 73, 74, 95, 96})
        integer(code);
    while (is(40))
        ++at_;
    std::vector<NcGePoint2d> shape;
    while (is(10)) {
        shape.push_back(point(10));
        real(42);
    }
    // The loop itself ends with a group of this code too.
    const bool ownCount = is(97) && at_ + 1 < groups_.size()
        && (groups_[at_ + 1].code == 11 || groups_[at_ + 1].code == 97 || groups_[at_ + 1].code == 72);
    if (ownCount)
        integer(97);
    if (is(11))
        shape.clear();
    while (is(11))
        shape.push_back(point(11));
    point(12);
    point(13);
    // The next edge begins where this one ends.
    for (size_t i = 0; i + 1 < shape.size(); ++i)
        add(shape[i]);
}
