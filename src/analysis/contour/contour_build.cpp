#include "analysis/contour/contour_build.h"

namespace contour {

namespace {

// Steps in their order; each says false once the build is cancelled.
class Build {
public:
    Build(const BuildInput& input, const BuildParameters& parameters, const BuildProgress& progress)
        : input_(input), parameters_(parameters), progress_(progress), useHull_(!input.bounds)
    { }

    BuildStatus run(BuildResult* result)
    {
        if (!makeSurface() || !traceLines(result) || !shapeLines(result) || !closeRings(result))
            return BuildStatus::Cancelled;
        return BuildStatus::Done;
    }

private:
    // Once cancelled, the build stays so.
    bool at(BuildStep step, double done)
    {
        goesOn_ = goesOn_ && (!progress_ || progress_(step, done));
        return goesOn_;
    }

    Tick tick(BuildStep step)
    {
        if (!progress_)
            return {};
        return [this, step](double done) { return at(step, done); };
    }

    bool triangulate()
    {
        if (!at(BuildStep::Triangulate, 0.0))
            return false;
        surface_.prepare();
        if (surface_.vertexCount >= 3)
            surface_.triangulate(tick(BuildStep::Triangulate));
        return at(BuildStep::Triangulate, 1.0);
    }

    bool triangulateWithHull()
    {
        if (!triangulate())
            return false;
        if (useHull_)
            surface_.boundaryFromHull();
        return true;
    }

    bool addGrid()
    {
        if (!at(BuildStep::Grid, 0.0))
            return false;
        const PointList grid = surface_.idwGridPoints(parameters_.power, parameters_.neighbours, tick(BuildStep::Grid));
        if (!at(BuildStep::Grid, 1.0))
            return false;
        PointList all = surface_.rawPoints;
        all.insert(all.end(), grid.begin(), grid.end());
        surface_.setPoints(all);
        surface_.densifyBoundaryValues();
        return true;
    }

    bool makeSurface()
    {
        if (!at(BuildStep::Prepare, 0.0))
            return false;
        surface_.setPoints(*input_.points);
        if (input_.bounds)
            surface_.setBoundary(*input_.bounds, input_.exactEdges);
        if (!at(BuildStep::Prepare, 1.0))
            return false;
        if (parameters_.method == Method::Triangulation)
            return triangulateWithHull();
        return (!useHull_ || triangulateWithHull()) && addGrid() && triangulate();
    }

    bool traceLines(BuildResult* result)
    {
        if (!at(BuildStep::Isolines, 0.0))
            return false;
        anyTriangle_ = surface_.triangleCount > 0;
        surface_.trianglesInsideBoundary();
        result->levels = input_.levels;
        result->contours = IsoContourSet(surface_.isolines(result->levels), surface_.boundary);
        result->contours.setLevels(result->levels);
        result->boundary = surface_.boundary;
        result->statistics = {static_cast<int>(surface_.points.size()), surface_.triangleCount, surface_.longestEdge(),
                              surface_.box()};
        return at(BuildStep::Isolines, 1.0);
    }

    bool shapeLines(BuildResult* result)
    {
        if (!at(BuildStep::Lines, 0.0))
            return false;
        IsoContourSet& set = result->contours;
        if (parameters_.filterLines)
            set.filterLines(parameters_.filterDistance);
        if (parameters_.refineLines)
            set.refineLines(parameters_.refineDistance, parameters_.refineParts);
        if (parameters_.smoothLines) {
            set.smoothLines(parameters_.tension, parameters_.splineSamples);
            set.useSmoothedLines();
        }
        return at(BuildStep::Lines, 1.0);
    }

    // Points that gave no triangle at all, all at one place or on one line, make
    // no map, and no ring either.
    bool closeRings(BuildResult* result)
    {
        if (!at(BuildStep::Rings, 0.0))
            return false;
        result->contours.surfacePoints = surface_.points;
        if (anyTriangle_)
            result->contours.buildRings();
        return at(BuildStep::Rings, 1.0);
    }

    const BuildInput& input_;
    const BuildParameters& parameters_;
    const BuildProgress& progress_;
    const bool useHull_;
    SurfaceModel surface_;
    bool anyTriangle_ = false;
    bool goesOn_ = true;
};

} // namespace

BuildResult buildContours(const BuildInput& input, const BuildParameters& parameters, const BuildProgress& progress)
{
    BuildResult result;
    if (!input.points)
        result.status = BuildStatus::NoPoints;
    else if (!input.bounds && !parameters.calculateBoundary)
        result.status = BuildStatus::NoBounds;
    else
        result.status = Build(input, parameters, progress).run(&result);
    if (result.status == BuildStatus::Cancelled) {
        result = BuildResult();
        result.status = BuildStatus::Cancelled;
    }
    return result;
}

} // namespace contour
