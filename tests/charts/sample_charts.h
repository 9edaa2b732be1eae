// The charts of the sheet.
#pragma once

#include "charts/plotter/plot_record.h"

#include <QPixmap>
#include <functional>
#include <ostream>
#include <vector>

struct DrawnChart {
    QPixmap picture;
    PlotRecord record;
};

struct SampleChart {
    const char* name;
    std::function<DrawnChart()> draw;
    bool labelsApart = true; ///< the points leave room for all values
    bool white = false;      ///< nothing is to be seen
};

inline std::ostream& operator<<(std::ostream& stream, const SampleChart& sample) { return stream << sample.name; }

std::vector<SampleChart> sampleCharts();
