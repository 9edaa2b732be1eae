// One profile by depth with its marks, bounds and means.
#include "charts/depth_chart.h"

#include "charts/axis_ranges.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

const TemperatureCurve& profile()
{
    static const TemperatureCurve curve{{1.0, 2.0}, {2.0, -1.0}, {5.0, -4.0}, {11.0, -3.0}};
    return curve;
}

class DepthChart : public ::testing::Test {
protected:
    DepthChart() { chart.setPictureSize(400, 300); }
    const PlotRecord& render()
    {
        picture = chart.render();
        return chart.plotter().record();
    }
    const LineGraph& graph(int index) { return chart.plotter().contents().graphs[index]; }
    QVector<double> xs(int index) { return chart.plotter().contents().store.values(graph(index).xColumn); }
    QVector<double> ys(int index) { return chart.plotter().contents().store.values(graph(index).yColumn); }

    TSDataChartJK chart;
    QPixmap picture;
};

bool isWhite(const QPixmap& picture)
{
    const QImage image = picture.toImage();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != qRgb(255, 255, 255))
                return false;
        }
    }
    return true;
}

} // namespace

TEST_F(DepthChart, XIsSymmetricAboutZeroAndYPaddedByATwentieth)
{
    chart.setProfile(profile());
    expectRange(chart.plotter().xAxis(), -4.0, 4.0);
    expectRange(chart.plotter().yAxis(), 0.5, 11.5);
    const PlotRecord& record = render();
    EXPECT_EQ(record.x.minimum, -4.0);
    EXPECT_TRUE(record.y.inverted);
    EXPECT_EQ(record.y.label, "Глубина, м");
    EXPECT_EQ(record.x.label, "Температура, °C");
    EXPECT_EQ(chart.plotter().yAxis().labelFontSize, 10.0);
    EXPECT_EQ(chart.plotter().xAxis().labelFontSize, 10.0);
    // Depth grows downward.
    EXPECT_EQ(record.y.tickLabels.first(), "2");
    EXPECT_LT(record.y.tickBoxes.first().top(), record.y.tickBoxes.last().top());
}

TEST_F(DepthChart, TheProfileIsARedLineAndZeroABlackOne)
{
    chart.setProfile(profile());
    const PlotRecord& record = render();
    ASSERT_EQ(record.graphs.size(), 2);
    EXPECT_EQ(record.graphs[0].title, "Т");
    EXPECT_EQ(record.graphs[0].xName, "Температура");
    EXPECT_EQ(record.graphs[0].yName, "Глубина");
    EXPECT_EQ(record.graphs[0].symbol, PlotSymbol::FilledCircle);
    EXPECT_EQ(record.graphs[0].symbolSize, 1.5);
    EXPECT_EQ(record.graphs[0].lineWidth, 1.5);
    EXPECT_EQ(record.graphs[0].color, QColor(Qt::red));
    EXPECT_EQ(record.graphs[1].title, "");
    EXPECT_EQ(record.graphs[1].xName, "Z_x");
    EXPECT_EQ(record.graphs[1].yName, "Z_y");
    EXPECT_EQ(record.graphs[1].symbol, PlotSymbol::None);
    EXPECT_EQ(record.graphs[1].lineWidth, 1.0);
    EXPECT_EQ(record.graphs[1].color, QColor(Qt::black));
    EXPECT_EQ(xs(1), QVector<double>({0.0, 0.0}));
    EXPECT_EQ(ys(1), QVector<double>({0.5, 11.5}));
    EXPECT_EQ(record.key.titles, QStringList("Т"));
}

TEST_F(DepthChart, ASingleDepthHasAMetreOnBothSides)
{
    chart.setProfile({{2.0, -1.5}});
    expectRange(chart.plotter().yAxis(), 1.0, 3.0);
    expectRange(chart.plotter().xAxis(), -1.5, 1.5);
}

