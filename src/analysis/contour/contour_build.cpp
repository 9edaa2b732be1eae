#include "analysis/contour/contour_build.h"

#include "geometry/tolerance_grid.h"

namespace contour {

namespace {

std::vector<int> usable(const PointList& given)
{
    std::vector<int> numbers;
    for (std::size_t i = 0; i < given.size(); ++i) {
        if (geometry::isFinite(given[i]))
            numbers.push_back(static_cast<int>(i));
    }
    return numbers;
}

// Points whose value the map does not show, since an earlier one has the place.
std::vector<int> atSharedPlaces(const PointList& given)
{
    geometry::ToleranceGrid places(given.size());
    std::vector<int> shared;
    for (int number : usable(given)) {
        const Point3& p = given[static_cast<std::size_t>(number)];
        const Point3 place{p.x, p.y, 0.0};
        int earlier = -1;
        places.chainsNear(place, [&](std::int32_t head) {
            for (std::int32_t i = head; i >= 0 && earlier < 0; i = places.next(i)) {
                if (geometry::planDistance(given[static_cast<std::size_t>(i)], p) < geometry::GEOM_TOL)
                    earlier = i;
            }
        });
        if (earlier < 0)
            places.add(place, number);
        else if (!(std::fabs(given[static_cast<std::size_t>(earlier)].z - p.z) < geometry::GEOM_TOL))
            shared.push_back(number);
    }
    return shared;
}

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
        result->gridRefused = gridRefused_;
        if (surface_.hasSharedPlaces())
            result->leftOut = atSharedPlaces(*input_.points);
        if (anyTriangle_)
            return BuildStatus::Done;
        result->without = usable(*input_.points);
        return surface_.vertexCount < 3 ? BuildStatus::FewPoints : BuildStatus::NoTriangle;
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
        // Points set without a border are prepared already.
        if (input_.bounds || parameters_.method == Method::InverseDistance)
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
        gridRefused_ = grid.empty() && !surface_.points.empty();
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
    bool gridRefused_ = false;
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
