// The temperatures of a well over time and depth: bands of colour, and lines of
// equal temperature between them.
#pragma once

#include "charts/plotter/plotter.h"

/// Temperatures at the crossings of times and depths, both rising.
struct TemperatureGrid {
    QVector<double> times;  ///< milliseconds on the clock on which they were written
    QVector<double> depths; ///< m
    QVector<double> values; ///< °C, a time after another; not a number: not known

    double at(int time, int depth) const { return values[time * depths.size() + depth]; }
    /// Whether there are two times and two depths to draw between.
    bool isPlane() const { return times.size() > 1 && depths.size() > 1; }
};

/// A step of 1, 2 or 5 times a power of ten, with about `most` lines in the range.
double isothermStep(double coldest, double warmest, int most = 12);

/// The same temperatures at so many crossings more: a time and a depth between
/// two are drawn as the bands of colour are, straight along each edge.
TemperatureGrid refined(const TemperatureGrid& grid, int times, int depths);

/// The straight pieces of the line of equal temperature through the cells of the
/// grid, parted by points that are not numbers. A cell with an unknown corner
/// has none.
struct IsothermLine {
    double temperature = 0.0;
    QVector<double> times, depths;
};
IsothermLine isothermOf(const TemperatureGrid& grid, double temperature);

class IsothermChart {
public:
    /// A step that is not above 0 is chosen by the range.
    void plot(const TemperatureGrid& grid, double step = 0.0);
    QPixmap render(const QSize& size, double ratio = 1.0) { return plotter_.grabPixelImage(size, ratio); }

    Plotter& plotter() { return plotter_; }
    double step() const { return step_; }

private:
    void addBands(const TemperatureGrid& grid, double coldest, double warmest);
    void addLine(const IsothermLine& line);
    void addLabel(const IsothermLine& line, double wantedTime, const TemperatureGrid& grid);
    void addDays(const TemperatureGrid& grid);
    void describeAxes(const TemperatureGrid& grid);

    Plotter plotter_;
    double step_ = 0.0;
};
