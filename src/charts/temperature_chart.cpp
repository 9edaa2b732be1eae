#include "charts/temperature_chart.h"

#include "charts/hatch/hatch_picture.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double fontSize = 8.0;

// A tenth of the temperatures' range to both sides, or 1 where it is none.
double marginOf(double smallest, double largest)
{
    return largest - smallest == 0.0 ? 1.0 : 0.1 * (largest - smallest);
}

QColor zoneColor(int red, int green, int blue)
{
    QColor color(red, green, blue);
    color.setAlphaF(0.5);
    return color;
}

int pixelsLessOne(double pixels) { return std::max(1, int(std::min(std::max(pixels, 0.0), 1e6) - 1.0)); }

// The layer's hatch for the pixels that the plot has for it: in height those
// of the layer, in width a quarter of those of the x range.
QImage layerPicture(const GeologyLayer& layer, const HatchPattern& pattern, const PictureRoom& room)
{
    HatchLook look;
    look.scale = layer.hatchScale;
    look.background = layer.colorHex.isEmpty() ? QColor(Qt::transparent) : QColor(layer.colorHex);
    look.background.setAlpha(0);
    look.ratio = room.ratio;
    const QSize size(pixelsLessOne(room.xRangeWidth) / 4, pixelsLessOne(room.height));
    return hatchPicture(pattern, size, look).mirrored();
}

} // namespace

TSTemperatureChartJK::TSTemperatureChartJK(QObject* parent) : QObject(parent), store_(plotter_.datastore()) { }

void TSTemperatureChartJK::setPictureSize(int width, int height)
{
    width_ = width;
    height_ = height;
}

void TSTemperatureChartJK::setGeology(const QVector<GeologyLayer>& layers, double headElevation, double headHeight,
                                      const QString& patternFolder)
{
    layers_ = layers;
    headElevation_ = headElevation;
    headHeight_ = headHeight;
    patternFolder_ = patternFolder;
    hasLayers_ = !layers.isEmpty();
}

void TSTemperatureChartJK::plot(const QVector<TemperatureCurve>& curves, const QStringList& titles,
                                const TemperatureLimits& limits, double xFrom, double xTo)
{
    const Extents own = extentsOf(curves);
    widenExtents(own);
    const Range y = own.y;
    Range x{xFrom, xTo};
    if (!std::isfinite(xFrom) || !std::isfinite(xTo)) {
        const double margin = marginOf(own.x.from, own.x.to);
        x = {own.x.from - margin, own.x.to + margin};
    }
    if (x.from <= 0.0 && x.to >= 0.0) {
        const double side = std::max(std::abs(x.from), std::abs(x.to));
        x = {-side, side};
    }
    plotter_.setX(x.from, x.to);
    plotter_.setY(y.from, y.to);
    addZones(limits, x, y);
    if (hasLayers_)
        addGeology(x);
    addCurves(curves, titles);
    describeAxes();
    describeKey();
    plotter_.resize(width_, height_);
    addLimitLines(limits, x, y);
}

TSTemperatureChartJK::Extents TSTemperatureChartJK::extentsOf(const QVector<TemperatureCurve>& curves)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    Extents own{{infinity, -infinity}, {infinity, -infinity}};
    for (const TemperatureCurve& curve : curves) {
        for (const auto& [elevation, temperature] : curve) {
            if (std::isfinite(temperature)) // a missing one has no part in the range
                own.x = {std::min(own.x.from, temperature), std::max(own.x.to, temperature)};
            own.y = {std::min(own.y.from, elevation), std::max(own.y.to, elevation)};
        }
    }
    return own;
}

void TSTemperatureChartJK::widenExtents(const Extents& own)
{
    minimumX_ = std::min(minimumX_, own.x.from);
    maximumX_ = std::max(maximumX_, own.x.to);
    minimumY_ = std::min(minimumY_, own.y.from);
    maximumY_ = std::max(maximumY_, own.y.to);
}

void TSTemperatureChartJK::addZones(const TemperatureLimits& limits, const Range& x, const Range& y)
{
    const double h = limits.temperatureH, bf = limits.temperatureBf;
    const bool hasH = std::isfinite(h), hasBf = std::isfinite(bf);
    const Range across{std::isfinite(limits.elevation2) ? limits.elevation2 : y.from,
                       std::isfinite(limits.elevation1) ? limits.elevation1 : y.to};
    addZone(hasH && h > x.from, x.from, std::min(h, x.to), across, zoneColor(220, 255, 220));
    addZone(hasH && hasBf && bf > h, std::max(h, x.from), std::min(bf, x.to), across, zoneColor(255, 255, 200));
    addZone(hasBf && bf < x.to, std::max(bf, x.from), x.to, across, zoneColor(255, 220, 220));
}

void TSTemperatureChartJK::addZone(bool exists, double left, double right, const Range& y, const QColor& fill)
{
    if (exists && right - left > 0.0)
        plotter_.addRectangle({QRectF(QPointF(left, y.from), QPointF(right, y.to)), fill, Qt::transparent});
}

