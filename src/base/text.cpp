#include "base/text.h"

#include <QDateTime>

QString fixed(double value, int decimals) { return QString::number(value, 'f', decimals); }

QString general(double value, int digits) { return QString::number(value, 'g', digits); }

QString base36(qint64 number) { return QString::number(number, 36); }

QString base31(qint64 number) { return QString::number(number, 31); }

qint64 secondsNow() { return QDateTime::currentSecsSinceEpoch(); }

QString padded(int number, int width) { return QString::number(number).rightJustified(width, QLatin1Char('0')); }
