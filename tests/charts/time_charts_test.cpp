// Charts over time: what is plotted, asked of the plotter and its record.
#include "base/written_date.h"
#include "charts/axis_ranges.h"
#include "charts/measure_chart.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

QDateTime day(int year, int month, int number) { return writtenMoment(QDate(year, month, number), QTime(12, 0)); }

double timeOf(const QDateTime& date) { return double(writtenMilliseconds(date)); }

const TimeSeries& three()
{
    static const TimeSeries series{{day(2020, 3, 1), 0.012}, {day(2020, 6, 1), -0.004}, {day(2020, 9, 1), 0.02}};
    return series;
}

QStringList labelTexts(const PlotRecord& record)
{
    QStringList texts;
    for (const PlotRecord::Label& label : record.labels)
        texts.append(label.text);
    return texts;
}

template <class Chart>
const PlotRecord& render(Chart& chart)
{
    chart.render();
    return chart.plotter().record();
}

} // namespace

TEST(DeformationChart, MetresArePlottedAndLabelledAsMillimetres)
{
    DMDeformationChartJK chart;
    chart.setPictureSize(600, 300);
    const ValueBounds bounds = chart.plotDisplacement(three());
    EXPECT_EQ(bounds.smallest, -0.004);
    EXPECT_EQ(bounds.largest, 0.02);
    const DataStore& store = chart.plotter().contents().store;
    EXPECT_EQ(store.name(0), "Дата");
    EXPECT_EQ(store.name(1), "Вертикальное перемещение");
    EXPECT_EQ(store.values(0)[0], timeOf(day(2020, 3, 1)));
    EXPECT_DOUBLE_EQ(store.values(1)[0], 12.0);
    EXPECT_EQ(labelTexts(render(chart)), QStringList({"12", "-4", "20"}));
}

TEST(DeformationChart, RenderFitsWhatIsPlottedWithATwentiethMore)
{
    DMDeformationChartJK chart;
    chart.setPictureSize(600, 300);
    chart.plotDisplacement(three());
    chart.plotTrend({{day(2020, 3, 1), 0.0}, {day(2021, 9, 1), 0.044}});
    chart.render();
    // -4 to 44 about 20; the trend widens both.
    expectRange(chart.plotter().yAxis(), 20.0 - 24.0 * 1.05, 20.0 + 24.0 * 1.05);
    const double from = timeOf(day(2020, 3, 1)), to = timeOf(day(2021, 9, 1));
    expectRange(chart.plotter().xAxis(), (from + to) / 2 - (to - from) / 2 * 1.05,
                (from + to) / 2 + (to - from) / 2 * 1.05);
    EXPECT_EQ(chart.minimumY(), -0.004); // the extents stay in the measures' unit
    EXPECT_EQ(chart.maximumY(), 0.044);
}

TEST(DeformationChart, GraphsLabelsAxesAndKey)
{
    DMDeformationChartJK chart;
    chart.setPictureSize(600, 300);
    chart.plotDisplacement(three());
    chart.plotTrend(three());
    const PlotRecord& record = render(chart);
    ASSERT_EQ(record.graphs.size(), 2);
    EXPECT_EQ(record.graphs[0].title, "Вертикальное перемещение,мм");
    EXPECT_EQ(record.graphs[0].symbol, PlotSymbol::FilledOctagon);
    EXPECT_EQ(record.graphs[0].symbolSize, 4.0);
    EXPECT_EQ(record.graphs[1].title, "Тренд");
    EXPECT_EQ(record.graphs[1].yName, "Тренд");
    EXPECT_EQ(record.graphs[1].xName, "Дата");
    EXPECT_EQ(record.graphs[1].symbol, PlotSymbol::FilledOctagon);
    EXPECT_EQ(record.graphs[1].symbolSize, 1.0);
    EXPECT_EQ(record.graphs[1].lineWidth, 0.8);
    EXPECT_EQ(record.labels.size(), 3); // the trend has none
    EXPECT_EQ(record.x.label, "Дата");
    EXPECT_EQ(record.y.label, "Вертикальное перемещение, мм");
    EXPECT_EQ(chart.plotter().yAxis().labelFontSize, 8.0);
    EXPECT_EQ(chart.plotter().xAxis().tickFormat, "MM.yy");
    EXPECT_EQ(chart.plotter().xAxis().tickLabels, TickLabels::DateTime);
    EXPECT_EQ(int(chart.plotter().key().position), 0x4410);
    EXPECT_EQ(int(chart.plotter().key().layout), 1);
    EXPECT_EQ(record.key.titles, QStringList({"Вертикальное перемещение,мм", "Тренд"}));
    EXPECT_LT(record.key.box.bottom(), record.canvas.top());
    EXPECT_NEAR(record.key.box.right(), record.canvas.right(), 1.0);
    const GraphLabels& labels = chart.plotter().contents().labels[0];
    EXPECT_EQ(int(labels.type), 1);
    EXPECT_EQ(int(labels.position), 3);
    EXPECT_EQ(labels.fontSize, 8.0);
    EXPECT_FALSE(labels.boxFrame);
}

