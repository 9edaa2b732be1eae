// What an area knows of each family: rows that are found by the family's key.
#pragma once

#include "elements/families/family_key.h"

#include <QtGlobal>
#include <array>
#include <initializer_list>
#include <vector>

/// The family of a row; a row without the member `family` has a function of
/// its own.
template <class Row>
FamilyKey keyOf(const Row& row)
{
    return row.family;
}

/// A table with one row a family; one of fewer rows leaves families out. Rows
/// stand in the table's own order: a walk keeps it, a look-up does not depend
/// on it. A table that forgets a family, or names one twice, ends the program
/// when it is made: the first test that meets it tells.
template <class Row, int rowCount = familyCount>
class FamilyTable {
public:
    FamilyTable(std::initializer_list<Row> rows) : rows_(rows)
    {
        if (size() != rowCount)
            qFatal("a table of families has %d rows in place of %d", size(), rowCount);
        for (const Row& row : rows_) {
            const Row*& place = byKey_[size_t(keyOf(row))];
            if (place)
                qFatal("two rows of the family %d in one table", int(keyOf(row)));
            place = &row;
        }
    }
    FamilyTable(const FamilyTable&) = delete;
    FamilyTable& operator=(const FamilyTable&) = delete;

    /// Null for a family that the table leaves out.
    const Row* find(FamilyKey key) const { return byKey_[size_t(key)]; }

    const Row& operator[](FamilyKey key) const
    {
        static_assert(rowCount == familyCount, "a table that leaves families out is asked by find()");
        return *byKey_[size_t(key)];
    }

    int size() const { return int(rows_.size()); }
    auto begin() const { return rows_.begin(); }
    auto end() const { return rows_.end(); }

private:
    std::vector<Row> rows_;
    std::array<const Row*, familyCount> byKey_ = {};
};
