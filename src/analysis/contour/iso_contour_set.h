#pragma once

#include "analysis/contour/line_list.h"

#include <cstdint>
#include <vector>

// Isolines closed against the map's border into rings, each at the value of one
// band between two levels.
namespace contour {

struct LinePair {
    SharedLine traced;
    SharedLine smoothed; // null until smoothLines
};

// The rings of one band as a solid hatch takes them: largest first, the first
// one its outer loop. Vertices equal to their predecessor are left out.
struct HatchBand {
    int band = 0;       // index into the levels
    double level = 0.0; // levels[band]
    std::vector<PointList> rings;
};

class IsoContourSet {
public:
    std::vector<LinePair> linePairs;
    LineList lines;
    LineList smoothedLines;
    RingList rings;       // closed, each at one band's value; they share the points of the lines
    RingList closedRings; // of lines closed in themselves
    PointList boundary;
    PointList surfacePoints;
    std::vector<double> levels; // ascending
    bool ringsBuilt = false;
    bool smoothed = false;
    bool levelsSet = false;

    IsoContourSet() = default;
    IsoContourSet(std::vector<Isoline> isolines, const PointList& border);

    // Takes the levels that the lines were cut at, in any order.
    void setLevels(const std::vector<double>& list);

    // The first i with levels[i] <= z < levels[i + 1], or -1; nothing lies in a
    // band at or above the last level.
    int bandOf(double z) const;

    // Drops inner points nearer than minDistance to their predecessor.
    void filterLines(double minDistance);
    // Cuts segments longer than maxLength (in plan) into `parts`. A number of
    // parts below 1 counts as 1, here and in smoothing.
    void refineLines(double maxLength, int parts);
    // Fills smoothedLines; lines of fewer than four points stay as they are.
    void smoothLines(double tension, int samples);
    // Replaces the lines by the smoothed ones.
    void useSmoothedLines();

    // Two copies of every closed line, for the bands above and below it. False,
    // doing nothing, without levels. Takes one point a line out of
    // surfacePoints, so that an enclosing line cannot use it again.
    bool buildClosedRings();

    // Rings between the border and the lines that end on it, then the closed
    // ones. Needs a border of three points; always sets ringsBuilt.
    void buildRings();

    // One list a level, rings of that band by area, largest first. Empty
    // without ringsBuilt.
    std::vector<std::vector<PointList>> groupByBand() const;

    // groupByBand as records for hatches, empty bands left out.
    std::vector<HatchBand> hatchBands() const;
};

// The first candidate inside the ring, by its index, or -1.
int findInnerPoint(const PointList& ring, const PointList& candidates);

} // namespace contour
