// Profiles of several cycles by elevation: ranges, zones, layers, limit lines,
// depth axis.
#include "charts/temperature_chart.h"

#include "charts/axis_ranges.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

class TemperatureChart : public ::testing::Test {
protected:
    TemperatureChart() { chart.setPictureSize(600, 400); }

    const PlotRecord& plot(const TemperatureLimits& limits = {}, double from = infinity, double to = infinity)
    {
        chart.plot(curves, {"Цикл 1", "Цикл 2"}, limits, from, to);
        return render();
    }
    const PlotRecord& render()
    {
        chart.render();
        return chart.plotter().record();
    }
    const PlotRecord::Graph* graph(const QString& title)
    {
        for (const PlotRecord::Graph& found : chart.plotter().record().graphs) {
            if (found.title == title)
                return &found;
        }
        return nullptr;
    }
    QVector<double> column(const QString& name)
    {
        const DataStore& store = chart.plotter().contents().store;
        return store.values(store.find(name));
    }

    TSTemperatureChartJK chart;
    QVector<TemperatureCurve> curves{{{100.0, -4.0}, {108.0, -6.0}}, {{102.0, -3.0}, {110.0, 2.0}}};
};

void expectZone(const PlotRecord::Rectangle& zone, double left, double right, double bottom, double top,
                const QColor& fill)
{
    EXPECT_DOUBLE_EQ(zone.place.left(), left);
    EXPECT_DOUBLE_EQ(zone.place.right(), right);
    EXPECT_DOUBLE_EQ(zone.place.top(), bottom);
    EXPECT_DOUBLE_EQ(zone.place.bottom(), top);
    EXPECT_EQ(zone.fill.rgb(), fill.rgb());
    EXPECT_NEAR(zone.fill.alphaF(), 0.5, 0.01);
}

QString patterns() { return QStringLiteral(TERVA_SOURCE_DIR "/share/pats"); }

} // namespace

TEST_F(TemperatureChart, RangesComeFromTheCurvesWithATenthMoreAboutZero)
{
    plot();
    expectRange(chart.plotter().yAxis(), 100.0, 110.0);
    expectRange(chart.plotter().xAxis(), -6.8, 6.8); // -6.8 to 2.8 holds zero
    EXPECT_EQ(chart.minimumX(), -6.0);
    EXPECT_EQ(chart.maximumX(), 2.0);
}

TEST_F(TemperatureChart, GivenEndsAreTakenAndOneInfiniteEndIsNotEnough)
{
    plot({}, 1.0, 9.0);
    expectRange(chart.plotter().xAxis(), 1.0, 9.0); // does not hold zero
    TSTemperatureChartJK other;
    other.plot(curves, {}, {}, -1.0, infinity);
    expectRange(other.plotter().xAxis(), -6.8, 6.8);
}

TEST_F(TemperatureChart, AnEndOfExactlyZeroHoldsZero)
{
    plot({}, 0.0, 5.0);
    expectRange(chart.plotter().xAxis(), -5.0, 5.0);
}

TEST_F(TemperatureChart, MissingTemperaturesHaveNoPartInTheRange)
{
    curves[0][104.0] = infinity;
    const PlotRecord& record = plot({-3.0, infinity, infinity, 109.0, infinity});
    expectRange(chart.plotter().xAxis(), -6.8, 6.8);
    EXPECT_EQ(record.graphs[0].points, 2);
    EXPECT_EQ(column("H1_x").size(), 2);
    EXPECT_DOUBLE_EQ(column("H1_x")[0], -6.8);
}

TEST_F(TemperatureChart, OneTemperatureHasAMarginOfOne)
{
    curves = {{{100.0, -4.0}, {108.0, -4.0}}};
    plot();
    expectRange(chart.plotter().xAxis(), -5.0, -3.0);
}

TEST_F(TemperatureChart, ZonesMeetAtTheTemperaturesAndLieBetweenTheElevations)
{
    const PlotRecord& record = plot({-3.0, -1.0, 104.0, 109.0, 101.0});
    ASSERT_EQ(record.rectangles.size(), 3);
    expectZone(record.rectangles[0], -6.8, -3.0, 101.0, 109.0, QColor(220, 255, 220));
    expectZone(record.rectangles[1], -3.0, -1.0, 101.0, 109.0, QColor(255, 255, 200));
    expectZone(record.rectangles[2], -1.0, 6.8, 101.0, 109.0, QColor(255, 220, 220));
}

