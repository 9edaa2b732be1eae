#include "exchange/elements/placed_elements.h"

#include <cmath>

namespace {

constexpr double nearness = 0.0001; // m
constexpr double cellSize = 0.001;  // a point's neighbours lie in its cell or in one beside it

bool isNear(const PlacedElement& element, double x, double y)
{
    return std::hypot(element.x - x, element.y - y) < nearness;
}

int smaller(int first, int other) { return first == -1 || (other != -1 && other < first) ? other : first; }

} // namespace

PlacedElements::Cell PlacedElements::cellOf(double x, double y)
{
    const auto number = [](double coordinate) {
        constexpr double most = 1e15; // beyond it a double knows no millimetres
        return qint64(std::floor(qBound(-most, coordinate / cellSize, most)));
    };
    return {number(x), number(y)};
}

void PlacedElements::append(const PlacedElement& element)
{
    const int row = rows_.size();
    rows_.append(element);
    byId_.insert(element.id, row);
    byName_.insert(element.name, row);
    byCell_.insert(cellOf(element.x, element.y), row);
}

void PlacedElements::change(const PlacedElement& element)
{
    const int row = byId_.value(element.id, -1);
    if (row == -1)
        return;
    PlacedElement& held = rows_[row];
    byName_.remove(held.name, row);
    byCell_.remove(cellOf(held.x, held.y), row);
    held = element;
    byName_.insert(held.name, row);
    byCell_.insert(cellOf(held.x, held.y), row);
}

int PlacedElements::firstOfName(const QString& name) const
{
    int first = -1;
    for (auto it = byName_.constFind(name); it != byName_.constEnd() && it.key() == name; ++it)
        first = smaller(first, it.value());
    return first;
}

int PlacedElements::firstNear(double x, double y) const
{
    const Cell centre = cellOf(x, y);
    int first = -1;
    for (qint64 column = centre.first - 1; column <= centre.first + 1; ++column) {
        for (qint64 line = centre.second - 1; line <= centre.second + 1; ++line) {
            const Cell cell(column, line);
            for (auto it = byCell_.constFind(cell); it != byCell_.constEnd() && it.key() == cell; ++it) {
                if (isNear(rows_[it.value()], x, y))
                    first = smaller(first, it.value());
            }
        }
    }
    return first;
}

ElementMatch PlacedElements::find(const QString& name, double x, double y, PlacedElement* found) const
{
    const int named = firstOfName(name);
    const int placed = firstNear(x, y);
    const int row = smaller(named, placed);
    if (row == -1)
        return ElementMatch::New;
    *found = rows_[row];
    if (row != named)
        return ElementMatch::OtherName;
    return isNear(*found, x, y) ? ElementMatch::Same : ElementMatch::OtherPlace;
}
