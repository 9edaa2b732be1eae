// The trumpet and the isotherms of a well as pictures.
#include "charts/isotherm_chart.h"
#include "charts/trumpet_chart.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

constexpr double unknownValue = std::numeric_limits<double>::quiet_NaN();
constexpr double day = 86400000.0;

// T = depth - time / day over [0, 4] days and [0, 2] m.
TemperatureGrid slope()
{
    TemperatureGrid grid;
    grid.times = {0.0, 2 * day, 4 * day};
    grid.depths = {0.0, 1.0, 2.0};
    for (const double time : grid.times) {
        for (const double depth : grid.depths)
            grid.values.append(depth - time / day);
    }
    return grid;
}

// All finite points of the line lie where the plane has its temperature.
void expectOnPlane(const IsothermLine& line)
{
    int points = 0;
    for (int i = 0; i < line.times.size(); ++i) {
        if (std::isnan(line.times[i]))
            continue;
        ++points;
        EXPECT_NEAR(line.depths[i] - line.times[i] / day, line.temperature, 1e-9);
    }
    EXPECT_GT(points, 0);
}

} // namespace

TEST(IsothermStep, IsOneTwoOrFive)
{
    EXPECT_EQ(isothermStep(-10.0, 0.0), 1.0);
    EXPECT_EQ(isothermStep(-20.0, 4.0), 2.0);
    EXPECT_EQ(isothermStep(-25.0, 25.0), 5.0);
    EXPECT_NEAR(isothermStep(-0.5, 0.5), 0.1, 1e-12);
    EXPECT_EQ(isothermStep(3.0, 3.0), 1.0);
    EXPECT_EQ(isothermStep(unknownValue, 1.0), 1.0);
    EXPECT_EQ(isothermStep(0.0, INFINITY), 1.0);
}

TEST(Isotherm, RunsWhereTheTemperatureIs)
{
    for (const double temperature : {-3.5, -1.0, 0.0, 1.25})
        expectOnPlane(isothermOf(slope(), temperature));
    EXPECT_TRUE(isothermOf(slope(), 2.5).times.isEmpty());
    EXPECT_TRUE(isothermOf(slope(), -4.5).times.isEmpty());
}

TEST(Isotherm, PassesOverCellsWithAnUnknownCorner)
{
    TemperatureGrid grid = slope();
    const int pieces = isothermOf(grid, -0.5).times.size();
    grid.values[4] = unknownValue; // the middle: all four cells
    EXPECT_TRUE(isothermOf(grid, -0.5).times.isEmpty());
    grid = slope();
    grid.values[8] = unknownValue; // the last corner of the last cell
    EXPECT_LE(isothermOf(grid, -0.5).times.size(), pieces);
    EXPECT_FALSE(isothermOf(grid, -0.5).times.isEmpty());
}

TEST(Isotherm, AFinerGridHasTheSameTemperatures)
{
    const TemperatureGrid fine = refined(slope(), 4, 3);
    EXPECT_EQ(fine.times.size(), 9);
    EXPECT_EQ(fine.depths.size(), 7);
    for (int time = 0; time < fine.times.size(); ++time) {
        for (int depth = 0; depth < fine.depths.size(); ++depth)
            EXPECT_NEAR(fine.at(time, depth), fine.depths[depth] - fine.times[time] / day, 1e-9);
    }
    expectOnPlane(isothermOf(fine, -1.0));
    TemperatureGrid holed = slope();
    holed.values[8] = unknownValue;
    const TemperatureGrid around = refined(holed, 2, 2);
    EXPECT_NEAR(around.at(2, 4), 2.0 - 2.0, 1e-9) << "a known crossing beside the unknown one";
    EXPECT_TRUE(std::isnan(around.at(3, 3)));
    EXPECT_TRUE(refined({}, 2, 2).times.isEmpty());
}

TEST(Isotherm, ASaddleIsTwoPiecesThatDoNotCross)
{
    TemperatureGrid grid;
    grid.times = {0.0, 1.0};
    grid.depths = {0.0, 1.0};
    grid.values = {1.0, -1.0, -1.0, 3.0}; // warm at two opposite corners, and in the middle
    const IsothermLine line = isothermOf(grid, 0.0);
    ASSERT_EQ(line.times.size(), 6) << "two pieces of two points, each with a gap behind it";
    // The warm corners belong together: each piece cuts one cold corner off.
    for (const int first : {0, 3}) {
        const double time = (line.times[first] + line.times[first + 1]) / 2.0;
        const double depth = (line.depths[first] + line.depths[first + 1]) / 2.0;
        EXPECT_GT(std::abs(time - depth), 0.3) << time << ' ' << depth;
    }
}