TEST(LevelChart, RangesAreTheExtentsAndTheKeyIsInsideAtTheTopRight)
{
    GGSMeasureChartJK chart;
    chart.setPictureSize(600, 300);
    chart.plotLevel(three());
    expectRange(chart.plotter().xAxis(), timeOf(day(2020, 3, 1)), timeOf(day(2020, 9, 1)));
    expectRange(chart.plotter().yAxis(), -0.004, 0.02);
    const PlotRecord& record = render(chart);
    EXPECT_EQ(record.y.minimum, -0.004);
    EXPECT_EQ(record.y.maximum, 0.02);
    EXPECT_EQ(record.y.label, "Уровень ГВ.");
    EXPECT_EQ(record.graphs[0].title, "Уровень ГВ.");
    EXPECT_EQ(record.graphs[0].yName, "Уровень ГВ.");
    EXPECT_EQ(labelTexts(record), QStringList({"0.012", "-0.004", "0.02"}));
    EXPECT_EQ(int(chart.plotter().key().position), 0x1401);
    EXPECT_TRUE(record.canvas.contains(record.key.box));
    EXPECT_LT(record.key.box.top() - record.canvas.top(), 10.0);
    EXPECT_LT(record.canvas.right() - record.key.box.right(), 10.0);
}

TEST(LevelChart, TicksNameTheMonthsOfTheirDates)
{
    GGSMeasureChartJK chart;
    chart.setPictureSize(800, 300);
    chart.plotLevel(three());
    EXPECT_EQ(render(chart).x.tickLabels, QStringList({"04.20", "05.20", "06.20", "07.20", "08.20", "09.20"}));
}

TEST(LevelChart, AllPointsOfTheSameMonthAreLabelledWithItOnce)
{
    GGSMeasureChartJK chart;
    chart.setPictureSize(800, 300);
    chart.plotLevel({{day(2020, 3, 5), 1.0}, {day(2020, 3, 20), 2.0}});
    EXPECT_EQ(render(chart).x.tickLabels, QStringList({"03.20"}));
}

TEST(ThermostabiliserChart, TheSecondSeriesWidensTheRanges)
{
    TSGMeasuresChartJK chart;
    chart.setPictureSize(600, 300);
    chart.plotAir({{day(2020, 1, 1), -30.0}, {day(2020, 7, 1), 20.0}});
    expectRange(chart.plotter().yAxis(), -30.0, 20.0);
    const ValueBounds own = chart.plotExchanger({{day(2019, 7, 1), -5.0}, {day(2020, 12, 1), 25.0}});
    EXPECT_EQ(own.smallest, -5.0);
    expectRange(chart.plotter().xAxis(), timeOf(day(2019, 7, 1)), timeOf(day(2020, 12, 1)));
    expectRange(chart.plotter().yAxis(), -30.0, 25.0);
    const PlotRecord& record = render(chart);
    EXPECT_EQ(record.graphs[0].title, "Тем-ра Возд.");
    EXPECT_EQ(record.graphs[1].title, "Тем-ра обменника");
    EXPECT_EQ(record.graphs[1].symbolSize, 4.0);
    EXPECT_EQ(record.labels.size(), 4);
    EXPECT_EQ(record.y.label, "Температура .");
    EXPECT_EQ(record.key.titles, QStringList({"Тем-ра Возд.", "Тем-ра обменника"}));
}

