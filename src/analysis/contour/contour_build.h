#pragma once

#include "analysis/contour/iso_contour_set.h"

#include <functional>
#include <optional>

// All steps from points and border to lines and rings, in their fixed order,
// for a dialog to call. A build starts anew from what it is given, so that
// building twice gives the same map.
namespace contour {

enum class Method {
    Triangulation = 0,
    InverseDistance = 1, // grid points added, then triangulated alike
};

// What the dialog's controls say; the values here are their defaults.
struct BuildParameters {
    Method method = Method::Triangulation;
    double power = 2.0;  // InverseDistance
    int neighbours = 15; // InverseDistance; outside 1 .. n-1 all points count
    bool calculateBoundary = false;
    bool filterLines = false;
    double filterDistance = 0.1;
    bool refineLines = false;
    double refineDistance = 50.0;
    int refineParts = 5;
    bool smoothLines = true;
    double tension = 0.5;
    int splineSamples = 10;
};

// Absent means never given, which is not the same as given and empty.
struct BuildInput {
    std::optional<PointList> points;
    std::optional<PointList> bounds;
    bool exactEdges = false; // the border is an exact outline (profiles)
    std::vector<double> levels;
};

enum class BuildStep {
    Prepare,
    Grid,
    Triangulate,
    Isolines,
    Lines,
    Rings,
};

// Told how much (0 to 1) of a step is done; false cancels the build.
using BuildProgress = std::function<bool(BuildStep step, double done)>;

enum class BuildStatus {
    Done,
    NoPoints,   // points were never given
    NoBounds,   // no border, and none to be calculated
    FewPoints,  // fewer than three, border values included: no map
    NoTriangle, // points on one line, at one place or beyond all measure: no map
    Cancelled,  // the result is empty
};

struct BuildStatistics {
    int pointCount = 0;
    int triangleCount = 0;
    double longestEdge = -INFINITY; // negative infinity without triangles
    geometry::Box3 box;
};

struct BuildResult {
    BuildStatus status = BuildStatus::Done;
    // Numbers of given points: all that there were when they made no map, and
    // those that stand at the place of an earlier one with another value.
    std::vector<int> without;
    std::vector<int> leftOut;
    bool gridRefused = false;   // by the box; the map is that of the points alone
    BuildStatistics statistics; // after the triangles outside were dropped
    std::vector<double> levels; // as moved off the points
    PointList boundary;         // as given or calculated
    IsoContourSet contours;     // lines, rings
};

BuildResult buildContours(const BuildInput& input, const BuildParameters& parameters,
                          const BuildProgress& progress = {});

} // namespace contour
