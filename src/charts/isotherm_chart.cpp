#include "charts/isotherm_chart.h"

#include "base/text.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr int kFineTimes = 600, kFineDepths = 150, kMostParts = 8;
constexpr double kLabelRoom = 0.05; // of the plot
constexpr int mostLines = 200;      // of a step that somebody typed

struct Corner {
    double time, depth, temperature;
};

// The point of an edge that has the temperature; the edge's ends lie on both sides of it.
void appendCrossing(IsothermLine& line, const Corner& a, const Corner& b)
{
    const double share = (line.temperature - a.temperature) / (b.temperature - a.temperature);
    line.times.append(a.time + share * (b.time - a.time));
    line.depths.append(a.depth + share * (b.depth - a.depth));
}

void appendPiece(IsothermLine& line, const Corner& a, const Corner& b, const Corner& c, const Corner& d)
{
    appendCrossing(line, a, b);
    appendCrossing(line, c, d);
    line.times.append(notANumber);
    line.depths.append(notANumber);
}

// The pieces in one cell, its corners going round. Where two opposite corners
// are warmer than both others the middle says how they belong together.
void appendCell(IsothermLine& line, const Corner (&corners)[4])
{
    int edges[4], count = 0;
    double sum = 0.0;
    for (int i = 0; i < 4; ++i) {
        if (std::isnan(corners[i].temperature))
            return;
        sum += corners[i].temperature;
        if ((corners[i].temperature >= line.temperature) != (corners[(i + 1) % 4].temperature >= line.temperature))
            edges[count++] = i;
    }
    const auto piece = [&](int first, int second) {
        appendPiece(line, corners[first], corners[(first + 1) % 4], corners[second], corners[(second + 1) % 4]);
    };
    if (count == 2)
        piece(edges[0], edges[1]);
    if (count != 4)
        return;
    const bool middleIsWarm = sum / 4.0 >= line.temperature, firstIsWarm = corners[0].temperature >= line.temperature;
    if (middleIsWarm == firstIsWarm) {
        piece(0, 1);
        piece(2, 3);
    } else {
        piece(3, 0);
        piece(1, 2);
    }
}

QColor between(const QColor& from, const QColor& to, double share)
{
    const auto mix = [share](int a, int b) { return int(std::lround(a + (b - a) * share)); };
    return QColor(mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue()));
}

// Blue below zero, red above, the paler the nearer to it.
QColor bandColor(double temperature, double coldest, double warmest)
{
    const double end = temperature < 0.0 ? coldest : warmest;
    const double share = end == 0.0 ? 0.0 : std::sqrt(std::clamp(temperature / end, 0.0, 1.0));
    return temperature < 0.0 ? between(QColor(236, 244, 252), QColor(58, 118, 190), share)
                             : between(QColor(253, 240, 228), QColor(214, 92, 60), share);
}

// The interval of the rising values that holds the number, and the share of it.
int intervalOf(const QVector<double>& values, double number, double& share)
{
    const int after = int(std::upper_bound(values.begin(), values.end(), number) - values.begin());
    const int first = std::clamp(after - 1, 0, values.size() - 2);
    share = (number - values[first]) / (values[first + 1] - values[first]);
    return first;
}

// Each interval in so many equal parts.
QVector<double> between(const QVector<double>& values, int parts)
{
    QVector<double> all;
    for (int i = 0; i + 1 < values.size(); ++i) {
        for (int part = 0; part < parts; ++part)
            all.append(values[i] + (values[i + 1] - values[i]) * part / parts);
    }
    all.append(values.last());
    return all;
}

// At an end of the interval the other end does not matter, nor whether it is known.
double onEdge(double from, double to, double share)
{
    return share <= 0.0 ? from : share >= 1.0 ? to : from * (1.0 - share) + to * share;
}

double temperatureIn(const TemperatureGrid& grid, int time, double timeShare, int depth, double depthShare)
{
    return onEdge(onEdge(grid.at(time, depth), grid.at(time + 1, depth), timeShare),
                  onEdge(grid.at(time, depth + 1), grid.at(time + 1, depth + 1), timeShare), depthShare);
}

