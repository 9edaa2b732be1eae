#pragma once
// Reading the rows of a table of elements and cycles.

#include "base/statement.h"
#include "elements/list/cycle_table.h"
#include "elements/list/hierarchy.h"

#include <functional>
#include <optional>

namespace sql {
class Result;
}

/// Told how many of the elements are done; false stops the work.
using ElementProgress = std::function<bool(int done, int total)>;

/// Fills what is in the row beside the element's id and name.
using RowReader = std::function<void(const sql::Result& elements, int at, CycleRow& row)>;

/// A row for each element that the statement gives, its id and name first.
/// Nothing when it was refused or the work was stopped.
std::optional<CycleRows> readElementRows(const Statement& statement, const RowReader& read,
                                         const ElementProgress& progress);
