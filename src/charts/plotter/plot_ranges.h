// The ranges that axes show, whatever was set and whatever the data hold.
#pragma once

#include "charts/plotter/plotter.h"

struct PlotRange {
    double from = 0.0, to = 1.0;
    double width() const { return to - from; }
};

struct PlotRanges {
    PlotRange x, y, secondaryY;
};

/// What an axis shows: the range as set, its ends in ascending order; an end
/// that is no finite number comes from the data, without data both ends are 0
/// and 1. Equal ends are moved apart by 1 to both sides, dates by 15 days, very
/// large numbers by as much as can be told apart. A range of plus and minus
/// infinity keeps zero in its middle. Nothing goes beyond 1e100,
/// dates not beyond 100 000 years from 1970.
PlotRange shownRange(const PlotAxis& axis, bool anyData, double dataFrom, double dataTo);

PlotRanges shownRanges(const PlotContents& contents);
