#include "charts/plotter/plot_ticks.h"

#include "base/text.h"

#include <qwt_scale_engine.h>

#include <QDateTime>
#include <cmath>

namespace {

QVector<double> sorted(const QList<double>& ticks)
{
    QVector<double> all = ticks.toVector();
    std::sort(all.begin(), all.end());
    return all;
}

// How many decimals tell ticks of this step apart.
int decimalsOf(double step)
{
    for (int decimals = 0; decimals < 10; ++decimals) {
        const double scaled = step * std::pow(10.0, decimals);
        if (std::abs(scaled - std::round(scaled)) < 1e-6 * scaled)
            return decimals;
    }
    return 10;
}

QString numberLabel(double value, double step, double largest)
{
    if (std::abs(value) < step * 1e-6)
        return QStringLiteral("0");
    if (largest >= 1e7 || step < 1e-6)
        return general(value, 10);
    return fixed(value, decimalsOf(step));
}

// Dates are plotted as they were written, in no zone: see base/written_date.h.
// Months since the year 0; there is no year 0 in QDate, so years before 1 are
// one lower there.
qint64 monthOf(double milliseconds)
{
    const QDate date = QDateTime::fromMSecsSinceEpoch(qint64(milliseconds), Qt::UTC).date();
    const qint64 year = date.year() < 0 ? date.year() + 1 : date.year();
    return year * 12 + date.month() - 1;
}

double startOfMonth(qint64 month)
{
    qint64 year = month / 12, rest = month % 12;
    if (rest < 0) {
        rest += 12;
        --year;
    }
    const QDate date(int(year > 0 ? year : year - 1), int(rest) + 1, 1);
    return double(date.startOfDay(Qt::UTC).toMSecsSinceEpoch());
}

qint64 monthStep(qint64 months, int most)
{
    static const qint64 steps[] = {1, 2, 3, 6, 12, 24, 60, 120, 240, 600, 1200};
    for (qint64 step : steps) {
        if (months / step < most)
            return step;
    }
    qint64 step = 1200;
    while (months / step >= most)
        step *= 2;
    return step;
}

// First days of every `step`-th month inside the range.
QVector<double> monthStarts(const PlotRange& range, qint64 step)
{
    QVector<double> ticks;
    const qint64 first = monthOf(range.from), last = monthOf(range.to);
    for (qint64 month = first - ((first % step) + step) % step; month <= last; month += step) {
        const double at = startOfMonth(month);
        if (at >= range.from && at <= range.to)
            ticks.append(at);
    }
    return ticks;
}

// The sub-step of months that stands between labelled ones.
qint64 minorStep(qint64 step) { return step <= 3 ? 1 : step <= 6 ? 3 : step <= 12 ? 3 : step <= 24 ? 12 : step / 5; }

} // namespace

PlotTicks numberTicks(const PlotRange& range, int most)
{
    QwtLinearScaleEngine engine;
    const QwtScaleDiv div = engine.divideScale(range.from, range.to, qMax(1, most), 5);
    PlotTicks ticks;
    ticks.major = sorted(div.ticks(QwtScaleDiv::MajorTick));
    ticks.minor = sorted(div.ticks(QwtScaleDiv::MinorTick) + div.ticks(QwtScaleDiv::MediumTick));
    const double step = ticks.major.size() > 1 ? ticks.major[1] - ticks.major[0] : range.width();
    const double largest = qMax(std::abs(range.from), std::abs(range.to));
    for (double tick : ticks.major)
        ticks.labels.append(numberLabel(tick, step, largest));
    return ticks;
}

PlotTicks dateTicks(const PlotRange& range, const QString& format, int most)
{
    const qint64 step = monthStep(monthOf(range.to) - monthOf(range.from), qMax(1, most));
    PlotTicks all;
    all.major = monthStarts(range, step);
    if (all.major.size() < 2) {
        all.major.prepend(range.from);
        if (most > 2 || all.major.size() < 2)
            all.major.append(range.to);
    } else if (minorStep(step) < step) {
        all.minor = monthStarts(range, minorStep(step));
    }
    PlotTicks told;
    told.minor = all.minor;
    for (double tick : all.major) {
        const QString label = QDateTime::fromMSecsSinceEpoch(qint64(tick), Qt::UTC).toString(format);
        if (!told.labels.isEmpty() && told.labels.last() == label) {
            told.minor.append(tick);
            continue;
        }
        told.major.append(tick);
        told.labels.append(label);
    }
    return told;
}
