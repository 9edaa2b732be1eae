// A hatch's boundary as a file tells it, and the loops that a drawing holds.
#pragma once

#include "group.h"

#include <nrx/entity.h>

// Reads loops one after another out of the groups of a hatch.
class HatchLoopReader {
public:
    HatchLoopReader(const DxfGroups& groups, size_t at) : groups_(groups), at_(at) { }
    // Boundaries of single edges become a polyline: lines and circular arcs
    // exactly, ellipses and splines as chains of short lines.
    NcDbHatch::Loop next();
    size_t at() const { return at_; }
    // Entities that the loops so far were taken from; not all, when a copy lost them.
    const std::vector<quint64>& sources() const { return sources_; }
    bool hasAllSources() const { return int(sources_.size()) == sourceCount_; }

private:
    bool is(int code) const { return at_ < groups_.size() && groups_[at_].code == code; }
    double real(int code);
    int integer(int code);
    NcGePoint2d point(int code);
    void add(const NcGePoint2d& p, double bulge = 0.0);

    void readPolyline();
    void readEdge();
    void readLine();
    void readArc();
    void readEllipse();
    void readSpline();
    void readSources();

    const DxfGroups& groups_;
    size_t at_;
    NcDbHatch::Loop loop_;
    std::vector<quint64> sources_;
    int sourceCount_ = 0;
};
