// Dates of a series as plotted: milliseconds since 1970.
#pragma once

#include <QDateTime>
#include <QList>
#include <QVector>

/// toMSecsSinceEpoch() of each, for ascending dates. Asking the system about
/// local time is slow, so where both ends of a stretch of up to a week are as
/// far apart on the clock as in truth, so are the dates between them: no clock
/// is put forward and back within a week.
QVector<double> epochTimes(const QList<QDateTime>& dates);
