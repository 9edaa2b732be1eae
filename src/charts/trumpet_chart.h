// How cold and how warm a well was at each depth: the curves that open towards
// the surface like a trumpet.
#pragma once

#include "charts/plotter/plotter.h"

struct TrumpetCurves {
    static constexpr double none = std::numeric_limits<double>::infinity();

    QVector<double> depths; ///< m, rising
    QVector<double> coldest, mean, warmest;
    double thawDepth = none;  ///< drawn where it is there, as the next
    double quietDepth = none; ///< of zero annual amplitude
};

class TrumpetChart {
public:
    /// Curves without a depth leave the plot empty.
    void plot(const TrumpetCurves& curves);
    QPixmap render(const QSize& size, double ratio = 1.0) { return plotter_.grabPixelImage(size, ratio); }

    Plotter& plotter() { return plotter_; }

private:
    struct Range {
        double from, to;
    };

    void describeAxes(const Range& x, const Range& y);
    void addCurve(const TrumpetCurves& curves, const QVector<double>& temperatures, const QColor& color,
                  const QString& title);
    void addDepthLine(double depth, const Range& x, const QColor& color, const QString& title);
    void addZeroLine(const Range& y);

    Plotter plotter_;
};
