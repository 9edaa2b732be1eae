// The profiles of several cycles of a thermal well by absolute elevation, with
// the limits of the position and the geology column.
#pragma once

#include "charts/depth_chart.h"

/// A layer of ground, depths below the ground in metres.
struct GeologyLayer {
    double depthFrom = 0.0, depthTo = 0.0;
    QString hatchPatternName;
    double hatchScale = 1.0;
    QString colorHex;
    QString code;
};

/// Temperatures and elevations of the position's attributes; infinite: not there.
struct TemperatureLimits {
    static constexpr double none = std::numeric_limits<double>::infinity();

    double temperatureH = none;  ///< T_h
    double temperatureBf = none; ///< T_bf, where freezing begins
    double elevationZ = none;    ///< H_z
    double elevation1 = none;    ///< H_1, the upper end of the zones
    double elevation2 = none;    ///< H_2, the lower end of the zones
};

class TSTemperatureChartJK : public QObject {
    Q_OBJECT

public:
    explicit TSTemperatureChartJK(QObject* parent = nullptr);

    void setPictureSize(int width, int height);
    /// Layers, the elevation of the well's head and its height above the
    /// ground, the folder of the hatch patterns. Set before plotting.
    void setGeology(const QVector<GeologyLayer>& layers, double headElevation, double headHeight,
                    const QString& patternFolder);
    void setKeyShown(bool shown) { keyShown_ = shown; }
    /// The key stands above the plot instead of inside it.
    void setKeyAtSecondPlace(bool second) { keyAtSecondPlace_ = second; }

    /// One curve an elevation-to-temperature map, one title a curve. The ends
    /// of the x range are those given, or, if either is infinite, from the
    /// temperatures. Each call takes its ranges from its own curves.
    void plot(const QVector<TemperatureCurve>& curves, const QStringList& titles, const TemperatureLimits& limits,
              double xFrom, double xTo);
    /// A second axis of depths, from the first of them to the last.
    void addDepthAxis(const QVector<double>& depths);
    QPixmap render(double ratio = 1.0);

    Plotter& plotter() { return plotter_; }
    double minimumX() const { return minimumX_; }
    double maximumX() const { return maximumX_; }
    double minimumY() const { return minimumY_; }
    double maximumY() const { return maximumY_; }

private:
    struct Range {
        double from, to;
    };

    struct Extents {
        Range x, y;
    };

    static Extents extentsOf(const QVector<TemperatureCurve>& curves);
    void widenExtents(const Extents& own);
    void addZones(const TemperatureLimits& limits, const Range& x, const Range& y);
    void addZone(bool exists, double left, double right, const Range& y, const QColor& fill);
    void addGeology(const Range& x);
    void addLayerPicture(const GeologyLayer& layer, const Range& x, double top, double bottom);
    void addCurves(const QVector<TemperatureCurve>& curves, const QStringList& titles);
    void describeAxes();
    void describeKey();
    void addLimitLines(const TemperatureLimits& limits, const Range& x, const Range& y);
    void addLine(const QString& column, const QVector<double>& xs, const QVector<double>& ys, const QString& title);

    Plotter plotter_;
    DataStore* store_;
    int width_ = -1, height_ = -1;
    double minimumX_ = std::numeric_limits<double>::infinity();
    double minimumY_ = std::numeric_limits<double>::infinity();
    double maximumX_ = -std::numeric_limits<double>::infinity();
    double maximumY_ = -std::numeric_limits<double>::infinity();
    QVector<GeologyLayer> layers_;
    double headElevation_ = 0.0, headHeight_ = 0.0;
    QString patternFolder_;
    bool hasLayers_ = false, keyShown_ = true, keyAtSecondPlace_ = false;
};
