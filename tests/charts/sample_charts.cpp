#include "charts/sample_charts.h"

#include "charts/axis_ranges.h"
#include "charts/real_series.h"

#include <cmath>

namespace {

template <class Chart>
DrawnChart drawn(Chart& chart, double ratio = 1.0)
{
    const QPixmap picture = chart.render(ratio);
    return {picture, chart.plotter().record()};
}

// A straight line through the first and the last reading.
TimeSeries trendOf(const TimeSeries& series)
{
    TimeSeries trend;
    const double span = double(series.firstKey().msecsTo(series.lastKey()));
    for (const QDateTime& date : series.keys()) {
        const double part = span > 0.0 ? double(series.firstKey().msecsTo(date)) / span : 0.0;
        trend[date] = series.first() + (series.last() - series.first()) * part;
    }
    return trend;
}

DrawnChart deformation(const QString& file, const QString& element, int width, int height, double ratio = 1.0)
{
    const TimeSeries series = settlement(file, element);
    DMDeformationChartJK chart;
    chart.setPictureSize(width, height);
    chart.plotDisplacement(series);
    chart.plotTrend(trendOf(series));
    return drawn(chart, ratio);
}

// Level of water, air and so on: made-up numbers, as no real series of these
// families is at hand; reproducible.
TimeSeries wave(int count, int days, double middle, double swing, double noise, const QDate& from = QDate(2019, 2, 10))
{
    TimeSeries series;
    quint32 random = 12345;
    for (int i = 0; i < count; ++i) {
        random = random * 1664525u + 1013904223u;
        const double part = double(random >> 8) / double(1 << 24) - 0.5;
        const double value = middle + swing * std::sin(i * days * 2.0 * M_PI / 365.0) + noise * part;
        series[writtenMoment(from.addDays(qint64(i) * days), QTime(12, 0))] = std::round(value * 100.0) / 100.0;
    }
    return series;
}

DrawnChart level(const TimeSeries& series, int width = 800, int height = 400)
{
    GGSMeasureChartJK chart;
    chart.setPictureSize(width, height);
    chart.plotLevel(series);
    return drawn(chart);
}

DrawnChart thermostabiliser()
{
    // The real winters' air of one station, and an exchanger a little warmer.
    TimeSeries air, exchanger;
    for (const WellReading& reading : wellReadings("yakutsk/terva.csv")) {
        if (reading.date.date().year() < 1980 || !std::isfinite(reading.air))
            continue;
        air[reading.date] = reading.air;
        exchanger[reading.date.addDays(20)] = std::round(reading.air * 7.0) / 10.0;
    }
    TSGMeasuresChartJK chart;
    chart.setPictureSize(800, 400);
    chart.plotAir(air);
    chart.plotExchanger(exchanger);
    return drawn(chart);
}

DrawnChart snow(int count, int width, int height)
{
    TSSMeasuresChartJK chart;
    chart.setPictureSize(width, height);
    chart.plotDensity(wave(count, 14, 0.25, 0.08, 0.05));
    chart.plotHeight(wave(count, 14, 420.0, 260.0, 40.0));
    return drawn(chart);
}

DrawnChart profile(const TemperatureCurve& curve, int width, int height, bool marked)
{
    TSDataChartJK chart;
    chart.setPictureSize(width, height);
    chart.setProfile(curve);
    if (marked && curve.size() > 6) {
        TemperatureCurve outliers, gradients;
        outliers.insert(*std::next(curve.begin(), 2));
        gradients.insert(*std::next(curve.begin(), 1));
        gradients.insert(*std::next(curve.begin(), 5));
        chart.addMarks(outliers, gradients);
        chart.addDepthBounds(std::next(curve.begin(), 1)->first, std::prev(curve.end(), 2)->first);
        chart.addMeans(-5.2, -4.4);
    }
    return drawn(chart);
}

QVector<GeologyLayer> layers()
{
    return {{0.0, 1.2, "fill", 1.0, "#c0a080", "ИГЭ-1"}, {1.2, 4.0, "peat", 1.0, "", "ИГЭ-2"},
            {4.0, 4.0, "sand", 1.0, "", "ничто"},        {4.0, 9.0, "sand", 1.0, "#ffffaa", "ИГЭ-3а"},
            {9.0, 15.0, "clay", 1.0, "", "ИГЭ-4"},       {15.0, 22.0, "gravel", 1.0, "", ""}};
}

struct TemperatureSample {
    int curves = 6;
    bool limits = true, geology = false, key = true, second = false, depthAxis = false;
    QSize size = QSize(600, 500);
    double ratio = 1.0;
};

DrawnChart temperatures(const TemperatureSample& sample)
{
    const double head = 112.35, ground = 112.0;
    QVector<TemperatureCurve> curves;
    QStringList titles;
    for (const WellReading& reading : readingsOf("corvatsch/terva.csv", "5", sample.curves)) {
        curves.append(byElevation(reading.profile, ground));
        titles.append(QStringLiteral("Цикл %1").arg(curves.size()));
    }
    TSTemperatureChartJK chart;
    chart.setPictureSize(sample.size.width(), sample.size.height());
    if (sample.geology)
        chart.setGeology(layers(), head, head - ground, patternFolder());
    chart.setKeyShown(sample.key);
    chart.setKeyAtSecondPlace(sample.second);
    TemperatureLimits limits;
    if (sample.limits)
        limits = {-4.5, -1.0, ground - 10.5, ground - 2.0, ground - 12.0};
    chart.plot(curves, titles, limits, infinity, infinity);
    if (sample.depthAxis)
        chart.addDepthAxis({1.0, 3.0, 7.0, 13.0});
    return drawn(chart, sample.ratio);
}

TimeSeries dates(const QVector<QDate>& days, const QVector<double>& values)
{
    TimeSeries series;
    for (int i = 0; i < days.size(); ++i)
        series[writtenMoment(days[i], QTime(12, 0))] = values[i];
    return series;
}

std::vector<SampleChart> realCharts()
{
    return {
        {"deformation-gnss", [] { return deformation("gnss-vertical.csv", "J460", 800, 400); }},
        {"deformation-bolt", [] { return deformation("amsterdam-readings.csv", "10281002", 500, 260); }},
        {"deformation-small", [] { return deformation("gnss-vertical.csv", "Z101", 260, 160); }, false},
        {"deformation-ratio-2", [] { return deformation("gnss-vertical.csv", "G001", 500, 260, 2.0); }},
        {"thermostabiliser", [] { return thermostabiliser(); }},
        {"profile-sedov", [] { return profile(wellReadings("sedov/terva.csv")[0].profile, 400, 300, true); }},
        {"profile-storglaciaren",
         [] { return profile(wellReadings("storglaciaren/terva.csv")[20].profile, 400, 300, false); }},
        {"profile-jarvis", [] { return profile(wellReadings("jarvis-logger/terva.csv")[1].profile, 480, 420, true); }},
        {"temperatures", [] { return temperatures({}); }},
        {"temperatures-no-limits",
         [] {
             return temperatures({3, false});
         }},
        {"temperatures-geology",
         [] {
             return temperatures({4, true, true, true, true, true});
         }},
        {"temperatures-geology-key-inside",
         [] {
             return temperatures({4, true, true, true, false, true});
         }},
        {"temperatures-many",
         [] {
             return temperatures({30, true, false, true, false, false});
         }},
        {"temperatures-many-second",
         [] {
             return temperatures({30, true, true, true, true, true});
         }},
        {"temperatures-passport",
         [] {
             return temperatures({3, true, true, true, true, true, QSize(320, 380)});
         }},
        {"temperatures-ratio-2",
         [] {
             return temperatures({4, true, true, true, true, true, QSize(420, 380), 2.0});
         }},
    };
}

std::vector<SampleChart> madeUpCharts()
{
    return {
        {"water-level-12", [] { return level(wave(12, 30, -3.2, 0.8, 0.2)); }},
        {"water-level-50", [] { return level(wave(50, 30, 3.2, 0.8, 0.4)); }},
        {"water-level-small", [] { return level(wave(8, 60, -3.2, 0.8, 0.2), 300, 180); }},
        {"snow-12", [] { return snow(12, 800, 400); }},
        {"snow-small", [] { return snow(6, 360, 220); }, false},
    };
}

std::vector<SampleChart> edgeCharts()
{
    const TimeSeries far =
        dates({QDate(1911, 5, 1), QDate(1969, 12, 31), QDate(2038, 1, 20), QDate(2101, 3, 5)}, {1.0, -2.0, 3.5, 0.25});
    TimeSeries missing = wave(10, 45, 1.0, 4.0, 1.0);
    missing[std::next(missing.begin(), 3).key()] = infinity;
    missing[std::next(missing.begin(), 7).key()] = std::nan("");
    const TimeSeries equal = dates({QDate(2020, 1, 1), QDate(2020, 5, 1), QDate(2021, 1, 1)}, {7.5, 7.5, 7.5});
    const TimeSeries onlyInfinite = dates({QDate(2020, 1, 1), QDate(2020, 5, 1)}, {infinity, infinity});
    const TemperatureCurve holes{{0.5, -2.0}, {1.0, infinity}, {1.5, -3.0}, {2.0, -3.5}, {2.5, infinity}, {3.0, -3.0}};
    return {
        {"edge-no-point", [] { return level({}); }, true, true},
        {"edge-one-point", [] { return level(dates({QDate(2022, 6, 1)}, {3.25})); }},
        {"edge-equal-points", [equal] { return level(equal); }},
        {"edge-two-days",
         [] {
             return level(dates({QDate(2022, 6, 30), QDate(2022, 7, 1)}, {3.25, -3.0}));
         }},
        {"edge-missing", [missing] { return level(missing); }},
        {"edge-infinite-alone", [onlyInfinite] { return level(onlyInfinite); }},
        {"edge-far-dates", [far] { return level(far); }},
        {"edge-10000-points", [] { return level(wave(10000, 1, 3.0, 2.0, 1.0)); }, false},
        {"edge-300-points", [] { return level(wave(300, 7, 3.0, 2.0, 1.0)); }, false},
        {"edge-large-numbers", [] { return level(wave(9, 40, 1.25e9, 3.0e8, 1.0)); }},
        {"edge-tiny-picture", [] { return level(wave(9, 40, 1.0, 3.0, 1.0), 70, 44); }, false},
        {"edge-speck", [] { return level(wave(9, 40, 1.0, 3.0, 1.0), 9, 5); }, false, true},
        {"edge-no-size", [] { return level(wave(9, 40, 1.0, 3.0, 1.0), -1, 0); }, false, true},
        {"edge-profile-one-depth",
         [] {
             return profile({{2.0, -1.5}}, 400, 300, false);
         }},
        {"edge-profile-zeros",
         [] {
             return profile({{1.0, 0.0}, {2.0, 0.0}}, 400, 300, false);
         }},
        {"edge-profile-missing", [holes] { return profile(holes, 400, 300, false); }},
        {"edge-profile-none", [] { return profile({}, 400, 300, false); }, true, true},
        {"edge-temperatures-none",
         [] {
             return temperatures({0, false});
         }},
    };
}

} // namespace

std::vector<SampleChart> sampleCharts()
{
    std::vector<SampleChart> all = realCharts();
    for (const SampleChart& sample : madeUpCharts())
        all.push_back(sample);
    for (const SampleChart& sample : edgeCharts())
        all.push_back(sample);
    return all;
}
