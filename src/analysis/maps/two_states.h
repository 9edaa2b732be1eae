// What has been measured of a map's elements in its two states: a statement
// tells how one element is read, and many are read together by it.
#pragma once

#include "analysis/maps/map_place.h"
#include "database/sql/result.h"

// The rows that a statement has for one element, in no order.
class ElementRows {
public:
    ElementRows(const sql::Result& result, const std::vector<int>& rows) : result_(result), rows_(rows) { }

    int count() const { return int(rows_.size()); }
    // Columns count as in the statement.
    QString text(int row, int column) const { return result_.getvalue(rows_[size_t(row)], column + 1); }
    int number(int row, int column) const { return result_.toInt(rows_[size_t(row)], column + 1); }
    double real(int row, int column, bool* ok) const { return result_.toDouble(rows_[size_t(row)], column + 1, ok); }

private:
    const sql::Result& result_;
    const std::vector<int>& rows_;
};

// Stands for the element's id where a statement about one element is composed.
extern const char* const kElementInTurn;

using TakeElement = std::function<void(const MapElement&, const ElementRows& base, const ElementRows& current)>;

// Hands over what both statements have for every element, in the elements' order.
Loaded readTwoStates(const std::vector<MapElement>& elements, const Statement& base, const Statement& current,
                     const TakeElement& take, const MapProgress& progress);
