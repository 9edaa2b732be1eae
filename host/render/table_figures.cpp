#include "entity_figures.h"
#include "text_codes.h"

#include <drawing/host_access.h>

#include <cmath>

namespace {

// Space between a cell's border and its text, in heights of capitals.
constexpr double kCellMargin = 0.6;

// A table's cells in its own frame: x to the right, y upwards from the top left.
class TableFigures {
public:
    TableFigures(const NcDbTable& table, const FigureFrame& frame)
        : table_(table), frame_(frame), merges_(HostAccess::merges(table))
    {
        const NcGeVector3d x = table.direction();
        placing_.translate(table.position().x, table.position().y);
        placing_.rotateRadians(std::atan2(x.y, x.x));
    }

    void make()
    {
        for (int row = 0; row < table_.numRows(); ++row)
            for (int column = 0; column < table_.numColumns(); ++column)
                makeCell(row, column);
    }

private:
    void makeCell(int row, int column)
    {
        int lastRow = row, lastColumn = column;
        for (const auto& merge : merges_) {
            if (row < merge.minRow || row > merge.maxRow || column < merge.minColumn || column > merge.maxColumn)
                continue;
            if (row != merge.minRow || column != merge.minColumn)
                return;
            lastRow = merge.maxRow;
            lastColumn = merge.maxColumn;
        }
        const QRectF box = cellBox(row, column, lastRow, lastColumn);
        const NcDbTable::Cell* cell = table_.cell(row, column);
        if (!cell)
            return;
        const QPolygonF border = placing_.map(QPolygonF(box));
        if (cell->hasBackground)
            frame_.fill(border, figureColor(cell->background).color);
        frame_.line(border);
        makeText(*cell, box);
    }

    QRectF cellBox(int row, int column, int lastRow, int lastColumn) const
    {
        const double left = sum(column, &NcDbTable::columnWidth), right = sum(lastColumn + 1, &NcDbTable::columnWidth);
        const double top = -sum(row, heightOf()), bottom = -sum(lastRow + 1, heightOf());
        return {left, bottom, right - left, top - bottom};
    }

    using Size = double (NcDbTable::*)(int) const;
    static Size heightOf() { return &NcDbTable::rowHeight; }

    double sum(int count, Size size) const
    {
        double total = 0.0;
        for (int i = 0; i < count; ++i)
            total += (table_.*size)(i);
        return total;
    }

    void makeText(const NcDbTable::Cell& cell, const QRectF& box) const
    {
        const double height = cell.textHeight;
        if (height <= 0.0 || cell.text.isEmpty())
            return;
        const double margin = kCellMargin * height;
        const double room = (box.width() - 2.0 * margin) / height;
        const QStringList lines = wrapLines(plainParagraphs(cell.text), std::max(room, 0.1));
        const int alignment = qBound(1, cell.alignment, 9);
        const double xs[] = {box.left() + margin, box.center().x(), box.right() - margin};
        const double ys[] = {box.bottom() - margin, box.center().y(), box.top() + margin};
        QTransform local;
        local.translate(xs[(alignment - 1) % 3], ys[(alignment - 1) / 3]);
        local.scale(height, height);
        makeTextBlock(lines, alignment, local * placing_, frame_);
    }

    const NcDbTable& table_;
    const FigureFrame& frame_;
    std::decay_t<decltype(HostAccess::merges(std::declval<const NcDbTable&>()))> merges_;
    QTransform placing_;
};

} // namespace

bool makeTableFigures(const NcDbEntity& entity, const FigureFrame& frame)
{
    if (!entity.isKindOf(NcDbTable::desc()))
        return false;
    TableFigures(static_cast<const NcDbTable&>(entity), frame).make();
    return true;
}
