#include "geometry/exact_signs.h"

#include <algorithm>
#include <vector>

namespace geometry {

namespace {

// A number as a sum of doubles that do not overlap, smallest first (after
// T. J. Dekker and D. M. Priest): sums and products lose nothing.
class Expansion {
public:
    Expansion() = default;

    // a - b with its rounding error.
    static Expansion difference(double a, double b)
    {
        const double value = a - b;
        const double virtualB = a - value;
        const double virtualA = value + virtualB;
        Expansion result;
        result.append((a - virtualA) + (virtualB - b));
        result.append(value);
        return result;
    }

    Expansion plus(const Expansion& other) const
    {
        Expansion sum = *this;
        for (double part : other.parts_)
            sum.add(part);
        return sum;
    }

    Expansion minus(const Expansion& other) const
    {
        Expansion sum = *this;
        for (double part : other.parts_)
            sum.add(-part);
        return sum;
    }

    Expansion times(const Expansion& other) const
    {
        Expansion product;
        for (double a : parts_) {
            for (double b : other.parts_) {
                const double value = a * b;
                product.add(std::fma(a, b, -value));
                product.add(value);
            }
        }
        return product;
    }

    int sign() const
    {
        if (parts_.empty())
            return 0;
        return parts_.back() > 0.0 ? 1 : parts_.back() < 0.0 ? -1 : 0;
    }

private:
    void append(double part)
    {
        if (part != 0.0)
            parts_.push_back(part);
    }

    // The value climbs through the parts and leaves its rounding errors behind.
    void add(double value)
    {
        std::size_t kept = 0;
        for (double part : parts_) {
            const double sum = value + part;
            const double virtualPart = sum - value;
            const double error = (value - (sum - virtualPart)) + (part - virtualPart);
            value = sum;
            if (error != 0.0)
                parts_[kept++] = error;
        }
        parts_.resize(kept);
        append(value);
    }

    std::vector<double> parts_;
};

// Up to four points brought to sizes whose products of four neither overflow
// nor lose digits below the smallest double.
struct Scaled {
    Point3 at[4];
    bool isFinite = true;

    Scaled(const Point3& a, const Point3& b, const Point3& c, const Point3& p) : at{a, b, c, p}
    {
        double largest = 0.0;
        for (const Point3& q : at) {
            isFinite = isFinite && std::isfinite(q.x) && std::isfinite(q.y);
            largest = std::max({largest, std::fabs(q.x), std::fabs(q.y)});
        }
        if (!isFinite || (largest < 1e60 && largest > 1e-20) || largest == 0.0)
            return;
        int exponent = 0;
        std::frexp(largest, &exponent);
        for (Point3& q : at) {
            q.x = std::ldexp(q.x, -exponent);
            q.y = std::ldexp(q.y, -exponent);
        }
    }
};

Expansion crossOf(const Expansion& ax, const Expansion& ay, const Expansion& bx, const Expansion& by)
{
    return ax.times(by).minus(ay.times(bx));
}

int circleBeyondRounding(const Scaled& points)
{
    const Point3& p = points.at[3];
    Expansion x[3];
    Expansion y[3];
    Expansion lift[3];
    for (int i = 0; i < 3; ++i) {
        x[i] = Expansion::difference(points.at[i].x, p.x);
        y[i] = Expansion::difference(points.at[i].y, p.y);
        lift[i] = x[i].times(x[i]).plus(y[i].times(y[i]));
    }
    const Expansion first = crossOf(x[1], y[1], x[2], y[2]).times(lift[0]);
    const Expansion second = crossOf(x[2], y[2], x[0], y[0]).times(lift[1]);
    const Expansion third = crossOf(x[0], y[0], x[1], y[1]).times(lift[2]);
    return first.plus(second).plus(third).sign();
}

} // namespace

namespace exact {

int turnBeyondRounding(const Point3& a, const Point3& b, const Point3& c)
{
    if ((a.x == c.x || b.y == c.y) && (a.y == c.y || b.x == c.x))
        return 0; // along an axis: many points of grids and columns
    const Scaled points(a, b, c, c);
    if (!points.isFinite)
        return 0;
    const Point3& origin = points.at[2];
    return crossOf(Expansion::difference(points.at[0].x, origin.x), Expansion::difference(points.at[0].y, origin.y),
                   Expansion::difference(points.at[1].x, origin.x), Expansion::difference(points.at[1].y, origin.y))
        .sign();
}

} // namespace exact

int placeInCircle(const Point3& a, const Point3& b, const Point3& c, const Point3& p)
{
    // Ten roundings of a part in 2^53 at most lie on the way to each product.
    constexpr double kRounding = 2e-15;
    const int hand = turnOf(a, b, c);
    if (hand == 0)
        return 0;
    const double ax = a.x - p.x;
    const double ay = a.y - p.y;
    const double bx = b.x - p.x;
    const double by = b.y - p.y;
    const double cx = c.x - p.x;
    const double cy = c.y - p.y;
    const double aLift = ax * ax + ay * ay;
    const double bLift = bx * bx + by * by;
    const double cLift = cx * cx + cy * cy;
    const double inside = aLift * (bx * cy - by * cx) + bLift * (cx * ay - cy * ax) + cLift * (ax * by - ay * bx);
    const double doubt = kRounding
        * (aLift * (std::fabs(bx * cy) + std::fabs(by * cx)) + bLift * (std::fabs(cx * ay) + std::fabs(cy * ax))
           + cLift * (std::fabs(ax * by) + std::fabs(ay * bx)));
    if (doubt > 1e-290 && std::fabs(inside) > doubt && std::fabs(inside) < INFINITY)
        return inside > 0.0 ? hand : -hand;
    return hand * circleBeyondRounding(Scaled(a, b, c, p));
}

} // namespace geometry
