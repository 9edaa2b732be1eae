#pragma once

#include "analysis/contour/contour_build.h"
#include "plain_surface.h"

// Lines, rings and bands said plainly; see plain_surface.h.
namespace reference {

class PlainContourSet {
public:
    std::vector<Isoline> lines;
    std::vector<Isoline> smoothedLines;
    std::vector<PointList> rings;
    std::vector<PointList> closedRings;
    PointList boundary;
    PointList surfacePoints;
    std::vector<double> levels;
    bool ringsBuilt = false;
    bool levelsSet = false;

    void setLevels(const std::vector<double>& list);
    int bandOf(double z) const;
    void filterLines(double minDistance);
    void refineLines(double maxLength, int parts);
    void smoothLines(double tension, int samples);
    bool buildClosedRings();
    void buildRings();
    std::vector<std::vector<PointList>> groupByBand() const;

private:
    void takeReferencePoint(const Isoline& line);
    double valueOfTouchedRing(const PointList& ring, double level, const PointList& onBorder) const;
};

struct PlainBuild {
    contour::BuildStatus status;
    PlainSurface surface;
    std::vector<double> levels;
    PlainContourSet contours;
};

PlainBuild plainBuild(const contour::BuildInput& input, const contour::BuildParameters& parameters);

} // namespace reference