TEST_F(TemperatureChart, WithoutElevationsTheZonesReachTheRangesEnds)
{
    const PlotRecord& record = plot({-3.0, infinity, infinity, infinity, infinity});
    ASSERT_EQ(record.rectangles.size(), 1);
    expectZone(record.rectangles[0], -6.8, -3.0, 100.0, 110.0, QColor(220, 255, 220));
}

TEST_F(TemperatureChart, TheSecondTemperatureAloneHasTheWarmZone)
{
    const PlotRecord& record = plot({infinity, -1.0, infinity, infinity, 101.0});
    ASSERT_EQ(record.rectangles.size(), 1);
    expectZone(record.rectangles[0], -1.0, 6.8, 101.0, 110.0, QColor(255, 220, 220));
    EXPECT_FALSE(graph("T_h"));
    EXPECT_TRUE(graph("T_b_f"));
    EXPECT_FALSE(graph("H_1"));
    EXPECT_TRUE(graph("H_2"));
}

TEST_F(TemperatureChart, NoZoneBetweenTemperaturesInTheWrongOrder)
{
    EXPECT_EQ(plot({-1.0, -1.0, infinity, infinity, infinity}).rectangles.size(), 2);
    TSTemperatureChartJK other;
    other.setPictureSize(300, 300);
    other.plot(curves, {}, {-1.0, -2.0, infinity, infinity, infinity}, infinity, infinity);
    EXPECT_EQ(other.plotter().contents().rectangles.size(), 2);
}

TEST_F(TemperatureChart, ZonesEndAtTheRangeAndOnesOutsideAreNotDrawn)
{
    // Cold fills the range, the others lie right of it.
    const PlotRecord& record = plot({20.0, 30.0, infinity, infinity, infinity});
    ASSERT_EQ(record.rectangles.size(), 1);
    EXPECT_DOUBLE_EQ(record.rectangles[0].place.right(), 6.8);
}

TEST_F(TemperatureChart, CurvesHaveNumberedColumnsAndThinLines)
{
    const PlotRecord& record = plot();
    EXPECT_EQ(record.graphs[1].xName, "Температура_1");
    EXPECT_EQ(record.graphs[1].yName, "Абс. Отметка_1");
    EXPECT_EQ(column("Температура_0"), QVector<double>({-4.0, -6.0}));
    EXPECT_EQ(column("Абс. Отметка_0"), QVector<double>({100.0, 108.0}));
    EXPECT_EQ(record.graphs[1].title, "Цикл 2");
    EXPECT_EQ(int(record.graphs[1].symbol), 55);
    EXPECT_EQ(record.graphs[1].symbolSize, 1.0);
    EXPECT_EQ(record.graphs[1].lineWidth, 0.8);
    EXPECT_EQ(record.y.label, "Абсолютная отметка, м");
    EXPECT_EQ(record.x.label, "Температура, м"); // not degrees: as it has always been
    EXPECT_EQ(chart.plotter().yAxis().labelFontSize, 8.0);
}

TEST_F(TemperatureChart, WithoutLimitsOnlyTheZeroLineStands)
{
    const PlotRecord& record = plot();
    EXPECT_EQ(record.graphs.size(), 3);
    EXPECT_TRUE(record.rectangles.isEmpty());
    ASSERT_TRUE(graph("0°C"));
    EXPECT_EQ(column("Z_x"), QVector<double>({0.0, 0.0}));
    EXPECT_EQ(column("Z_y"), QVector<double>({100.0, 110.0}));
    EXPECT_EQ(record.key.titles, QStringList({"Цикл 1", "Цикл 2", "0°C"}));
}

