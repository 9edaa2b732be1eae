// What differs from one time series to the next.
#pragma once

#include "charts/plotter/plot_vocabulary.h"

#include <QString>

struct ChartSeries {
    QString valueColumn;
    QString title;
    QString axisLabel;
    double factor = 1.0; ///< from the measure's unit to the chart's
    bool full = true;    ///< large symbols with their values; otherwise a thin line
    bool describesAxes = true;
    bool setsRanges = true; ///< from the stored extents
    bool showsKey = true;
    PlotAxisKey axis = PlotAxisKey::Primary;
    KeyPosition key = KeyPosition::InsideTopRight;
};

enum class SeriesKey {
    Displacement,
    Trend,
    WaterLevel,
    AirTemperature,
    ExchangerTemperature,
    SnowDensity,
    SnowHeight,
};

const ChartSeries& chartSeries(SeriesKey key);