TEST(SnowChart, TheDensityHasAnAxisOfItsOwnAtTheRight)
{
    TSSMeasuresChartJK chart;
    chart.setPictureSize(600, 300);
    chart.plotDensity({{day(2020, 1, 1), 0.2}, {day(2020, 3, 1), 0.35}});
    chart.plotHeight({{day(2020, 1, 1), 400.0}, {day(2020, 3, 1), 700.0}});
    const PlotRecord& record = render(chart);
    EXPECT_EQ(record.graphs[0].axis, PlotAxisKey::Secondary);
    EXPECT_EQ(record.graphs[1].axis, PlotAxisKey::Primary);
    EXPECT_EQ(record.labels[0].axis, PlotAxisKey::Secondary);
    EXPECT_EQ(record.secondaryY.minimum, 0.0);
    EXPECT_EQ(record.secondaryY.maximum, 0.35);
    EXPECT_EQ(record.secondaryY.label, "Плотность СП");
    EXPECT_EQ(record.y.label, "Высота СП,мм.");
    EXPECT_GT(record.secondaryY.tickBoxes[0].left(), record.canvas.right());
    // The extents hold both series, so the heights' axis reaches the densities.
    expectRange(chart.plotter().yAxis(), 0.2, 700.0);
    const PlotAxis& second = chart.plotter().contents().secondaryY;
    EXPECT_FALSE(second.grid);
    EXPECT_FALSE(second.zeroAxis);
    EXPECT_EQ(second.drawMode0, AxisDrawing::None);
    EXPECT_EQ(second.drawMode1, AxisDrawing::None);
    EXPECT_EQ(int(second.drawMode2), 15);
    EXPECT_EQ(second.labelFontSize, 8.0);
}

TEST(TimeCharts, AnEmptySeriesDrawsNothingAndLeavesTheExtents)
{
    TSGMeasuresChartJK chart;
    chart.setPictureSize(300, 200);
    chart.plotAir({});
    EXPECT_TRUE(render(chart).white);
    EXPECT_EQ(chart.minimumX(), infinity);
    EXPECT_EQ(chart.maximumY(), -infinity);
    chart.plotAir(three());
    chart.plotExchanger({});
    EXPECT_EQ(render(chart).graphs.size(), 1);
    expectRange(chart.plotter().yAxis(), -0.004, 0.02);
}

TEST(TimeCharts, MissingValuesAreLeftOutOfThePicture)
{
    GGSMeasureChartJK chart;
    chart.setPictureSize(600, 300);
    chart.plotLevel({{day(2020, 1, 1), 1.0},
                     {day(2020, 2, 1), infinity},
                     {day(2020, 3, 1), std::nan("")},
                     {day(2020, 4, 1), 3.0},
                     {day(2020, 5, 1), 2.0}});
    const PlotRecord& record = render(chart);
    EXPECT_EQ(record.graphs[0].points, 3);
    EXPECT_EQ(labelTexts(record), QStringList({"1", "3", "2"}));
    EXPECT_EQ(chart.plotter().yAxis().maximum, infinity); // as it came
    EXPECT_EQ(record.y.minimum, 1.0);
    EXPECT_EQ(record.y.maximum, 3.0); // as it is shown
}

