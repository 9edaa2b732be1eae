#include "analysis/contour/mesh.h"

#include "geometry/exact_signs.h"

#include <algorithm>

namespace contour {

namespace {

// Of a squared length computed from differences; more than rounding does to it.
constexpr double kRounding = 2e-15;

double squared(double dx, double dy) { return dx * dx + dy * dy; }

std::array<std::int32_t, 4> loopOf(const Triangle& t) { return {t.a, t.b, t.c, t.a}; }

} // namespace

Mesh::Mesh(const PointList& vertices, std::int32_t count) : vertices_(vertices), fan_(vertices.size(), -1)
{
    double yMin = vertices.front().y;
    double yMax = yMin;
    for (std::int32_t i = 1; i < count; ++i) {
        yMin = std::min(yMin, vertex(i).y);
        yMax = std::max(yMax, vertex(i).y);
    }
    width_ = vertex(count - 1).x - vertex(0).x;
    height_ = yMax - yMin;
    scale_ = squared(std::max(width_, height_), 0.0);
    if (!(scale_ < INFINITY))
        scale_ = NAN; // every circle is in doubt
    // Of n points there are two n triangles; a few wait to be used again.
    triangles_.reserve(2 * vertices.size() + vertices.size() / 32);
}

std::int32_t Mesh::add(const Triangle& corners)
{
    std::int32_t id = 0;
    if (free_.empty()) {
        id = static_cast<std::int32_t>(triangles_.size());
        triangles_.emplace_back();
    } else {
        id = free_.back();
        free_.pop_back();
    }
    MeshTriangle& t = (*this)[id];
    t.corners = corners;
    t.beside = {-1, -1, -1};
    t.mark = -1;
    if (!circumcircle(vertex(corners.a), vertex(corners.b), vertex(corners.c), &t.circle))
        t.circle = {NAN, NAN, NAN};
    t.doubt = -1.0F;
    return id;
}

// Cheap, and enough for all triangles that are not very large or very flat.
double Mesh::roughDoubt(const MeshTriangle& t) const
{
    const Point3& a = vertex(t.corners.a);
    const Point3& b = vertex(t.corners.b);
    const Point3& c = vertex(t.corners.c);
    const Circumcircle& circle = t.circle;
    const double rounding = kRounding * circle.squaredRadius;
    const double atA = std::fabs(squared(a.x - circle.x, a.y - circle.y) - circle.squaredRadius) + rounding;
    const double atC = std::fabs(squared(c.x - circle.x, c.y - circle.y) - circle.squaredRadius) + rounding;
    const double ax = a.x - b.x;
    const double ay = a.y - b.y;
    const double cx = c.x - b.x;
    const double cy = c.y - b.y;
    // The radius is taken at b, so there is nothing to know there.
    const double rise = (atA + rounding) * (std::fabs(cx) * height_ + std::fabs(cy) * width_)
        + (atC + rounding) * (std::fabs(ax) * height_ + std::fabs(ay) * width_);
    return atC + rounding + rise / std::fabs(ax * cy - ay * cx);
}

// By how much the difference of the powers grows from one corner to another. It
// is the product of their distance and of the sum of their ways from the centre,
// so that between near corners little is lost to rounding, however large the
// circle is.
double Mesh::growth(const Circumcircle& circle, const Point3& from, const Point3& to)
{
    const double x = from.x - circle.x;
    const double y = from.y - circle.y;
    const double sumX = x + (to.x - circle.x);
    const double sumY = y + (to.y - circle.y);
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    return std::fabs(dx * sumX + dy * sumY)
        + kRounding
        * (std::fabs(dx) * (std::fabs(sumX) + 2.0 * std::fabs(x))
           + std::fabs(dy) * (std::fabs(sumY) + 2.0 * std::fabs(y)));
}

// Over the two shorter sides.
double Mesh::closeDoubt(const MeshTriangle& t) const
{
    const Circumcircle& circle = t.circle;
    const Point3* r = &vertex(t.corners.b);
    const Point3* p = &vertex(t.corners.a);
    const Point3* q = &vertex(t.corners.c);
    const double rounding = kRounding * circle.squaredRadius;
    const double atC = std::fabs(squared(q->x - circle.x, q->y - circle.y) - circle.squaredRadius) + rounding;
    const double toP = squared(p->x - r->x, p->y - r->y);
    const double toQ = squared(q->x - r->x, q->y - r->y);
    const double across = squared(p->x - q->x, p->y - q->y);
    if (toP > across && toP >= toQ)
        std::swap(r, q);
    else if (toQ > across)
        std::swap(r, p);
    const double px = p->x - r->x;
    const double py = p->y - r->y;
    const double qx = q->x - r->x;
    const double qy = q->y - r->y;
    const double area = std::fabs(px * qy - py * qx) - kRounding * (std::fabs(px * qy) + std::fabs(py * qx));
    if (!(area > 0.0))
        return INFINITY;
    const double rise = growth(circle, *r, *p) * (std::fabs(qx) * height_ + std::fabs(qy) * width_)
        + growth(circle, *r, *q) * (std::fabs(px) * height_ + std::fabs(py) * width_);
    return atC + rounding + rise / area;
}

// The difference of the two powers is a linear function of the place. It is known
// at the corners, where the true power is nothing, and grows from there by no
// more than its slope: however a circle was computed, this tells how good it is.
float Mesh::judge(MeshTriangle& t) const
{
    double doubt = roughDoubt(t) / scale_;
    if (!(doubt <= static_cast<double>(kNoDoubt)))
        doubt = closeDoubt(t) / scale_;
    t.doubt = doubt < static_cast<double>(kNoTrust) ? static_cast<float>(doubt) : kNoTrust;
    return t.doubt;
}

void Mesh::link(const std::vector<Edge>& edges, const std::int32_t* made)
{
    const std::int32_t* next = made;
    for (const Edge& e : edges) {
        if (e.isDropped())
            continue;
        (*this)[*next].beside[0] = e.across;
        fan_[static_cast<std::size_t>(e.from)] = *next++;
    }
    for (const std::int32_t* id = made; id != next; ++id) {
        MeshTriangle& t = (*this)[*id];
        const std::int32_t right = at(t.corners.b);
        t.beside[1] = right;
        (*this)[right].beside[2] = *id;
        if (t.beside[0] >= 0) {
            MeshTriangle& across = (*this)[t.beside[0]];
            const Triangle& corners = across.corners;
            across.beside[corners.a == t.corners.b ? 0 : corners.b == t.corners.b ? 1 : 2] = *id;
        }
    }
    if (next != made)
        fan_[static_cast<std::size_t>((*this)[*made].corners.c)] = *made;
}

// The first side that p lies beyond, or -1 when it lies in the triangle. It lies
// on this side of the one that one has come over.
int Mesh::sideTowards(const MeshTriangle& t, const Point3& p, std::int32_t from) const
{
    const auto loop = loopOf(t.corners);
    for (std::size_t i = 0; i < 3; ++i) {
        if ((from < 0 || t.beside[i] != from) && geometry::turnOf(vertex(loop[i]), vertex(loop[i + 1]), p) > 0)
            return static_cast<int>(i);
    }
    return -1;
}

std::int32_t Mesh::holderAmong(const std::vector<std::int32_t>& alive, const Point3& p) const
{
    const auto holder =
        std::find_if(alive.begin(), alive.end(), [&](std::int32_t id) { return sideTowards((*this)[id], p, -1) < 0; });
    return holder == alive.end() ? -1 : *holder;
}

std::vector<std::int32_t> Mesh::exactHole(const Point3& p, std::int32_t holder, std::int32_t mark)
{
    std::vector<std::int32_t> hole;
    if (holder < 0)
        return hole;
    const auto holds = [&](const Triangle& t) {
        return geometry::placeInCircle(vertex(t.a), vertex(t.b), vertex(t.c), p) >= 0;
    };
    hole.push_back(holder);
    (*this)[holder].mark = mark;
    for (std::size_t i = 0; i < hole.size(); ++i) {
        for (std::int32_t next : (*this)[hole[i]].beside) {
            if (next < 0 || (*this)[next].mark == mark || !holds((*this)[next].corners))
                continue;
            (*this)[next].mark = mark;
            hole.push_back(next);
        }
    }
    return hole;
}

bool seesLoop(const PointList& vertices, const std::vector<Edge>& edges, const Point3& p)
{
    bool any = false;
    for (const Edge& e : edges) {
        if (e.isDropped())
            continue;
        any = true;
        if (geometry::turnOf(vertices[static_cast<std::size_t>(e.from)], vertices[static_cast<std::size_t>(e.to)], p)
            >= 0)
            return false;
    }
    return any;
}

} // namespace contour
