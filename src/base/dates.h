// Dates as files and statements write them.
#pragma once

#include <QDateTime>
#include <QString>

// A date's own functions go by the language of the system: in an Arabic or
// Persian one they write its digits and read no others. What stands in files and
// statements has the digits of ASCII everywhere. Formats are those of the toolkit.
QString dateText(const QDate& date, const QString& format);
QString dateText(const QDateTime& when, const QString& format);

// Null where the format does not fit.
QDate dateFrom(const QString& text, const QString& format);
QTime timeFrom(const QString& text, const QString& format);
// In local time: for what somebody wrote down see readWrittenMoment().
QDateTime dateTimeFrom(const QString& text, const QString& format);