TEST(TimeCharts, DatesLongAgoAndFarAheadHaveTheirPlace)
{
    GGSMeasureChartJK chart;
    chart.setPictureSize(800, 300);
    chart.plotLevel(
        {{day(1911, 5, 1), 1.0}, {day(1969, 12, 31), 2.0}, {day(2038, 1, 20), 3.0}, {day(2101, 3, 5), 4.0}});
    const PlotRecord& record = render(chart);
    EXPECT_EQ(record.x.minimum, timeOf(day(1911, 5, 1)));
    EXPECT_LT(record.x.minimum, 0.0);
    EXPECT_EQ(record.x.maximum, timeOf(day(2101, 3, 5)));
    EXPECT_EQ(record.x.tickLabels.first(), "01.20");
    EXPECT_EQ(record.x.tickLabels.last(), "01.00");
    EXPECT_EQ(record.labels.size(), 4);
}

TEST(TimeCharts, LabelsPointAwayFromTheXAxisWhereThereIsRoom)
{
    GGSMeasureChartJK chart;
    chart.setPictureSize(600, 300);
    chart.plotLevel({{day(2020, 1, 1), 0.0}, {day(2020, 2, 1), 5.0}, {day(2020, 3, 1), -5.0}, {day(2020, 4, 1), 0.0}});
    const QVector<PlotRecord::Label> labels = render(chart).labels;
    ASSERT_EQ(labels.size(), 4);
    EXPECT_LT(labels[1].box.bottom(), labels[1].point.y());
    EXPECT_GT(labels[2].box.top(), labels[2].point.y());
}

TEST(TimeCharts, EveryPointOfAnOrdinarySeriesHasItsValue)
{
    TimeSeries series;
    for (int i = 0; i < 400; ++i)
        series[day(2020, 1, 1).addDays(i)] = std::sin(i);
    GGSMeasureChartJK chart;
    chart.setPictureSize(300, 150);
    chart.plotLevel(series);
    EXPECT_EQ(render(chart).labels.size(), 400);
    EXPECT_EQ(chart.plotter().record().labelsLeftOut, 0);
}

TEST(TimeCharts, OfACrowdOnlyLabelsThatNoOneCouldReadAreLeftOut)
{
    TimeSeries series;
    for (int i = 0; i < 10000; ++i)
        series[day(2000, 1, 1).addDays(i)] = std::sin(i * 0.01);
    GGSMeasureChartJK chart;
    chart.setPictureSize(800, 400);
    chart.plotLevel(series);
    const PlotRecord& record = render(chart);
    EXPECT_GT(record.labelsLeftOut, 0);
    EXPECT_GT(record.labels.size(), 300);
    EXPECT_EQ(record.labels.size() + record.labelsLeftOut, 10000);
    EXPECT_EQ(record.graphs[0].points, 10000);
}

// The zone's clock is put forward between the readings; the test runs in such
// zones.
TEST(TimeCharts, DatesStandWhereTheyWereWrittenInEveryZone)
{
    TimeSeries series;
    for (int hour : {1, 2, 3, 4})
        series[writtenMoment(QDate(2010, 3, 28), QTime(hour, 30))] = hour;
    GGSMeasureChartJK chart;
    chart.setPictureSize(600, 300);
    chart.plotLevel(series);
    const QVector<double>& times = chart.plotter().contents().store.values(0);
    ASSERT_EQ(times.size(), 4);
    for (int i = 1; i < 4; ++i)
        EXPECT_EQ(times[i] - times[i - 1], 3600000.0) << i;
    expectRange(chart.plotter().xAxis(), times.first(), times.last());
    EXPECT_EQ(times[0], double(writtenMilliseconds(writtenMoment(QDate(2010, 3, 28), QTime(1, 30)))));
}

TEST(TimeCharts, ValuesAreShownWithUpToFourDecimals)
{
    GGSMeasureChartJK chart;
    chart.setPictureSize(900, 300);
    chart.plotLevel({{day(2020, 1, 1), 123.45678},
                     {day(2020, 2, 1), -0.00004},
                     {day(2020, 3, 1), 1234567.0},
                     {day(2020, 4, 1), 100.0},
                     {day(2020, 5, 1), -0.5},
                     {day(2020, 6, 1), 0.00005}});
    EXPECT_EQ(labelTexts(render(chart)), QStringList({"123.4568", "0", "1234567", "100", "-0.5", "0.0001"}));
}
