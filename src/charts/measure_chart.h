// Charts of one element's measures over time, as pictures.
//
// A chart is made for a picture: set its size, plot one series, or two in the
// order in which the class names them, then render. A series without an entry
// draws nothing and leaves the extents alone.
#pragma once

#include "charts/plotter/plotter.h"

#include <QDateTime>
#include <QMap>
#include <QObject>

/// One entry a measure, plotted by what its date shows.
using TimeSeries = QMap<QDateTime, double>;

struct ChartSeries;

/// The smallest and the largest value of a series; infinite without any.
struct ValueBounds {
    double smallest = std::numeric_limits<double>::infinity();
    double largest = -std::numeric_limits<double>::infinity();
};

class MeasureChart : public QObject {
    Q_OBJECT

public:
    explicit MeasureChart(QObject* parent = nullptr);
    ~MeasureChart() override;

    /// The size of the picture, set before plotting.
    void setPictureSize(int width, int height);
    /// The picture at the stored size.
    virtual QPixmap render(double ratio = 1.0);
    Plotter& plotter() { return plotter_; }

    double minimumX() const { return minimumX_; }
    double maximumX() const { return maximumX_; }
    double minimumY() const { return minimumY_; }
    double maximumY() const { return maximumY_; }

protected:
    /// Widens the stored extents by the series; gives its own values' bounds.
    ValueBounds widenExtents(const TimeSeries& series);
    ValueBounds plotSeries(const TimeSeries& series, const ChartSeries& row);
    /// x and y of the plotter from the stored extents.
    void setRangesFromExtents();

    Plotter plotter_;
    DataStore* store_;
    int width_ = -1, height_ = -1;
    double minimumX_ = std::numeric_limits<double>::infinity();
    double minimumY_ = std::numeric_limits<double>::infinity();
    double maximumX_ = -std::numeric_limits<double>::infinity();
    double maximumY_ = -std::numeric_limits<double>::infinity();

private:
    void addColumns(const TimeSeries& series, const ChartSeries& row);
    void describeAxes(const ChartSeries& row, const ValueBounds& bounds);
};

/// Deformation mark: the vertical displacement, given in metres and shown in
/// millimetres, and its trend.
class DMDeformationChartJK : public MeasureChart {
    Q_OBJECT

public:
    using MeasureChart::MeasureChart;
    ValueBounds plotDisplacement(const TimeSeries& series);
    ValueBounds plotTrend(const TimeSeries& series);
    /// Fits the ranges to what is plotted, with a twentieth more.
    QPixmap render(double ratio = 1.0) override;
};

/// Hydrogeological well: the level of ground water.
class GGSMeasureChartJK : public MeasureChart {
    Q_OBJECT

public:
    using MeasureChart::MeasureChart;
    ValueBounds plotLevel(const TimeSeries& series);
};

/// Thermostabiliser: the temperatures of the air, then of the exchanger.
class TSGMeasuresChartJK : public MeasureChart {
    Q_OBJECT

public:
    using MeasureChart::MeasureChart;
    ValueBounds plotAir(const TimeSeries& series);
    ValueBounds plotExchanger(const TimeSeries& series);
};

/// Snow survey point: the density on an axis of its own, then the height.
class TSSMeasuresChartJK : public MeasureChart {
    Q_OBJECT

public:
    using MeasureChart::MeasureChart;
    ValueBounds plotDensity(const TimeSeries& series);
    ValueBounds plotHeight(const TimeSeries& series);
};
