// How much of a map whose border has narrow bays is painted as a band that the
// surface does not have there. A ring that one level bounds takes its band from
// the first point in it, which may have its value from across the bay.

#include "analysis/contour/contour_build.h"
#include "geometry/polygon.h"
#include "geometry/segment_index.h"
#include "samples.h"

#include <algorithm>
#include <cstdio>
#include <map>

namespace {

using contour::SurfaceModel;
using geometry::Point3;
using geometry::PointList;

constexpr int kMaps = 200;
constexpr int kPlaces = 1500; // looked at in each map
constexpr double kSide = 100.0;
constexpr double kOnBorder = 1e-3;

// A square with bays from below and from above.
PointList borderWithBays(samples::Random& random, int bays, double widest)
{
    PointList border;
    for (bool top : {false, true}) {
        const double base = top ? kSide : 0.0;
        const double into = top ? -1.0 : 1.0;
        PointList side{{0, base, 0}};
        for (int i = 0; i < bays; ++i) {
            const double slot = kSide / bays;
            const double at = slot * i + random.in(0.2, 0.5) * slot;
            const double width = random.in(0.05, 1.0) * std::min(widest, 0.4 * slot);
            side.push_back({at, base, 0});
            side.push_back({at + width * random.unit(), base + into * random.in(15, 48), 0});
            side.push_back({at + width, base, 0});
        }
        side.push_back({kSide, base, 0});
        if (top)
            std::reverse(side.begin(), side.end());
        border.insert(border.end(), side.begin(), side.end());
    }
    return border;
}

contour::BuildInput mapOf(std::uint32_t seed, int bays, double widest, bool exact)
{
    samples::Random random(seed);
    contour::BuildInput input;
    const PointList border = borderWithBays(random, bays, widest);
    const double slope = random.in(-0.15, 0.15);
    const double waves = random.in(0.02, 0.12);
    PointList wells;
    for (int left = 15 + random.below(120); left > 0;) {
        Point3 p{random.in(0, kSide), random.in(0, kSide), 0};
        p.z = slope * p.x + 5 * std::sin(waves * p.x) * std::cos(waves * p.y) + random.in(-0.3, 0.3);
        if (geometry::pointInPolygon(p, border)) {
            wells.push_back(p);
            --left;
        }
    }
    input.points = wells;
    input.bounds = border;
    input.exactEdges = exact;
    for (int i = -30; i <= 30; ++i)
        input.levels.push_back(1.0 * i + 0.5);
    return input;
}

// The surface that the lines of the map were cut from.
SurfaceModel surfaceOf(const contour::BuildInput& input)
{
    SurfaceModel model;
    model.setPoints(*input.points);
    model.setBoundary(*input.bounds, input.exactEdges);
    model.prepare();
    model.triangulate();
    model.trianglesInsideBoundary();
    return model;
}

bool valueAt(const SurfaceModel& model, const Point3& p, double* z)
{
    for (const contour::Triangle& t : model.triangles) {
        const Point3& a = model.vertices[static_cast<std::size_t>(t.a)];
        const Point3& b = model.vertices[static_cast<std::size_t>(t.b)];
        const Point3& c = model.vertices[static_cast<std::size_t>(t.c)];
        const double all = (b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y);
        const double ofB = ((p.x - a.x) * (c.y - a.y) - (c.x - a.x) * (p.y - a.y)) / all;
        const double ofC = ((b.x - a.x) * (p.y - a.y) - (p.x - a.x) * (b.y - a.y)) / all;
        if (ofB >= 0.0 && ofC >= 0.0 && ofB + ofC <= 1.0) {
            *z = a.z + ofB * (b.z - a.z) + ofC * (c.z - a.z);
            return true;
        }
    }
    return false;
}

// Of the places that were looked at.
struct Share {
    double otherSide = 0.0;  // in rings of one level that have the band of its other side
    double otherRings = 0.0; // in other rings that have not the band of most places in them
    double places = 0.0;     // that have another band than their ring, rings of many levels included
    bool endsOff = false;    // some line ends off the border, where the ring cannot follow it
};

using Place = std::pair<double, double>;

// The level of a ring that one level bounds, or NAN.
double onlyLevel(const PointList& ring, const std::map<Place, double>& ends)
{
    double level = NAN;
    for (const Point3& p : ring) {
        const auto end = ends.find({p.x, p.y});
        if (end == ends.end())
            continue;
        if (!std::isnan(level) && level != end->second)
            return NAN;
        level = end->second;
    }
    return level;
}

// Closed lines are left out: their rings do not ask any point.
Share measure(const contour::BuildInput& input, std::uint32_t seed)
{
    const contour::BuildResult result = buildContours(input, contour::BuildParameters());
    const contour::IsoContourSet& set = result.contours;
    const SurfaceModel model = surfaceOf(input);
    std::vector<PointList> rings;
    for (std::size_t i = 0; i < set.rings.size() - set.closedRings.size(); ++i)
        rings.push_back(set.rings[i]);
    const std::vector<PointList> loops = set.closedRings;
    std::vector<std::map<int, int>> bandsIn(rings.size());
    samples::Random random(seed);
    int seen = 0;
    for (int i = 0; i < kPlaces; ++i) {
        const Point3 p{random.in(0, kSide), random.in(0, kSide), 0};
        double z = 0.0;
        const auto holds = [&p](const PointList& ring) { return geometry::insideEvenOdd(p.x, p.y, ring); };
        if (!holds(*input.bounds) || std::any_of(loops.begin(), loops.end(), holds) || !valueAt(model, p, &z))
            continue;
        const auto ring = std::find_if(rings.begin(), rings.end(), holds);
        if (ring == rings.end())
            continue;
        ++seen;
        ++bandsIn[static_cast<std::size_t>(ring - rings.begin())][set.bandOf(z)];
    }
    Share share;
    std::map<Place, double> ends;
    const geometry::SegmentIndex border(*input.bounds, true);
    for (const contour::Isoline& line : set.lines) {
        if (contour::isClosedLine(line))
            continue;
        for (const Point3& end : {line.front(), line.back()}) {
            ends[{end.x, end.y}] = line.front().z;
            share.endsOff = share.endsOff || !border.isWithin(end, kOnBorder);
        }
    }
    for (std::size_t i = 0; i < rings.size(); ++i) {
        const int ours = set.bandOf(rings[i].front().z);
        int all = 0;
        int most = 0;
        int mostIn = ours;
        for (const auto& [band, places] : bandsIn[i]) {
            all += places;
            share.places += band == ours ? 0 : places;
            if (places > most || (places == most && band == ours)) {
                most = places;
                mostIn = band;
            }
        }
        if (mostIn == ours)
            continue;
        const int above = set.bandOf(onlyLevel(rings[i], ends));
        const bool isOtherSide = above >= 0 && std::min(ours, mostIn) == above - 1 && std::max(ours, mostIn) == above;
        (isOtherSide ? share.otherSide : share.otherRings) += all;
    }
    for (double* part : {&share.otherSide, &share.otherRings, &share.places})
        *part /= std::max(seen, 1);
    return share;
}

void printKind(int bays, double widest, bool exact)
{
    Share mean;
    double worst = 0.0;
    int touched = 0;
    int onBorder = 0; // maps all of whose lines end there
    double otherOnBorder = 0.0;
    for (std::uint32_t seed = 0; seed < kMaps; ++seed) {
        const Share share = measure(mapOf(1000 + seed, bays, widest, exact), seed);
        mean.otherSide += share.otherSide / kMaps;
        mean.otherRings += share.otherRings / kMaps;
        mean.places += share.places / kMaps;
        worst = std::max(worst, share.otherSide);
        touched += share.otherSide > 0.0;
        onBorder += !share.endsOff;
        otherOnBorder += share.endsOff ? 0.0 : share.otherRings;
    }
    std::printf(
        "%s, %d bays a side up to %2.0f wide: other side of its level %4.2f %% of the area, at worst %4.1f %%, in "
        "%2d maps; other rings %5.2f %%, and %4.2f %% in the %3d maps whose lines all end on the border; "
        "places %5.2f %%\n",
        exact ? "exact" : "plain", bays, widest, 100 * mean.otherSide, 100 * worst, touched, 100 * mean.otherRings,
        onBorder ? 100 * otherOnBorder / onBorder : 0.0, onBorder, 100 * mean.places);
    std::fflush(stdout);
}

} // namespace

int main()
{
    std::printf("%d maps of 15 to 135 wells each, in a square of %.0f.\n", kMaps, kSide);
    for (bool exact : {false, true}) {
        printKind(0, 1.0, exact);
        for (int bays : {1, 3})
            for (double widest : {1.0, 5.0, 20.0})
                printKind(bays, widest, exact);
    }
    return 0;
}
