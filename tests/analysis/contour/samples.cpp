#include "samples.h"

#include <algorithm>
#include <cmath>

namespace samples {

namespace {

double field(double x, double y) { return 6.0 * std::sin(x * 0.07) * std::cos(y * 0.05) + 0.03 * x - 2.0; }

double rounded(double v) { return std::round(v * 100.0) / 100.0; }

PointList scattered(Random& random, int count, bool noise)
{
    PointList points;
    for (int i = 0; i < count; ++i) {
        const double x = random.in(0, 100);
        const double y = random.in(0, 100);
        points.push_back({x, y, noise ? random.in(-8, 8) : field(x, y)});
    }
    return points;
}

PointList regular(Random& random, int count, bool wholeValues)
{
    PointList points;
    const int side = std::max(2, static_cast<int>(std::sqrt(count)));
    for (int i = 0; i < side; ++i) {
        for (int j = 0; j < side; ++j) {
            const double z = field(i * 5.0, j * 5.0);
            points.push_back({i * 5.0, j * 5.0, wholeValues ? std::round(z) : z});
        }
    }
    if (random.chance(0.5))
        std::reverse(points.begin(), points.end());
    return points;
}

PointList onLine(Random& random, int count)
{
    const double dx = random.below(3);
    const double dy = dx == 0.0 ? 1.0 : random.below(3);
    PointList points;
    for (int i = 0; i < count; ++i) {
        const double t = random.below(count);
        points.push_back({dx * t, dy * t, random.in(-5, 5)});
    }
    return points;
}

PointList rings(Random& random, int count)
{
    PointList points;
    for (int i = 0; i < count; ++i) {
        const double angle = 6.283185307179586 * i / count * 5.0;
        const double radius = 10.0 * (1 + i % 5);
        points.push_back(
            {50 + radius * std::cos(angle), 50 + radius * std::sin(angle), 5.0 - 2.0 * (i % 5) + random.in(0, 0.1)});
    }
    return points;
}

PointList columns(Random& random, int count)
{
    PointList points;
    const int wells = 3 + random.below(6);
    for (int i = 0; i < count; ++i) {
        const double x = 7.5 * (i % wells);
        points.push_back({x, -0.5 * (i / wells), rounded(field(x, i / wells))});
    }
    return points;
}

void roundValues(PointList* points)
{
    for (Point3& p : *points)
        p.z = rounded(p.z);
}

void moveToProject(PointList* points)
{
    for (Point3& p : *points) {
        p.x += 330000.0;
        p.y += 5080000.0;
    }
}

void repeatSome(Random& random, PointList* points)
{
    const std::size_t count = points->size();
    for (std::size_t i = 0; i < count / 4 + 1; ++i) {
        Point3 p = (*points)[static_cast<std::size_t>(random.below(static_cast<int>(count)))];
        const int what = random.below(4);
        if (what == 1)
            p.z += random.in(0.1, 1.0); // another value at the same place
        else if (what == 2)
            p.x += random.in(-2e-6, 2e-6);
        else if (what == 3)
            p.y += 5e-7;
        points->push_back(p);
    }
}

PointList boundsOfKind(int kind, Random& random, const PointList& points)
{
    geometry::Box3 box = geometry::boxOf(points);
    if (box.isEmpty())
        box = {{0, 0, 0}, {1, 1, 0}};
    const Point3 a = box.minimum;
    const Point3 b = box.maximum;
    const double w = b.x - a.x;
    const double h = b.y - a.y;
    switch (kind) {
    case 0: // the box itself
        return {{a.x, a.y, 0}, {b.x, a.y, 0}, {b.x, b.y, 0}, {a.x, b.y, 0}};
    case 1: // around all, closed by a repeated point
        return {{a.x - w, a.y - h, 3},
                {b.x + w, a.y - h, 3},
                {b.x + w, b.y + h, 3},
                {a.x - w, b.y + h, 3},
                {a.x - w, a.y - h, 3}};
    case 2: { // a star inside
        PointList star;
        const int corners = 2 * (3 + random.below(9));
        for (int i = 0; i < corners; ++i) {
            const double angle = 6.283185307179586 * i / corners;
            const double part = i % 2 ? 0.2 : 0.45;
            star.push_back({a.x + w * (0.5 + part * std::cos(angle)), a.y + h * (0.5 + part * std::sin(angle)), 0});
        }
        return star;
    }
    case 3: // beside all
        return {{b.x + w + 1, a.y, 0}, {b.x + w + 2, a.y, 0}, {b.x + w + 2, b.y + 1, 0}};
    case 4: // through some of the points
        if (points.size() >= 5)
            return {points[0], points[1], points[2], points[3], points[4]};
        return points;
    case 5: // clockwise triangle
        return {{a.x, a.y, 0}, {a.x + w / 2, b.y + 1, 0}, {b.x, a.y, 0}};
    default: // too short
        return {{a.x, a.y, 0}, {b.x, b.y, 0}};
    }
}

// The plain statement takes a minute for what a long narrow box asks for.
bool asksForLargeGrid(const PointList& bounds, std::size_t points)
{
    const geometry::Box3 box = geometry::boxOf(bounds);
    const double smaller = std::min(box.width(), box.height());
    const double larger = std::max(box.width(), box.height());
    return !(larger / smaller * 25.0 * std::max(100.0, static_cast<double>(points)) < 5000.0);
}

} // namespace

PointList pointsOfKind(int kind, Random& random, int count)
{
    PointList points;
    switch (kind) {
    case 0: return scattered(random, count, false);
    case 1: return scattered(random, count, true);
    case 2: return regular(random, count, false);
    case 3: return regular(random, count, true);
    case 4: return onLine(random, count);
    case 5: return rings(random, count);
    case 6: return columns(random, count);
    case 7: return scattered(random, random.below(4), true);
    case 8: return PointList(static_cast<std::size_t>(count), Point3{3, 4, 5});
    case 9:
        points = scattered(random, count, true);
        roundValues(&points);
        repeatSome(random, &points);
        return points;
    case 10: // two small tight heaps
        points = scattered(random, count, false);
        for (std::size_t i = 0; i < points.size(); ++i) {
            points[i].x = points[i].x * 0.01 + (i % 2 ? 1.5 : 0.0);
            points[i].y *= 0.01;
        }
        return points;
    case 11: // whole coordinates, many ties
        points = scattered(random, count, true);
        for (Point3& p : points) {
            p.x = std::floor(p.x / 8);
            p.y = std::floor(p.y / 8);
            p.z = std::round(p.z);
        }
        return points;
    case 12: // some that are no numbers
        points = scattered(random, count, true);
        points[points.size() / 2].x = NAN;
        points[points.size() / 3].z = INFINITY;
        points.front().y = -INFINITY;
        return points;
    default: // almost level rows
        points = regular(random, count, false);
        for (Point3& p : points)
            p.y += random.in(-1.5e-6, 1.5e-6);
        return points;
    }
}

Sample sampleOf(std::uint32_t seed)
{
    Random random(seed * 2654435761U + 17U);
    Sample sample;
    const int kind = static_cast<int>(seed) % kPointKinds;
    sample.parameters.method = seed % 5 == 3 ? contour::Method::InverseDistance : contour::Method::Triangulation;
    bool grid = sample.parameters.method == contour::Method::InverseDistance;
    PointList points = pointsOfKind(kind, random, 4 + random.below(grid ? 20 : 90));
    const bool far = random.chance(0.3);
    if (far)
        moveToProject(&points);

    const int bounds = random.below(9);
    if (bounds < 7) {
        PointList finite;
        std::copy_if(points.begin(), points.end(), std::back_inserter(finite),
                     [](const Point3& p) { return geometry::isFinite(p); });
        sample.input.bounds = boundsOfKind(bounds, random, finite);
    }
    const bool ownBounds = sample.input.bounds && sample.input.bounds->size() >= 3;
    if (grid && asksForLargeGrid(ownBounds ? *sample.input.bounds : points, points.size())) {
        grid = false;
        sample.parameters.method = contour::Method::Triangulation;
    }
    sample.input.points = points;
    sample.input.exactEdges = random.chance(0.3);
    BuildParameters& p = sample.parameters;
    p.calculateBoundary = true;
    p.power = random.chance(0.5) ? 2.0 : random.in(0, 4);
    p.neighbours = random.chance(0.2) ? 0 : 1 + random.below(20);
    p.filterLines = random.chance(0.4);
    p.filterDistance = random.in(0.01, 3.0);
    p.refineLines = random.chance(0.4);
    p.refineDistance = random.in(0.5, 20.0);
    p.refineParts = random.below(7) - 1;
    p.smoothLines = random.chance(0.5);
    p.tension = random.unit();
    p.splineSamples = random.below(8);

    const int count = random.below(10);
    for (int i = 0; i < count; ++i)
        sample.input.levels.push_back(random.chance(0.7) ? std::round(random.in(-6, 6)) : random.in(-6, 6));
    if (random.chance(0.7))
        std::sort(sample.input.levels.begin(), sample.input.levels.end());
    if (count > 2 && random.chance(0.5))
        sample.input.levels[1] = points.front().z;
    sample.name = "seed " + std::to_string(seed) + ", kind " + std::to_string(kind) + ", bounds "
        + std::to_string(bounds) + (far ? ", far" : "") + (grid ? ", grid" : "");
    return sample;
}

PointList smoothField(std::uint32_t seed, int count, double side)
{
    Random random(seed);
    PointList points;
    for (int i = 0; i < count; ++i) {
        const double u = random.unit();
        const double v = random.unit();
        const double z = 8.0 * std::sin(7.0 * u) * std::cos(5.0 * v) + 3.0 * std::sin(23.0 * u * v);
        points.push_back({u * side, v * side, z});
    }
    return points;
}

} // namespace samples
