#include "exchange/elements/element_records.h"

#include "exchange/number_text.h"
#include "exchange/text_file.h"

#include <cmath>

namespace {

std::optional<double> numberIn(const QString& cell)
{
    double number = 0.0;
    if (!findNumber(cell, SignOf::Number, number) || !std::isfinite(number))
        return {};
    return number;
}

QVector<QStringList> transposed(const QVector<QStringList>& rows)
{
    int columns = 0;
    for (const QStringList& row : rows)
        columns = qMax(columns, row.size());
    QVector<QStringList> turned(columns);
    for (QStringList& column : turned)
        column.reserve(rows.size());
    for (const QStringList& row : rows) {
        for (int i = 0; i < columns; ++i)
            turned[i] << row.value(i);
    }
    return turned;
}

} // namespace

std::optional<double> ElementRecord::z() const
{
    if (absoluteMark || !groundMark || !height)
        return absoluteMark;
    return *groundMark + *height;
}

std::optional<double> ElementRecord::h() const
{
    if (height || !absoluteMark || !groundMark)
        return height;
    return *absoluteMark - *groundMark;
}

QVector<QStringList> cellsOf(const QStringList& lines, const QString& separator, bool byColumns)
{
    QVector<QStringList> rows;
    rows.reserve(lines.size());
    for (const QString& line : lines)
        rows << splitCells(line, separator);
    return byColumns ? transposed(rows) : rows;
}

QVector<ElementRecord> readElements(const QVector<QStringList>& rows, const ColumnRoles& roles)
{
    QVector<ElementRecord> records;
    if (!roles.has(ElementRole::Name))
        return records;
    for (const QStringList& row : rows) {
        bool holdsAnything = false;
        const auto cell = [&](int role) {
            QString text = row.value(roles.columnOf(role)).trimmed();
            holdsAnything = holdsAnything || !text.isEmpty();
            return text;
        };
        ElementRecord record;
        record.name = cell(ElementRole::Name);
        record.position = cell(ElementRole::Position);
        record.x = numberIn(cell(ElementRole::X));
        record.y = numberIn(cell(ElementRole::Y));
        record.absoluteMark = numberIn(cell(ElementRole::AbsoluteMark));
        record.groundMark = numberIn(cell(ElementRole::GroundMark));
        record.burial = numberIn(cell(ElementRole::Burial));
        record.height = numberIn(cell(ElementRole::Height));
        record.rotation = numberIn(cell(ElementRole::Rotation));
        if (holdsAnything)
            records.append(record);
    }
    return records;
}