TEST_F(DepthChart, ZerosAlonePassTheRangeAsItIsAndZeroStillStands)
{
    chart.setProfile({{1.0, 0.0}, {2.0, 0.0}});
    expectRange(chart.plotter().xAxis(), 0.0, 0.0);
    const PlotRecord& record = render();
    EXPECT_FALSE(record.white);
    EXPECT_EQ(record.graphs.size(), 2);
    EXPECT_LT(record.x.minimum, 0.0);
    EXPECT_GT(record.x.maximum, 0.0);
}

TEST_F(DepthChart, MarksArePointsAloneAndEmptyMapsDrawNothing)
{
    chart.setProfile(profile());
    chart.addMarks({}, {});
    EXPECT_EQ(render().graphs.size(), 2);
    chart.addMarks({{2.0, -1.0}}, {{5.0, -4.0}, {11.0, -3.0}});
    const PlotRecord& record = render();
    ASSERT_EQ(record.graphs.size(), 4);
    EXPECT_EQ(record.graphs[2].title, "Пр.пик.знач.");
    EXPECT_EQ(int(record.graphs[2].symbol), 7);
    EXPECT_EQ(record.graphs[2].color, QColor(Qt::green));
    EXPECT_EQ(record.graphs[3].title, "Пр.Ск.Изм.");
    EXPECT_EQ(int(record.graphs[3].symbol), 11);
    EXPECT_EQ(record.graphs[3].color, QColor(Qt::blue));
    for (int i : {2, 3}) {
        EXPECT_EQ(record.graphs[i].symbolSize, 5.0);
        EXPECT_EQ(record.graphs[i].lineWidth, 0.0);
        EXPECT_EQ(record.graphs[i].xName, "Температура");
        EXPECT_EQ(record.graphs[i].yName, "Глубина");
    }
    EXPECT_EQ(record.graphs[3].points, 2);
    EXPECT_EQ(xs(2), QVector<double>({-1.0}));
    EXPECT_EQ(ys(2), QVector<double>({2.0}));
}

TEST_F(DepthChart, BoundsAreDashedLinesOverThreeQuartersOfTheWidth)
{
    chart.setProfile(profile());
    chart.addDepthBounds(2.0, 9.0);
    EXPECT_EQ(chart.depthFrom(), 2.0);
    EXPECT_EQ(chart.depthTo(), 9.0);
    const PlotRecord& record = render();
    ASSERT_EQ(record.graphs.size(), 4);
    EXPECT_EQ(record.graphs[2].yName, "Глубина (min)");
    EXPECT_EQ(record.graphs[3].yName, "Глубина (max)");
    EXPECT_EQ(xs(2), QVector<double>({-3.0, 3.0}));
    EXPECT_EQ(ys(2), QVector<double>({2.0, 2.0}));
    EXPECT_EQ(ys(3), QVector<double>({9.0, 9.0}));
    EXPECT_EQ(record.graphs[2].xName, "");
    EXPECT_EQ(int(record.graphs[2].symbol), 11);
    EXPECT_EQ(record.graphs[2].symbolSize, 0.0);
    EXPECT_EQ(record.graphs[2].lineWidth, 0.5);
    EXPECT_EQ(int(record.graphs[2].lineStyle), 2);
    EXPECT_EQ(record.graphs[2].color, QColor(Qt::black));
    EXPECT_EQ(record.key.titles, QStringList("Т"));
}

TEST_F(DepthChart, AnInfiniteBoundIsNotDrawnAndNotKept)
{
    chart.setProfile(profile());
    chart.addDepthBounds(infinity, 9.0);
    EXPECT_EQ(render().graphs.size(), 3);
    EXPECT_EQ(chart.depthFrom(), infinity);
}

