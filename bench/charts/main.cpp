// How long pictures of charts take: 200 charts of 50 points, and one of 100 000
// points of each kind, at 800 by 400. Prints both the clock's and the
// processor's time, as other programs run beside this one. An argument chooses
// the lines that hold it.
#include "charts/measure_chart.h"
#include "charts/temperature_chart.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTextStream>
#include <cmath>
#include <ctime>

namespace {

struct Bound {
    QString name;
    double seconds;
    std::function<void()> work;
};

TimeSeries seriesOf(int count)
{
    TimeSeries series;
    quint32 random = 1;
    const QDateTime first(QDate(2015, 1, 1), QTime(12, 0));
    for (int i = 0; i < count; ++i) {
        random = random * 1664525u + 1013904223u;
        series.insert(series.end(), first.addSecs(qint64(i) * 36000), 0.05 * std::sin(i * 0.1) + random / 4.3e11);
    }
    return series;
}

TemperatureCurve profileOf(int count)
{
    TemperatureCurve curve;
    for (int i = 0; i < count; ++i)
        curve.emplace_hint(curve.end(), i * 0.5, -3.0 + std::sin(i * 0.21) + i * 0.1 / count);
    return curve;
}

void drawDeformation(const TimeSeries& series)
{
    DMDeformationChartJK chart;
    chart.setPictureSize(800, 400);
    chart.plotDisplacement(series);
    chart.render();
}

void drawLevel(const TimeSeries& series)
{
    GGSMeasureChartJK chart;
    chart.setPictureSize(800, 400);
    chart.plotLevel(series);
    chart.render();
}

void drawProfile(const TemperatureCurve& curve)
{
    TSDataChartJK chart;
    chart.setPictureSize(800, 400);
    chart.setProfile(curve);
    chart.render();
}

void drawTemperatures(const TemperatureCurve& curve)
{
    TSTemperatureChartJK chart;
    chart.setPictureSize(800, 400);
    chart.plot({curve}, {QStringLiteral("Цикл 1")}, {}, -10.0, 10.0);
    chart.render();
}

// The best of three. False when the processor needs more than the bound.
bool measure(const Bound& bound, QTextStream& out)
{
    double clockBest = 1e9, processorBest = 1e9;
    for (int run = 0; run < 3; ++run) {
        QElapsedTimer timer;
        timer.start();
        const std::clock_t before = std::clock();
        bound.work();
        processorBest = qMin(processorBest, double(std::clock() - before) / CLOCKS_PER_SEC);
        clockBest = qMin(clockBest, timer.nsecsElapsed() * 1e-9);
    }
    const bool good = processorBest <= bound.seconds;
    out << bound.name << ": " << QString::number(clockBest, 'f', 3) << " s (processor "
        << QString::number(processorBest, 'f', 3) << " s), bound " << QString::number(bound.seconds, 'f', 1) << " s"
        << (good ? "" : "  MISSED") << '\n';
    return good;
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const TimeSeries few = seriesOf(50), many = seriesOf(100000);
    const TemperatureCurve deep = profileOf(100000);
    drawLevel(few); // fonts are read once
    const auto times = [](int count, const std::function<void()>& work) {
        return [count, work] {
            for (int i = 0; i < count; ++i)
                work();
        };
    };
    const QVector<Bound> bounds{
        {QStringLiteral("200 deformation charts of 50 points"), 1.5, times(200, [&] { drawDeformation(few); })},
        {QStringLiteral("200 level charts of 50 points"), 1.5, times(200, [&] { drawLevel(few); })},
        {QStringLiteral("1 level chart of 100000 points"), 0.2, [&] { drawLevel(many); }},
        {QStringLiteral("1 deformation chart of 100000 points"), 0.2, [&] { drawDeformation(many); }},
        {QStringLiteral("1 profile of 100000 points"), 0.2, [&] { drawProfile(deep); }},
        {QStringLiteral("1 temperature chart of 100000 points"), 0.2, [&] { drawTemperatures(deep); }},
    };
    QTextStream out(stdout);
    bool good = true;
    for (const Bound& bound : bounds) {
        if (argc < 2 || bound.name.contains(QString::fromLocal8Bit(argv[1])))
            good = measure(bound, out) && good;
    }
    return good ? 0 : 1;
}
