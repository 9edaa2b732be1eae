#pragma once

#include "analysis/contour/progress.h"
#include "geometry/point3.h"

#include <cstdint>
#include <vector>

// Scattered points with a value as z, turned into lines of equal value: a
// Delaunay triangulation by a sweep along x, cut straight at every level.
//
// Every operation gives what its plain steps give, in the same order and to the
// last digit; how the pieces are found is another matter. Nothing here throws,
// and points or levels that are no numbers are left out.
namespace contour {

using geometry::Point3;
using geometry::PointList;

struct Triangle {
    std::int32_t a = 0;
    std::int32_t b = 0;
    std::int32_t c = 0;
};

inline bool operator==(const Triangle& p, const Triangle& q) { return p.a == q.a && p.b == q.b && p.c == q.c; }

// Points of one level in a row. Closed when first and last point lie nearer
// than GEOM_TOL.
using Isoline = PointList;

bool isClosedLine(const Isoline& line);

class SurfaceModel {
public:
    // Points of equal x up to which they are vertices in the order given.
    static constexpr std::size_t kShortColumn = 32;

    PointList points;                // working set, doubles removed by prepare
    PointList rawPoints;             // as last given, doubles kept
    PointList boundary;              // limits the map; x and y; not closed by a repeated point
    std::vector<Triangle> triangles; // indices into vertices
    PointList vertices;              // points by x, then three slots for the super-triangle
    std::int32_t vertexCount = 0;    // without those three
    std::int32_t triangleCount = 0;
    bool triangulated = false;

    // Takes the points into `points` and `rawPoints`, then does as prepare.
    void setPoints(const PointList& given);

    // The border of the map. Plain: values along it come from
    // densifyBoundaryValues. Exact: the border becomes part of the surface, with
    // a point wherever it crosses the triangulation. Both clear `triangulated`.
    void setBoundary(const PointList& bounds, bool exactEdges = false);

    // Drops the later of two points nearer than GEOM_TOL (value included) and
    // fills `vertices` sorted by x. Of equal x they come in the order given, but
    // of a long column by y and in halves: every 2^k-th, then those half way
    // between, and so on. The triangles are the same wherever no circles tie.
    void prepare();

    // Needs prepare and three vertices. A vertex nearer in plan than GEOM_TOL to
    // one given before it takes no part: a surface has one value at a place, and
    // the well entered first gives it. False, without triangles, for fewer than
    // three, for points all at one place, and when stopped by the tick.
    bool triangulate(const Tick& tick = {});

    // Whether prepare found vertices that take no part.
    bool hasSharedPlaces() const;

    // Appends the outer rim of the triangulation to `boundary`, z = 0. False
    // when there is no triangle or already a boundary of more than three points.
    bool boundaryFromHull();

    // Gives points with values to the border, so that bands reach it: one at
    // each corner, one at each place along it where a measured point is nearest.
    void densifyBoundaryValues();

    // Points of a regular grid over the map, each with a value by inverse
    // distance from `neighbours` points. `points` stays as it is. Empty for an
    // empty or flat box, for a grid beyond all measure, and when stopped.
    PointList idwGridPoints(double power, int neighbours, const Tick& tick = {});

    // Keeps the triangles whose centre of gravity lies inside `boundary`.
    void trianglesInsideBoundary();

    // Cuts the triangles at the levels and chains the pieces. A level that meets
    // a point is moved off it first, in the caller's list.
    std::vector<Isoline> isolines(std::vector<double>& levels) const;

    // In plan; negative infinity without triangles.
    double longestEdge() const;
    geometry::Box3 box() const;

private:
    void addExactBorder();
    bool gridBox(geometry::Box3* box);

    std::vector<char> repeats_; // vertices that the triangulation leaves out
};

} // namespace contour