TEST_F(DepthChart, MeansRunBetweenTheBounds)
{
    chart.setProfile(profile());
    chart.addDepthBounds(2.0, 9.0);
    chart.addMeans(-2.5, -2.25);
    const PlotRecord& record = render();
    ASSERT_EQ(record.graphs.size(), 6);
    EXPECT_EQ(record.graphs[4].title, "Т_{ср.взв}^{Тек.}");
    EXPECT_EQ(record.graphs[4].xName, "Т_{ср.взв}^{Тек.}");
    EXPECT_EQ(record.graphs[4].color, QColor(Qt::red));
    EXPECT_EQ(record.graphs[5].title, "Т_{ср.взв }^{Пред.}"); // with its blank
    EXPECT_EQ(record.graphs[5].xName, "Т_{ср.взв}^{Пред.}");
    EXPECT_EQ(record.graphs[5].color, QColor(Qt::blue));
    EXPECT_EQ(xs(4), QVector<double>({-2.5, -2.5}));
    EXPECT_EQ(ys(4), QVector<double>({2.0, 9.0}));
    for (int i : {4, 5}) {
        EXPECT_EQ(int(record.graphs[i].symbol), 11);
        EXPECT_EQ(record.graphs[i].symbolSize, 0.0);
        EXPECT_EQ(record.graphs[i].lineWidth, 0.5);
        EXPECT_EQ(int(record.graphs[i].lineStyle), 2);
    }
    EXPECT_EQ(record.key.titles, QStringList({"Т", "Тср.взвТек.", "Тср.взв Пред."}));
}

TEST_F(DepthChart, AMeanWithoutABoundRunsFromTheSmallestDepthShownToTheLargest)
{
    chart.setProfile(profile());
    chart.addDepthBounds(infinity, infinity);
    chart.addMeans(infinity, -1.0);
    const PlotRecord& record = render();
    ASSERT_EQ(record.graphs.size(), 3);
    EXPECT_EQ(record.graphs[2].color, QColor(Qt::blue));
    EXPECT_EQ(ys(2), QVector<double>({0.5, 11.5}));
}

TEST_F(DepthChart, WithoutAProfileThePictureIsWhite)
{
    chart.setProfile({});
    EXPECT_TRUE(isWhite(chart.render()));
    chart.setProfile(profile());
    EXPECT_FALSE(isWhite(chart.render()));
    chart.setProfile({});
    EXPECT_TRUE(isWhite(chart.render()));
    EXPECT_EQ(chart.render().size(), QSize(400, 300));
}

TEST_F(DepthChart, ASecondProfileReplacesTheFirst)
{
    chart.setProfile(profile());
    chart.addDepthBounds(2.0, 9.0);
    chart.addMeans(1.0, 2.0);
    chart.setProfile({{0.0, 7.0}, {10.0, 1.0}});
    EXPECT_EQ(render().graphs.size(), 2);
    EXPECT_EQ(chart.depthFrom(), infinity);
    expectRange(chart.plotter().xAxis(), -7.0, 7.0);
    expectRange(chart.plotter().yAxis(), -0.5, 10.5);
}

TEST_F(DepthChart, AMissingReadingBreaksTheLineAndKeepsZeroInTheMiddle)
{
    chart.setProfile({{1.0, -2.0}, {2.0, infinity}, {3.0, -3.0}});
    const PlotRecord& record = render();
    EXPECT_EQ(record.graphs[0].points, 2);
    EXPECT_EQ(record.x.minimum, -3.0);
    EXPECT_EQ(record.x.maximum, 3.0);
    chart.addDepthBounds(1.5, 2.5);
    EXPECT_EQ(xs(2), QVector<double>({-2.25, 2.25}));
}

TEST_F(DepthChart, ReadingsThatAreAllMissingGiveAnEmptyPlot)
{
    chart.setProfile({{1.0, infinity}, {2.0, infinity}});
    const PlotRecord& record = render();
    EXPECT_EQ(record.graphs[0].points, 0);
    expectRange(chart.plotter().xAxis(), 0.0, 0.0);
    EXPECT_FALSE(record.white);
}
