#pragma once
// How values are written into the cells and the file names of reports.

#include <QDate>
#include <QString>

namespace cells {

/// With a plus sign before a value above zero, whatever it rounds to.
QString withSign(double value, int decimals);
/// The same for differences: what rounds to nothing is "0.0" without a sign.
QString difference(double value, int decimals = 1);

/// Decimal degrees as `N55°04'12.30"`, the letter telling the half of the
/// earth: the first of the two for 0 and above.
QString degrees(double angle, QChar positive, QChar negative);
inline QString latitude(double angle) { return degrees(angle, 'N', 'S'); }
inline QString longitude(double angle) { return degrees(angle, 'E', 'W'); }

/// "Дек. 2022"
QString monthOfYear(const QDate& date);

/// The name without the signs that no file may have in its name.
QString fileName(const QString& name);
/// Where the document of an element or a position goes.
QString documentPath(const QString& folder, const QString& name);

/// "Цикл 9 (01.07.23 - 31.07.23)" of the session's cycle; empty for an unknown one.
QString cycleName(int cycleId);
/// The number of the session's cycle.
QString cycleNumber(int cycleId);
/// The day on which the session's cycle starts; null for an unknown one.
QDate cycleStart(int cycleId);

} // namespace cells