// The first row lies at the lower edge, where the depth is the largest.
QImage bandsPicture(const TemperatureGrid& grid, const QVector<QColor>& colors, double coldestBand, double step,
                    const PictureRoom& room)
{
    const QSize size =
        (QSizeF(room.width, room.height) * room.ratio).toSize().expandedTo({1, 1}).boundedTo({8192, 8192});
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    const double duration = grid.times.last() - grid.times.first(), height = grid.depths.last() - grid.depths.first();
    QVector<QPair<int, double>> columns;
    for (int x = 0; x < size.width(); ++x) {
        double share = 0.0;
        const int time = intervalOf(grid.times, grid.times.first() + (x + 0.5) / size.width() * duration, share);
        columns.append({time, share});
    }
    for (int y = 0; y < size.height(); ++y) {
        double share = 0.0;
        const int depth = intervalOf(grid.depths, grid.depths.last() - (y + 0.5) / size.height() * height, share);
        auto* pixels = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const double value = temperatureIn(grid, columns[x].first, columns[x].second, depth, share);
            if (!std::isnan(value))
                pixels[x] =
                    colors[std::clamp(int(std::floor((value - coldestBand) / step)), 0, colors.size() - 1)].rgb();
        }
    }
    return image;
}

QPair<double, double> rangeOf(const TemperatureGrid& grid)
{
    double coldest = std::numeric_limits<double>::infinity(), warmest = -coldest;
    for (const double value : grid.values) {
        if (std::isfinite(value)) {
            coldest = std::min(coldest, value);
            warmest = std::max(warmest, value);
        }
    }
    return {coldest, warmest};
}

QString degrees(double temperature, double step)
{
    const int decimals = step >= 1.0 ? 0 : step >= 0.1 ? 1 : 2;
    return fixed(temperature, decimals);
}

} // namespace

