#include "base/dates.h"

#include <QLocale>

QString dateText(const QDate& date, const QString& format) { return QLocale::c().toString(date, format); }

QString dateText(const QDateTime& when, const QString& format) { return QLocale::c().toString(when, format); }

QDate dateFrom(const QString& text, const QString& format) { return QLocale::c().toDate(text, format); }

QTime timeFrom(const QString& text, const QString& format) { return QLocale::c().toTime(text, format); }

QDateTime dateTimeFrom(const QString& text, const QString& format) { return QLocale::c().toDateTime(text, format); }
