// A named coordinate system as one text of the database: ten fields joined by
// "&", the name and nine numbers with 6 decimals.
#pragma once

#include <nrx/geometry.h>

#include <QString>
#include <array>
#include <optional>

struct UcsRecord {
    /// Origin, X axis, Y axis, three each.
    using Numbers = std::array<double, 9>;

    QString name;
    Numbers numbers{};

    UcsRecord() = default;
    UcsRecord(const QString& ucsName, const Numbers& values) : name(ucsName), numbers(values) { }
    UcsRecord(const QString& ucsName, const NcGePoint3d& origin, const NcGeVector3d& x, const NcGeVector3d& y);

    NcGePoint3d origin() const { return {numbers[0], numbers[1], numbers[2]}; }
    NcGeVector3d xAxis() const { return {numbers[3], numbers[4], numbers[5]}; }
    NcGeVector3d yAxis() const { return {numbers[6], numbers[7], numbers[8]}; }

    /// The ten fields; the name is expected to be a storable one.
    QString text() const;
};

/// The nine numbers of a stored text; nothing when it does not hold ten fields
/// (an old name may hold the separator) or one is no number.
std::optional<UcsRecord::Numbers> ucsNumbers(const QString& text);

/// The name with a blank for every character that names of the drawing do not take.
QString cleanUcsName(const QString& name);

/// The same, and a blank for the separator of the fields.
QString storableUcsName(const QString& name);