TEST_F(TemperatureChart, LimitLinesRunOverTheRanges)
{
    const PlotRecord& record = plot({-3.0, -1.0, 104.0, 109.0, 101.0});
    QStringList titles;
    for (int i = 2; i < record.graphs.size(); ++i) {
        titles.append(record.graphs[i].title);
        EXPECT_EQ(record.graphs[i].symbol, PlotSymbol::None);
        EXPECT_EQ(record.graphs[i].lineWidth, 1.0);
    }
    EXPECT_EQ(titles, QStringList({"T_h", "T_b_f", "0°C", "H_z", "H_1", "H_2"}));
    const QVector<double> height{100.0, 110.0}, width{-6.8, 6.8};
    EXPECT_EQ(column("Th_x"), QVector<double>({-3.0, -3.0}));
    EXPECT_EQ(column("Th_y"), height);
    EXPECT_EQ(column("Tbf_x"), QVector<double>({-1.0, -1.0}));
    EXPECT_EQ(column("Tbf_y"), height);
    EXPECT_EQ(column("Hz_y"), QVector<double>({104.0, 104.0}));
    EXPECT_EQ(column("H1_y"), QVector<double>({109.0, 109.0}));
    EXPECT_EQ(column("H2_y"), QVector<double>({101.0, 101.0}));
    for (const char* name : {"Hz_x", "H1_x", "H2_x"}) {
        EXPECT_DOUBLE_EQ(column(name)[0], width[0]);
        EXPECT_DOUBLE_EQ(column(name)[1], width[1]);
    }
}

TEST_F(TemperatureChart, TheKeyStandsInsideAboveOrNotAtAll)
{
    const PlotRecord inside = plot();
    EXPECT_EQ(int(chart.plotter().key().position), 0x4401);
    EXPECT_EQ(int(chart.plotter().key().layout), 0);
    EXPECT_LT(inside.canvas.bottom() - inside.key.box.bottom(), 10.0);
    EXPECT_LT(inside.canvas.right() - inside.key.box.right(), 10.0);
    TSTemperatureChartJK second;
    second.setPictureSize(600, 400);
    second.setKeyAtSecondPlace(true);
    second.plot(curves, {"Цикл 1", "Цикл 2"}, {}, infinity, infinity);
    second.render();
    EXPECT_EQ(int(second.plotter().key().position), 0x4210);
    EXPECT_EQ(int(second.plotter().key().layout), 3);
    EXPECT_NEAR(second.plotter().record().key.box.center().x(), 300.0, 1.0);
    EXPECT_LT(second.plotter().record().key.box.bottom(), second.plotter().record().canvas.top());
    TSTemperatureChartJK without;
    without.setPictureSize(600, 400);
    without.setKeyShown(false);
    without.plot(curves, {"Цикл 1", "Цикл 2"}, {}, infinity, infinity);
    without.render();
    EXPECT_TRUE(without.plotter().record().key.box.isNull());
}

TEST_F(TemperatureChart, LayersStandInTheRightHalfBetweenTheirElevations)
{
    chart.setGeology({{0.0, 3.0, "clay", 1.0, "#ff0000", "ИГЭ-1"},
                      {3.0, 3.0, "sand", 1.0, "", "пусто"},
                      {3.0, 8.0, "sand", 2.0, "", ""}},
                     110.5, 0.5, patterns());
    const PlotRecord& record = plot();
    ASSERT_EQ(record.pictures.size(), 2); // the layer without thickness has none
    const QRectF place = record.pictures[0].place;
    EXPECT_DOUBLE_EQ(place.left(), 3.4);
    EXPECT_DOUBLE_EQ(place.width(), 3.4);
    EXPECT_DOUBLE_EQ(place.top(), 107.0);
    EXPECT_DOUBLE_EQ(place.height(), 3.0);
    EXPECT_DOUBLE_EQ(record.pictures[1].place.top(), 102.0);
    ASSERT_EQ(record.texts.size(), 1);
    EXPECT_EQ(record.texts[0].text, "ИГЭ-1");
    EXPECT_DOUBLE_EQ(record.texts[0].x, 0.3125 * 13.6);
    EXPECT_DOUBLE_EQ(record.texts[0].y, 108.5);
    EXPECT_EQ(chart.plotter().contents().texts[0].fontSize, 9.0);
    EXPECT_EQ(chart.plotter().contents().texts[0].color, QColor(Qt::black));
}

TEST_F(TemperatureChart, LayerPicturesHaveThePixelsOfThePlot)
{
    chart.setGeology({{0.0, 3.0, "clay", 1.0, "", ""}}, 110.0, 0.0, patterns());
    const PlotRecord& record = plot();
    const double pixelsOfMetre = record.data.height() / 10.0;
    EXPECT_EQ(record.pictures[0].size.height(), int(3.0 * pixelsOfMetre - 1.0));
    EXPECT_EQ(record.pictures[0].size.width(), int(record.data.width() - 1.0) / 4);
    const int single = record.pictures[0].size.width();
    chart.render(2.0);
    EXPECT_EQ(chart.plotter().record().pictures[0].size.width(), 2 * single);
}

