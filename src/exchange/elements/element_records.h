// Elements as a file without a layout tells them: the user has said what each
// column (or row) holds.
#pragma once

#include "exchange/column_roles.h"

#include <QStringList>
#include <optional>

/// In the order of the menu; the session remembers their columns in it.
namespace ElementRole {
enum { Name, X, Y, AbsoluteMark, GroundMark, Burial, Height, Position, Rotation, Count };
}

struct ElementRecord {
    QString name;
    QString position;
    // What did not parse, or has no column, is unset.
    std::optional<double> x, y;
    std::optional<double> absoluteMark, groundMark; ///< m
    std::optional<double> burial, height;           ///< m
    std::optional<double> rotation;                 ///< of the marker, radians

    /// The absolute mark, or the ground's with the height above it.
    std::optional<double> z() const;
    /// The height, or what the absolute mark lies above the ground.
    std::optional<double> h() const;
    bool isPlaced() const { return x && y; }
    bool isValid() const { return !name.isEmpty() && isPlaced(); }
};

/// The cells of a file, row by row; transposed where a record stands in a column.
QVector<QStringList> cellsOf(const QStringList& lines, const QString& separator, bool byColumns);

/// A record a row that holds anything under a role; none without a column of names.
QVector<ElementRecord> readElements(const QVector<QStringList>& rows, const ColumnRoles& roles);
