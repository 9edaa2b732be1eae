#pragma once
// Moments as somebody wrote them down: a date and a time of day. A clock that
// is put forward skips an hour, and in some years midnight, so that a moment in
// local time cannot hold every date that stands in a field book. Written
// moments are therefore held in UTC by form, and nothing turns them into local
// time.

#include <QDateTime>
#include <QString>

/// The date and the time of day, whatever zone the program runs in. An invalid
/// date gives a null moment, an invalid time midnight.
QDateTime writtenMoment(const QDate& date, const QTime& time = QTime(0, 0));

/// What a moment shows on its own clock.
QDateTime writtenMoment(const QDateTime& shown);

/// Reads a moment by a format of QDateTime::fromString(); null where it does
/// not fit.
QDateTime readWrittenMoment(const QString& text, const QString& format);

/// Milliseconds from 1970-01-01 00:00 on the clock on which it was written.
qint64 writtenMilliseconds(const QDateTime& moment);
