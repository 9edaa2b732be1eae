#include "base/written_date.h"

#include "base/dates.h"

QDateTime writtenMoment(const QDate& date, const QTime& time)
{
    if (!date.isValid())
        return {};
    return QDateTime(date, time.isValid() ? time : QTime(0, 0), Qt::UTC);
}

QDateTime writtenMoment(const QDateTime& shown) { return writtenMoment(shown.date(), shown.time()); }

// Without a zone in the text the moment would be read as local time, and fail
// where the local clock skips it.
QDateTime readWrittenMoment(const QString& text, const QString& format)
{
    const QDateTime moment = dateTimeFrom(text + QStringLiteral(" UTC"), format + QStringLiteral(" t"));
    return moment.isValid() ? writtenMoment(moment) : QDateTime();
}

qint64 writtenMilliseconds(const QDateTime& moment) { return writtenMoment(moment).toMSecsSinceEpoch(); }
