#include "table_block.h"

#include <drawing/host_access.h>

#include <cmath>
#include <numeric>

namespace {

constexpr int kMostCells = 1000000;
// Space between a cell's border and its text, in heights of the text.
constexpr double kMargin = 0.6;

void addColor(const NcCmColor& color, OwnValues& values)
{
    const bool exact = color.method() == NcCmColor::kByColor;
    values.addInteger(exact ? 1 : 0);
    values.addInteger(exact ? (color.red() << 16) | (color.green() << 8) | color.blue() : color.colorIndex());
}

NcCmColor takeColor(OwnValues& values)
{
    const bool exact = values.integer() == 1;
    const int value = values.integer();
    NcCmColor color;
    if (exact)
        color.setRGB((value >> 16) & 255, (value >> 8) & 255, value & 255);
    else
        color.setColorIndex(value);
    return color;
}

void addCell(const NcDbTable::Cell& cell, OwnValues& values)
{
    values.addText(cell.text);
    values.addReal(cell.textHeight);
    values.addInteger(cell.alignment);
    values.addInteger(cell.hasBackground ? 1 : 0);
    if (cell.hasBackground)
        addColor(cell.background, values);
}

NcDbTable::Cell takeCell(OwnValues& values)
{
    NcDbTable::Cell cell;
    cell.text = values.text();
    cell.textHeight = values.real();
    cell.alignment = values.integer();
    cell.hasBackground = values.integer() == 1;
    if (cell.hasBackground)
        cell.background = takeColor(values);
    return cell;
}

void takeMerges(OwnValues& values, NcDbTable& table)
{
    auto& merges = HostAccess::merges(table);
    const int count = values.integer();
    for (int i = 0; i < count && !values.atEnd(); ++i) {
        merges.emplace_back();
        auto& merge = merges.back();
        for (int* number : {&merge.minRow, &merge.maxRow, &merge.minColumn, &merge.maxColumn})
            *number = values.integer();
    }
}

// A cell with what is merged into it.
struct Box {
    double left, right, top, bottom;
};

class TableBlock {
public:
    explicit TableBlock(const NcDbTable& table) : table_(table) { }

    std::vector<std::unique_ptr<NcDbEntity>> make()
    {
        for (int row = 0; row < table_.numRows(); ++row) {
            for (int column = 0; column < table_.numColumns(); ++column)
                makeCell(row, column);
        }
        return std::move(entities_);
    }

private:
    void makeCell(int row, int column)
    {
        int lastRow = row, lastColumn = column;
        for (const auto& merge : HostAccess::merges(table_)) {
            const bool inside =
                row >= merge.minRow && row <= merge.maxRow && column >= merge.minColumn && column <= merge.maxColumn;
            if (!inside)
                continue;
            if (row != merge.minRow || column != merge.minColumn)
                return;
            lastRow = merge.maxRow;
            lastColumn = merge.maxColumn;
        }
        const Box box{sum(HostAccess::widths(table_), column), sum(HostAccess::widths(table_), lastColumn + 1),
                      -sum(HostAccess::heights(table_), row), -sum(HostAccess::heights(table_), lastRow + 1)};
        const NcDbTable::Cell& cell = *table_.cell(row, column);
        if (cell.hasBackground)
            addGround(box, cell.background);
        addBorder(box);
        addText(box, cell);
    }

    static double sum(const std::vector<double>& sizes, int count)
    {
        return std::accumulate(sizes.begin(), sizes.begin() + std::min(count, int(sizes.size())), 0.0);
    }

    template <class Entity>
    void add(std::unique_ptr<Entity> entity)
    {
        HostAccess::layer(*entity) = table_.layer();
        entities_.push_back(std::move(entity));
    }

    static std::vector<NcGePoint2d> corners(const Box& box)
    {
        return {{box.left, box.top}, {box.right, box.top}, {box.right, box.bottom}, {box.left, box.bottom}};
    }

