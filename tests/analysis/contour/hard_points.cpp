#include "hard_points.h"

#include <algorithm>
#include <cmath>

namespace samples {

namespace {

Point3 onRing(double angle, double radius, double z)
{
    return {50.0 + radius * std::cos(angle), 50.0 + radius * std::sin(angle), z};
}

// Marks round a tank: a circle of even parts, sometimes a second one inside.
PointList tank(Random& random, int count)
{
    PointList points;
    const bool two = random.chance(0.5);
    const int marks = std::max(3, two ? count / 2 : count);
    for (int i = 0; i < marks; ++i) {
        const double angle = 6.283185307179586 * i / marks;
        points.push_back(onRing(angle, 30.0, random.in(-5, 5)));
        if (two)
            points.push_back(onRing(angle, 12.0, random.in(-5, 5)));
    }
    return points;
}

// Wells entered twice, some with another value.
PointList entered(Random& random, int count)
{
    PointList points;
    for (int i = 0; i < count; ++i) {
        if (i > 2 && random.chance(0.3)) {
            Point3 p = points[static_cast<std::size_t>(random.below(i))];
            if (random.chance(0.7))
                p.z += random.in(-3, 3);
            if (random.chance(0.3))
                p.x += random.in(-9e-7, 9e-7);
            points.push_back(p);
        } else {
            points.push_back({random.in(0, 100), random.in(0, 100), random.in(-5, 5)});
        }
    }
    return points;
}

// A straight row between two places, with a few points beside it.
PointList slantedRow(Random& random, int count)
{
    const double dx = random.in(0, 100);
    const double dy = random.in(-100, 100);
    PointList points;
    for (int i = 0; i < count; ++i) {
        const double t = static_cast<double>(i) / count;
        points.push_back({dx * t, dy * t, random.in(-5, 5)});
    }
    for (int i = random.below(4); i > 0; --i)
        points.push_back({random.in(-10, 110), random.in(-110, 110), random.in(-5, 5)});
    return points;
}

PointList nearlyLevel(Random& random, int count)
{
    const double heights[] = {1e-7, 5e-7, 1.2e-6, 1e-5, 1e-3};
    const double height = heights[random.below(5)];
    PointList points;
    for (int i = 0; i < count; ++i)
        points.push_back({random.in(0, 100), random.in(-height, height), random.in(-5, 5)});
    for (int i = random.below(3); i > 0; --i)
        points.push_back({random.in(0, 100), random.in(-50, 50), random.in(-5, 5)});
    return points;
}

// Pairs a little farther apart than the tolerance.
PointList tightPairs(Random& random, int count)
{
    PointList points;
    for (int i = 0; i < count; i += 2) {
        const Point3 p{random.in(0, 100), random.in(0, 100), random.in(-5, 5)};
        points.push_back(p);
        points.push_back({p.x + random.in(-4e-6, 4e-6), p.y + random.in(-4e-6, 4e-6), random.in(-5, 5)});
    }
    return points;
}

// A lattice turned out of the axes, so that its circles tie but for rounding.
PointList turnedLattice(Random& random, int count)
{
    const double angle = random.in(0, 1.5);
    const int side = std::max(2, static_cast<int>(std::sqrt(count)));
    PointList points;
    for (int i = 0; i < side; ++i) {
        for (int j = 0; j < side; ++j)
            points.push_back({10.0 * (i * std::cos(angle) - j * std::sin(angle)),
                              10.0 * (i * std::sin(angle) + j * std::cos(angle)), random.in(-5, 5)});
    }
    return points;
}

PointList twoEdges(Random& random, int count)
{
    const double slope = random.chance(0.5) ? 0.0 : random.in(-1, 1);
    PointList points;
    for (int i = 0; i < count; ++i) {
        const double x = 2.0 * (i / 2);
        points.push_back({x, slope * x + (i % 2 ? 7.0 : 0.0), random.in(-5, 5)});
    }
    return points;
}

PointList moved(PointList points, double x, double y)
{
    for (Point3& p : points) {
        p.x += x;
        p.y += y;
    }
    return points;
}

} // namespace

PointList onCircle(Random& random, int count, double radius)
{
    PointList points;
    for (int i = 0; i < count; ++i)
        points.push_back(onRing(random.in(0, 6.283185307179586), radius, random.in(-5, 5)));
    return points;
}

PointList hardPoints(int kind, Random& random, int count)
{
    switch (kind) {
    case 0: return onCircle(random, count, random.in(1, 40));
    case 1: return tank(random, count);
    case 2: return entered(random, count);
    case 3: return slantedRow(random, count);
    case 4: return nearlyLevel(random, count);
    case 5: return tightPairs(random, count);
    case 6: return turnedLattice(random, count);
    case 7: return twoEdges(random, count);
    case 8: return moved(tank(random, count), 330000.0, 5080000.0);
    default: return moved(hardPoints(random.below(8), random, count), 500000.0, 7000000.0);
    }
}

} // namespace samples