TEST_F(TemperatureChart, TheColourOfALayerDoesNotShow)
{
    const auto drawn = [&](const QString& color) {
        TSTemperatureChartJK other;
        other.setPictureSize(400, 300);
        other.setGeology({{0.0, 8.0, "clay", 1.0, color, ""}}, 110.0, 0.0, patterns());
        other.plot(curves, {}, {}, infinity, infinity);
        return other.render().toImage();
    };
    EXPECT_EQ(drawn("#ff0000"), drawn(""));
    EXPECT_EQ(drawn("кривой цвет"), drawn(""));
}

TEST_F(TemperatureChart, ALayerWithoutAGoodPatternHasItsCodeAlone)
{
    chart.setGeology({{0.0, 8.0, "no such", 1.0, "", "Х"}, {0.0, 8.0, "clay", 0.0, "", ""}}, 110.0, 0.0, patterns());
    const QPixmap with = (plot(), chart.render());
    EXPECT_EQ(chart.plotter().record().texts.size(), 1);
    EXPECT_EQ(chart.plotter().record().pictures.size(), 2);
    EXPECT_FALSE(with.isNull());
}

TEST_F(TemperatureChart, TheDepthAxisRunsDownAtTheRight)
{
    chart.plot(curves, {"Цикл 1", "Цикл 2"}, {}, infinity, infinity);
    chart.addDepthAxis({0.5, 4.0, 10.5});
    const PlotRecord& record = render();
    EXPECT_EQ(record.secondaryY.minimum, 0.5);
    EXPECT_EQ(record.secondaryY.maximum, 10.5);
    EXPECT_TRUE(record.secondaryY.inverted);
    EXPECT_EQ(record.secondaryY.label, "Глубина, м");
    const PlotRecord::Graph& carrier = record.graphs.last();
    EXPECT_EQ(carrier.yName, "Глубина");
    EXPECT_EQ(carrier.xName, "");
    EXPECT_EQ(carrier.axis, PlotAxisKey::Secondary);
    EXPECT_EQ(carrier.points, 3);
    EXPECT_EQ(column("Глубина"), QVector<double>({0.5, 4.0, 10.5}));
    EXPECT_EQ(chart.plotter().contents().store.values(chart.plotter().contents().graphs.last().xColumn),
              QVector<double>({0.0, 0.0, 0.0}));
    EXPECT_LT(record.secondaryY.tickBoxes.first().top(), record.secondaryY.tickBoxes.last().top());
    const PlotAxis& second = chart.plotter().contents().secondaryY;
    EXPECT_FALSE(second.automaticSpacing);
    EXPECT_FALSE(second.grid);
    EXPECT_FALSE(second.zeroAxis);
    EXPECT_EQ(second.drawMode0, AxisDrawing::None);
    EXPECT_EQ(second.drawMode1, AxisDrawing::None);
    EXPECT_EQ(int(second.drawMode2), 15);
}

TEST_F(TemperatureChart, WithoutDepthsThereIsNoDepthAxis)
{
    plot();
    chart.addDepthAxis({});
    EXPECT_FALSE(render().secondaryY.drawn);
}

TEST_F(TemperatureChart, WithoutCurvesThePictureIsValid)
{
    curves.clear();
    const PlotRecord& record = plot({-3.0, -1.0, 104.0, 109.0, 101.0});
    EXPECT_TRUE(std::isfinite(record.x.minimum) && record.x.minimum < record.x.maximum);
    EXPECT_TRUE(std::isfinite(record.y.minimum) && record.y.minimum < record.y.maximum);
}

TEST_F(TemperatureChart, ASecondPlotTakesRangesOfItsOwn)
{
    curves = {{{90.0, -30.0}, {120.0, -25.0}}};
    plot();
    curves = {{{100.0, -4.0}, {110.0, -2.0}}};
    plot();
    EXPECT_DOUBLE_EQ(chart.plotter().yAxis().minimum, 100.0);
    EXPECT_DOUBLE_EQ(chart.plotter().yAxis().maximum, 110.0);
    EXPECT_DOUBLE_EQ(chart.plotter().xAxis().minimum, -4.2);
    EXPECT_DOUBLE_EQ(chart.plotter().xAxis().maximum, -1.8);
    EXPECT_EQ(chart.minimumY(), 90.0) << "the stored extents hold both";
    EXPECT_EQ(chart.minimumX(), -30.0);
}
