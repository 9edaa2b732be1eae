// One temperature profile of a thermal well by depth, with what the check of
// the measure found.
#pragma once

#include "charts/plotter/plotter.h"

#include <QObject>
#include <map>
#include <memory>

/// Temperature by depth, or by elevation; an infinite one is missing.
using TemperatureCurve = std::map<double, double>;

class TSDataChartJK : public QObject {
    Q_OBJECT

public:
    explicit TSDataChartJK(QObject* parent = nullptr);

    void setPictureSize(int width, int height);
    /// Copies the profile. One with readings replaces all that was plotted and
    /// forgets the bounds; an empty one leaves the plot and renders as white.
    void setProfile(const TemperatureCurve& profile);
    /// Readings that the check took for outliers, and those where the
    /// temperature changes too fast.
    void addMarks(const TemperatureCurve& outliers, const TemperatureCurve& gradients);
    /// Lines at the depths between which the weighted mean is taken.
    void addDepthBounds(double from, double to);
    /// Weighted means of this measure and of the one before it.
    void addMeans(double now, double before);
    QPixmap render(double ratio = 1.0);

    Plotter& plotter() { return plotter_; }
    double depthFrom() const { return depthFrom_; }
    double depthTo() const { return depthTo_; }

private:
    void plotProfile();
    void setRanges();
    void addProfileGraph();
    void addZeroLine();
    void addMark(const TemperatureCurve& readings, PlotSymbol symbol, const QColor& color, const QString& title);
    void addDepthLine(double depth, const QString& column);
    void addMeanLine(double mean, const QColor& color, const QString& column, const QString& title);

    Plotter plotter_;
    DataStore* store_;
    int width_ = -1, height_ = -1;
    std::shared_ptr<const TemperatureCurve> profile_;
    double depthFrom_ = std::numeric_limits<double>::infinity();
    double depthTo_ = std::numeric_limits<double>::infinity();
};
