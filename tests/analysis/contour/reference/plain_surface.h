#pragma once

#include "analysis/contour/chaining.h"
#include "analysis/contour/surface_model.h"

// The contour engine said plainly: the same steps as contour::SurfaceModel, one
// loop inside another. Slow, and right by reading; the fast one must agree with
// it to the last digit.
namespace reference {

using contour::Isoline;
using contour::Triangle;
using geometry::Point3;
using geometry::PointList;

struct Edge {
    std::int32_t from;
    std::int32_t to;
};

inline bool sameEdge(const Edge& e, const Edge& f)
{
    return (e.from == f.from && e.to == f.to) || (e.from == f.to && e.to == f.from);
}

class PlainSurface {
public:
    PointList points;
    PointList rawPoints;
    PointList boundary;
    std::vector<Triangle> triangles;
    PointList vertices;
    std::int32_t vertexCount = 0;
    std::int32_t triangleCount = 0;
    bool triangulated = false;

    void setPoints(const PointList& given);
    void setBoundary(const PointList& bounds, bool exactEdges);
    void prepare();
    bool triangulate();
    bool boundaryFromHull();
    void densifyBoundaryValues();
    PointList idwGridPoints(double power, int neighbours);
    double idwValue(double x, double y, double power, int neighbours) const;
    void trianglesInsideBoundary();
    std::vector<Isoline> isolines(std::vector<double>& levels) const;
    double longestEdge() const;

private:
    bool seenFrom(const Point3& p, const std::vector<Edge>& edges) const;
    std::vector<char> exactHole(const std::vector<Triangle>& all, const Point3& p) const;
    void inHalves(std::vector<std::size_t>* order) const;
    void addExactBorder();
    int nearest(double x, double y) const;

    std::vector<char> repeats; // vertices at the place of one given before
};

// Segments joined into lines, as the list has them.
std::vector<Isoline> chained(std::vector<contour::ContourSegment> segments);

} // namespace reference