double isothermStep(double coldest, double warmest, int most)
{
    const double range = warmest - coldest;
    if (!(range > 0.0) || !std::isfinite(range))
        return 1.0;
    const double power = std::pow(10.0, std::floor(std::log10(range / most)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (range / (factor * power) <= most)
            return factor * power;
    }
    return 10.0 * power;
}

TemperatureGrid refined(const TemperatureGrid& grid, int times, int depths)
{
    if (!grid.isPlane())
        return grid;
    TemperatureGrid fine;
    fine.times = between(grid.times, times);
    fine.depths = between(grid.depths, depths);
    for (const double time : fine.times) {
        double timeShare = 0.0, depthShare = 0.0;
        const int first = intervalOf(grid.times, time, timeShare);
        for (const double depth : fine.depths) {
            const int above = intervalOf(grid.depths, depth, depthShare);
            fine.values.append(temperatureIn(grid, first, timeShare, above, depthShare));
        }
    }
    return fine;
}

IsothermLine isothermOf(const TemperatureGrid& grid, double temperature)
{
    IsothermLine line;
    line.temperature = temperature;
    const auto corner = [&grid](int time, int depth) {
        return Corner{grid.times[time], grid.depths[depth], grid.at(time, depth)};
    };
    for (int time = 0; time + 1 < grid.times.size(); ++time) {
        for (int depth = 0; depth + 1 < grid.depths.size(); ++depth)
            appendCell(
                line,
                {corner(time, depth), corner(time + 1, depth), corner(time + 1, depth + 1), corner(time, depth + 1)});
    }
    return line;
}

void IsothermChart::plot(const TemperatureGrid& grid, double step)
{
    plotter_.clearGraphs();
    if (!grid.isPlane())
        return;
    const auto [coldest, warmest] = rangeOf(grid);
    if (coldest > warmest)
        return;
    step_ = step > 0.0 && (warmest - coldest) / step <= mostLines ? step : isothermStep(coldest, warmest);
    describeAxes(grid);
    addBands(grid, coldest, warmest);
    addDays(grid);
    // Within a cell a line of equal temperature is bent: many short pieces show it.
    const TemperatureGrid fine = refined(grid, qBound(1, kFineTimes / grid.times.size(), kMostParts),
                                         qBound(1, kFineDepths / grid.depths.size(), kMostParts));
    const double from = grid.times.first(), duration = grid.times.last() - from;
    for (double number = std::ceil(coldest / step_); number * step_ <= warmest; ++number) {
        const IsothermLine line = isothermOf(fine, number * step_);
        if (line.times.isEmpty())
            continue;
        addLine(line);
        // Not all one below another.
        addLabel(line, from + duration * (0.15 + 0.7 * std::fmod(std::abs(number) * 0.382, 1.0)), grid);
    }
}

void IsothermChart::describeAxes(const TemperatureGrid& grid)
{
    PlotAxis& x = plotter_.xAxis();
    x.tickLabels = TickLabels::DateTime;
    x.tickFormat = QStringLiteral("MM.yy");
    x.label = QStringLiteral("Дата");
    PlotAxis& y = plotter_.yAxis();
    y.label = QStringLiteral("Глубина, м");
    y.inverted = true;
    y.zeroAxis = false;
    plotter_.setX(grid.times.first(), grid.times.last());
    plotter_.setY(grid.depths.first(), grid.depths.last());
    plotter_.key() = {true, KeyPosition::AboveMiddle, KeyLayout::WrappedRows};
}

void IsothermChart::addBands(const TemperatureGrid& grid, double coldest, double warmest)
{
    const double lowest = std::floor(coldest / step_) * step_;
    const int count = std::max(1, int(std::ceil((warmest - lowest) / step_)));
    QVector<QColor> colors;
    for (int i = 0; i < count; ++i)
        colors.append(bandColor(lowest + (i + 0.5) * step_, coldest, warmest));
    PlotPicture picture;
    picture.place = QRectF(grid.times.first(), grid.depths.first(), grid.times.last() - grid.times.first(),
                           grid.depths.last() - grid.depths.first());
    picture.make = [grid, colors, lowest, step = step_](const PictureRoom& room) {
        return bandsPicture(grid, colors, lowest, step, room);
    };
    plotter_.addPicture(picture);
}

void IsothermChart::addLine(const IsothermLine& line)
{
    const bool zero = std::abs(line.temperature) < step_ * 1e-6;
    LineGraph graph;
    graph.xColumn = plotter_.datastore()->addColumn(line.times, QStringLiteral("Дата"));
    graph.yColumn = plotter_.datastore()->addColumn(line.depths, degrees(line.temperature, step_));
    graph.lineWidth = zero ? 1.5 : 0.6;
    graph.color = zero ? Qt::black : line.temperature < 0.0 ? QColor(30, 70, 140) : QColor(160, 50, 20);
    if (zero)
        graph.title = QStringLiteral("0 °C");
    plotter_.addGraph(graph);
}

// At the piece that is nearest to the wanted time.
void IsothermChart::addLabel(const IsothermLine& line, double wantedTime, const TemperatureGrid& grid)
{
    int best = -1;
    for (int i = 0; i + 1 < line.times.size(); ++i) {
        if (!std::isnan(line.times[i])
            && (best < 0 || std::abs(line.times[i] - wantedTime) < std::abs(line.times[best] - wantedTime)))
            best = i;
    }
    if (best < 0)
        return;
    PlotText label;
    label.x = line.times[best];
    label.y = line.depths[best];
    label.text = degrees(line.temperature, step_);
    label.fontSize = 7.0;
    const double width = kLabelRoom * (grid.times.last() - grid.times.first());
    const double height = kLabelRoom * (grid.depths.last() - grid.depths.first());
    for (const PlotText& other : plotter_.contents().texts) {
        if (std::abs(other.x - label.x) < width && std::abs(other.y - label.y) < height)
            return; // one upon another says nothing
    }
    plotter_.addText(label);
}

// Between its days a picture is only drawn through.
void IsothermChart::addDays(const TemperatureGrid& grid)
{
    LineGraph days;
    QVector<double> tops(grid.times.size(), grid.depths.first());
    days.xColumn = plotter_.datastore()->addColumn(grid.times, QStringLiteral("Замеры"));
    days.yColumn = plotter_.datastore()->addColumn(tops, QStringLiteral("Глубина"));
    days.symbol = PlotSymbol::FilledDiamond;
    days.symbolSize = 4.0;
    days.lineWidth = 0.0;
    days.color = Qt::black;
    days.title = QStringLiteral("замеры");
    plotter_.addGraph(days);
}