    void addGround(const Box& box, const NcCmColor& color)
    {
        auto hatch = std::make_unique<NcDbHatch>();
        HostAccess::loops(*hatch).push_back({NcDbHatch::kPolyline, corners(box), {0, 0, 0, 0}});
        HostAccess::color(*hatch) = color;
        add(std::move(hatch));
    }

    void addBorder(const Box& box)
    {
        auto border = std::make_unique<NcDbPolyline>();
        for (const NcGePoint2d& corner : corners(box))
            HostAccess::vertices(*border).push_back({corner, 0.0, 0.0, 0.0});
        HostAccess::closed(*border) = true;
        HostAccess::color(*border) = table_.color();
        add(std::move(border));
    }

    void addText(const Box& box, const NcDbTable::Cell& cell)
    {
        if (cell.text.trimmed().isEmpty() || !(cell.textHeight > 0.0))
            return;
        const double margin = kMargin * cell.textHeight;
        const int place = qBound(1, cell.alignment, 9) - 1;
        const double xs[] = {box.left + margin, (box.left + box.right) / 2.0, box.right - margin};
        const double ys[] = {box.top - margin, (box.top + box.bottom) / 2.0, box.bottom + margin};
        auto text = std::make_unique<NcDbMText>();
        HostAccess::contents(*text) = cell.text;
        HostAccess::location(*text) = {xs[place % 3], ys[place / 3], 0.0};
        HostAccess::height(*text) = cell.textHeight;
        HostAccess::width(*text) = std::max(0.0, box.right - box.left - 2.0 * margin);
        HostAccess::attachment(*text) = place + 1;
        HostAccess::color(*text) = table_.color();
        add(std::move(text));
    }

    const NcDbTable& table_;
    std::vector<std::unique_ptr<NcDbEntity>> entities_;
};

} // namespace

double tableRotation(const NcDbTable& table)
{
    const double angle = std::atan2(table.direction().y, table.direction().x);
    return angle < 0.0 ? angle + 6.283185307179586 : angle;
}

void addTable(const NcDbTable& table, OwnValues& values)
{
    values.addReal(table.direction().x);
    values.addReal(table.direction().y);
    values.addReal(table.direction().z);
    values.addInteger(table.numRows());
    values.addInteger(table.numColumns());
    for (double height : HostAccess::heights(table))
        values.addReal(height);
    for (double width : HostAccess::widths(table))
        values.addReal(width);
    for (const NcDbTable::Cell& cell : HostAccess::cells(table))
        addCell(cell, values);
    values.addInteger(qint64(HostAccess::merges(table).size()));
    for (const auto& merge : HostAccess::merges(table)) {
        for (int number : {merge.minRow, merge.maxRow, merge.minColumn, merge.maxColumn})
            values.addInteger(number);
    }
}

std::unique_ptr<NcDbTable> tableOf(OwnValues values, const NcGePoint3d& position, double rotation)
{
    auto table = std::make_unique<NcDbTable>();
    NcGeVector3d direction;
    for (double* number : {&direction.x, &direction.y, &direction.z})
        *number = values.real();
    const int rows = values.integer(), columns = values.integer();
    if (rows < 1 || columns < 1 || rows > kMostCells / columns || direction.length() == 0.0)
        return nullptr;
    HostAccess::rows(*table) = rows;
    HostAccess::columns(*table) = columns;
    HostAccess::position(*table) = position;
    HostAccess::direction(*table) = direction;
    for (int i = 0; i < rows; ++i)
        HostAccess::heights(*table).push_back(values.real());
    for (int i = 0; i < columns; ++i)
        HostAccess::widths(*table).push_back(values.real());
    for (int i = 0; i < rows * columns; ++i)
        HostAccess::cells(*table).push_back(takeCell(values));
    takeMerges(values, *table);
    if (std::abs(tableRotation(*table) - rotation) > 1e-9)
        HostAccess::direction(*table) = {std::cos(rotation), std::sin(rotation), 0.0};
    return table;
}

std::vector<std::unique_ptr<NcDbEntity>> tableFigures(const NcDbTable& table) { return TableBlock(table).make(); }