TEST(IsothermChart, NeedsAPlane)
{
    IsothermChart chart;
    chart.plot({});
    EXPECT_TRUE(chart.plotter().contents().isEmpty());
    TemperatureGrid line = slope();
    line.times = {0.0};
    line.values = {1.0, 2.0, 3.0};
    chart.plot(line);
    EXPECT_TRUE(chart.plotter().contents().isEmpty());
    TemperatureGrid unknown = slope();
    unknown.values.fill(unknownValue);
    chart.plot(unknown);
    EXPECT_TRUE(chart.plotter().contents().isEmpty());
}

TEST(IsothermChart, DrawsBandsLinesAndDays)
{
    IsothermChart chart;
    chart.plot(slope(), 1.0);
    const QImage picture = chart.render({600, 400}).toImage();
    EXPECT_EQ(picture.size(), QSize(600, 400));
    const PlotRecord& record = chart.plotter().record();
    EXPECT_EQ(record.y.label, "Глубина, м");
    EXPECT_TRUE(record.y.inverted);
    EXPECT_EQ(record.x.label, "Дата");
    ASSERT_EQ(record.pictures.size(), 1);
    QStringList titles;
    for (const auto& graph : record.graphs)
        titles << graph.title;
    EXPECT_TRUE(titles.contains("0 °C"));
    EXPECT_TRUE(titles.contains("замеры"));
    QStringList labels;
    for (const auto& text : record.texts)
        labels << text.text;
    EXPECT_TRUE(labels.contains("-3"));
    EXPECT_TRUE(labels.contains("1"));
    // Warm is red and stands at the lower left: deep, and early.
    const QRectF box = record.pictures[0].box;
    const QColor warm = picture.pixelColor((box.bottomLeft() + QPointF(12, -8)).toPoint());
    const QColor cold = picture.pixelColor((box.topRight() + QPointF(-12, 18)).toPoint());
    EXPECT_GT(warm.red(), warm.blue());
    EXPECT_GT(cold.blue(), cold.red());
}

TEST(IsothermChart, AStepTooFineGivesWay)
{
    IsothermChart chart;
    chart.plot(slope(), 0.001);
    EXPECT_EQ(chart.step(), isothermStep(-4.0, 2.0));
    chart.plot(slope(), 0.5);
    EXPECT_EQ(chart.step(), 0.5);
}

TEST(TrumpetChart, DrawsThreeCurvesAndTheDepthsThatAreThere)
{
    TrumpetCurves curves{{0.0, 1.0, 5.0}, {-20.0, -10.0, -3.0}, {-2.0, -2.5, -3.0}, {15.0, 1.0, -3.0}, 1.25, 4.5};
    TrumpetChart chart;
    chart.plot(curves);
    EXPECT_EQ(chart.render({500, 400}).size(), QSize(500, 400));
    QStringList titles;
    for (const auto& graph : chart.plotter().record().graphs)
        titles << graph.title;
    titles.removeAll(QString());
    EXPECT_EQ(titles,
              (QStringList{"Наименьшая", "Средняя", "Наибольшая", "Сезонное оттаивание 1.25 м",
                           "Нулевые годовые амплитуды 4.50 м"}));
    EXPECT_TRUE(chart.plotter().record().y.inverted);
    curves.thawDepth = curves.quietDepth = TrumpetCurves::none;
    chart.plot(curves);
    chart.render({500, 400});
    EXPECT_EQ(chart.plotter().record().graphs.size(), 4) << "three curves and the zero";
}

TEST(TrumpetChart, OfNothingIsEmpty)
{
    TrumpetChart chart;
    chart.plot({});
    EXPECT_TRUE(chart.plotter().contents().isEmpty());
    TrumpetCurves one{{2.0}, {-1.0}, {-1.0}, {-1.0}, TrumpetCurves::none, TrumpetCurves::none};
    chart.plot(one);
    EXPECT_FALSE(chart.render({300, 200}).isNull());
}
