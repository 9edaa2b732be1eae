#include "class_table.h"
#include "entity_clone.h"
#include "entity_shape.h"

#include <numeric>

NCRX_DEFINE(NcDbTable, NcDbEntity)

namespace {
const double kRowHeight = 10.0, kColumnWidth = 30.0;
const int kMostCells = 1000000;

double at(const std::vector<double>& sizes, int index)
{
    return index >= 0 && size_t(index) < sizes.size() ? sizes[size_t(index)] : 0.0;
}
} // namespace

NcStatus NcDbTable::setSize(int rows, int columns)
{
    if (rows < 1 || columns < 1 || rows > kMostCells / columns)
        return NcStatus::InvalidInput;
    if (!writable())
        return NcStatus::NotOpenForWrite;
    std::vector<Cell> cells(size_t(rows) * size_t(columns));
    for (int row = 0; row < std::min(rows, rows_); ++row)
        for (int column = 0; column < std::min(columns, columns_); ++column)
            cells[size_t(row * columns + column)] = cells_[size_t(row * columns_ + column)];
    cells_ = std::move(cells);
    heights_.resize(size_t(rows), kRowHeight);
    widths_.resize(size_t(columns), kColumnWidth);
    rows_ = rows;
    columns_ = columns;
    merges_.clear();
    changed();
    return NcStatus::Ok;
}

void NcDbTable::setPosition(const NcGePoint3d& p) { assign(position_, p); }

void NcDbTable::setDirection(const NcGeVector3d& x)
{
    if (x.length() > 0.0)
        assign(direction_, x.normal());
}

NcStatus NcDbTable::setRowHeight(int row, double height)
{
    return row < 0 || row >= rows_ || !(height > 0.0) ? NcStatus::InvalidInput : assign(heights_[size_t(row)], height);
}

NcStatus NcDbTable::setRowHeight(double height)
{
    return !(height > 0.0) ? NcStatus::InvalidInput : assign(heights_, std::vector<double>(size_t(rows_), height));
}

double NcDbTable::rowHeight(int row) const { return at(heights_, row); }

NcStatus NcDbTable::setColumnWidth(int column, double width)
{
    return column < 0 || column >= columns_ || !(width > 0.0) ? NcStatus::InvalidInput
                                                              : assign(widths_[size_t(column)], width);
}

double NcDbTable::columnWidth(int column) const { return at(widths_, column); }

template <class Change>
NcStatus NcDbTable::changeCell(int row, int column, const Change& change)
{
    if (!cell(row, column))
        return NcStatus::InvalidInput;
    if (!writable())
        return NcStatus::NotOpenForWrite;
    change(cells_[size_t(row * columns_ + column)]);
    changed();
    return NcStatus::Ok;
}

NcStatus NcDbTable::setTextString(int row, int column, const QString& text)
{
    return changeCell(row, column, [&](Cell& cell) { cell.text = text; });
}

QString NcDbTable::textString(int row, int column) const
{
    const Cell* found = cell(row, column);
    return found ? found->text : QString();
}

NcStatus NcDbTable::setTextHeight(int row, int column, double height)
{
    return !(height > 0.0) ? NcStatus::InvalidInput
                           : changeCell(row, column, [&](Cell& cell) { cell.textHeight = height; });
}

NcStatus NcDbTable::setAlignment(int row, int column, int alignment)
{
    return alignment < 1 || alignment > 9 ? NcStatus::InvalidInput
                                          : changeCell(row, column, [&](Cell& cell) { cell.alignment = alignment; });
}

NcStatus NcDbTable::setBackgroundColor(int row, int column, const NcCmColor& color)
{
    return changeCell(row, column, [&](Cell& cell) {
        cell.hasBackground = true;
        cell.background = color;
    });
}

const NcDbTable::Cell* NcDbTable::cell(int row, int column) const
{
    const bool inside = row >= 0 && row < rows_ && column >= 0 && column < columns_;
    return inside ? &cells_[size_t(row * columns_ + column)] : nullptr;
}

NcStatus NcDbTable::mergeCells(int minRow, int maxRow, int minColumn, int maxColumn)
{
    if (!cell(minRow, minColumn) || !cell(maxRow, maxColumn) || maxRow < minRow || maxColumn < minColumn)
        return NcStatus::InvalidInput;
    for (const Merge& merge : merges_)
        if (minRow <= merge.maxRow && maxRow >= merge.minRow && minColumn <= merge.maxColumn
            && maxColumn >= merge.minColumn)
            return NcStatus::Duplicate;
    if (!writable())
        return NcStatus::NotOpenForWrite;
    merges_.push_back({minRow, maxRow, minColumn, maxColumn});
    changed();
    return NcStatus::Ok;
}

NcStatus NcDbTable::transformBy(const NcGeMatrix3d& matrix)
{
    if (!writable())
        return NcStatus::NotOpenForWrite;
    const double scale = PlaneChange(matrix).scale;
    const NcGeVector3d direction = matrix * direction_;
    position_ = matrix * position_;
    if (direction.length() > 0.0)
        direction_ = direction.normal();
    for (double& height : heights_)
        height *= scale;
    for (double& width : widths_)
        width *= scale;
    for (Cell& cell : cells_)
        cell.textHeight *= scale;
    changed();
    return NcStatus::Ok;
}

std::optional<NcGeExtents> NcDbTable::extents() const
{
    const double width = std::accumulate(widths_.begin(), widths_.end(), 0.0);
    const double height = std::accumulate(heights_.begin(), heights_.end(), 0.0);
    const NcGeVector3d down = direction_.crossProduct(NcGeVector3d::kZAxis) * height;
    ExtentsBuilder box;
    for (const NcGeVector3d& corner : {NcGeVector3d(), direction_ * width, down, direction_ * width + down})
        box.add(position_ + corner);
    return box.result();
}

NcDbEntity* NcDbTable::clone() const
{
    return cloned(*this, [&](NcDbTable& copy) {
        copy.rows_ = rows_;
        copy.columns_ = columns_;
        copy.position_ = position_;
        copy.direction_ = direction_;
        copy.heights_ = heights_;
        copy.widths_ = widths_;
        copy.cells_ = cells_;
        copy.merges_ = merges_;
    });
}
