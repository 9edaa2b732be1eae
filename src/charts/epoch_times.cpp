#include "charts/epoch_times.h"

namespace {

constexpr qint64 day = 86400000;

// What the clock shows from the one to the other.
qint64 clockDistance(const QDateTime& from, const QDateTime& to)
{
    return from.date().daysTo(to.date()) * day + from.time().msecsTo(to.time());
}

} // namespace

QVector<double> epochTimes(const QList<QDateTime>& dates)
{
    QVector<double> times;
    times.reserve(dates.size());
    int first = 0;
    while (first < dates.size()) {
        QVector<qint64> distances{0};
        int last = first;
        while (last + 1 < dates.size() && dates[first].timeSpec() == Qt::LocalTime
               && dates[last + 1].timeSpec() == Qt::LocalTime) {
            const qint64 distance = clockDistance(dates[first], dates[last + 1]);
            if (distance > 7 * day)
                break;
            distances.append(distance);
            ++last;
        }
        const qint64 start = dates[first].toMSecsSinceEpoch();
        const bool even = dates[last].toMSecsSinceEpoch() - start == distances.last();
        for (int i = first; i <= last; ++i)
            times.append(double(even ? start + distances[i - first] : dates[i].toMSecsSinceEpoch()));
        first = last + 1;
    }
    return times;
}
