#pragma once
// The one way in which texts with markers are filled: messages, names of groups
// and files. Statements have compose(), see base/statement.h.

#include <QString>
#include <QStringList>
#include <type_traits>

/// Replaces the markers %1 to %99 of `text` by the values, the first value
/// standing for %1. Everything happens in one pass, so a value that itself
/// holds "%1" stays as it is. Two digits are read as one number as long as so
/// many values exist: "%10" with nine values is %1 followed by "0". A marker
/// without a value stays in the text.
QString fill(const QString& text, const QStringList& values);

namespace placeholders {

struct Marker {
    int number = 0; ///< 0: no marker here
    int length = 0; ///< of the marker's text, with the percent sign
};

/// The marker that begins at the percent sign, of those that `count` values fill.
Marker markerAt(const QString& text, int at, int count);

inline QString textOf(const QString& value) { return value; }
inline QString textOf(const char* value) { return QString::fromUtf8(value); }
inline QString textOf(QLatin1String value) { return value; }
inline QString textOf(QChar value) { return QString(value); }

template <typename Integer, std::enable_if_t<std::is_integral<Integer>::value, int> = 0>
QString textOf(Integer value)
{
    static_assert(!std::is_same<Integer, bool>::value, "say what true and false are to become");
    static_assert(!std::is_same<Integer, char>::value, "a single char is a number here; pass a QChar");
    return QString::number(value);
}

/// Real numbers need their number of decimals: see fixed() and general().
void textOf(double) = delete;
void textOf(float) = delete;

} // namespace placeholders

/// The same with the values listed one by one: texts and whole numbers.
template <typename First, typename... Rest,
          std::enable_if_t<!std::is_convertible<const First&, QStringList>::value
                               || std::is_convertible<const First&, QString>::value,
                           int> = 0>
QString fill(const QString& text, const First& first, const Rest&... rest)
{
    return fill(text, QStringList{placeholders::textOf(first), placeholders::textOf(rest)...});
}