void TSTemperatureChartJK::addGeology(const Range& x)
{
    const double ground = headElevation_ - headHeight_;
    for (const GeologyLayer& layer : layers_) {
        const double top = ground - layer.depthFrom, bottom = ground - layer.depthTo;
        if (top - bottom == 0.0)
            continue;
        addLayerPicture(layer, x, top, bottom);
        if (layer.code.isEmpty())
            continue;
        PlotText code;
        code.x = (x.from + x.to) / 2.0 + 0.3125 * (x.to - x.from);
        code.y = (top + bottom) / 2.0;
        code.text = layer.code;
        plotter_.addText(code);
    }
}

void TSTemperatureChartJK::addLayerPicture(const GeologyLayer& layer, const Range& x, double top, double bottom)
{
    HatchPattern pattern;
    QString unreported; // a chart tells nobody: a layer without a pattern has no lines
    readHatchPattern(patternFolder_, layer.hatchPatternName, pattern, unreported);
    PlotPicture picture;
    picture.place = QRectF(0.5 * x.to, bottom, 0.25 * (x.to - x.from), top - bottom);
    picture.make = [layer, pattern](const PictureRoom& room) { return layerPicture(layer, pattern, room); };
    plotter_.addPicture(picture);
}

void TSTemperatureChartJK::addCurves(const QVector<TemperatureCurve>& curves, const QStringList& titles)
{
    for (int i = 0; i < curves.size(); ++i) {
        QVector<double> elevations, temperatures;
        for (const auto& [elevation, temperature] : curves[i]) {
            elevations.append(elevation);
            temperatures.append(temperature);
        }
        LineGraph graph;
        graph.yColumn = store_->addColumn(elevations, QStringLiteral("Абс. Отметка_") + QString::number(i));
        graph.xColumn = store_->addColumn(temperatures, QStringLiteral("Температура_") + QString::number(i));
        graph.symbol = PlotSymbol::FilledOctagon;
        graph.symbolSize = 1.0;
        graph.lineWidth = 0.8;
        graph.title = titles.value(i);
        plotter_.addGraph(graph);
    }
}

void TSTemperatureChartJK::describeAxes()
{
    plotter_.yAxis().label = QStringLiteral("Абсолютная отметка, м");
    plotter_.yAxis().labelFontSize = fontSize;
    plotter_.xAxis().label = QStringLiteral("Температура, м"); // the unit stands so in all pictures that exist
    plotter_.xAxis().labelFontSize = fontSize;
}

void TSTemperatureChartJK::describeKey()
{
    plotter_.key().shown = keyShown_;
    plotter_.key().position = keyAtSecondPlace_ ? KeyPosition::AboveMiddle : KeyPosition::InsideBottomRight;
    plotter_.key().layout = keyAtSecondPlace_ ? KeyLayout::WrappedRows : KeyLayout::OneColumn;
}

void TSTemperatureChartJK::addLimitLines(const TemperatureLimits& limits, const Range& x, const Range& y)
{
    struct Limit {
        double value;
        bool vertical;
        const char* column;
        const char* title;
    };
    const Limit all[] = {{limits.temperatureH, true, "Th", "T_h"},
                         {limits.temperatureBf, true, "Tbf", "T_b_f"},
                         {0.0, true, "Z", "0°C"},
                         {limits.elevationZ, false, "Hz", "H_z"},
                         {limits.elevation1, false, "H1", "H_1"},
                         {limits.elevation2, false, "H2", "H_2"}};
    for (const Limit& limit : all) {
        if (!std::isfinite(limit.value))
            continue;
        const QVector<double> at{limit.value, limit.value};
        addLine(QString::fromUtf8(limit.column), limit.vertical ? at : QVector<double>{x.from, x.to},
                limit.vertical ? QVector<double>{y.from, y.to} : at, QString::fromUtf8(limit.title));
    }
}

void TSTemperatureChartJK::addLine(const QString& column, const QVector<double>& xs, const QVector<double>& ys,
                                   const QString& title)
{
    LineGraph line;
    line.xColumn = store_->addColumn(xs, column + QStringLiteral("_x"));
    line.yColumn = store_->addColumn(ys, column + QStringLiteral("_y"));
    line.lineWidth = 1.0;
    line.title = title;
    plotter_.addGraph(line);
}

void TSTemperatureChartJK::addDepthAxis(const QVector<double>& depths)
{
    if (depths.isEmpty())
        return;
    PlotAxis& axis = plotter_.addSecondaryYAxis();
    axis.grid = false;
    axis.drawMode1 = AxisDrawing::None;
    axis.drawMode0 = AxisDrawing::None;
    axis.drawMode2 = AxisDrawing::Full;
    axis.zeroAxis = false;
    axis.setRange(depths.first(), depths.last());
    axis.inverted = true;
    axis.label = QStringLiteral("Глубина, м");
    axis.automaticSpacing = false;
    // Points without line or symbol carry the scale.
    LineGraph carrier;
    carrier.yColumn = store_->addColumn(depths, QStringLiteral("Глубина"));
    carrier.xColumn = store_->addColumn(QVector<double>(depths.size(), 0.0), QString());
    carrier.lineWidth = 0.0;
    carrier.axis = PlotAxisKey::Secondary;
    plotter_.addGraph(carrier);
}

QPixmap TSTemperatureChartJK::render(double ratio)
{
    plotter_.resize(width_, height_);
    return plotter_.grabPixelImage(plotter_.size(), ratio);
}
