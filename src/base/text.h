#pragma once
// How numbers become texts everywhere in the system. The locale never plays a
// part: the decimal sign is a point.

#include <QString>

/// Fixed notation with `decimals` digits behind the point. Exact ties are
/// rounded away from zero (0.125 with two decimals is "0.13"), a negative
/// number that rounds to nothing keeps its sign ("-0.00"), a negative zero
/// loses it.
QString fixed(double value, int decimals);

/// The shorter of fixed and scientific notation with `digits` significant
/// digits and no trailing zeros.
QString general(double value, int digits = 6);

/// A whole number in base 36, digits and lower-case letters.
QString base36(qint64 number);

/// A whole number in base 31, digits and lower-case letters.
QString base31(qint64 number);

/// The seconds since 1970: what names of groups and kept files are stamped with.
qint64 secondsNow();

/// The number widened to `width` with zeros at its left. The zeros go before a
/// minus sign too: padded(-5, 3) is "0-5".
QString padded(int number, int width);
