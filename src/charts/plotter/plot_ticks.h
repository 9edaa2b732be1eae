// Where ticks stand and what they say. Texts never depend on the locale.
#pragma once

#include "charts/plotter/plot_ranges.h"

#include <QStringList>

struct PlotTicks {
    QVector<double> major, minor; ///< ascending
    QStringList labels;           ///< of the major ones
};

/// Round numbers, at most about `most` of them, with as many decimals as their
/// step has.
PlotTicks numberTicks(const PlotRange& range, int most);

/// First days of months, a whole number of months or years apart. In a range
/// that holds fewer than two of them the range's ends stand in.
/// A label that says the same as the one before it is left out.
PlotTicks dateTicks(const PlotRange& range, const QString& format, int most);
