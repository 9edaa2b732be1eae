#include "plain_surface.h"

#include "geometry/exact_signs.h"
#include "geometry/polygon.h"

#include <algorithm>

using geometry::GEOM_TOL;

namespace reference {

void PlainSurface::setPoints(const PointList& given)
{
    points = given;
    rawPoints = given;
    prepare();
    triangulated = false;
}

// Long columns of equal x by y: ranks that the largest power of two divides, then
// those that the next one does, down to the odd ones.
void PlainSurface::inHalves(std::vector<std::size_t>* order) const
{
    for (std::size_t i = 0; i < order->size(); ++i) {
        std::vector<std::size_t> column;
        for (std::size_t point : *order) {
            if (points[point].x == points[(*order)[i]].x)
                column.push_back(point);
        }
        if (column.size() > 32) {
            std::stable_sort(column.begin(), column.end(),
                             [this](std::size_t a, std::size_t b) { return points[a].y < points[b].y; });
            std::size_t to = i;
            for (std::size_t power = std::size_t{1} << 40U; power > 0; power /= 2) {
                for (std::size_t rank = 1; rank <= column.size(); ++rank) {
                    if (rank % power == 0 && rank / power % 2 == 1)
                        (*order)[to++] = column[rank - 1];
                }
            }
        }
        i += column.size() - 1;
    }
}

void PlainSurface::prepare()
{
    for (std::size_t i = points.size(); i-- > 0;) {
        if (!geometry::isFinite(points[i]))
            points.erase(points.begin() + static_cast<std::ptrdiff_t>(i));
    }
    for (std::size_t i = 0; i < points.size(); ++i) {
        for (std::size_t j = points.size(); j-- > i + 1;) {
            if (geometry::distance(points[i], points[j]) < GEOM_TOL)
                points.erase(points.begin() + static_cast<std::ptrdiff_t>(j));
        }
    }
    // A place has one vertex, the first one given there.
    std::vector<char> repeated(points.size(), 0);
    std::vector<std::size_t> order;
    for (std::size_t j = 0; j < points.size(); ++j) {
        for (std::size_t i = 0; i < j; ++i) {
            if (!repeated[i] && geometry::planDistance(points[i], points[j]) < GEOM_TOL)
                repeated[j] = 1;
        }
        order.push_back(j);
    }
    std::stable_sort(order.begin(), order.end(),
                     [this](std::size_t a, std::size_t b) { return points[a].x < points[b].x; });
    inHalves(&order);
    vertices.clear();
    repeats.clear();
    for (std::size_t i : order) {
        vertices.push_back(points[i]);
        repeats.push_back(repeated[i]);
    }
    vertexCount = static_cast<std::int32_t>(vertices.size());
    vertices.resize(vertices.size() + 3);
    triangles.clear();
    triangleCount = 0;
}

namespace {

struct Circle {
    double x, y, squaredRadius;
};

bool circumcircle(const Point3& p1, const Point3& p2, const Point3& p3, Circle* circle)
{
    const bool level12 = std::fabs(p1.y - p2.y) < 1e-6;
    const bool level23 = std::fabs(p2.y - p3.y) < 1e-6;
    if (level12 && level23)
        return false;
    if (level12) {
        const double m2 = -(p3.x - p2.x) / (p3.y - p2.y);
        circle->x = (p1.x + p2.x) / 2.0;
        circle->y = m2 * (circle->x - (p2.x + p3.x) / 2.0) + (p2.y + p3.y) / 2.0;
    } else if (level23) {
        const double m1 = -(p2.x - p1.x) / (p2.y - p1.y);
        circle->x = (p2.x + p3.x) / 2.0;
        circle->y = m1 * (circle->x - (p1.x + p2.x) / 2.0) + (p1.y + p2.y) / 2.0;
    } else {
        const double m1 = -(p2.x - p1.x) / (p2.y - p1.y);
        const double m2 = -(p3.x - p2.x) / (p3.y - p2.y);
        const double mx1 = (p1.x + p2.x) / 2.0, my1 = (p1.y + p2.y) / 2.0;
        const double mx2 = (p2.x + p3.x) / 2.0, my2 = (p2.y + p3.y) / 2.0;
        circle->x = (m1 * mx1 - m2 * mx2 + my2 - my1) / (m1 - m2);
        circle->y = m1 * (circle->x - mx1) + my1;
    }
    const double dx = p2.x - circle->x, dy = p2.y - circle->y;
    circle->squaredRadius = dx * dx + dy * dy;
    return true;
}

// Takes the marked triangles out, the last one moving into each place, and gives
// the edges that are left when those that occur twice have gone in pairs.
std::vector<Edge> takeOut(std::vector<char> goes, std::vector<Triangle>* triangles, std::vector<char>* complete)
{
    std::vector<Edge> edges;
    for (std::size_t j = 0; j < triangles->size(); ++j) {
        if (!goes[j])
            continue;
        const Triangle t = (*triangles)[j];
        edges.push_back({t.a, t.b});
        edges.push_back({t.b, t.c});
        edges.push_back({t.c, t.a});
        (*triangles)[j] = triangles->back();
        (*complete)[j] = complete->back();
        goes[j] = goes.back();
        triangles->pop_back();
        complete->pop_back();
        goes.pop_back();
        --j;
    }
    std::vector<char> dropped(edges.size(), 0);
    for (std::size_t j = 0; j < edges.size(); ++j) {
        for (std::size_t k = j + 1; k < edges.size(); ++k) {
            if (!dropped[j] && !dropped[k] && sameEdge(edges[j], edges[k]))
                dropped[j] = dropped[k] = 1;
        }
    }
    std::vector<Edge> left;
    for (std::size_t j = 0; j < edges.size(); ++j) {
        if (!dropped[j])
            left.push_back(edges[j]);
    }
    return left;
}

} // namespace

// All triangles turn to the right, so a hole's edges have its inside to the
// right. Seen from that side, every one of them, they are one loop round p.
bool PlainSurface::seenFrom(const Point3& p, const std::vector<Edge>& edges) const
{
    for (const Edge& e : edges) {
        if (geometry::turnOf(vertices[e.from], vertices[e.to], p) >= 0)
            return false;
    }
    return !edges.empty();
}

// The triangle that p lies in, then neighbour by neighbour those whose circle
// holds p, rim included, by exact figures.
std::vector<char> PlainSurface::exactHole(const std::vector<Triangle>& all, const Point3& p) const
{
    std::vector<char> hole(all.size(), 0);
    std::vector<Edge> rim;
    const auto take = [&](std::size_t j) {
        hole[j] = 1;
        rim.push_back({all[j].a, all[j].b});
        rim.push_back({all[j].b, all[j].c});
        rim.push_back({all[j].c, all[j].a});
    };
    for (std::size_t j = 0; j < all.size() && rim.empty(); ++j) {
        const Point3 &a = vertices[all[j].a], &b = vertices[all[j].b], &c = vertices[all[j].c];
        if (geometry::turnOf(a, b, p) <= 0 && geometry::turnOf(b, c, p) <= 0 && geometry::turnOf(c, a, p) <= 0)
            take(j);
    }
    for (std::size_t e = 0; e < rim.size(); ++e) {
        const Edge side = rim[e];
        for (std::size_t j = 0; j < all.size(); ++j) {
            const Triangle& t = all[j];
            const bool beside = sameEdge(side, {t.a, t.b}) || sameEdge(side, {t.b, t.c}) || sameEdge(side, {t.c, t.a});
            if (!hole[j] && beside && geometry::placeInCircle(vertices[t.a], vertices[t.b], vertices[t.c], p) >= 0)
                take(j);
        }
    }
    return hole;
}

bool PlainSurface::triangulate()
{
    triangles.clear();
    triangleCount = 0;
    const std::int32_t n = vertexCount;
    if (n < 3)
        return false;
    triangulated = false;
    double xmin = vertices[0].x, xmax = xmin, ymin = vertices[0].y, ymax = ymin;
    for (std::int32_t i = 1; i < n; ++i) {
        xmin = std::min(xmin, vertices[i].x);
        xmax = std::max(xmax, vertices[i].x);
        ymin = std::min(ymin, vertices[i].y);
        ymax = std::max(ymax, vertices[i].y);
    }
    const double dmax = std::max(xmax - xmin, ymax - ymin);
    const double xmid = (xmax + xmin) / 2.0, ymid = (ymax + ymin) / 2.0;
    if (!(dmax > 0.0))
        return false;
    vertices[n].x = xmid - 20.0 * dmax;
    vertices[n].y = ymid - dmax;
    vertices[n + 1].x = xmid;
    vertices[n + 1].y = ymid + 20.0 * dmax;
    vertices[n + 2].x = xmid + 20.0 * dmax;
    vertices[n + 2].y = ymid - dmax;

    triangles.push_back({n, n + 1, n + 2});
    std::vector<char> complete{0};
    bool mendable = true;
    for (std::int32_t i = 0; i < n; ++i) {
        if (repeats[i])
            continue;
        std::vector<char> goes(triangles.size(), 0);
        for (std::size_t j = 0; j < triangles.size(); ++j) {
            Circle circle;
            if (complete[j]
                || !circumcircle(vertices[triangles[j].a], vertices[triangles[j].b], vertices[triangles[j].c], &circle))
                continue;
            if (vertices[i].x > circle.x + std::sqrt(circle.squaredRadius))
                complete[j] = 1;
            const double dx = vertices[i].x - circle.x, dy = vertices[i].y - circle.y;
            goes[j] = dx * dx + dy * dy <= circle.squaredRadius;
        }
        const std::vector<Triangle> trianglesBefore = triangles;
        const std::vector<char> completeBefore = complete;
        std::vector<Edge> edges = takeOut(goes, &triangles, &complete);
        if (mendable && !seenFrom(vertices[i], edges)) {
            const std::vector<char> exact = exactHole(trianglesBefore, vertices[i]);
            mendable = std::count(exact.begin(), exact.end(), 1) > 0;
            if (mendable) {
                triangles = trianglesBefore;
                complete = completeBefore;
                edges = takeOut(exact, &triangles, &complete);
            }
        }
        for (const Edge& e : edges) {
            triangles.push_back({e.from, e.to, i});
            complete.push_back(0);
        }
        if (triangles.size() > 16 * static_cast<std::size_t>(n) + 4096) {
            triangles.clear();
            return false;
        }
    }
    for (std::size_t j = 0; j < triangles.size(); ++j) {
        if (triangles[j].a >= n || triangles[j].b >= n || triangles[j].c >= n) {
            triangles[j] = triangles.back();
            triangles.pop_back();
            --j;
        }
    }
    triangleCount = static_cast<std::int32_t>(triangles.size());
    triangulated = true;
    return true;
}

bool PlainSurface::boundaryFromHull()
{
    if (!triangulated || boundary.size() > 3)
        return false;
    std::vector<Edge> edges;
    for (const Triangle& t : triangles) {
        edges.push_back({t.a, t.b});
        edges.push_back({t.b, t.c});
        edges.push_back({t.c, t.a});
    }
    for (std::ptrdiff_t i = static_cast<std::ptrdiff_t>(edges.size()) - 1; i >= 0; --i) {
        for (std::ptrdiff_t j = i - 1; j >= 0; --j) {
            if (sameEdge(edges[i], edges[j])) {
                edges.erase(edges.begin() + i);
                edges.erase(edges.begin() + j);
                --i; // what stood before i has moved down by one
                break;
            }
        }
    }
    if (edges.empty())
        return false;
    std::vector<std::int32_t> chain{edges[0].from, edges[0].to};
    edges.erase(edges.begin());
    for (std::ptrdiff_t i = static_cast<std::ptrdiff_t>(edges.size()) - 1; i >= 0; --i) {
        const Edge e = edges[i];
        if (e.from == chain.front())
            chain.insert(chain.begin(), e.to);
        else if (e.to == chain.front())
            chain.insert(chain.begin(), e.from);
        else if (e.from == chain.back())
            chain.push_back(e.to);
        else if (e.to == chain.back())
            chain.push_back(e.from);
        else
            continue;
        edges.erase(edges.begin() + i);
        i = static_cast<std::ptrdiff_t>(edges.size());
    }
    if (chain.front() == chain.back())
        chain.pop_back();
    for (std::int32_t v : chain)
        boundary.push_back({vertices[v].x, vertices[v].y, 0.0});
    return true;
}

void PlainSurface::trianglesInsideBoundary()
{
    std::vector<Triangle> kept;
    for (const Triangle& t : triangles) {
        const Point3 &a = vertices[t.a], &b = vertices[t.b], &c = vertices[t.c];
        if (geometry::insideEvenOdd((a.x + b.x + c.x) / 3.0, (a.y + b.y + c.y) / 3.0, boundary))
            kept.push_back(t);
    }
    triangles = kept;
    triangleCount = static_cast<std::int32_t>(triangles.size());
}

double PlainSurface::longestEdge() const
{
    double longest = -INFINITY;
    for (const Triangle& t : triangles) {
        longest = std::max(longest, geometry::planDistance(vertices[t.a], vertices[t.b]));
        longest = std::max(longest, geometry::planDistance(vertices[t.b], vertices[t.c]));
        longest = std::max(longest, geometry::planDistance(vertices[t.c], vertices[t.a]));
    }
    return longest;
}

} // namespace reference
